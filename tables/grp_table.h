#pragma once

#include "tables/small_table.h"

#include <array>
#include <cstdint>

/// The groups: runs of position numbers, from a start to an end.
namespace qdw8 {

inline constexpr int kGroups = 99;
inline constexpr int kLastGroupPosition = 999;

struct GrpRow {
    std::int16_t start = 0; ///< 1 to 999
    std::int16_t end = 0;   ///< 1 to 999, not below the start
    std::int16_t error = 0; ///< 1: the check found the end out of range, whatever the start is
};

/// The fields of a row, for `ReasonOf`.
enum GrpField { kGrpStart, kGrpEnd, kGrpFields };

/// Rows 1 to 99; row 0 carries nothing.
using GrpRows = std::array<GrpRow, kGroups + 1>;
extern GrpRows& GrpTable;   ///< what the window shows and edits
extern GrpRows& GrpCompare; ///< what a file or the controller delivered
extern TableState& GrpState;

Numbers TakeGroups(Held copy);
/// The marks stay.
void PutGroups(Held copy, const Numbers& numbers);

/// Tests groups 1 to 99 of `GrpTable`. 0 good; 1 bad: a start or an end is out of range, or a start
/// is larger than its end. The mark of a row tells of its end alone.
std::int16_t GrpData_Check();

/// Part of `ResetTables`: all numbers 0, nothing unsaved.
void ResetGroups();

} // namespace qdw8
