#include "simulator/commands.h"

#include "simulator/motion.h"
#include "simulator/usable.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace qdk8 {
namespace {

constexpr Alarm kWritingFailed{'1', '0', 'E'};

/// A refusal is thrown from wherever it is found and becomes the reply in `answer`.
struct Refused {
    Alarm alarm;
};

[[noreturn]] void Refuse(char code, char where = '0') {
    throw Refused{Alarm{'0', where, code}};
}

void MustBe(bool good, char code, char where = '0') {
    if (!good) {
        Refuse(code, where);
    }
}

void ObeyUnless(const Refusal& refusal) {
    if (refusal) {
        throw Refused{*refusal};
    }
}

/// The fields of a request, taken from the front.
struct Fields {
    std::string_view rest;

    std::string_view text(std::size_t width) {
        MustBe(rest.size() >= width && IsHex(rest.substr(0, width)), '1');
        const std::string_view taken = rest.substr(0, width);
        rest.remove_prefix(width);
        return taken;
    }
    int number(std::size_t width, int low, int high) {
        const int value = FromHex(text(width));
        MustBe(value >= low && value <= high, '2');
        return value;
    }
    void end() const { MustBe(rest.empty(), '1'); }
};

struct Request {
    Machine& machine;
    std::string_view frame;
    Fields data;
    Millis now;

