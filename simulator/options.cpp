#include "simulator/options.h"

#include "simulator/control.h"

#include <algorithm>
#include <functional>

namespace qdk8 {
namespace {

constexpr Millis kLongestWait = 3'600'000;

/// One option that takes a value: gives false and a word on what it wants if the value is bad.
struct Valued {
    const char* name;
    const char* wants;
    bool (*take)(const std::string& value, Options& options);
};

bool TakeText(const std::string& value, std::string& text) {
    text = value;
    return !value.empty();
}

bool TakeSix(const std::string& value, std::string& text) {
    text = value;
    return value.size() == 6;
}

bool TakeAxes(const std::string& value, Options& options) {
    const auto axes = FromDecimal(value, kAxisCountMax);
    if (!axes || *axes < 1) {
        return false;
    }
    options.axes = static_cast<int>(*axes);
    return true;
}

bool TakeAlarm(const std::string& value, Options& options) {
    const std::size_t colon = value.find(':');
    const auto alarm = ParseAlarm(std::string_view(value).substr(0, colon));
    if (!alarm) {
        return false;
    }
    options.alarm = AlarmOrder{*alarm, {}};
    if (colon == std::string::npos) {
        return true;
    }
    options.alarm->goesOutAfter =
        FromDecimal(std::string_view(value).substr(colon + 1), kLongestWait);
    return options.alarm->goesOutAfter.has_value() && alarm->resettable();
}

const std::vector<Valued>& ValuedOptions() {
    static const std::vector<Valued> all{
        {"--link", "the name of a link",
         [](const std::string& v, Options& o) { return TakeText(v, o.link); }},
        {"--memory", "the name of a file",
         [](const std::string& v, Options& o) { return TakeText(v, o.memoryFile); }},
        {"--axes", "a number from 1 to 4", TakeAxes},
        {"--mask", "a hexadecimal number from 0 to F",
         [](const std::string& v, Options& o) {
             o.mask = ParseMask(v);
             return o.mask.has_value();
         }},
        {"--identity", "six characters",
         [](const std::string& v, Options& o) { return TakeSix(v, o.identity); }},
        {"--board", "six characters",
         [](const std::string& v, Options& o) { return TakeSix(v, o.board); }},
        {"--alarm", "class and code or an error reply, and :MS only for class 0", TakeAlarm},
        {"--turnaround", "a time in ms",
         [](const std::string& v, Options& o) {
             o.turnaround = FromDecimal(v, kLongestWait);
             return o.turnaround.has_value();
         }},
    };
    return all;
}

bool* FlagOf(const std::string& name, Options& options) {
    if (name == "--help" || name == "-h") {
        return &options.help;
    }
    if (name == "--unpaced") {
        return &options.unpaced;
    }
    if (name == "--control") {
        return &options.control;
    }
    if (name == "--trace") {
        return &options.trace;
    }
    if (name == "--blank") {
        return &options.blank;
    }
    if (name == "--homing-fails") {
        return &options.homingFails;
    }
    return nullptr;
}

bool TakeValue(const std::string& name, const std::string& value, Options& options,
               std::string& problem) {
    if (name == "--fault") {
        FaultRule rule;
        if (!ParseFaultRule(value, rule, problem)) {
            problem = "--fault " + value + ": " + problem;
            return false;
        }
        options.faults.push_back(rule);
        return true;
    }
    const std::vector<Valued>& all = ValuedOptions();
    const auto known =
        std::find_if(all.begin(), all.end(), [&](const Valued& v) { return name == v.name; });
    if (known->take(value, options)) {
        return true;
    }
    problem = name + " " + value + ": " + known->wants + " is wanted";
    return false;
}

bool IsValued(const std::string& name) {
    const std::vector<Valued>& all = ValuedOptions();
    return name == "--fault" ||
           std::any_of(all.begin(), all.end(), [&](const Valued& v) { return name == v.name; });
}

} // namespace

std::optional<unsigned> ParseMask(std::string_view text) {
    if (text.empty() || text.size() > 2 || !IsHex(text) || FromHex(text) > 15) {
        return std::nullopt;
    }
    return static_cast<unsigned>(FromHex(text));
}

bool ParseOptions(const std::vector<std::string>& arguments, Options& options,
                  std::string& problem) {
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (bool* flag = FlagOf(arguments[i], options)) {
            *flag = true;
            continue;
        }
        const std::size_t equal = arguments[i].find('=');
        const std::string name = arguments[i].substr(0, equal);
        if (!IsValued(name)) {
            problem = "\"" + arguments[i] + "\" is no option; see --help";
            return false;
        }
        std::string value;
        if (equal != std::string::npos) {
            value = arguments[i].substr(equal + 1);
        } else if (i + 1 < arguments.size()) {
            value = arguments[++i];
        } else {
            problem = name + " needs a value; see --help";
            return false;
        }
        if (!TakeValue(name, value, options, problem)) {
            return false;
        }
    }
    return true;
}

