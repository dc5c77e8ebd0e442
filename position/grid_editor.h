#pragma once

#include <string>

/// What the events of the grid do. The window holds the edit box as a control and forwards: it
/// opens it after `StartEdit` with the text and the maximum length in `flgdData().edit`, offers
/// every key to `flgdData_KeyDownEdit` and every character to `flgdData_KeyPressEdit`, keeps
/// `SetEditText` up to date, and ends the edit by `CommitEdit` or `CancelEdit`. A command of the
/// user that begins while a cell is being edited commits it first.
namespace qdw8 {

/// Codes of the keys that the rules know; others are passed on as they are.
inline constexpr int kKeyBackspace = 8;
inline constexpr int kKeyTab = 9;
inline constexpr int kKeyEnter = 13;
inline constexpr int kKeyEscape = 27;

extern std::string EditOldText; ///< the cell's text when its edit began
extern int LastEditKey;         ///< the key that last went through the edit box; 0 for none

/// The current cell or the selection changed: shows the scale of the axis under the cursor, gives
/// the edit commands back, and turns the input method off outside the comment.
void flgdData_RowColChange(int row, int column, int rowSel, int columnSel);
/// The current cell, or its edit box, got the focus.
void flgdData_EnterCell(int column);
/// The text of a cell has changed.
void flgdData_CellChanged(int row, int column);

/// Double click: as `StartEdit`.
bool flgdData_DblClick();
/// Starts an edit of the current cell. False: it is refused (no data, the grid is locked, a head,
/// an axis out of use), or the cell is being edited already.
bool StartEdit();
/// True if the cell may be edited; it is then painted as being edited, and the length of the edit
/// box is set.
bool flgdData_BeforeEdit(int row, int column);
/// A key goes down in the edit box. Esc puts the old text into it.
void flgdData_KeyDownEdit(int key);
/// True if the character may be typed into the cell being edited. Backspace, tab and Enter always
/// may, and in the comment everything may.
bool flgdData_KeyPressEdit(char32_t character);
/// Tests the edit box and writes it to the cell, or to the selected rows of its column. False: the
/// text was rejected, cell and edit box have the old text, and the edit stays open.
bool flgdData_ValidateEdit();
/// After a committed edit: Enter goes on to the next cell, from the last comment into a new line.
void flgdData_AfterEdit();

/// Ends the edit as a key or a click elsewhere does: tests, writes, closes the edit box, moves on.
/// False: rejected, the edit stays open. True also when no cell was being edited.
bool CommitEdit();
/// Ends the edit with the cell as it was.
void CancelEdit();

/// Makes a cell the current one, alone selected, as a click on it would.
void GoToCell(int row, int column);

/// No edit in progress, no key seen.
void ResetGridEditor();

} // namespace qdw8
