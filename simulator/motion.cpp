#include "simulator/motion.h"

#include "simulator/usable.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace qdk8 {
namespace {

constexpr double kMmPerSecondPerSetting = 10.0;
constexpr Millis kPushTime = 300;
constexpr int kJogAcceleration = 3;
constexpr double kHomingRamp = 40;
constexpr Millis kTick = 100; ///< of a macro's timer and of its time limit
constexpr Alarm kHomeSensorNotFound{'1', '3', '4'};
constexpr Alarm kMacroInputTimedOut{'0', '0', 'B'};

std::size_t Index(int axis) {
    return static_cast<std::size_t>(axis);
}
bool Involves(unsigned mask, int axis) {
    return ((mask >> static_cast<unsigned>(axis)) & 1U) != 0;
}
unsigned Bit(int axis) {
    return 1U << static_cast<unsigned>(axis);
}

Alarm RefusalOf(char code, int axis = -1) {
    return Alarm{'0', axis < 0 ? '0' : static_cast<char>('1' + axis), code};
}

Millis TravelTime(double pulses, double speed) {
    return static_cast<Millis>(std::llround(std::fabs(pulses) / speed * 1000.0));
}

/// How long an axis takes to find its home: to the end, push, and creep back to the offset.
Millis HomingTime(const Machine& machine, int axis, double speed, Millis now) {
    const int block = AxisBlock(axis);
    const double creep = SpeedOf(machine, axis, Item(machine.working, block, 4));
    return TravelTime(SlidePosition(machine, axis, now), speed) + kPushTime +
           TravelTime(Item(machine.working, block, 0, 2), creep);
}

/// Sets the axes of a step under way; gives when the last of them arrives.
Millis SetOut(Machine& machine, const Step& step, Millis now) {
    Millis last = now;
    for (int axis = 0; axis < kAxisCountMax; ++axis) {
        if (!Involves(step.mask, axis)) {
            continue;
        }
        Track& track = machine.tracks[Index(axis)];
        const double from = PositionAt(track, now);
        const double speed = step.speeds[Index(axis)];
        if (step.kind == Step::Kind::Home) {
            const Millis takes = HomingTime(machine, axis, speed, now);
            track = Track{from, 0, now, now + takes, kHomingRamp, kHomingRamp};
        } else if (const double to = step.targets[Index(axis)];
                   std::lround(from) != std::lround(to)) {
            track = TrackBetween(from, to, speed, step.ramps[Index(axis)], now);
        }
        last = std::max(last, track.end);
    }
    for (int axis = 0; step.together && axis < kAxisCountMax; ++axis) {
        Track& track = machine.tracks[Index(axis)];
        if (Involves(step.mask, axis) && MovesAt(track, now)) {
            track = ArrivingAt(track, last);
        }
    }
    return last;
}

/// Runs the macro on from its present step until it has to wait; gives when it goes on, `now` if it
/// is over, nothing while it waits for an input without limit.
std::optional<Millis> RunMacro(Machine& machine, const std::string& macro, Millis now) {
    machine.macroWaits = false;
    for (; machine.macroStep < 16; ++machine.macroStep) {
        const std::size_t at = 2 * Index(machine.macroStep);
        const int command = FromHex(macro.substr(at, 1));
        const int data = FromHex(macro.substr(at + 1, 1));
        const std::uint32_t line = data >= 1 && data <= 4 ? kLineOne << (data - 1) : 0;
        switch (command) {
        case 1:
        case 2:
            if (((machine.inputs & line) != 0) != (command == 1)) {
                machine.macroWaits = true;
                const bool limited = Item(machine.working, 0, 4) != 0;
                if (!limited) {
                    return std::nullopt;
                }
                return now + kTick * Item(machine.working, 0, 5);
            }
            break;
        case 3: machine.outputs |= line; break;
        case 4: machine.outputs &= ~line; break;
        case 5: ++machine.macroStep; return now + kTick * data;
        case 6: ++machine.macroStep; return now + 10 * kTick * data;
        default: machine.macroStep = 16; return now;
        }
    }
    return now;
}

const std::string& MacroOf(const Machine& machine, const Step& step) {
    return machine.working.macros[Index(step.number - 1)];
}

void BeginStep(Machine& machine, Millis now) {
    const Step& step = machine.plan.front();
    if (step.kind == Step::Kind::Macro) {
        machine.macroStep = 0;
        machine.stepEnds = RunMacro(machine, MacroOf(machine, step), now);
        return;
    }
    machine.outputs &=
        ~(kOutputInPosition | kOutputReady | kOutputPositionMask | kOutputArrivalMask);
    machine.stepEnds = SetOut(machine, step, now);
}

void ShowArrival(Machine& machine, int number, int out) {
    const auto decimal =
        static_cast<std::uint32_t>(number / 100 * 256 + number / 10 % 10 * 16 + number % 10);
    machine.outputs &= ~(kOutputPositionMask | kOutputArrivalMask);
    machine.outputs |= (decimal << 4) | (static_cast<std::uint32_t>(out) & kOutputArrivalMask);
}

void ComeToRest(Machine& machine, Millis now) {
    machine.plan.clear();
    machine.stepEnds.reset();
    machine.macroWaits = false;
    machine.planEnded = now;
    if (!machine.alarm) {
        machine.outputs |= kOutputReady;
    }
}

void FinishStep(Machine& machine, Millis now) {
    const Step step = machine.plan.front();
    machine.plan.pop_front();
    machine.macroWaits = false;
    if (step.kind == Step::Kind::Home) {
        for (int axis = 0; axis < kAxisCountMax; ++axis) {
            machine.astray[Index(axis)] *= Involves(step.mask, axis) ? 0.0 : 1.0;
        }
        if (machine.homeSensorFails) {
            Raise(machine, kHomeSensorNotFound, now);
            return;
        }
        machine.homed |= step.mask;
        ShowArrival(machine, 0, Item(machine.working, 0, 0));
    } else if (step.toPosition) {
        ShowArrival(machine, step.number, step.out);
    }
    if (step.kind != Step::Kind::Brake) {
        machine.outputs |= kOutputInPosition;
    }
    if (machine.plan.empty()) {
        ComeToRest(machine, now);
    } else {
        BeginStep(machine, now);
    }
}

/// Before a homing breaks off: what of the way nobody counted it has found by then.
void FixSlides(Machine& machine, Millis now) {
    for (int axis = 0; axis < kAxisCountMax; ++axis) {
        machine.astray[Index(axis)] =
            SlidePosition(machine, axis, now) - PositionAt(machine.tracks[Index(axis)], now);
    }
}

Refusal BeginPlan(Machine& machine, std::deque<Step> plan, Millis now) {
    machine.plan = std::move(plan);
    if (machine.plan.empty()) {
        ComeToRest(machine, now);
    } else {
        BeginStep(machine, now);
    }
    return {};
}

Refusal RefuseAxes(const Machine& machine, unsigned mask) {
    for (int axis = 0; axis < kAxisCountMax; ++axis) {
        if (Involves(mask, axis) && !Involves(AxesInUse(machine), axis)) {
            return RefusalOf('4', axis);
        }
    }
    return {};
}

/// An alarm that came from a move stays up until it is reset.
Refusal AlarmOfMove(Machine& machine, Alarm alarm, Millis now) {
    Raise(machine, alarm, now);
    return alarm;
}

void PlanHoming(const Machine& machine, unsigned mask, std::deque<Step>& plan) {
    std::set<int> orders;
    for (int axis = 0; axis < kAxisCountMax; ++axis) {
        if (Involves(mask, axis)) {
            orders.insert(HomingOrder(machine.working, axis));
        }
    }
    for (const int order : orders) {
        Step step;
        step.kind = Step::Kind::Home;
        for (int axis = 0; axis < kAxisCountMax; ++axis) {
            if (!Involves(mask, axis) || HomingOrder(machine.working, axis) != order) {
                continue;
            }
            step.mask |= Bit(axis);
            step.speeds[Index(axis)] =
                SpeedOf(machine, axis, Item(machine.working, AxisBlock(axis), 3));
        }
        plan.push_back(step);
    }
}

/// Axes that are not homed are homed first where AUTO HOME says so, and refused else.
Refusal PlanAutoHome(const Machine& machine, unsigned mask, std::deque<Step>& plan) {
    const unsigned missing = mask & ~machine.homed;
    if (missing == 0) {
        return {};
    }
    if (Item(machine.working, 0, 1) == 0) {
        int axis = 0;
        while (!Involves(missing, axis)) {
            ++axis;
        }
        return RefusalOf('3', axis);
    }
    PlanHoming(machine, missing, plan);
    return {};
}

/// Keeps a target within the stroke: an alarm with the soft limit on, the stroke end without.
Refusal LimitTarget(const Machine& machine, int axis, double& target) {
    const int end = StrokeEnd(machine.working, axis);
    if (target <= end) {
        return {};
    }
    if (SoftLimit(machine.working, axis)) {
        return RefusalOf('7', axis);
    }
    target = end;
    return {};
}

Refusal PlanMove(const Machine& machine, int position, unsigned mask, bool withMacro,
                 std::deque<Step>& plan) {
    const std::string& row = machine.working.positions[Index(position - 1)];
    if (!RowUsable(row)) {
        return RefusalOf('8');
    }
    const auto field = [&](int from, int width) {
        return FromHex(row.substr(Index(from), Index(width)));
    };
    Step step;
    step.mask = mask;
    step.toPosition = true;
    step.number = position;
    step.together = field(36, 1) != 0;
    step.out = field(37, 1);
    for (int axis = 0; axis < kAxisCountMax; ++axis) {
        if (!Involves(mask, axis)) {
            continue;
        }
        step.speeds[Index(axis)] = SpeedOf(machine, axis, field(9 * axis, 2));
        step.ramps[Index(axis)] = RampOf(field(9 * axis + 2, 1));
        step.targets[Index(axis)] = field(9 * axis + 4, 5);
        if (const Refusal refused = LimitTarget(machine, axis, step.targets[Index(axis)])) {
            return refused;
        }
    }
    plan.push_back(step);
    const int macro = field(38, 2);
    if (withMacro && macro != 0) {
        Step run;
        run.kind = Step::Kind::Macro;
        run.number = macro;
        plan.push_back(run);
    }
    return {};
}

} // namespace

