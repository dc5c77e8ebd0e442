#pragma once

#include <string>

/// The user's place in the grid: the current cell, the selection, and the edit box that stands on
/// the cell.
namespace qdw8 {

extern std::string& EditOldText; ///< the cell's text when its edit began
extern int& LastEditKey;         ///< the key that last went through the edit box; 0 for none

/// The current cell or the selection changed: shows the scale of the axis under the cursor, gives
/// the edit commands back, and turns the input method off outside the comment.
void flgdData_RowColChange(int row, int column, int rowSel, int columnSel);
/// The current cell, or its edit box, got the focus.
void flgdData_EnterCell(int column);

/// Makes a cell the current one, alone selected, as a click on it would.
void GoToCell(int row, int column);

/// Going to a position by its number: which ones the grid shows, or that there are none, in words.
std::string GoToRange();
/// Makes the position with the number current, in the column where the user is, and shows it; an
/// edit that is still open, since its text was refused, is given up. Empty when it did; else the
/// words that tell why not, and nothing has changed.
std::string GoToPosition(const std::string& typed);

/// Ends the edit with the cell as it was. Where none is open, a key that was dropped is forgotten.
void CancelEdit();

/// No edit in progress, no key seen.
void ResetGridCursor();

} // namespace qdw8
