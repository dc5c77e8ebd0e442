#pragma once

#include "link/batch.h"

#include <cstdint>
#include <string>

/// The rows of the position table, to the controller.
namespace qdw8 {

/// The 43 characters of a position's row on the line, from `PosiTable`. A value that is negative or
/// too wide for its field comes out as the single character "X".
std::string PosiRowText(std::int16_t position);

/// Writes the rows of the working range, one exchange each, but for those marked in `PosiRowError`,
/// with the transfer dialog, whose button does nothing here. Done: every row was acknowledged. Any
/// other result: the rows before stay written, and the user has been told, but for `Cancelled`,
/// which is the end of the program. If any row has no form on the line none is sent. The dialog is
/// gone then, and the port closed unless it is kept.
LineResult WritePosidataToCt();

} // namespace qdw8
