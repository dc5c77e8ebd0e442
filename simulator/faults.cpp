#include "simulator/faults.h"

#include "simulator/commands.h"

#include <algorithm>
#include <array>

namespace qdk8 {
namespace {

/// Long enough for the reply to have been taken by itself, short for whoever asks next.
constexpr Millis kStrayWait = 20;

enum class Value { None, Number, Text, Alarm };

struct FaultName {
    const char* name;
    FaultKind kind;
    Value value;
    const char* standard; ///< the value when none is given; null: one must be given
    const char* help;
};

constexpr std::array<FaultName, 16> kNames{{
    {"silence", FaultKind::Silence, Value::None, "", "obeyed, but the reply is lost"},
    {"deaf", FaultKind::Deaf, Value::None, "", "the request is lost: not obeyed, no reply"},
    {"late", FaultKind::Late, Value::Number, nullptr,
     "late=MS: the reply comes MS later, and those behind it after it"},
    {"part", FaultKind::Part, Value::Number, nullptr, "part=N: N characters, then silence"},
    {"bytes", FaultKind::Bytes, Value::Number, "20",
     "bytes=MS: one character at a time, MS apart (20)"},
    {"noise-before", FaultKind::NoiseBefore, Value::Text, "~#?",
     "noise-before=TEXT: TEXT (\"~#?\") in front of the reply"},
    {"noise-inside", FaultKind::NoiseInside, Value::Text, "~#?",
     "noise-inside=TEXT: TEXT (\"~#?\") in the middle of the reply"},
    {"stray", FaultKind::Stray, Value::Text, "~#?\\r\\n",
     "stray=TEXT: the reply, and 20 ms behind it TEXT (\"~#?\\r\\n\"), unasked"},
    {"echo", FaultKind::Echo, Value::Text, "0ZZ",
     "echo=TEXT: TEXT (\"0ZZ\") in place of the echoed word"},
    {"long", FaultKind::TooLong, Value::None, "", "one character too many"},
    {"short", FaultKind::TooShort, Value::None, "", "one character too few"},
    {"twice", FaultKind::Twice, Value::None, "", "the reply two times in one burst"},
    {"error", FaultKind::Error, Value::Alarm, nullptr,
     "error=06 or error=0%%134: not obeyed, this error reply"},
    {"reply", FaultKind::Reply, Value::Text, nullptr, "reply=TEXT: obeyed, TEXT as the reply"},
    {"previous", FaultKind::Previous, Value::None, "", "the reply to the request before"},
    {"hangup", FaultKind::HangUp, Value::Number, "0",
     "hangup=N: N characters (0), then the cable is pulled"},
}};

std::string Quoted(std::string_view text) {
    std::string all = "\"";
    all += text;
    return all + "\"";
}

bool ParseOccurrence(std::string_view text, FaultRule& rule) {
    constexpr Millis kMost = 1'000'000'000;
    if (text == "*") {
        return true;
    }
    const std::size_t dash = text.find('-');
    const bool open = !text.empty() && text.back() == '+';
    const auto first =
        FromDecimal(open ? text.substr(0, text.size() - 1) : text.substr(0, dash), kMost);
    if (!first || *first < 1) {
        return false;
    }
    rule.first = static_cast<long>(*first);
    if (open) {
        return true;
    }
    rule.last = rule.first;
    if (dash == std::string_view::npos) {
        return true;
    }
    const auto last = FromDecimal(text.substr(dash + 1), kMost);
    if (!last || *last < *first) {
        return false;
    }
    rule.last = static_cast<long>(*last);
    return true;
}

bool ParseFault(std::string_view text, Fault& fault, std::string& problem) {
    const std::size_t equal = text.find('=');
    const std::string_view name = text.substr(0, equal);
    const auto* known = std::find_if(kNames.begin(), kNames.end(),
                                     [&](const FaultName& n) { return name == n.name; });
    if (known == kNames.end()) {
        problem = Quoted(name) + " is no fault";
        return false;
    }
    const bool given = equal != std::string_view::npos;
    if (given && known->value == Value::None) {
        problem = Quoted(name) + " takes no value";
        return false;
    }
    if (!given && known->standard == nullptr) {
        problem = Quoted(name) + " needs a value";
        return false;
    }
    const std::string value(given ? text.substr(equal + 1) : std::string_view(known->standard));
    const auto plain = Unescaped(value);
    if (!plain) {
        problem = Quoted(value) + " holds a backslash before something else than r, n, s or \\";
        return false;
    }
    Fault fresh{known->kind, 0, *plain};
    if (known->value == Value::Number) {
        const auto number = FromDecimal(value, kLongestWait);
        if (!number) {
            problem = Quoted(value) + " is not a number from 0 to " + std::to_string(kLongestWait);
            return false;
        }
        fresh.number = *number;
    } else if (known->value == Value::Alarm && value.substr(0, 3) != "0%%") {
        // A whole text is taken as it stands: a reply cut short is worth sending, too.
        const auto alarm = ParseAlarm(value);
        if (!alarm) {
            problem = Quoted(value) + " is neither class and code nor an error reply";
            return false;
        }
        fresh.text = alarm->text();
    }
    fault = fresh;
    return true;
}

} // namespace

bool ParseFaultRule(std::string_view text, FaultRule& rule, std::string& problem) {
    const std::size_t one = text.find(':');
    const std::size_t two = one == std::string_view::npos ? one : text.find(':', one + 1);
    if (two == std::string_view::npos) {
        problem = "a fault rule is COMMAND:OCCURRENCE:FAULT";
        return false;
    }
    FaultRule fresh;
    fresh.text = text;
    const std::string_view command = text.substr(0, one);
    if (command != "*") {
        if (!IsCommandWord(command.substr(0, 3))) {
            problem = Quoted(command) + " begins with no command of the controller";
            return false;
        }
        fresh.command = command;
    }
    if (!ParseOccurrence(text.substr(one + 1, two - one - 1), fresh)) {
        problem = "the occurrence is \"*\", a number such as \"3\", \"4+\" or \"2-5\"";
        return false;
    }
    if (!ParseFault(text.substr(two + 1), fresh.fault, problem)) {
        return false;
    }
    rule = fresh;
    return true;
}

std::string FaultHelp() {
    std::string help;
    for (const FaultName& name : kNames) {
        std::string line = std::string("    ") + name.name;
        line.resize(18, ' ');
        help += line + name.help + "\n";
    }
    return help;
}

bool KeepsFromActing(const Fault& fault) {
    return fault.kind == FaultKind::Deaf || fault.kind == FaultKind::Error;
}

std::vector<Outgoing> Spoil(const Fault& fault, const std::string& reply,
                            const std::string& previous, Millis at) {
    const std::string end = "\r\n";
    const std::string body = reply.substr(0, reply.size() - end.size());
    const std::string first = reply.substr(0, static_cast<std::size_t>(fault.number));
    std::vector<Outgoing> out;
    switch (fault.kind) {
    case FaultKind::Silence:
    case FaultKind::Deaf: break;
    case FaultKind::Late: out.push_back({at + fault.number, reply}); break;
    case FaultKind::Part: out.push_back({at, first}); break;
    case FaultKind::Bytes:
        for (std::size_t i = 0; i < reply.size(); ++i) {
            out.push_back({at + fault.number * static_cast<Millis>(i), reply.substr(i, 1)});
        }
        break;
    case FaultKind::NoiseBefore: out.push_back({at, fault.text + reply}); break;
    case FaultKind::NoiseInside:
        out.push_back({at, std::string(body).insert(body.size() / 2, fault.text) + end});
        break;
    case FaultKind::Stray:
        out.push_back({at, reply});
        out.push_back({at + kStrayWait, fault.text});
        break;
    case FaultKind::Echo: out.push_back({at, fault.text + reply.substr(3)}); break;
    case FaultKind::TooLong: out.push_back({at, body + "0" + end}); break;
    case FaultKind::TooShort: out.push_back({at, body.substr(0, body.size() - 1) + end}); break;
    case FaultKind::Twice: out.push_back({at, reply + reply}); break;
    case FaultKind::Error:
    case FaultKind::Reply: out.push_back({at, fault.text + end}); break;
    case FaultKind::Previous: out.push_back({at, previous}); break;
    case FaultKind::HangUp:
        out.push_back({at, first});
        out.push_back({at, "", true});
        break;
    }
    std::erase_if(out, [](const Outgoing& o) { return o.bytes.empty() && !o.hangUp; });
    return out;
}

} // namespace qdk8
