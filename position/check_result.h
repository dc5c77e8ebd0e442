#pragma once

#include "app/Module1.h"
#include "position/posi_table.h"

#include <array>
#include <bitset>
#include <cstdint>
#include <vector>

/// The error marks of a check or a verify, and what the result window `frmSyogoKekka` shows of
/// them.
namespace qdw8 {

/// A row failed; index is the position number minus 1.
extern std::array<Flag, kPosiRows>& PosiRowError;
/// A cell failed; first index the table column 0 to 18, 19 for "some cell of this row", second the
/// position number itself.
inline constexpr std::size_t kSomeCell = 19;
extern std::array<std::array<Flag, kPosiRows>, 20>& PosiCellError;
extern std::int16_t& PosiErrorCount; ///< number of failed rows
extern std::int16_t& SyogoMode;      ///< -1 the window reports a verify, 0 a check

/// Clears `PosiCellError`.
void ClearPosiErrors();
/// Marks a cell of a position (table column 0 to 18) and its row.
void MarkPosiCell(std::size_t column, std::int16_t position);

/// One row of the result window.
struct ResultRow {
    std::int16_t position = 0;
    std::bitset<kComment> failed; ///< by table column
};
/// The rows marked, from `PosiFirst` up to 999, in ascending order.
std::vector<ResultRow> ResultRows();

void ResetCheckResult();

} // namespace qdw8
