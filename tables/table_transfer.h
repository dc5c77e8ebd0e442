#pragma once

#include "tables/small_table.h"

#include <vector>

/// The way of a small table over the line. The caller holds a `LineBatch`. The transfer dialog is
/// gone on every way out.
namespace qdw8 {

/// Reads all rows from the controller into the compare table, which is as it was unless the result
/// is `Done`. Failed: the exchange has told, or a character of a reply was no hexadecimal digit,
/// which was told as a communication error.
LineResult ReadTableFromCt(const SmallTable& table);

/// What a write sends: all rows as they are shown now, then the commit. Taken right behind the
/// check, so that nothing else goes out. Faults on a number that has no form on the line.
std::vector<LineWrite> TakeTableFrames(const SmallTable& table);

/// Sends them. Unless the result is `Done`, what came through stands in the controller uncommitted.
LineResult WriteTableToCt(const SmallTable& table, const std::vector<LineWrite>& frames);

} // namespace qdw8
