#include "support/simulated_line.h"

#include <algorithm>

namespace qdw8::test {

SimulatedLine::SimulatedLine(ScriptedPlatform& scripted) : platform(scripted) {
    platform.onOutput = [this](const std::string& text) {
        controller.receive(text, platform.now);
        deliver();
    };
}

/// Hands over what the controller has sent by now, and comes again when more is due.
void SimulatedLine::deliver() {
    for (const qdk8::Outgoing& out : controller.takeDue(platform.now)) {
        if (!out.bytes.empty()) {
            platform.arrive(0, out.bytes);
        }
        if (out.hangUp) {
            platform.after(0, [this] { platform.breakLine(); });
        }
    }
    if (const auto due = controller.nextDue()) {
        platform.after(std::max<std::int64_t>(*due - platform.now, 1), [this] { deliver(); });
    }
}

} // namespace qdw8::test
