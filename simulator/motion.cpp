#include "simulator/motion.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace qdk8 {

namespace {

constexpr double MmPerSecondPerSetting = 10.0;
constexpr Millis ShortestMove = 20;
constexpr Millis PushTime = 300;
constexpr Millis Tick = 100; ///< of a macro's timer and of its time limit
constexpr Alarm HomeSensorNotFound{'1', '3', '4'};
constexpr Alarm MacroInputTimedOut{'0', '0', 'B'};

std::size_t index(int axis) {
    return static_cast<std::size_t>(axis);
}
bool in(unsigned mask, int axis) {
    return ((mask >> static_cast<unsigned>(axis)) & 1U) != 0;
}
unsigned bit(int axis) {
    return 1U << static_cast<unsigned>(axis);
}

Alarm refusal(char code, int axis = -1) {
    return Alarm{'0', axis < 0 ? '0' : static_cast<char>('1' + axis), code};
}

double trackAt(const Track& track, Millis now) {
    if (now >= track.end)
        return track.to;
    const double share =
        static_cast<double>(now - track.start) / static_cast<double>(track.end - track.start);
    return track.from + (track.to - track.from) * std::max(share, 0.0);
}

Millis travelTime(double pulses, double speed) {
    return static_cast<Millis>(std::llround(std::fabs(pulses) / speed * 1000.0));
}

Millis begin(Machine& machine, const Step& step, Millis now) {
    Millis last = now;
    for (int axis = 0; axis < AxisCountMax; ++axis) {
        if (!in(step.mask, axis))
            continue;
        Track& track = machine.tracks[index(axis)];
        const double from = trackAt(track, now);
        const double to = step.targets[index(axis)];
        Millis takes = 0;
        if (step.kind == Step::Kind::home) {
            // An axis that was never homed may stand anywhere: half the way is as good a guess as
            // any.
            const double way =
                in(machine.homed, axis) ? from : strokeEnd(machine.working, axis) / 2.0;
            const int block = axisBlock(axis);
            const double creep = speedOf(machine, axis, item(machine.working, block, 4));
            takes = travelTime(way, step.speeds[index(axis)]) + PushTime +
                    travelTime(item(machine.working, block, 0, 2), creep);
        } else if (std::lround(from) != std::lround(to)) {
            takes =
                std::max(travelTime(to - from, step.speeds[index(axis)]) + step.ramps[index(axis)],
                         ShortestMove);
        }
        track = Track{from, to, now, now + takes};
        last = std::max(last, track.end);
    }
    if (step.together) {
        for (int axis = 0; axis < AxisCountMax; ++axis)
            if (in(step.mask, axis))
                machine.tracks[index(axis)].end = last;
    }
    return last;
}

// Runs the macro on from its present step until it has to wait; gives when it goes on, `now` if it
// is over, nothing while it waits for an input without limit.
std::optional<Millis> runMacro(Machine& machine, const std::string& macro, Millis now) {
    machine.macroWaits = false;
    for (; machine.macroStep < 16; ++machine.macroStep) {
        const std::size_t at = 2 * index(machine.macroStep);
        const int command = fromHex(macro.substr(at, 1));
        const int data = fromHex(macro.substr(at + 1, 1));
        const std::uint32_t line = data >= 1 && data <= 4 ? LineOne << (data - 1) : 0;
        switch (command) {
        case 1:
        case 2:
            if (((machine.inputs & line) != 0) != (command == 1)) {
                machine.macroWaits = true;
                const bool limited = item(machine.working, 0, 4) != 0;
                if (!limited)
                    return std::nullopt;
                return now + Tick * item(machine.working, 0, 5);
            }
            break;
        case 3: machine.outputs |= line; break;
        case 4: machine.outputs &= ~line; break;
        case 5: ++machine.macroStep; return now + Tick * data;
        case 6: ++machine.macroStep; return now + 10 * Tick * data;
        default: machine.macroStep = 16; return now;
        }
    }
    return now;
}

const std::string& macroOf(const Machine& machine, const Step& step) {
    return machine.working.macros[index(step.number - 1)];
}

void beginStep(Machine& machine, Millis now) {
    const Step& step = machine.plan.front();
    if (step.kind == Step::Kind::macro) {
        machine.macroStep = 0;
        machine.stepEnds = runMacro(machine, macroOf(machine, step), now);
        return;
    }
    machine.outputs &= ~(OutputInPosition | OutputReady | OutputPositionMask | OutputArrivalMask);
    machine.stepEnds = begin(machine, step, now);
}

void showArrival(Machine& machine, int number, int out) {
    const auto decimal =
        static_cast<std::uint32_t>(number / 100 * 256 + number / 10 % 10 * 16 + number % 10);
    machine.outputs &= ~(OutputPositionMask | OutputArrivalMask);
    machine.outputs |= (decimal << 4) | (static_cast<std::uint32_t>(out) & OutputArrivalMask);
}

void comeToRest(Machine& machine, Millis now) {
    machine.plan.clear();
    machine.stepEnds.reset();
    machine.macroWaits = false;
    machine.planEnded = now;
    if (!machine.alarm)
        machine.outputs |= OutputReady;
}

void finishStep(Machine& machine, Millis now) {
    const Step step = machine.plan.front();
    machine.plan.pop_front();
    machine.macroWaits = false;
    if (step.kind == Step::Kind::home) {
        if (machine.homeSensorFails) {
            raise(machine, HomeSensorNotFound, now);
            return;
        }
        machine.homed |= step.mask;
        showArrival(machine, 0, item(machine.working, 0, 0));
    } else if (step.toPosition) {
        showArrival(machine, step.number, step.out);
    }
    machine.outputs |= OutputInPosition;
    if (machine.plan.empty())
        comeToRest(machine, now);
    else
        beginStep(machine, now);
}

Refusal beginPlan(Machine& machine, std::deque<Step> plan, Millis now) {
    machine.plan = std::move(plan);
    if (machine.plan.empty())
        comeToRest(machine, now);
    else
        beginStep(machine, now);
    return {};
}

Refusal refuseAxes(const Machine& machine, unsigned mask) {
    for (int axis = 0; axis < AxisCountMax; ++axis)
        if (in(mask, axis) && !in(axesInUse(machine), axis))
            return refusal('4', axis);
    return {};
}

// An alarm that came from a move stays up until it is reset.
Refusal alarmOfMove(Machine& machine, Alarm alarm, Millis now) {
    raise(machine, alarm, now);
    return alarm;
}

void planHoming(const Machine& machine, unsigned mask, std::deque<Step>& plan) {
    std::set<int> orders;
    for (int axis = 0; axis < AxisCountMax; ++axis)
        if (in(mask, axis))
            orders.insert(homingOrder(machine.working, axis));
    for (const int order : orders) {
        Step step;
        step.kind = Step::Kind::home;
        for (int axis = 0; axis < AxisCountMax; ++axis) {
            if (!in(mask, axis) || homingOrder(machine.working, axis) != order)
                continue;
            step.mask |= bit(axis);
            step.speeds[index(axis)] =
                speedOf(machine, axis, item(machine.working, axisBlock(axis), 3));
        }
        plan.push_back(step);
    }
}

// Axes that are not homed are homed first where AUTO HOME says so, and refused else.
Refusal planAutoHome(const Machine& machine, unsigned mask, std::deque<Step>& plan) {
    const unsigned missing = mask & ~machine.homed;
    if (missing == 0)
        return {};
    if (item(machine.working, 0, 1) == 0) {
        int axis = 0;
        while (!in(missing, axis))
            ++axis;
        return refusal('3', axis);
    }
    planHoming(machine, missing, plan);
    return {};
}

// Keeps a target within the stroke: an alarm with the soft limit on, the stroke end without.
Refusal limitTarget(const Machine& machine, int axis, double& target) {
    const int end = strokeEnd(machine.working, axis);
    if (target <= end)
        return {};
    if (softLimit(machine.working, axis))
        return refusal('7', axis);
    target = end;
    return {};
}

Refusal planMove(const Machine& machine, int position, unsigned mask, bool withMacro,
                 std::deque<Step>& plan) {
    const std::string& row = machine.working.positions[index(position - 1)];
    if (!rowUsable(row))
        return refusal('8');
    const auto field = [&](int from, int width) {
        return fromHex(row.substr(index(from), index(width)));
    };
    Step step;
    step.mask = mask;
    step.toPosition = true;
    step.number = position;
    step.together = field(36, 1) != 0;
    step.out = field(37, 1);
    for (int axis = 0; axis < AxisCountMax; ++axis) {
        if (!in(mask, axis))
            continue;
        step.speeds[index(axis)] = speedOf(machine, axis, field(9 * axis, 2));
        step.ramps[index(axis)] = rampOf(field(9 * axis + 2, 1));
        step.targets[index(axis)] = field(9 * axis + 4, 5);
        if (const Refusal refused = limitTarget(machine, axis, step.targets[index(axis)]))
            return refused;
    }
    plan.push_back(step);
    const int macro = field(38, 2);
    if (withMacro && macro != 0) {
        Step run;
        run.kind = Step::Kind::macro;
        run.number = macro;
        plan.push_back(run);
    }
    return {};
}

} // namespace

