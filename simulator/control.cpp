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

// What a routine gives: the lines of its answer without "ok", or `problem`.
struct Answer {
    std::string lines;
    std::string problem;
};

Answer bad(const std::string& problem) {
    return {"", problem};
}

Answer alarm(Front& front, const Words& words) {
    if (words.size() == 2 && words[1] == "clear") {
        front.controller.clearAlarm(milliseconds());
        return {};
    }
    // Class and code may stand apart.
    std::size_t at = 2;
    std::string text = words.size() > 1 ? words[1] : "";
    if (text.size() == 1 && words.size() > 2 && words[2].size() == 1)
        text += words[at++];
    const auto parsed = parseAlarm(text);
    if (!parsed)
        return bad("\"" + text + "\" is neither class and code nor an error reply");
    std::optional<Millis> goesOutAfter;
    bool announce = false;
    for (; at < words.size(); ++at) {
        if (words[at] == "announce") {
            announce = true;
        } else if (words[at] == "for" && at + 1 < words.size()) {
            goesOutAfter = fromDecimal(words[++at], 3'600'000);
            if (!goesOutAfter || !parsed->resettable())
                return bad("\"for\" wants a time in ms and a resettable alarm");
        } else {
            return bad("\"" + words[at] + "\" is not understood");
        }
    }
    front.controller.raiseAlarm(*parsed, milliseconds(), goesOutAfter, announce);
    return {};
}

Answer power(Front& front, const Words& words) {
    if (words.size() == 2 && words[1] == "off") {
        front.controller.powerOff(milliseconds());
        front.leaving.clear();
    } else if (words.size() == 2 && words[1] == "on") {
        front.controller.powerOn(milliseconds());
    } else {
        return bad("power off or power on");
    }
    return {};
}

Answer hangUp(Front& front, const Words&) {
    pullCable(front);
    return {};
}

Answer plugIn(Front& front, const Words&) {
    if (front.terminal.master >= 0)
        return bad("the cable is plugged in");
    std::string problem;
    if (!plug(front.terminal, problem))
        return bad(problem);
    tellPlace(front, "plugged");
    return {};
}

Answer input(Front& front, const Words& words) {
    if (words.size() != 2 || words[1].size() != 6 || !isHex(words[1]))
        return bad("input wants six hexadecimal digits");
    front.controller.setInputs(static_cast<std::uint32_t>(fromHex(words[1])), milliseconds());
    return {};
}

Answer homing(Front& front, const Words& words) {
    if (words.size() != 2 || (words[1] != "fails" && words[1] != "works"))
        return bad("homing fails or homing works");
    front.controller.setHomeSensorFails(words[1] == "fails");
    return {};
}

Answer fault(Front& front, const Words& words) {
    if (words.size() == 2 && words[1] == "clear") {
        front.controller.clearFaults();
        return {};
    }
    std::string problem;
    if (words.size() != 2 || !front.controller.addFault(words[1], problem))
        return bad(problem.empty() ? "fault wants a rule or \"clear\"" : problem);
    return {};
}

Answer mask(Front& front, const Words& words) {
    const auto axes = words.size() == 2 ? parseMask(words[1]) : std::nullopt;
    if (!axes)
        return bad("mask wants a hexadecimal number from 0 to F");
    front.controller.setAxisMask(*axes);
    return {};
}

Answer stats(Front& front, const Words& words) {
    if (words.size() == 2 && words[1] == "clear") {
        front.controller.clearCounters();
        return {};
    }
    Answer answer;
    for (const auto& [word, times] : front.controller.counts())
        answer.lines += word + " " + std::to_string(times) + "\n";
    return answer;
}

Answer frames(Front& front, const Words& words) {
    const auto wanted = words.size() == 2 ? fromDecimal(words[1], 20000) : std::nullopt;
    if (!wanted)
        return bad("frames wants a number");
    const auto& all = front.controller.frames();
    const std::size_t count = std::min(static_cast<std::size_t>(*wanted), all.size());
    Answer answer;
    for (std::size_t i = all.size() - count; i < all.size(); ++i)
        answer.lines += std::to_string(all[i].at) + " " + all[i].frame + "\n";
    return answer;
}

Answer state(Front& front, const Words&) {
    const Machine& machine = front.controller.machine();
    Answer answer;
    answer.lines += std::string("power ") + (front.controller.powered() ? "on" : "off") + "\n";
    answer.lines += "alarm " + (machine.alarm ? machine.alarm->text() : "none") + "\n";
    answer.lines += "mode " + std::to_string(machine.mode) + "\n";
    answer.lines += std::string("motion ") + (moving(machine) ? "running" : "at rest") + "\n";
    answer.lines += "homed " + toHex(static_cast<int>(machine.homed), 1) + "\n";
    answer.lines += "positions";
    for (int axis = 0; axis < AxisCountMax; ++axis) {
        answer.lines += ' ';
        answer.lines += std::to_string(front.controller.position(axis, milliseconds()));
    }
    answer.lines += "\noutputs " + toHex(static_cast<int>(machine.outputs), 6) + "\n";
    return answer;
}

Answer save(Front& front, const Words&) {
    std::string problem;
    return keepMemory(front, problem) ? Answer{} : bad(problem);
}

Answer quit(Front& front, const Words&) {
    front.ended = true;
    return {};
}

struct Control {
    const char* word;
    Answer (*routine)(Front&, const Words&);
    const char* help;
};

constexpr std::array<Control, 13> Controls{{
    {"alarm", alarm, "alarm 0 6 [for MS] [announce]; alarm clear"},
    {"power", power, "power off, power on"},
    {"hangup", hangUp, "hangup: pull the cable"},
    {"plug", plugIn, "plug: a fresh terminal, told by \"qd-k8-sim plugged on ...\""},
    {"input", input, "input HHHHHH: the input lines, as 0RI tells them"},
    {"homing", homing, "homing fails, homing works"},
    {"fault", fault, "fault RULE, fault clear"},
    {"mask", mask, "mask HEX: axes in use"},
    {"stats", stats, "stats, stats clear: how often each command came"},
    {"frames", frames, "frames N: the last N frames, with their time in ms"},
    {"state", state, "state: power, alarm, mode, motion, positions, outputs"},
    {"save", save, "save: the lasting memory to its file, now"},
    {"quit", quit, "quit"},
}};

} // namespace

std::string obeyControl(Front& front, const std::string& line) {
    std::istringstream stream(line);
    Words words;
    for (std::string word; stream >> word;)
        words.push_back(word);
    if (words.empty())
        return "";
    const auto* known = std::find_if(Controls.begin(), Controls.end(),
                                     [&](const Control& c) { return words[0] == c.word; });
    if (known == Controls.end())
        return "error: \"" + words[0] + "\" is not a command; see --help\n";
    const Answer answer = known->routine(front, words);
    if (!answer.problem.empty())
        return "error: " + answer.problem + "\n";
    return answer.lines + "ok\n";
}

std::string controlHelp() {
    std::string help;
    for (const Control& control : Controls)
        help += std::string("    ") + control.help + "\n";
    return help;
}

} // namespace qdk8
