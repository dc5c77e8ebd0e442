#pragma once

#include <cstdint>
#include <string>

/// The rows of the position table, to the controller.
namespace qdw8 {

/// The 43 characters of a position's row on the line, from `PosiTable`. A value that is negative or
/// too wide for its field comes out as the single character "X".
std::string PosiRowText(std::int16_t position);

/// Writes the rows of the working range, one exchange each, but for those marked in `PosiRowError`,
/// with the transfer dialog. 0 done: every row was acknowledged. 1 failed, and the user has been
/// told: the rows before the failing one stay written. A row whose text is not whole is not sent.
/// The dialog is gone then, and the port closed unless it is held.
std::int16_t WritePosidataToCt();

} // namespace qdw8
