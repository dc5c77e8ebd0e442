#include "position/grid_cursor.h"

#include "app/command_states.h"
#include "app/string_table.h"
#include "device/Module2Calc.h"
#include "platform/platform.h"
#include "position/flex_grid.h"
#include "position/grid_display.h"
#include "position/posi_columns.h"
#include "position/posi_table.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace qdw8 {
namespace {

// Texts of going to a position.
constexpr std::int16_t kNoData = 433;
constexpr std::int16_t kRange = 3394; ///< in front of first and last
constexpr std::int16_t kNoPositionNumber = 3395;
constexpr std::int16_t kLocked = 3396;
constexpr std::size_t kPositionDigits = 3;

struct State {
    std::string editOldText;
    int lastEditKey = 0;
};
State state;

} // namespace

std::string& EditOldText = state.editOldText;
int& LastEditKey = state.lastEditKey;

void flgdData_RowColChange(int row, int column, int rowSel, int columnSel) {
    const bool moved = row != flgdData().row || column != flgdData().col;
    SelectCells(row, column, rowSel, columnSel);
    if (column >= 1 && column <= kItpl) {
        ShowUnitScaleOfAxis((column - 1) / kAxisColumns);
    }
    if (row >= kGridHeadRows) {
        EditCMD_Yuko();
    }
    if (moved) {
        flgdData_EnterCell(column);
    }
}

void flgdData_EnterCell(int column) {
    // In the comment it stays as the user left it, and Japanese can be typed.
    if (column != kGridCommentColumn) {
        ThePlatform().ImeSetOpenStatus(false);
    }
}

void GoToCell(int row, int column) {
    flgdData_RowColChange(row, column, row, column);
    RefreshGrid();
}

std::string GoToRange() {
    return GridFirst == 0 && GridLast == 0
               ? ResText(kNoData)
               : ResText(kRange) + std::to_string(GridFirst) + " - " + std::to_string(GridLast);
}

std::string GoToPosition(const std::string& typed) {
    const FlexGrid& grid = flgdData();
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    const bool figure = !typed.empty() && typed.size() <= kPositionDigits &&
                        std::all_of(typed.begin(), typed.end(), isDigit);
    const int position = figure ? std::stoi(typed) : -1;
    const int row = position - GridFirst + kGridHeadRows;
    if (!figure || (position == 0 && GridFirst != 0)) {
        return ResText(kNoPositionNumber);
    }
    if (position < GridFirst || row >= static_cast<int>(grid.rows.size())) {
        return GoToRange();
    }
    if (grid.locked > 0) {
        return ResText(kLocked);
    }
    CancelEdit(); // one that was refused: its cell has the old text
    GoToCell(row, std::max(grid.col, 1));
    ShowCurrentCell();
    return {};
}

void CancelEdit() {
    const FlexGrid& grid = flgdData();
    if (grid.edit.open) {
        LastEditKey = 0;
        RestoreBlockColour(grid.row, grid.col);
        CloseEditBox();
    }
    SetEditSpoiled(false);
}

void ResetGridCursor() {
    state = State{};
}

} // namespace qdw8
