#pragma once

#include "link/batch.h"

#include <cstdint>
#include <string>
#include <vector>

/// The rows of the position table, to the controller.
namespace qdw8 {

/// The 43 characters of a position's row on the line, from `PosiTable`. A value that is negative or
/// too wide for its field comes out as the single character "X".
std::string PosiRowText(std::int16_t position);

/// What a write sends, as the check committed it.
struct PosiFrames {
    std::vector<LineWrite> writes;
    int rows = 0; ///< of the working range
};
/// The frames of the working range, but for the rows marked in `PosiRowError`. Taken right behind
/// the check: whatever happens until they are sent, nothing else goes out. Faults on a row that has
/// no form on the line.
PosiFrames TakePosiFrames();

/// Sends the rows, one exchange each, with the transfer dialog, whose button does nothing here.
/// Done: every row was acknowledged. Any other result: the rows before stay written, and the user
/// has been told, but for `Cancelled`, which is the end of the program. The dialog is gone then,
/// and the port closed unless it is kept.
LineResult WritePosidataToCt(const PosiFrames& frames);

} // namespace qdw8
