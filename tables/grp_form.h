#pragma once

#include "tables/grp_table.h"

#include <cstdint>
#include <string>

/// The window `frmGrp` as data: which groups it shows, and what becomes of what is typed. The
/// fields themselves show `GrpTable`.
namespace qdw8 {

inline constexpr int kGrpPageRows = 33;
inline constexpr int kGrpPages = 3;

extern std::int16_t& optGrpNo; ///< the page shown, 0 to 2

/// "1 to 999": what a field takes, for its tool tip.
inline constexpr std::int16_t kGrpLimits = 3150;
/// The digits of the highest good value.
inline constexpr int kGrpFieldLength = 3;

/// The window opens: every group is 1 to 1, nothing is unsaved, the first page shows.
void LoadGrp();

/// The group, 1 to 99, of a row of the page, 0 to 32.
int GroupOfRow(int row);

/// Shows a page, 0 to 2; any other number changes nothing.
void ShowGrpPage(int page);

/// A field of the page is left: its number goes into `GrpTable`, whether a group can have it or
/// not. 0 for a text that is no whole number.
void EditGrp(int row, GrpField field, const std::string& text);

/// Part of `ResetTables`.
void ResetGrpForm();

} // namespace qdw8