double SpeedOf(const Machine& machine, int axis, int setting) {
    return std::max(setting, 1) * kMmPerSecondPerSetting * PulsesPerMm(machine.working, axis);
}

Millis RampOf(int setting) {
    return 120 / std::clamp(setting, 1, 3);
}

unsigned AxesThere(const Machine& machine) {
    return (1U << static_cast<unsigned>(machine.axes)) - 1U;
}

unsigned AxesInUse(const Machine& machine) {
    return AxisMask(machine.working) & AxesThere(machine);
}

bool Moving(const Machine& machine) {
    return !machine.plan.empty();
}

int PresentPosition(const Machine& machine, int axis, Millis now) {
    return static_cast<int>(std::lround(PositionAt(machine.tracks[Index(axis)], now)));
}

double SlidePosition(const Machine& machine, int axis, Millis now) {
    const Track& track = machine.tracks[Index(axis)];
    double astray = machine.astray[Index(axis)];
    // What nobody counted is found as the homing goes on.
    if (Moving(machine) && machine.plan.front().kind == Step::Kind::Home && MovesAt(track, now)) {
        astray *=
            static_cast<double>(track.end - now) / static_cast<double>(track.end - track.start);
    }
    return std::clamp(PositionAt(track, now) + astray, 0.0,
                      static_cast<double>(StrokeEnd(machine.working, axis)));
}

