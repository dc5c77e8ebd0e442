#pragma once

#include "parameter/para_controls.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>

/// The stroke calculator `frmDevice`: from a stroke and a lead in mm the stroke end in pulses, and
/// its way into the `STROKE` field of an axis. It serves actuators that the device list lacks.
namespace qdw8 {

/// What stands in the window, under the names of its controls.
struct StrokeForm {
    std::string txtStrokeTyo;            ///< mm
    std::string txtRido;                 ///< mm per revolution
    std::size_t optActType = 0;          ///< 0: 400 pulses per revolution, 1: 192 (`QD-61F`)
    std::string lblStrokePulse;          ///< the result, or a word
    std::size_t optInputSaki = 0;        ///< axis (0 to 3) that takes the result
    std::array<bool, kAxes> axisThere{}; ///< its `STROKE` field can take it
};

/// The window is loaded: empty, for the first axis that can take the result.
StrokeForm LoadStrokeCalculator();

enum class StrokeField { txtStrokeTyo, txtRido };

/// The most characters that the fields take: digits only.
inline constexpr std::size_t kStrokeFieldLength = 3;
inline constexpr std::size_t kLeadFieldLength = 5;

/// The field loses the focus: a stroke beyond 0 to 500 or a lead other than 2, 6, 8 empties it,
/// with a beep.
void LeaveStrokeField(StrokeForm& form, StrokeField field);

/// Fills `lblStrokePulse`. What can't be calculated leaves it as it was.
void cmdCulStrokePulse_Click(StrokeForm& form);

/// Enters the result for the chosen axis. The field that gets the focus in the parameter window,
/// and `frmDevice` closes; nothing when there is no result to enter, or the axis can't take it, and
/// it stays open.
std::optional<ParaPlace> cmdInputStroke_Click(const StrokeForm& form);

} // namespace qdw8
