#pragma once

/// The marks in the grid of what the last check refused. A mark stays until its cell is edited, its
/// row is checked again, or other data are shown.
namespace qdw8 {

/// Marks the cells of `PosiCellError` in the working range, and no others there.
void MarkBadCells();
/// No cell of the grid is marked.
void ClearBadCells();

} // namespace qdw8
