#pragma once

#include "simulator/controller.h"

#include <string>

// Sends one frame at `now` and gives everything that has come back by `until` (by `now` if left
// out), terminators included.
inline std::string Ask(qdk8::Controller& controller, const std::string& frame, qdk8::Millis now,
                       qdk8::Millis until = -1) {
    controller.receive(frame + "\r\n", now);
    std::string replies;
    for (const qdk8::Outgoing& out : controller.takeDue(until < 0 ? now : until)) {
        replies += out.hangUp ? "<hang-up>" : out.bytes;
    }
    return replies;
}

// Takes the controller from event to event, as an owner with a clock does, until it has nothing
// more to do by itself or `limit` is reached; gives the moment of the last event.
inline qdk8::Millis RunDown(qdk8::Controller& controller, qdk8::Millis now,
                            qdk8::Millis limit = 600000) {
    while (const auto next = controller.nextDue()) {
        if (*next > limit) {
            break;
        }
        now = *next;
        controller.takeDue(now);
    }
    return now;
}

// Homes all axes; gives the moment at which they stand.
inline qdk8::Millis Home(qdk8::Controller& controller, qdk8::Millis now) {
    Ask(controller, "0MM000F", now);
    return RunDown(controller, now);
}