bool AxisMoves(const Machine& machine, int axis, Millis now) {
    return MovesAt(machine.tracks[Index(axis)], now);
}

Millis StandsSince(const Machine& machine, int axis) {
    return machine.tracks[Index(axis)].end;
}

void Advance(Machine& machine, Millis now) {
    while (Moving(machine) && machine.stepEnds && *machine.stepEnds <= now) {
        const Millis then = *machine.stepEnds;
        if (machine.macroWaits) {
            Raise(machine, kMacroInputTimedOut, then);
        } else if (machine.plan.front().kind == Step::Kind::Macro && machine.macroStep < 16) {
            machine.stepEnds = RunMacro(machine, MacroOf(machine, machine.plan.front()), then);
        } else {
            FinishStep(machine, then);
        }
    }
    if (machine.alarmEnds && *machine.alarmEnds <= now) {
        ClearAlarm(machine);
    }
}

std::optional<Millis> NextEvent(const Machine& machine) {
    std::optional<Millis> next = machine.alarmEnds;
    if (Moving(machine) && machine.stepEnds && (!next || *machine.stepEnds < *next)) {
        next = machine.stepEnds;
    }
    return next;
}

Refusal BeginHoming(Machine& machine, unsigned mask, Millis now) {
    if (const Refusal refused = RefuseAxes(machine, mask)) {
        return refused;
    }
    machine.homed &= ~mask;
    std::deque<Step> plan;
    PlanHoming(machine, mask, plan);
    return BeginPlan(machine, std::move(plan), now);
}

Refusal BeginMove(Machine& machine, int position, unsigned mask, bool withMacro, Millis now) {
    if (const Refusal refused = RefuseAxes(machine, mask)) {
        return refused;
    }
    std::deque<Step> plan;
    if (const Refusal refused = PlanAutoHome(machine, mask, plan)) {
        return refused;
    }
    if (const Refusal refused = PlanMove(machine, position, mask, withMacro, plan)) {
        return AlarmOfMove(machine, *refused, now);
    }
    return BeginPlan(machine, std::move(plan), now);
}

Refusal BeginGroup(Machine& machine, int group, Millis now) {
    const std::string& range = machine.working.groups[Index(group - 1)];
    const int first = GroupUsable(range) ? FromHex(range.substr(0, 3)) : 1;
    const int last = GroupUsable(range) ? FromHex(range.substr(3, 3)) : 0;
    if (first > last) {
        return AlarmOfMove(machine, RefusalOf('9'), now);
    }
    std::deque<Step> plan;
    if (const Refusal refused = PlanAutoHome(machine, AxesInUse(machine), plan)) {
        return refused;
    }
    for (int position = first; position <= last; ++position) {
        if (const Refusal refused = PlanMove(machine, position, AxesInUse(machine), true, plan)) {
            return AlarmOfMove(machine, *refused, now);
        }
    }
    return BeginPlan(machine, std::move(plan), now);
}

