#pragma once

#include "position/grid_cursor.h"

#include <optional>
#include <string>
#include <string_view>

/// What the events of the grid do. The window holds the edit box as a control and forwards: it
/// opens it after `StartEdit` with the text and the maximum length in `flgdData().edit`, offers
/// every key to `flgdData_KeyDownEdit` and every character to `TypeIntoEdit`, keeps `SetEditText`
/// up to date, and ends the edit by `CommitEdit` or `CancelEdit`. A command of the user that begins
/// while a cell is being edited commits it first.
///
/// A character that a cell doesn't take is dropped with a beep and spoils the edit: "12,5" would
/// leave 125, which is another number. A spoiled edit is refused when it is committed. It is whole
/// again when its text has been emptied or wholly replaced, and ends with Escape. In a column of
/// one character it only beeps.
namespace qdw8 {

/// Codes of the keys that the rules know; others are passed on as they are.
inline constexpr int kKeyTab = 9;
inline constexpr int kKeyEnter = 13;
inline constexpr int kKeyEscape = 27;

/// The text of a cell has changed.
void flgdData_CellChanged(int row, int column);

/// Double click: as `StartEdit`.
bool flgdData_DblClick();
/// Starts an edit of the current cell. False: it is refused (no data, the grid is locked, a head,
/// an axis out of use), or the cell is being edited already.
bool StartEdit();
/// Characters of a key while no cell is being edited. True: an edit has begun, and they are to take
/// the place of the cell's text. False: nothing has, since the cell can't be edited or doesn't take
/// them. What it doesn't take beeps, and spoils an edit that is begun by typing afterwards; that is
/// forgotten when another cell becomes the current one, by Escape, Delete and a paste, when the
/// grid loses the focus, and when an edit begins in another way.
bool StartTyping(std::string_view typed);
/// What was dropped while no cell was being edited no longer counts.
void ForgetDroppedKeys();
/// True if the cell may be edited; it is then painted as being edited, and the length of the edit
/// box is set.
bool flgdData_BeforeEdit(int row, int column);
/// A key goes down in the edit box. Esc puts the old text into it.
void flgdData_KeyDownEdit(int key);
/// Characters of a key, or a text as `TextToPaste` gave it, on their way into the open edit box,
/// which would hold `becomes` with them. True: they go in. False: they are dropped, with a beep,
/// and the edit is spoiled, unless they are only decimals that would be cut anyway. The comment
/// takes everything that it has room for, and what it hasn't is dropped without a word.
bool TypeIntoEdit(std::string_view typed, std::string_view becomes);
/// Tests the edit box and writes it to the cell, or to the selected rows of its column. False: the
/// text was rejected, with a beep, cell and edit box have the old text, and the edit stays open.
bool flgdData_ValidateEdit();
/// After a committed edit: Enter goes on to the next cell, from the last comment into a new line.
/// Tab goes one cell to the right; a Tab that is to go elsewhere is offered as another key.
void flgdData_AfterEdit();

/// Ends the edit as a key or a click elsewhere does: tests, writes, closes the edit box, moves on.
/// False: rejected, the edit stays open. True also when no cell was being edited.
bool CommitEdit();

/// Delete outside an edit: the selected cells of the comment column are emptied. Nothing happens in
/// the other columns, where an empty cell is none.
void flgdData_Delete();

/// What a paste puts into the open edit box, at its cursor: the whole text or nothing. Blanks
/// around a figure and the row end that a spreadsheet program puts behind a cell don't count; in
/// the comment a double quote becomes an apostrophe. `room` is how many characters the box can take
/// more, those counted that the paste replaces. Nothing, and a beep: the text holds a character
/// that can't be typed into this column, or is too long.
std::optional<std::string> TextToPaste(std::string_view pasted, int room);

} // namespace qdw8
