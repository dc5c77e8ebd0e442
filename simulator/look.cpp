#include "simulator/look.h"

#include "simulator/front_control.h"
#include "simulator/motion.h"

#include <cstdint>
#include <mutex>
#include <unistd.h>

namespace qdk8 {
namespace {

AxisLook LookAtAxis(const Machine& machine, int axis, Millis now) {
    const unsigned bit = 1U << static_cast<unsigned>(axis);
    AxisLook look;
    look.used = (AxesInUse(machine) & bit) != 0;
    look.homed = (machine.homed & bit) != 0;
    look.moves = AxisMoves(machine, axis, now);
    look.position = PresentPosition(machine, axis, now);
    look.slide = SlidePosition(machine, axis, now);
    look.stroke = StrokeEnd(machine.working, axis);
    look.pulsesPerMm = PulsesPerMm(machine.working, axis);
    return look;
}

} // namespace

Look LookAt(Front& front) {
    const std::lock_guard held(front.lock);
    const Millis now = Milliseconds();
    const Machine& machine = front.controller.machine();
    Look look;
    look.powered = front.controller.powered();
    look.plugged = front.terminal.master >= 0;
    look.homingFails = machine.homeSensorFails;
    if (machine.alarm) {
        look.alarm = machine.alarm->text();
    }
    look.inputs = machine.inputs;
    look.outputs = machine.outputs;
    for (int axis = 0; axis < kAxisCountMax; ++axis) {
        look.axes[static_cast<std::size_t>(axis)] = LookAtAxis(machine, axis, now);
    }
    for (const FaultRule& rule : front.controller.faults()) {
        if (!rule.spent()) {
            look.faults.push_back(rule.text);
        }
    }
    look.place = front.terminal.slave;
    if (!front.controller.frames().empty()) {
        look.request = front.controller.frames().back().frame;
    }
    look.ended = front.ended;
    return look;
}

std::string GiveOrder(Front& front, const std::string& line) {
    std::string answer;
    {
        const std::lock_guard held(front.lock);
        answer = ObeyFront(front, line);
        const std::uint64_t once = 1;
        [[maybe_unused]] const ssize_t woken = ::write(front.wake, &once, sizeof once);
    }
    const std::string mark = "error: ";
    return answer.rfind(mark, 0) == 0 ? answer.substr(mark.size(), answer.size() - mark.size() - 1)
                                      : "";
}

} // namespace qdk8
