#pragma once

#include <cstdint>
#include <string>

/// The test of one edited cell.
namespace qdw8 {

/// Tests the text of the edit box for the cell at a grid row and column. 0 accepted: the edit box
/// holds the text that the cell is to show, the document is marked changed, and for a position both
/// forms stand in `PosiUnitTable`, at the row that the cell would have in a grid that begins with
/// position 1; the next commit puts them right. 1 rejected, with a beep: the edit box is as it was
/// and nothing has changed. A number too wide for its cell is rejected as well.
///
/// In mm a figure above the stroke end is rejected. In pulses one that is not above `MaxPulse` but
/// whose mm form is above `MaxStrokeMm` is accepted with a beep, and the unit table stays as it
/// was.
std::int16_t SetDataForFlex(int row, int column);

/// The same test of a text in a grid column, without a beep, and nothing changes. What the cells of
/// an axis out of use hold is not judged.
bool MayBeTyped(int column, const std::string& text);

} // namespace qdw8
