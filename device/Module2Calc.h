#pragma once

#include <cstdint>

/// The way between pulses and millimetres, the stroke ends, and the texts that show the scale.
/// Pulses are the truth of the table and of the wire; a mm figure is worked out on demand.
namespace qdw8 {

/// value x (lead / ppr), unrounded. `lead` in mm and `ppr` in pulses per revolution; a `ppr` of 0
/// faults.
double PulseToMm(std::int16_t lead, std::int16_t ppr, double value);
/// value / lead x ppr, ties to the even pulse. A `lead` of 0 faults.
double MmToPulse(std::int16_t lead, std::int16_t ppr, double value);
/// The mm figure of the whole pulse next to `value`. Half a pulse goes up with `roundUp` 1, down
/// with 0; with any other `roundUp` a figure between two pulses gives 0. Faults on a `lead` or
/// `ppr` of 0 and on a figure too large for the fixed-point step.
double SnapMmToPulse(std::int16_t lead, std::int16_t roundUp, std::int16_t ppr, double value);
/// Stroke end in whole pulses; a fraction of a pulse of one decimal or more counts as a whole one.
/// Faults on a `lead` of 0 and on a stroke that is no pulse at all.
double MaxPulseOf(std::int16_t stroke, std::int16_t lead, std::int16_t ppr);

/// Fills `MaxPulse` of each axis from the device in `DevSetting`; an axis out of use gets 0. Faults
/// as `MaxPulseOf` does; the axes before it are done.
void Culc_MaxPulse();
/// Fills `MaxStrokeMm` of each axis in use; that of the others is left as it stands. Faults on a
/// `DevPPR` of 0; the axes before it are done.
void CalcMaxStrokeMm();

/// Scale of the first axis in use, into the status bar. An axis whose lead or pulses are 0 has no
/// scale: the texts stay as they are.
void ShowUnitScale();
/// Scale of the axis (0 to 3) under the cursor; nothing happens for an axis out of use.
void ShowUnitScaleOfAxis(int axis);
/// Head texts of the four position columns, by the display unit.
void Change_DispUnit();

} // namespace qdw8