Refusal BeginJog(Machine& machine, const std::array<int, kAxisCountMax>& directions, double share,
                 Millis now) {
    Step step;
    for (int axis = 0; axis < kAxisCountMax; ++axis) {
        const int direction = directions[Index(axis)];
        if (direction == 0) {
            continue;
        }
        step.mask |= Bit(axis);
        step.speeds[Index(axis)] =
            share * SpeedOf(machine, axis, Item(machine.working, AxisBlock(axis), 6));
        step.ramps[Index(axis)] = RampOf(kJogAcceleration);
        step.targets[Index(axis)] = direction == 1 ? StrokeEnd(machine.working, axis) : 0;
    }
    if (const Refusal refused = RefuseAxes(machine, step.mask)) {
        return refused;
    }
    return BeginPlan(machine, {step}, now);
}

Refusal BeginInching(Machine& machine, const Step& step, Millis now) {
    if (const Refusal refused = RefuseAxes(machine, step.mask)) {
        return refused;
    }
    std::deque<Step> plan;
    if (const Refusal refused = PlanAutoHome(machine, step.mask, plan)) {
        return refused;
    }
    plan.push_back(step);
    for (int axis = 0; axis < kAxisCountMax; ++axis) {
        if (Involves(step.mask, axis)) {
            if (const Refusal refused =
                    LimitTarget(machine, axis, plan.back().targets[Index(axis)])) {
                return AlarmOfMove(machine, *refused, now);
            }
        }
    }
    return BeginPlan(machine, std::move(plan), now);
}

void StopMotion(Machine& machine, Millis now) {
    if (!Moving(machine) || machine.plan.front().kind == Step::Kind::Brake) {
        return;
    }
    FixSlides(machine, now);
    machine.macroWaits = false;
    Step step;
    step.kind = Step::Kind::Brake;
    Millis last = now;
    for (Track& track : machine.tracks) {
        track = Braking(track, now);
        last = std::max(last, track.end);
    }
    machine.plan = {step};
    machine.stepEnds = last;
    Advance(machine, now);
}

void HaltMotion(Machine& machine, Millis now) {
    FixSlides(machine, now);
    for (Track& track : machine.tracks) {
        track = Halted(track, now);
    }
    ComeToRest(machine, now);
}

void LeaveAstray(Machine& machine) {
    for (int axis = 0; axis < kAxisCountMax; ++axis) {
        machine.astray[Index(axis)] = StrokeEnd(machine.working, axis) / 2.0;
    }
}

void Raise(Machine& machine, Alarm alarm, Millis now, std::optional<Millis> goesOutAfter) {
    // The graver alarm stays.
    if (!machine.alarm || machine.alarm->resettable()) {
        machine.alarm = alarm;
        machine.alarmEnds.reset();
        if (goesOutAfter && alarm.resettable()) {
            machine.alarmEnds = now + *goesOutAfter;
        }
    }
    if (Moving(machine) || machine.stepEnds) {
        HaltMotion(machine, now);
    }
    machine.outputs = (machine.outputs | kOutputAlarm) & ~kOutputReady;
}

void ClearAlarm(Machine& machine) {
    machine.alarm.reset();
    machine.alarmEnds.reset();
    machine.outputs &= ~kOutputAlarm;
    if (!Moving(machine)) {
        machine.outputs |= kOutputReady;
    }
}

void SetInputs(Machine& machine, std::uint32_t inputs, Millis now) {
    machine.inputs = inputs & 0xFFFFFFU;
    if (!machine.macroWaits) {
        return;
    }
    const int waitedAt = machine.macroStep;
    const std::optional<Millis> limit = machine.stepEnds;
    machine.stepEnds = RunMacro(machine, MacroOf(machine, machine.plan.front()), now);
    // The change of another input does not prolong the wait.
    if (machine.macroWaits && machine.macroStep == waitedAt) {
        machine.stepEnds = limit;
    }
}

void Restart(Machine& machine, Millis now) {
    machine.working = machine.lasting;
    machine.mode = 0;
    machine.homed = 0;
    // The slides stay where they are, but nobody counts them any more.
    for (int axis = 0; axis < kAxisCountMax; ++axis) {
        Track& track = machine.tracks[Index(axis)];
        machine.astray[Index(axis)] = SlidePosition(machine, axis, now);
        track.from = track.to = 0;
    }
    ClearAlarm(machine);
    ComeToRest(machine, now);
    machine.outputs = kOutputReady | kOutputInPosition;
}

} // namespace qdk8
