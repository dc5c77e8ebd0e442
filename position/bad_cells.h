#pragma once

/// The marks in the grid of what the last check refused. A mark stays until its cell is edited, the
/// grid is checked again, or other data are shown.
namespace qdw8 {

/// Marks the cells of `PosiCellError`.
void MarkBadCells();
void ClearBadCells();

} // namespace qdw8
