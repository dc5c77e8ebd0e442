#pragma once

/// Lines of the grid added and taken out. Grid, position numbers and range variables stay in step:
/// column 0 numbers from `GridFirst`, `GridRowCount` fits, and the working range lies inside the
/// grid's rows.
namespace qdw8 {

/// Adds rows with the values of a new row in front of a grid row, or behind the last one, goes to
/// the first of them, and marks the document changed. No row ever gets a number above 999: what
/// would is dropped from the end of the grid, silently.
void InsertLines(int gridRow, int count);

/// `cmdInsertLine`, `mnuEditGyoInsert`: as many lines as are selected, in front of them. Without a
/// selected line a box says so.
void InsertLine_Click();
/// `cmdDeleteLine`, `mnuEditGyoDelete`: takes the selected lines out. A grid that has lost its last
/// line holds no data, and nothing is left to be saved, in the table neither.
void DeleteLine_Click();

} // namespace qdw8
