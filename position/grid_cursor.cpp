#include "position/grid_cursor.h"

#include "app/command_states.h"
#include "device/Module2Calc.h"
#include "platform/platform.h"
#include "position/flex_grid.h"
#include "position/grid_display.h"
#include "position/posi_columns.h"

namespace qdw8 {
namespace {

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
