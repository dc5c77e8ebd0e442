#pragma once

#include <cstdint>
#include <string_view>

/// Lines and cells to and from the system clipboard, as text: cells of a row separated by tabs,
/// rows by a carriage return. What a spreadsheet program puts there is understood as well: CR LF
/// and LF end a row too, and a row end at the very end of the text counts for nothing.
namespace qdw8 {

/// 0 nothing; 1 the first line has exactly 20 cells, a whole line; 2 anything else.
std::int16_t ClipKind(std::string_view text);

/// Sets the paste flags by what the clipboard holds, and the paste commands when a line is
/// selected. For the window, whenever the clipboard changes.
void ClipboardChanged();

void mnuEditCellCopy_Click();
void mnuEditLineCopy_Click();
/// Pastes go into the cells as they are, as long as a cell can hold them (`BoundCellText`; a
/// comment that was cut is told once); the next check of the range judges them.
void mnuEditCellPaste_Click();
void mnuEditLinePaste_Click();

} // namespace qdw8
