#pragma once

#include "motion/move_form.h"

#include <cstddef>
#include <string>

/// The list `flgdProgram` of the move test and its cell editor `txtEdit2`. Columns count from 0.
/// Nothing of it counts while the list is disabled.
namespace qdw8 {

/// Writes 1 to 15 in order; empties all cells.
void cmdInp1toF_Click();
void cmdDataClear_Click();

/// Another cell becomes the current one, by a click or an arrow key on the grid; a text in the
/// editor is stored, or dropped with a beep.
void flgdProgram_GoTo(std::size_t column);
/// Opens the editor over the current cell: a double click does so with key 32. A key code from 0 to
/// 32 opens it with the text of the cell, a digit with that digit alone; anything else beeps.
void flgdProgramEdit2(int key);
/// The grid gets the focus, or the window wants the entry ended: the text in the editor is stored
/// if it is a number from 1 to 999, else the cell stays as it was, without a beep; the editor goes.
/// False: the text was another one than the cell's, and is lost.
bool flgdProgram_GotFocus();

/// The text in the editor as it is typed.
void txtEdit2_Change(const std::string& text);
/// A character may be typed into the editor that holds `length` characters: digits up to three,
/// backspace and Enter always.
bool Edit2Takes(int key, std::size_t length);
enum class Edit2Key { Enter, Escape, Left, Right };
/// Enter ends the entry and goes one cell on, from the last to the first; Escape hides the editor
/// with nothing changed; the arrows end the entry (with a beep where it is none) and go one cell on
/// within the list. Behind each the grid has the focus.
void Edit2KeyCode(Edit2Key key);

} // namespace qdw8
