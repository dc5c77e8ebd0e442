#pragma once

#include <string>

/// How the position table is shown in the grid.
namespace qdw8 {

/// A position in mm as the grid shows it: three decimals, at least seven characters.
std::string MmText(double mm);

/// Head texts of the position columns; called at load and when the unit changes.
void Set_MainFormStr();

/// Fills the grid from the table for `GridFirst` to `GridLast`; the user's place stays, and nothing
/// of before can be undone. Nothing happens without data. No cell is longer than its edit box.
void ShowTable();
/// The same for one row of the table that took its values from the grid's very cells: a cell that
/// shows its number as it would be shown stays as it is.
void ShowCommittedRow(int position);
/// The cell of a row that the grid shows takes what the table holds.
void ShowTableCell(int position, int tableColumn);
/// `ShowTable` for another document: it begins with its first row, and no cell is current.
void QdDataHyoji_3();

/// Puts the values of a new row into the cells of a grid row, all but the position number.
void FillDefaults(int gridRow);

/// Block colours of the grid's first rows, as many as `first` to `last` are; of one row; of one
/// cell.
void Coloring_FlexGrid(int first, int last);
void ColourGridRow(int gridRow);
void RestoreBlockColour(int gridRow, int gridColumn);

/// Writes the position numbers down column 0, from `GridFirst`.
void NumberGridRows();

/// Block colours of all cells in the grid; nothing happens without data.
void DispAxisData();

/// True if the grid shows exactly the rows `GridFirst` to `GridLast`.
bool GridShowsItsRange();

/// Makes the working range the whole grid. Nothing happens without data.
void TakeWholeGrid();

} // namespace qdw8
