#pragma once

#include "app/Module1.h"

#include <array>
#include <cstdint>

/// The stroke check that stands before a write to the controller.
namespace qdw8 {

/// Stroke ends that the controller itself holds, pulses; 0 for an axis out of use.
extern std::array<std::int32_t, kAxes>& CtStrokeLimit;

/// Asks the controller for its alarm state, its axes in use and its stroke ends, and compares the
/// positions of the working range with them. 0 pass: the transfer dialog is up and the port open.
/// 1 stop: the dialog is gone and the port closed unless it is held; a position too far has been
/// told in a box, and so has a failed exchange.
///
/// Two things are as they have always been: the rows are counted from the grid's first one,
/// whatever position it shows, so a working range that begins further down has the top of the grid
/// tested; and the figures are taken in the unit of the view, so in mm practically every row
/// passes.
std::int16_t PosiKakikomimaeParaCheck();

void ResetStrokeCheck();

} // namespace qdw8
