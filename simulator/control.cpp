#include "simulator/control.h"

#include "simulator/motion.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace qdk8 {
namespace {

struct Desk {
    Controller& controller;
    Millis now;
};

OrderResult OrderAlarm(Desk& desk, const Words& words) {
    if (words.size() == 2 && words[1] == "clear") {
        desk.controller.clearAlarm(desk.now);
        return {};
    }
    // Class and code may stand apart.
    std::size_t at = 2;
    std::string text = words.size() > 1 ? words[1] : "";
    if (text.size() == 1 && words.size() > 2 && words[2].size() == 1) {
        text += words[at++];
    }
    const auto parsed = ParseAlarm(text);
    if (!parsed) {
        return Refusing("\"" + text + "\" is neither class and code nor an error reply");
    }
    std::optional<Millis> goesOutAfter;
    bool announce = false;
    for (; at < words.size(); ++at) {
        if (words[at] == "announce") {
            announce = true;
        } else if (words[at] == "for" && at + 1 < words.size()) {
            goesOutAfter = FromDecimal(words[++at], kLongestWait);
            if (!goesOutAfter || !parsed->resettable()) {
                return Refusing("\"for\" wants a time in ms and a resettable alarm");
            }
        } else {
            return Refusing("\"" + words[at] + "\" is not understood");
        }
    }
    desk.controller.raiseAlarm(*parsed, desk.now, goesOutAfter, announce);
    return {};
}

OrderResult Power(Desk& desk, const Words& words) {
    if (words.size() == 2 && words[1] == "off") {
        desk.controller.powerOff(desk.now);
    } else if (words.size() == 2 && words[1] == "on") {
        desk.controller.powerOn(desk.now);
    } else {
        return Refusing("power off or power on");
    }
    return {};
}

OrderResult Axes(Desk& desk, const Words& words) {
    const auto axes = words.size() == 2 ? FromDecimal(words[1], kAxisCountMax) : std::nullopt;
    if (!axes || *axes < 1) {
        return Refusing("axes wants a number from 1 to 4");
    }
    desk.controller.setAxisCount(static_cast<int>(*axes));
    return {};
}

OrderResult Identity(Desk& desk, const Words& words) {
    if (words.size() != 2 || words[1].size() != 6) {
        return Refusing("identity wants six characters");
    }
    desk.controller.setIdentity(words[1]);
    return {};
}

OrderResult Board(Desk& desk, const Words& words) {
    const auto axis = words.size() == 3 ? FromDecimal(words[1], kAxisCountMax) : std::nullopt;
    if (!axis || *axis < 1 || words[2].size() != 6) {
        return Refusing("board wants an axis from 1 to 4 and six characters");
    }
    desk.controller.setBoard(static_cast<int>(*axis), words[2]);
    return {};
}

OrderResult Row(Desk& desk, const Words& words) {
    if (words.size() != 3 || words[1].size() != 3 || !IsHex(words[1]) || words[2].size() != 40) {
        return Refusing("row wants a number of three digits and 40 characters");
    }
    const int position = FromHex(words[1]);
    if (position < 1 || position > kPositionCount) {
        return Refusing("rows go from 001 to 3E7");
    }
    desk.controller.setPositionRow(position, words[2]);
    return {};
}

OrderResult Block(Desk& desk, const Words& words) {
    if (words.size() != 3 || words[1].size() != 1 || !IsHex(words[1]) || words[2].size() != 32) {
        return Refusing("block wants a number of one digit and 32 characters");
    }
    const int block = FromHex(words[1]);
    if (block >= kBlockCount) {
        return Refusing("blocks go from 0 to C");
    }
    desk.controller.setBlock(block, words[2]);
    return {};
}

OrderResult Turnaround(Desk& desk, const Words& words) {
    const auto time = words.size() == 2 ? FromDecimal(words[1], kLongestWait) : std::nullopt;
    if (!time) {
        return Refusing("turnaround wants a time in ms");
    }
    desk.controller.setTurnaround(*time);
    return {};
}

OrderResult Say(Desk& desk, const Words& words) {
    const auto text = words.size() == 2 ? Unescaped(words[1]) : std::nullopt;
    if (!text) {
        return Refusing("say wants a text; \\r, \\n, \\s and \\\\ are CR, LF, a blank and \\");
    }
    desk.controller.say(*text, desk.now);
    return {};
}

/// The word that an order leaves of the one that stands: the digits, or with "on" or "off" behind
/// them those lines alone.
std::optional<std::uint32_t> LinesAfter(std::uint32_t before, const Words& words) {
    if (words.size() < 2 || words[1].size() != 6 || !IsHex(words[1])) {
        return std::nullopt;
    }
    const auto digits = static_cast<std::uint32_t>(FromHex(words[1]));
    if (words.size() == 2) {
        return digits;
    }
    if (words.size() > 3 || (words[2] != "on" && words[2] != "off")) {
        return std::nullopt;
    }
    return words[2] == "on" ? before | digits : before & ~digits;
}

OrderResult Input(Desk& desk, const Words& words) {
    const auto lines = LinesAfter(desk.controller.machine().inputs, words);
    if (!lines) {
        return Refusing("input wants six hexadecimal digits, and may have on or off behind them");
    }
    desk.controller.setInputs(*lines, desk.now);
    return {};
}

OrderResult Output(Desk& desk, const Words& words) {
    desk.controller.settle(desk.now);
    const auto lines = LinesAfter(desk.controller.machine().outputs, words);
    if (!lines) {
        return Refusing("output wants six hexadecimal digits, and may have on or off behind them");
    }
    desk.controller.setOutputs(*lines);
    return {};
}

OrderResult Homing(Desk& desk, const Words& words) {
    if (words.size() != 2 || (words[1] != "fails" && words[1] != "works")) {
        return Refusing("homing fails or homing works");
    }
    desk.controller.setHomeSensorFails(words[1] == "fails");
    return {};
}

OrderResult Homed(Desk& desk, const Words& words) {
    const auto axes = words.size() == 2 ? ParseMask(words[1]) : std::nullopt;
    if (!axes) {
        return Refusing("homed wants a hexadecimal number from 0 to F");
    }
    desk.controller.setHomed(*axes);
    return {};
}

OrderResult Place(Desk& desk, const Words& words) {
    const auto axis = words.size() == 3 ? FromDecimal(words[1], kAxisCountMax) : std::nullopt;
    const auto pulses = words.size() == 3 ? FromDecimal(words[2], 0xFFFFF) : std::nullopt;
    if (!axis || *axis < 1 || !pulses ||
        !desk.controller.place(static_cast<int>(*axis - 1), static_cast<int>(*pulses), desk.now)) {
        return Refusing("place wants an axis from 1 to 4 and pulses within its stroke, at rest");
    }
    return {};
}

OrderResult OrderFault(Desk& desk, const Words& words) {
    if (words.size() == 2 && words[1] == "clear") {
        desk.controller.clearFaults();
        return {};
    }
    if (words.size() == 3 && words[2] == "off") {
        return desk.controller.removeFault(words[1]) ? OrderResult{}
                                                     : Refusing("there is no such rule");
    }
    std::string problem;
    if (words.size() != 2 || !desk.controller.addFault(words[1], problem)) {
        return Refusing(problem.empty() ? "fault wants a rule or \"clear\"" : problem);
    }
    return {};
}

OrderResult Mask(Desk& desk, const Words& words) {
    const auto axes = words.size() == 2 ? ParseMask(words[1]) : std::nullopt;
    if (!axes) {
        return Refusing("mask wants a hexadecimal number from 0 to F");
    }
    desk.controller.setAxisMask(*axes);
    return {};
}

OrderResult Stats(Desk& desk, const Words& words) {
    if (words.size() == 2 && words[1] == "clear") {
        desk.controller.clearCounters();
        return {};
    }
    OrderResult result;
    for (const auto& [word, times] : desk.controller.counts()) {
        result.lines += word + " " + std::to_string(times) + "\n";
    }
    return result;
}

OrderResult Frames(Desk& desk, const Words& words) {
    const auto wanted = words.size() == 2 ? FromDecimal(words[1], 20000) : std::nullopt;
    if (!wanted) {
        return Refusing("frames wants a number");
    }
    const auto& all = desk.controller.frames();
    const std::size_t count = std::min(static_cast<std::size_t>(*wanted), all.size());
    OrderResult result;
    for (std::size_t i = all.size() - count; i < all.size(); ++i) {
        result.lines += std::to_string(all[i].at) + " " + all[i].frame + "\n";
    }
    return result;
}

OrderResult State(Desk& desk, const Words&) {
    desk.controller.settle(desk.now);
    const Machine& machine = desk.controller.machine();
    OrderResult result;
    result.lines += std::string("power ") + (desk.controller.powered() ? "on" : "off") + "\n";
    result.lines += "alarm " + (machine.alarm ? machine.alarm->text() : "none") + "\n";
    result.lines += "mode " + std::to_string(machine.mode) + "\n";
    result.lines += std::string("motion ") + (Moving(machine) ? "running" : "at rest") + "\n";
    result.lines += "homed " + ToHex(static_cast<int>(machine.homed), 1) + "\n";
    result.lines += "positions";
    for (int axis = 0; axis < kAxisCountMax; ++axis) {
        result.lines += ' ';
        result.lines += std::to_string(desk.controller.position(axis, desk.now));
    }
    result.lines += "\noutputs " + ToHex(static_cast<int>(machine.outputs), 6) + "\n";
    result.lines += "inputs " + ToHex(static_cast<int>(machine.inputs), 6) + "\n";
    return result;
}

OrderResult Motion(Desk& desk, const Words&) {
    desk.controller.settle(desk.now);
    const Machine& machine = desk.controller.machine();
    OrderResult result{"now " + std::to_string(desk.now) + "\n", ""};
    for (int axis = 0; axis < kAxisCountMax; ++axis) {
        const bool moves = AxisMoves(machine, axis, desk.now);
        result.lines += "axis " + std::to_string(axis + 1) + " at " +
                        std::to_string(PresentPosition(machine, axis, desk.now)) +
                        (moves ? " moves" : " stands since ") +
                        (moves ? "" : std::to_string(StandsSince(machine, axis))) + "\n";
    }
    return result;
}

constexpr std::array<Order<Desk>, 20> kOrders{{
    {"alarm", OrderAlarm, "alarm 0 6 [for MS] [announce]; alarm clear"},
    {"power", Power, "power off, power on"},
    {"axes", Axes, "axes N: the controller has N axes"},
    {"mask", Mask, "mask HEX: axes in use"},
    {"identity", Identity, "identity TEXT: the six characters of the reply to 0RV"},
    {"board", Board, "board N TEXT: the six characters of the board of axis N"},
    {"row", Row, "row 3E7 TEXT: the 40 characters of a position row, checked by nobody"},
    {"block", Block, "block C TEXT: the 32 characters of a block, checked by nobody"},
    {"input", Input, "input HHHHHH [on|off]: all input lines as 0RI tells them, or these alone"},
    {"output", Output, "output HHHHHH [on|off]: the same for the output lines, as 0RO tells them"},
    {"homing", Homing, "homing fails, homing works"},
    {"homed", Homed, "homed HEX: these axes count as homed, without a homing"},
    {"place", Place, "place N PULSES: where axis N stands"},
    {"turnaround", Turnaround, "turnaround MS: time from a request to its reply"},
    {"say", Say, "say TEXT: TEXT goes out unasked; \\r\\n is CR LF, \\s a blank, \\\\ is \\"},
    {"fault", OrderFault, "fault RULE, fault RULE off, fault clear"},
    {"stats", Stats, "stats, stats clear: how often each command came"},
    {"frames", Frames, "frames N: the last N frames, with their time in ms"},
    {"motion", Motion, "motion: the time in ms; each axis: pulses, moves or since when it stands"},
    {"state", State, "state: power, alarm, mode, motion, positions, outputs, inputs"},
}};

} // namespace

OrderResult ObeyControl(Controller& controller, const Words& words, Millis now) {
    const Order<Desk>* order = words.empty() ? nullptr : FindOrder(kOrders, words[0]);
    if (order == nullptr) {
        return Refusing("\"" + (words.empty() ? "" : words[0]) + "\" is not an order; see --help");
    }
    Desk desk{controller, now};
    return order->routine(desk, words);
}

std::string ControlHelp() {
    return HelpOf(kOrders);
}

} // namespace qdk8
