#pragma once

#include <cstdint>

/// The test of a range of the grid, and the way of its contents into the position table.
namespace qdw8 {

/// 0 the grid holds the rows that it says; 1 it doesn't, and a box has said so.
std::int16_t Check_flgdLineNo();

/// Tests the grid's rows of the working range and, only if all are clean, commits them to the
/// table in whole. 0 clean and committed; 1 errors found, the result window was shown and
/// `PosiRowError` tells the rows; 2 the grid holds no data. A cell whose number is too large for
/// its width ends the check at once with 0 and nothing committed.
std::int16_t PosiDataCheck3();

/// Limits of "ACC" of an axis (0 to 3).
struct AccLimits {
    std::int16_t lowest = 1;
    std::int16_t highest = 3;
};
AccLimits AccLimitsOf(int axis);

} // namespace qdw8
