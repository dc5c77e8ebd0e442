#pragma once

// Motion that takes time: homing, moves, jogging, groups and the macros at their targets.

#include "simulator/machine.h"

#include <optional>

namespace qdk8 {

/// Lets everything happen that was due up to `now`. To be called before anything else at a moment.
void Advance(Machine& machine, Millis now);

/// When something will happen next by itself.
std::optional<Millis> NextEvent(const Machine& machine);

bool Moving(const Machine& machine);

/// Pulses of an axis (0 to 3) at `now`, as the controller counts them.
int PresentPosition(const Machine& machine, int axis, Millis now);
/// Pulses from the home end to where its slide really stands, within the stroke.
double SlidePosition(const Machine& machine, int axis, Millis now);
/// Whether the axis itself moves; the machine may be running while it waits for another, or for a
/// macro.
bool AxisMoves(const Machine& machine, int axis, Millis now);
/// The moment since which an axis that doesn't move stands.
Millis StandsSince(const Machine& machine, int axis);

/// Axis masks.
unsigned AxesThere(const Machine& machine);
unsigned AxesInUse(const Machine& machine);

// Each of these begins a plan; the machine must stand still. A refusal is the alarm to answer with
// and changes nothing; that of a move past a soft limit, of a bad row and of a bad group stands.
using Refusal = std::optional<Alarm>;

Refusal BeginHoming(Machine& machine, unsigned mask, Millis now);
Refusal BeginMove(Machine& machine, int position, unsigned mask, bool withMacro, Millis now);
Refusal BeginGroup(Machine& machine, int group, Millis now);
/// `directions`: per axis 0 none, 1 to the stroke end, 2 to the home end; `share` of the JOG speed.
Refusal BeginJog(Machine& machine, const std::array<int, kAxisCountMax>& directions, double share,
                 Millis now);
/// One move to given targets; `step` carries mask, targets, speeds and ramps.
Refusal BeginInching(Machine& machine, const Step& step, Millis now);

/// Pulses a second of a speed setting (1 to 60).
double SpeedOf(const Machine& machine, int axis, int setting);
/// Time to full speed, and to stand still from it, of an acceleration setting (1 to 3).
Millis RampOf(int setting);

/// The rest of the plan is dropped; the axes slow down and then stand. Nothing while the machine
/// stands still.
void StopMotion(Machine& machine, Millis now);
/// The same without slowing down, as when the drives let go.
void HaltMotion(Machine& machine, Millis now);
/// The slides of a machine that was never homed stand half-way along their strokes.
void LeaveAstray(Machine& machine);

/// Puts an alarm up: motion stops, the outputs show it. It replaces one that stood, unless that one
/// was not resettable.
void Raise(Machine& machine, Alarm alarm, Millis now, std::optional<Millis> goesOutAfter = {});
void ClearAlarm(Machine& machine);

void SetInputs(Machine& machine, std::uint32_t inputs, Millis now);

/// The state after power came on: lasting memory, nothing homed, no alarm.
void Restart(Machine& machine, Millis now);

} // namespace qdk8