std::string HelpText() {
    return R"(qd-k8-sim: a QD-K8 positioning controller on a pseudo-terminal.

usage: qd-k8-sim [OPTION]...

It prints one line as soon as a program can connect:
    qd-k8-sim ready on /dev/pts/N
and runs until SIGINT, SIGTERM or SIGHUP, or "quit" on a --control input. The
controller stands ready with four axes, nothing homed, and data in all 999 rows.

The line
    --link PATH       make a symbolic link PATH to the terminal, and take it away
                      at the end; a link that is there is replaced, a file is not
    --unpaced         as fast as possible; else 9600 baud, 10 bits a character,
                      in both directions
    --turnaround MS   time from a request to its reply (0)
    --trace           show on standard error what goes over the line

The machine
    --memory FILE     keep the lasting memory in FILE; it is made if it is not
                      there. Blocks, groups and macros last once they are
                      committed (0WE), positions as soon as they are written.
                      What is not committed is lost when power goes off
    --blank           start with empty tables (not with a FILE that exists)
    --axes N          a controller with N axes (4)
    --mask HEX        axes in use, bit 0 AXIS 1 to bit 3 AXIS 4 (F); of those
                      that the controller has
    --identity TEXT   the six characters of the reply to 0RV (140A40)
    --board TEXT      the six characters of each axis board (121K8R)
    --homing-fails    no homing finds its sensor: alarm 0%%134
    --alarm ALARM     start with an alarm up: class and code, such as 06, or the
                      whole reply, such as 0%%134. With :MS behind it a
                      resettable alarm (class 0) goes out by itself, as in 06:3000

Faults
    --fault RULE      may be given often; of several rules that fit, the first
                      counts. RULE is COMMAND:OCCURRENCE:FAULT, as in
                      0RP:3:silence, 0WE2:*:error=05, *:10+:late=1500
    COMMAND           the beginning of the frames meant, or * for every frame
    OCCURRENCE        counted among those frames: 3, 2-5, 4+ or *
    FAULT             one of
)" + FaultHelp() +
           R"(
Control
    --control         read commands from standard input, one on a line; each is
                      answered on standard output, the last line being "ok" or
                      "error: ...". The end of the input ends the simulator
)" + ControlHelp() +
           R"(
Alarms, by class and code (class 0 can be reset, class 1 takes a power cycle)
    A request is refused with, which puts no alarm up:
        01 Command not understood
        02 Value out of range
        03 Homing not completed
        04 Axis not in use
        05 Writing refused during movement
        0D Start refused during movement
    The machine raises by itself:
        07 Soft limit exceeded
        08 Position data invalid
        09 Group data invalid
        0B Sequence macro input wait timed out
        14 Home sensor not detected
        1E Writing to the non-volatile memory failed
    Any other comes only when it is asked for, by --alarm, "alarm" on the control
    input or the fault "error":
        06 Stop input is on
        11 Overcurrent in the motor drive
        and so on

Exit status: 0 after an ordinary end, 1 when something cannot be done, 2 for a
wrong option.
)";
}

} // namespace qdk8
