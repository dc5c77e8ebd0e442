#include "simulator/options.h"

#include <algorithm>

namespace qdk8 {
namespace {

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
        {"--identity", "a text of six characters",
         [](const std::string& v, Options& o) { return TakeSix(v, o.identity); }},
        {"--board", "a text of six characters",
         [](const std::string& v, Options& o) { return TakeSix(v, o.board); }},
        {"--handful", "a number from 1 to 4096",
         [](const std::string& v, Options& o) {
             o.handful = ParseHandful(v);
             return o.handful.has_value();
         }},
        {"--language", "en or ja",
         [](const std::string& v, Options& o) {
             o.language = v;
             return v == "en" || v == "ja";
         }},
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
    if (name == "--version") {
        return &options.version;
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
    if (name == "--window") {
        return &options.window;
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

std::optional<std::size_t> ParseHandful(std::string_view text) {
    const auto number = FromDecimal(text, 4096);
    return number && *number > 0 ? std::optional(static_cast<std::size_t>(*number)) : std::nullopt;
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

} // namespace qdk8
