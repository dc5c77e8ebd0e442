#include "simulator/control.h"

#include "simulator/front.h"
#include "simulator/motion.h"

#include <algorithm>
#include <array>
#include <sstream>
#include <vector>

namespace qdk8 {
namespace {

using Words = std::vector<std::string>;

/// What a routine gives: the lines of its answer without "ok", or `problem`.
struct Answer {
    std::string lines;
    std::string problem;
};

Answer Bad(const std::string& problem) {
    return {"", problem};
}

Answer OrderAlarm(Front& front, const Words& words) {
    if (words.size() == 2 && words[1] == "clear") {
        front.controller.clearAlarm(Milliseconds());
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
        return Bad("\"" + text + "\" is neither class and code nor an error reply");
    }
    std::optional<Millis> goesOutAfter;
    bool announce = false;
    for (; at < words.size(); ++at) {
        if (words[at] == "announce") {
            announce = true;
        } else if (words[at] == "for" && at + 1 < words.size()) {
            goesOutAfter = FromDecimal(words[++at], 3'600'000);
            if (!goesOutAfter || !parsed->resettable()) {
                return Bad("\"for\" wants a time in ms and a resettable alarm");
            }
        } else {
            return Bad("\"" + words[at] + "\" is not understood");
        }
    }
    front.controller.raiseAlarm(*parsed, Milliseconds(), goesOutAfter, announce);
    return {};
}

Answer Power(Front& front, const Words& words) {
    if (words.size() == 2 && words[1] == "off") {
        front.controller.powerOff(Milliseconds());
        front.leaving.clear();
    } else if (words.size() == 2 && words[1] == "on") {
        front.controller.powerOn(Milliseconds());
    } else {
        return Bad("power off or power on");
    }
    return {};
}

Answer HangUp(Front& front, const Words&) {
    PullCable(front);
    return {};
}

Answer PlugIn(Front& front, const Words&) {
    if (front.terminal.master >= 0) {
        return Bad("the cable is plugged in");
    }
    std::string problem;
    if (!Plug(front.terminal, problem)) {
        return Bad(problem);
    }
    TellPlace(front, "plugged");
    return {};
}

Answer Input(Front& front, const Words& words) {
    if (words.size() != 2 || words[1].size() != 6 || !IsHex(words[1])) {
        return Bad("input wants six hexadecimal digits");
    }
    front.controller.setInputs(static_cast<std::uint32_t>(FromHex(words[1])), Milliseconds());
    return {};
}

Answer Homing(Front& front, const Words& words) {
    if (words.size() != 2 || (words[1] != "fails" && words[1] != "works")) {
        return Bad("homing fails or homing works");
    }
    front.controller.setHomeSensorFails(words[1] == "fails");
    return {};
}

Answer OrderFault(Front& front, const Words& words) {
    if (words.size() == 2 && words[1] == "clear") {
        front.controller.clearFaults();
        return {};
    }
    std::string problem;
    if (words.size() != 2 || !front.controller.addFault(words[1], problem)) {
        return Bad(problem.empty() ? "fault wants a rule or \"clear\"" : problem);
    }
    return {};
}

Answer Mask(Front& front, const Words& words) {
    const auto axes = words.size() == 2 ? ParseMask(words[1]) : std::nullopt;
    if (!axes) {
        return Bad("mask wants a hexadecimal number from 0 to F");
    }
    front.controller.setAxisMask(*axes);
    return {};
}

Answer Stats(Front& front, const Words& words) {
    if (words.size() == 2 && words[1] == "clear") {
        front.controller.clearCounters();
        return {};
    }
    Answer answer;
    for (const auto& [word, times] : front.controller.counts()) {
        answer.lines += word + " " + std::to_string(times) + "\n";
    }
    return answer;
}

Answer Frames(Front& front, const Words& words) {
    const auto wanted = words.size() == 2 ? FromDecimal(words[1], 20000) : std::nullopt;
    if (!wanted) {
        return Bad("frames wants a number");
    }
    const auto& all = front.controller.frames();
    const std::size_t count = std::min(static_cast<std::size_t>(*wanted), all.size());
    Answer answer;
    for (std::size_t i = all.size() - count; i < all.size(); ++i) {
        answer.lines += std::to_string(all[i].at) + " " + all[i].frame + "\n";
    }
    return answer;
}

Answer State(Front& front, const Words&) {
    const Machine& machine = front.controller.machine();
    Answer answer;
    answer.lines += std::string("power ") + (front.controller.powered() ? "on" : "off") + "\n";
    answer.lines += "alarm " + (machine.alarm ? machine.alarm->text() : "none") + "\n";
    answer.lines += "mode " + std::to_string(machine.mode) + "\n";
    answer.lines += std::string("motion ") + (Moving(machine) ? "running" : "at rest") + "\n";
    answer.lines += "homed " + ToHex(static_cast<int>(machine.homed), 1) + "\n";
    answer.lines += "positions";
    for (int axis = 0; axis < kAxisCountMax; ++axis) {
        answer.lines += ' ';
        answer.lines += std::to_string(front.controller.position(axis, Milliseconds()));
    }
    answer.lines += "\noutputs " + ToHex(static_cast<int>(machine.outputs), 6) + "\n";
    return answer;
}

Answer Save(Front& front, const Words&) {
    std::string problem;
    return KeepMemory(front, problem) ? Answer{} : Bad(problem);
}

Answer Quit(Front& front, const Words&) {
    front.ended = true;
    return {};
}

struct Control {
    const char* word;
    Answer (*routine)(Front&, const Words&);
    const char* help;
};

constexpr std::array<Control, 13> kControls{{
    {"alarm", OrderAlarm, "alarm 0 6 [for MS] [announce]; alarm clear"},
    {"power", Power, "power off, power on"},
    {"hangup", HangUp, "hangup: pull the cable"},
    {"plug", PlugIn, "plug: a fresh terminal, told by \"qd-k8-sim plugged on ...\""},
    {"input", Input, "input HHHHHH: the input lines, as 0RI tells them"},
    {"homing", Homing, "homing fails, homing works"},
    {"fault", OrderFault, "fault RULE, fault clear"},
    {"mask", Mask, "mask HEX: axes in use"},
    {"stats", Stats, "stats, stats clear: how often each command came"},
    {"frames", Frames, "frames N: the last N frames, with their time in ms"},
    {"state", State, "state: power, alarm, mode, motion, positions, outputs"},
    {"save", Save, "save: the lasting memory to its file, now"},
    {"quit", Quit, "quit"},
}};

} // namespace

std::string ObeyControl(Front& front, const std::string& line) {
    std::istringstream stream(line);
    Words words;
    for (std::string word; stream >> word;) {
        words.push_back(word);
    }
    if (words.empty()) {
        return "";
    }
    const auto* known = std::find_if(kControls.begin(), kControls.end(),
                                     [&](const Control& c) { return words[0] == c.word; });
    if (known == kControls.end()) {
        return "error: \"" + words[0] + "\" is not a command; see --help\n";
    }
    const Answer answer = known->routine(front, words);
    if (!answer.problem.empty()) {
        return "error: " + answer.problem + "\n";
    }
    return answer.lines + "ok\n";
}

std::string ControlHelp() {
    std::string help;
    for (const Control& control : kControls) {
        help += std::string("    ") + control.help + "\n";
    }
    return help;
}

} // namespace qdk8