double speedOf(const Machine& machine, int axis, int setting) {
    return std::max(setting, 1) * MmPerSecondPerSetting * pulsesPerMm(machine.working, axis);
}

Millis rampOf(int setting) {
    return 120 / std::clamp(setting, 1, 3);
}

unsigned axesThere(const Machine& machine) {
    return (1U << static_cast<unsigned>(machine.axes)) - 1U;
}

unsigned axesInUse(const Machine& machine) {
    return axisMask(machine.working) & axesThere(machine);
}

bool moving(const Machine& machine) {
    return !machine.plan.empty();
}

int presentPosition(const Machine& machine, int axis, Millis now) {
    return static_cast<int>(std::lround(trackAt(machine.tracks[index(axis)], now)));
}

void advance(Machine& machine, Millis now) {
    while (moving(machine) && machine.stepEnds && *machine.stepEnds <= now) {
        const Millis then = *machine.stepEnds;
        if (machine.macroWaits)
            raise(machine, MacroInputTimedOut, then);
        else if (machine.plan.front().kind == Step::Kind::macro && machine.macroStep < 16)
            machine.stepEnds = runMacro(machine, macroOf(machine, machine.plan.front()), then);
        else
            finishStep(machine, then);
    }
    if (machine.alarmEnds && *machine.alarmEnds <= now)
        clearAlarm(machine);
}