    std::string word() const { return std::string(frame.substr(0, 3)); }
    std::string echo(std::size_t length) const { return std::string(frame.substr(0, length)); }
    std::string whole() const { return std::string(frame); }
};

using Reply = std::optional<std::string>;

std::size_t IndexOf(int number) {
    return static_cast<std::size_t>(number);
}

Reply StatusOrMode(Request& r) {
    if (r.data.rest.size() == 1) {
        MustBe(r.data.rest == "0" || r.data.rest == "1", '2');
        return r.machine.alarm ? r.machine.alarm->text() : r.whole();
    }
    // The axis mask in decimal, then the mode.
    MustBe(r.data.rest.size() == 2 || r.data.rest.size() == 3, '1');
    const auto digits = FromDecimal(r.data.rest, 999);
    MustBe(digits.has_value(), '1');
    MustBe(*digits / 10 <= 15 && *digits % 10 <= 2, '2');
    r.machine.mode = static_cast<int>(*digits % 10);
    return r.whole();
}

Reply AlarmReset(Request& r) {
    r.data.end();
    if (r.machine.alarm && !r.machine.alarm->resettable()) {
        return r.machine.alarm->text();
    }
    ClearAlarm(r.machine);
    return r.whole();
}

Reply HomeStatus(Request& r) {
    r.data.end();
    const unsigned used = AxesInUse(r.machine);
    return r.word() + (used != 0 && (r.machine.homed & used) == used ? "1" : "0");
}

Reply ArrivalStatus(Request& r) {
    r.data.end();
    return r.word() + (Moving(r.machine) ? "0" : "1");
}

Reply Version(Request& r) {
    if (r.data.rest.empty()) {
        return r.word() + r.machine.identity;
    }
    const int axis = r.data.number(1, 1, 4) - 1;
    r.data.end();
    MustBe(((AxesInUse(r.machine) >> static_cast<unsigned>(axis)) & 1U) != 0, '4',
           static_cast<char>('1' + axis));
    return r.whole() + r.machine.boards[IndexOf(axis)];
}

Reply MoveOrHome(Request& r) {
    const bool bare = r.word() == "0MM";
    const int position = r.data.number(3, bare ? 0 : 1, 999);
    const auto mask = static_cast<unsigned>(r.data.number(1, 0, 15));
    r.data.end();
    if (position == 0) {
        ObeyUnless(BeginHoming(r.machine, mask, r.now));
    } else {
        ObeyUnless(BeginMove(r.machine, position, mask, !bare, r.now));
    }
    return r.whole();
}

Reply RunGroup(Request& r) {
    const int group = r.data.number(2, 1, 99);
    r.data.end();
    ObeyUnless(BeginGroup(r.machine, group, r.now));
    return std::nullopt;
}

Reply Jog(Request& r) {
    std::array<int, kAxisCountMax> directions{};
    for (int& direction : directions) {
        direction = r.data.number(1, 0, 2);
    }
    // Tenths of the JOG speed, 0 for all of it: decimal digits with at most one point.
    const std::string_view text = r.data.rest;
    MustBe(text.size() <= 3 && text.find_first_not_of("0123456789.") == std::string_view::npos,
           '1');
    double tenths = 0;
    const char* end = text.data() + text.size();
    MustBe(std::from_chars(text.data(), end, tenths, std::chars_format::fixed).ptr == end &&
               !text.empty(),
           '1');
    MustBe(tenths < 10, '2');
    ObeyUnless(BeginJog(r.machine, directions, tenths > 0 ? tenths / 10 : 1.0, r.now));
    return r.word();
}

Reply Inch(Request& r) {
    Step step;
    for (int axis = 0; axis < kAxisCountMax; ++axis) {
        step.speeds[IndexOf(axis)] = SpeedOf(r.machine, axis, r.data.number(2, 1, 60));
        step.ramps[IndexOf(axis)] = RampOf(r.data.number(1, 1, 3));
        step.mask |= static_cast<unsigned>(r.data.number(1, 0, 1)) << static_cast<unsigned>(axis);
        step.targets[IndexOf(axis)] = r.data.number(5, 0, 0xFFFFF);
    }
    r.data.end();
    ObeyUnless(BeginInching(r.machine, step, r.now));
    return r.word();
}

Reply Stop(Request& r) {
    r.data.end();
    StopMotion(r.machine, r.now);
    return r.word();
}

Reply PresentPositions(Request& r) {
    const auto mask = static_cast<unsigned>(r.data.number(1, 0, 15));
    r.data.end();
    std::string reply = r.whole();
    for (int axis = 0; axis < kAxisCountMax; ++axis) {
        if (((mask >> static_cast<unsigned>(axis)) & 1U) == 0) {
            continue;
        }
        MustBe(((AxesInUse(r.machine) >> static_cast<unsigned>(axis)) & 1U) != 0, '4',
               static_cast<char>('1' + axis));
        reply += ToHex(PresentPosition(r.machine, axis, r.now), 5);
    }
    return reply;
}

Reply ReadBlock(Request& r) {
    const int block = r.data.number(1, 0, 12);
    r.data.end();
    return r.whole() + r.machine.working.blocks[IndexOf(block)];
}

Reply WriteBlock(Request& r) {
    const int block = r.data.number(1, 0, 12);
    const std::string_view digits = r.data.text(32);
    r.data.end();
    MustBe(BlockUsable(block, digits, r.machine.axes), '2');
    r.machine.working.blocks[IndexOf(block)] = digits;
    return r.echo(4);
}

Reply ReadPosition(Request& r) {
    const int position = r.data.number(3, 1, 999);
    r.data.end();
    return r.whole() + r.machine.working.positions[IndexOf(position - 1)];
}

/// Rows have no commit of their own: a row that was acknowledged lasts.
Reply WritePosition(Request& r) {
    const int position = r.data.number(3, 1, 999);
    const std::string_view row = r.data.text(40);
    r.data.end();
    MustBe(RowUsable(row), '2');
    r.machine.working.positions[IndexOf(position - 1)] = row;
    r.machine.lasting.positions[IndexOf(position - 1)] = row;
    ++r.machine.lastingChanges;
    return r.echo(6);
}

Reply ReadGroup(Request& r) {
    const int group = r.data.number(2, 1, 99);
    r.data.end();
    return r.whole() + r.machine.working.groups[IndexOf(group - 1)];
}

Reply WriteGroup(Request& r) {
    const int group = r.data.number(2, 1, 99);
    const std::string_view range = r.data.text(6);
    r.data.end();
    MustBe(GroupUsable(range), '2');
    r.machine.working.groups[IndexOf(group - 1)] = range;
    return r.echo(5);
}

Reply ReadMacro(Request& r) {
    const int macro = r.data.number(2, 1, 20);
    r.data.end();
    return r.whole() + r.machine.working.macros[IndexOf(macro - 1)];
}

Reply WriteMacro(Request& r) {
    const int macro = r.data.number(2, 1, 20);
    const std::string_view steps = r.data.text(32);
    r.data.end();
    MustBe(MacroUsable(steps), '2');
    r.machine.working.macros[IndexOf(macro - 1)] = steps;
    return r.echo(5);
}

Reply Commit(Request& r) {
    const int what = r.data.number(1, 1, 3);
    r.data.end();
    Machine& m = r.machine;
    const Memory before = m.lasting;
    if (what == 1) {
        m.lasting.macros = m.working.macros;
    } else if (what == 2) {
        m.lasting.blocks = m.working.blocks;
    } else {
        m.lasting.groups = m.working.groups;
    }
    ++m.lastingChanges;
    // A commit is where it outlives the program before it is acknowledged.
    if (m.keep && !m.keep()) {
        m.lasting = before;
        ++m.lastingChanges; // what lasted before is still to be written
        Raise(m, kWritingFailed, r.now);
        return kWritingFailed.text();
    }
    ++m.commits;
    return r.whole();
}

Reply ReadInputs(Request& r) {
    r.data.end();
    return r.word() + ToHex(static_cast<int>(r.machine.inputs), 6);
}

Reply ReadOutputs(Request& r) {
    r.data.end();
    return r.word() + ToHex(static_cast<int>(r.machine.outputs), 6);
}

Reply WriteOutputs(Request& r) {
    const int outputs = FromHex(r.data.text(6));
    r.data.end();
    r.machine.outputs = static_cast<std::uint32_t>(outputs);
    return r.whole();
}

constexpr char kAllowed = '\0';
constexpr char kWritingRefused = '5';
constexpr char kStartRefused = 'D';

struct Command {
    std::string_view word;
    Reply (*routine)(Request&);
    bool heldByAlarm;
    char duringMovement; // the code that refuses it then, or `Allowed`
};

constexpr std::array<Command, 24> kCommands{{
    {"0CM", StatusOrMode, false, kAllowed},
    {"0AR", AlarmReset, false, kAllowed},
    {"0RH", HomeStatus, false, kAllowed},
    {"0RA", ArrivalStatus, true, kAllowed},
    {"0RV", Version, false, kAllowed},
    {"0MM", MoveOrHome, true, kStartRefused},
    {"0MP", MoveOrHome, true, kStartRefused},
    {"0MG", RunGroup, true, kStartRefused},
    {"0JR", Jog, true, kStartRefused},
    {"0MV", Inch, true, kStartRefused},
    {"0SP", Stop, false, kAllowed},
    {"0RC", PresentPositions, false, kAllowed},
    {"0RD", ReadBlock, false, kAllowed},
    {"0WD", WriteBlock, false, kWritingRefused},
    {"0WE", Commit, false, kWritingRefused},
    {"0RP", ReadPosition, false, kAllowed},
    {"0WP", WritePosition, false, kWritingRefused},
    {"0RG", ReadGroup, false, kAllowed},
    {"0WG", WriteGroup, false, kWritingRefused},
    {"0RS", ReadMacro, false, kAllowed},
    {"0WS", WriteMacro, false, kWritingRefused},
    {"0RI", ReadInputs, false, kAllowed},
    {"0RO", ReadOutputs, false, kAllowed},
    {"0WO", WriteOutputs, false, kAllowed},
}};

const Command* FindCommand(std::string_view word) {
    const auto* found = std::find_if(kCommands.begin(), kCommands.end(),
                                     [&](const Command& c) { return c.word == word; });
    return found != kCommands.end() ? found : nullptr;
}

} // namespace

bool IsCommandWord(std::string_view word) {
    return FindCommand(word) != nullptr;
}

std::optional<std::string> AnswerFrame(Machine& machine, std::string_view frame, Millis now) {
    try {
        const Command* command = FindCommand(frame.substr(0, 3));
        MustBe(command != nullptr, '1');
        if (command->heldByAlarm && machine.alarm) {
            return machine.alarm->text();
        }
        Request request{machine, frame, Fields{frame.substr(3)}, now};
        MustBe(command->duringMovement == kAllowed || !Moving(machine), command->duringMovement);
        return command->routine(request);
    } catch (const Refused& refused) {
        return refused.alarm.text();
    }
}

} // namespace qdk8
