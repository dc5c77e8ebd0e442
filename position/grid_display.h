#pragma once

/// How the position table is shown in the grid.
namespace qdw8 {

/// Head texts of the position columns; called at load and when the unit changes.
void Set_MainFormStr();

/// Fills the grid from the table for `GridFirst` to `GridLast`; nothing happens without data.
void QdDataHyoji_3();

/// Block colours of all cells in the grid; nothing happens without data.
void DispAxisData();

/// True if the grid shows exactly the rows `GridFirst` to `GridLast`.
bool GridShowsItsRange();

} // namespace qdw8