std::optional<Millis> nextEvent(const Machine& machine) {
    std::optional<Millis> next = machine.alarmEnds;
    if (moving(machine) && machine.stepEnds && (!next || *machine.stepEnds < *next))
        next = machine.stepEnds;
    return next;
}

Refusal beginHoming(Machine& machine, unsigned mask, Millis now) {
    if (const Refusal refused = refuseAxes(machine, mask))
        return refused;
    machine.homed &= ~mask;
    std::deque<Step> plan;
    planHoming(machine, mask, plan);
    return beginPlan(machine, std::move(plan), now);
}

Refusal beginMove(Machine& machine, int position, unsigned mask, bool withMacro, Millis now) {
    if (const Refusal refused = refuseAxes(machine, mask))
        return refused;
    std::deque<Step> plan;
    if (const Refusal refused = planAutoHome(machine, mask, plan))
        return refused;
    if (const Refusal refused = planMove(machine, position, mask, withMacro, plan))
        return alarmOfMove(machine, *refused, now);
    return beginPlan(machine, std::move(plan), now);
}

Refusal beginGroup(Machine& machine, int group, Millis now) {
    const std::string& range = machine.working.groups[index(group - 1)];
    const int first = groupUsable(range) ? fromHex(range.substr(0, 3)) : 1;
    const int last = groupUsable(range) ? fromHex(range.substr(3, 3)) : 0;
    if (first > last)
        return alarmOfMove(machine, refusal('9'), now);
    std::deque<Step> plan;
    if (const Refusal refused = planAutoHome(machine, axesInUse(machine), plan))
        return refused;
    for (int position = first; position <= last; ++position)
        if (const Refusal refused = planMove(machine, position, axesInUse(machine), true, plan))
            return alarmOfMove(machine, *refused, now);
    return beginPlan(machine, std::move(plan), now);
}

