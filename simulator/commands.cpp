#include "simulator/commands.h"

#include "simulator/motion.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace qdk8 {

namespace {

constexpr Alarm WritingFailed{'1', '0', 'E'};

// A refusal is thrown from wherever it is found and becomes the reply in `answer`.
struct Refused {
    Alarm alarm;
};

[[noreturn]] void refuse(char code, char where = '0') {
    throw Refused{Alarm{'0', where, code}};
}

void mustBe(bool good, char code, char where = '0') {
    if (!good)
        refuse(code, where);
}

void obey(const Refusal& refusal) {
    if (refusal)
        throw Refused{*refusal};
}

// The fields of a request, taken from the front.
struct Fields {
    std::string_view rest;

    std::string_view text(std::size_t width) {
        mustBe(rest.size() >= width && isHex(rest.substr(0, width)), '1');
        const std::string_view taken = rest.substr(0, width);
        rest.remove_prefix(width);
        return taken;
    }
    int number(std::size_t width, int low, int high) {
        const int value = fromHex(text(width));
        mustBe(value >= low && value <= high, '2');
        return value;
    }
    void end() const { mustBe(rest.empty(), '1'); }
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

std::size_t at(int number) {
    return static_cast<std::size_t>(number);
}

Reply statusOrMode(Request& r) {
    if (r.data.rest.size() == 1) {
        mustBe(r.data.rest == "0" || r.data.rest == "1", '2');
        return r.machine.alarm ? r.machine.alarm->text() : r.whole();
    }
    // The axis mask in decimal, then the mode.
    mustBe(r.data.rest.size() == 2 || r.data.rest.size() == 3, '1');
    const auto digits = fromDecimal(r.data.rest, 999);
    mustBe(digits.has_value(), '1');
    mustBe(*digits / 10 <= 15 && *digits % 10 <= 2, '2');
    r.machine.mode = static_cast<int>(*digits % 10);
    return r.whole();
}

Reply alarmReset(Request& r) {
    r.data.end();
    if (r.machine.alarm && !r.machine.alarm->resettable())
        return r.machine.alarm->text();
    clearAlarm(r.machine);
    return r.whole();
}

Reply homeStatus(Request& r) {
    r.data.end();
    const unsigned used = axesInUse(r.machine);
    return r.word() + (used != 0 && (r.machine.homed & used) == used ? "1" : "0");
}

Reply arrivalStatus(Request& r) {
    r.data.end();
    return r.word() + (moving(r.machine) ? "0" : "1");
}

Reply version(Request& r) {
    if (r.data.rest.empty())
        return r.word() + r.machine.identity;
    const int axis = r.data.number(1, 1, 4) - 1;
    r.data.end();
    mustBe(((axesInUse(r.machine) >> static_cast<unsigned>(axis)) & 1U) != 0, '4',
           static_cast<char>('1' + axis));
    return r.whole() + r.machine.boards[at(axis)];
}

Reply moveOrHome(Request& r) {
    const bool bare = r.word() == "0MM";
    const int position = r.data.number(3, bare ? 0 : 1, 999);
    const auto mask = static_cast<unsigned>(r.data.number(1, 0, 15));
    r.data.end();
    if (position == 0)
        obey(beginHoming(r.machine, mask, r.now));
    else
        obey(beginMove(r.machine, position, mask, !bare, r.now));
    return r.whole();
}

Reply runGroup(Request& r) {
    const int group = r.data.number(2, 1, 99);
    r.data.end();
    obey(beginGroup(r.machine, group, r.now));
    return std::nullopt;
}

Reply jog(Request& r) {
    std::array<int, AxisCountMax> directions{};
    for (int& direction : directions)
        direction = r.data.number(1, 0, 2);
    // Tenths of the JOG speed, 0 for all of it: decimal digits with at most one point.
    const std::string_view text = r.data.rest;
    mustBe(text.size() <= 3 && text.find_first_not_of("0123456789.") == std::string_view::npos,
           '1');
    double tenths = 0;
    const char* end = text.data() + text.size();
    mustBe(std::from_chars(text.data(), end, tenths, std::chars_format::fixed).ptr == end &&
               !text.empty(),
           '1');
    mustBe(tenths < 10, '2');
    obey(beginJog(r.machine, directions, tenths > 0 ? tenths / 10 : 1.0, r.now));
    return r.word();
}

Reply inch(Request& r) {
    Step step;
    for (int axis = 0; axis < AxisCountMax; ++axis) {
        step.speeds[at(axis)] = speedOf(r.machine, axis, r.data.number(2, 1, 60));
        step.ramps[at(axis)] = rampOf(r.data.number(1, 1, 3));
        step.mask |= static_cast<unsigned>(r.data.number(1, 0, 1)) << static_cast<unsigned>(axis);
        step.targets[at(axis)] = r.data.number(5, 0, 0xFFFFF);
    }
    r.data.end();
    obey(beginInching(r.machine, step, r.now));
    return r.word();
}

Reply stop(Request& r) {
    r.data.end();
    if (moving(r.machine))
        stopMotion(r.machine, r.now);
    return r.word();
}

Reply presentPositions(Request& r) {
    const auto mask = static_cast<unsigned>(r.data.number(1, 0, 15));
    r.data.end();
    std::string reply = r.whole();
    for (int axis = 0; axis < AxisCountMax; ++axis) {
        if (((mask >> static_cast<unsigned>(axis)) & 1U) == 0)
            continue;
        mustBe(((axesInUse(r.machine) >> static_cast<unsigned>(axis)) & 1U) != 0, '4',
               static_cast<char>('1' + axis));
        reply += toHex(presentPosition(r.machine, axis, r.now), 5);
    }
    return reply;
}

Reply readBlock(Request& r) {
    const int block = r.data.number(1, 0, 12);
    r.data.end();
    return r.whole() + r.machine.working.blocks[at(block)];
}

Reply writeBlock(Request& r) {
    const int block = r.data.number(1, 0, 12);
    const std::string_view digits = r.data.text(32);
    r.data.end();
    mustBe(blockUsable(block, digits, r.machine.axes), '2');
    r.machine.working.blocks[at(block)] = digits;
    return r.echo(4);
}

Reply readPosition(Request& r) {
    const int position = r.data.number(3, 1, 999);
    r.data.end();
    return r.whole() + r.machine.working.positions[at(position - 1)];
}

// Rows have no commit of their own: a row that was acknowledged lasts.
Reply writePosition(Request& r) {
    const int position = r.data.number(3, 1, 999);
    const std::string_view row = r.data.text(40);
    r.data.end();
    mustBe(rowUsable(row), '2');
    r.machine.working.positions[at(position - 1)] = row;
    r.machine.lasting.positions[at(position - 1)] = row;
    ++r.machine.lastingChanges;
    return r.echo(6);
}

Reply readGroup(Request& r) {
    const int group = r.data.number(2, 1, 99);
    r.data.end();
    return r.whole() + r.machine.working.groups[at(group - 1)];
}

Reply writeGroup(Request& r) {
    const int group = r.data.number(2, 1, 99);
    const std::string_view range = r.data.text(6);
    r.data.end();
    mustBe(groupUsable(range), '2');
    r.machine.working.groups[at(group - 1)] = range;
    return r.echo(5);
}

Reply readMacro(Request& r) {
    const int macro = r.data.number(2, 1, 20);
    r.data.end();
    return r.whole() + r.machine.working.macros[at(macro - 1)];
}

Reply writeMacro(Request& r) {
    const int macro = r.data.number(2, 1, 20);
    const std::string_view steps = r.data.text(32);
    r.data.end();
    mustBe(macroUsable(steps), '2');
    r.machine.working.macros[at(macro - 1)] = steps;
    return r.echo(5);
}

Reply commit(Request& r) {
    const int what = r.data.number(1, 1, 3);
    r.data.end();
    Machine& m = r.machine;
    const Memory before = m.lasting;
    if (what == 1)
        m.lasting.macros = m.working.macros;
    else if (what == 2)
        m.lasting.blocks = m.working.blocks;
    else
        m.lasting.groups = m.working.groups;
    ++m.lastingChanges;
    // A commit is where it outlives the program before it is acknowledged.
    if (m.keep && !m.keep()) {
        m.lasting = before;
        ++m.lastingChanges; // what lasted before is still to be written
        raise(m, WritingFailed, r.now);
        return WritingFailed.text();
    }
    ++m.commits;
    return r.whole();
}

Reply readInputs(Request& r) {
    r.data.end();
    return r.word() + toHex(static_cast<int>(r.machine.inputs), 6);
}

Reply readOutputs(Request& r) {
    r.data.end();
    return r.word() + toHex(static_cast<int>(r.machine.outputs), 6);
}

Reply writeOutputs(Request& r) {
    const int outputs = fromHex(r.data.text(6));
    r.data.end();
    r.machine.outputs = static_cast<std::uint32_t>(outputs);
    return r.whole();
}

constexpr char Allowed = '\0';
constexpr char WritingRefused = '5';
constexpr char StartRefused = 'D';

struct Command {
    std::string_view word;
    Reply (*routine)(Request&);
    bool heldByAlarm;
    char duringMovement; // the code that refuses it then, or `Allowed`
};

constexpr std::array<Command, 24> Commands{{
    {"0CM", statusOrMode, false, Allowed},
    {"0AR", alarmReset, false, Allowed},
    {"0RH", homeStatus, false, Allowed},
    {"0RA", arrivalStatus, true, Allowed},
    {"0RV", version, false, Allowed},
    {"0MM", moveOrHome, true, StartRefused},
    {"0MP", moveOrHome, true, StartRefused},
    {"0MG", runGroup, true, StartRefused},
    {"0JR", jog, true, StartRefused},
    {"0MV", inch, true, StartRefused},
    {"0SP", stop, false, Allowed},
    {"0RC", presentPositions, false, Allowed},
    {"0RD", readBlock, false, Allowed},
    {"0WD", writeBlock, false, WritingRefused},
    {"0WE", commit, false, WritingRefused},
    {"0RP", readPosition, false, Allowed},
    {"0WP", writePosition, false, WritingRefused},
    {"0RG", readGroup, false, Allowed},
    {"0WG", writeGroup, false, WritingRefused},
    {"0RS", readMacro, false, Allowed},
    {"0WS", writeMacro, false, WritingRefused},
    {"0RI", readInputs, false, Allowed},
    {"0RO", readOutputs, false, Allowed},
    {"0WO", writeOutputs, false, Allowed},
}};

const Command* find(std::string_view word) {
    const auto* found = std::find_if(Commands.begin(), Commands.end(),
                                     [&](const Command& c) { return c.word == word; });
    return found != Commands.end() ? found : nullptr;
}

} // namespace

bool isCommandWord(std::string_view word) {
    return find(word) != nullptr;
}

std::optional<std::string> answer(Machine& machine, std::string_view frame, Millis now) {
    try {
        const Command* command = find(frame.substr(0, 3));
        mustBe(command != nullptr, '1');
        if (command->heldByAlarm && machine.alarm)
            return machine.alarm->text();
        Request request{machine, frame, Fields{frame.substr(3)}, now};
        mustBe(command->duringMovement == Allowed || !moving(machine), command->duringMovement);
        return command->routine(request);
    } catch (const Refused& refused) {
        return refused.alarm.text();
    }
}

} // namespace qdk8
