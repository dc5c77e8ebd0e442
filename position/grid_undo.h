#pragma once

/// Steps of the user in the grid (`grid_history.h`) taken back and done again.
namespace qdw8 {

/// `mnuGridUndo`, `mnuGridRedo`: cells and lines are what they were before the last step, or after
/// the one that was taken back last: texts, marks of refused cells, and the user's place, which is
/// scrolled to. What is brought back is marked where it couldn't be typed, and checked before it
/// goes anywhere, like all that stands in the grid. Nothing happens where there is no such step,
/// and while the grid is locked.
void mnuGridUndo_Click();
void mnuGridRedo_Click();

} // namespace qdw8