Refusal beginJog(Machine& machine, const std::array<int, AxisCountMax>& directions, double share,
                 Millis now) {
    Step step;
    for (int axis = 0; axis < AxisCountMax; ++axis) {
        const int direction = directions[index(axis)];
        if (direction == 0)
            continue;
        step.mask |= bit(axis);
        step.speeds[index(axis)] =
            share * speedOf(machine, axis, item(machine.working, axisBlock(axis), 6));
        step.targets[index(axis)] = direction == 1 ? strokeEnd(machine.working, axis) : 0;
    }
    if (const Refusal refused = refuseAxes(machine, step.mask))
        return refused;
    return beginPlan(machine, {step}, now);
}

Refusal beginInching(Machine& machine, const Step& step, Millis now) {
    if (const Refusal refused = refuseAxes(machine, step.mask))
        return refused;
    std::deque<Step> plan;
    if (const Refusal refused = planAutoHome(machine, step.mask, plan))
        return refused;
    plan.push_back(step);
    for (int axis = 0; axis < AxisCountMax; ++axis)
        if (in(step.mask, axis))
            if (const Refusal refused =
                    limitTarget(machine, axis, plan.back().targets[index(axis)]))
                return alarmOfMove(machine, *refused, now);
    return beginPlan(machine, std::move(plan), now);
}

void stopMotion(Machine& machine, Millis now) {
    for (Track& track : machine.tracks) {
        const double here = std::round(trackAt(track, now));
        track = Track{here, here, now, now};
    }
    comeToRest(machine, now);
}

void raise(Machine& machine, Alarm alarm, Millis now, std::optional<Millis> goesOutAfter) {
    // The graver alarm stays.
    if (!machine.alarm || machine.alarm->resettable()) {
        machine.alarm = alarm;
        machine.alarmEnds.reset();
        if (goesOutAfter && alarm.resettable())
            machine.alarmEnds = now + *goesOutAfter;
    }
    if (moving(machine) || machine.stepEnds)
        stopMotion(machine, now);
    machine.outputs = (machine.outputs | OutputAlarm) & ~OutputReady;
}

void clearAlarm(Machine& machine) {
    machine.alarm.reset();
    machine.alarmEnds.reset();
    machine.outputs &= ~OutputAlarm;
    if (!moving(machine))
        machine.outputs |= OutputReady;
}

void setInputs(Machine& machine, std::uint32_t inputs, Millis now) {
    machine.inputs = inputs & 0xFFFFFFU;
    if (!machine.macroWaits)
        return;
    const int waitedAt = machine.macroStep;
    const std::optional<Millis> limit = machine.stepEnds;
    machine.stepEnds = runMacro(machine, macroOf(machine, machine.plan.front()), now);
    // The change of another input does not prolong the wait.
    if (machine.macroWaits && machine.macroStep == waitedAt)
        machine.stepEnds = limit;
}

void restart(Machine& machine, Millis now) {
    machine.working = machine.lasting;
    machine.mode = 0;
    machine.homed = 0;
    machine.tracks = {};
    clearAlarm(machine);
    comeToRest(machine, now);
    machine.outputs = OutputReady | OutputInPosition;
}

} // namespace qdk8
