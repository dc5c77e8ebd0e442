#include "position/grid_editor.h"

#include "app/command_states.h"
#include "device/Module2Calc.h"
#include "platform/platform.h"
#include "position/cell_edit.h"
#include "position/flex_grid.h"
#include "position/grid_display.h"
#include "position/grid_lines.h"
#include "position/posi_table.h"

namespace qdw8 {

std::string EditOldText;
int LastEditKey = 0;

namespace {

int LastGridRow() {
    return static_cast<int>(flgdData().rows.size()) - 1;
}

/// Characters that the edit box of a column takes.
int MaximumLength(int gridColumn) {
    const int column = gridColumn - 1;
    switch (column) {
    case kItpl:
    case kOut: return 1;
    case kSm: return 2;
    case kComment: return 40;
    default: break;
    }
    switch (column % kAxisColumns) {
    case kVel: return 2;
    case kPosi: return 7;
    default: return 1;
    }
}

/// What can be typed into a column of numbers.
bool PassesFilter(int gridColumn, char32_t c) {
    const auto within = [c](char32_t lowest, char32_t highest) {
        return c >= lowest && c <= highest;
    };
    const int column = gridColumn - 1;
    switch (column) {
    case kItpl: return within('0', '1');
    case kOut: return within('0', '3');
    case kSm: return within('0', '9');
    default: break;
    }
    switch (column % kAxisColumns) {
    case kAcc: return within('1', IsSet(AccWideFlag) ? '9' : '3');
    case kWay: return within('0', '3');
    case kPosi: return within('0', '9') || (c == '.' && IsSet(DispMmFlag));
    default: return within('0', '9');
    }
}

/// Enter moves along the row, and from its comment into the next row. Behind the last row it adds
/// one, as long as there are position numbers left.
void EnterWay() {
    const int row = flgdData().row;
    const int column = flgdData().col;
    if (column < kGridCommentColumn) {
        GoToCell(row, column + 1);
    } else if (row < LastGridRow()) {
        GoToCell(row + 1, 1);
    } else if (row <= kLastPosition && GridLast < kLastPosition && GridShowsItsRange()) {
        InsertLines(row + 1, 1);
    } else {
        GoToCell(kGridHeadRows, 1);
    }
}

/// Writes the accepted text to the selected rows of the edited column.
void WriteToSelection(const std::string& text) {
    const FlexGrid& grid = flgdData();
    const bool multiColumn = grid.col != grid.colSel;
    const bool multiCell = multiColumn || grid.row != grid.rowSel;
    if (multiCell) {
        SelectCells(grid.row, grid.col, grid.rowSel, grid.col);
        SetFillMode(FillMode::Repeat);
    }
    FreezeGrid();
    SetCurrentText(text);
    SetFillMode(FillMode::OneCell);
    const auto [first, last] = SelectedRows();
    for (int row = first; row <= last; ++row) {
        flgdData_CellChanged(row, grid.col);
    }
    ThawGrid();
}

} // namespace

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

void flgdData_CellChanged(int row, int column) {
    RestoreBlockColour(row, column);
}

bool flgdData_DblClick() {
    return StartEdit();
}

bool StartEdit() {
    const FlexGrid& grid = flgdData();
    return !grid.edit.open && flgdData_BeforeEdit(grid.row, grid.col);
}

bool flgdData_BeforeEdit(int row, int column) {
    const FlexGrid& grid = flgdData();
    if (grid.locked > 0 || row < kGridHeadRows || row > LastGridRow() || column < 1 ||
        column >= kGridColumns) {
        return false;
    }
    if (column <= kItpl && IsSet(AxisOff[static_cast<std::size_t>((column - 1) / kAxisColumns)])) {
        return false;
    }
    if (row != grid.row || column != grid.col) {
        SelectCells(row, column, row, column);
    }
    LastEditKey = 0;
    SetFillMode(FillMode::OneCell);
    EditOldText = GridText(row, column);
    SetGridColour(row, column, CellColour::Editing);
    OpenEditBox(MaximumLength(column));
    return true;
}

void flgdData_KeyDownEdit(int key) {
    LastEditKey = key;
    if (key == kKeyEscape) {
        SetEditText(EditOldText);
        RefreshGrid();
    }
}

bool flgdData_KeyPressEdit(char32_t character) {
    const int column = flgdData().col;
    return column == kGridCommentColumn || character == char32_t{kKeyBackspace} ||
           character == char32_t{kKeyTab} || character == char32_t{kKeyEnter} ||
           PassesFilter(column, character);
}

bool flgdData_ValidateEdit() {
    const FlexGrid& grid = flgdData();
    if (SetDataForFlex(grid.row, grid.col) == 0) {
        WriteToSelection(std::string(grid.edit.text));
        return true;
    }
    // An Enter that was refused must not carry a later click to the next cell.
    LastEditKey = 0;
    SetGridText(grid.row, grid.col, EditOldText);
    SetEditText(EditOldText);
    RefreshGrid();
    return false;
}

void flgdData_AfterEdit() {
    const bool enter = LastEditKey == kKeyEnter;
    LastEditKey = 0;
    if (enter) {
        EnterWay();
    }
}

bool CommitEdit() {
    if (!flgdData().edit.open) {
        return true;
    }
    if (!flgdData_ValidateEdit()) {
        return false;
    }
    CloseEditBox();
    flgdData_AfterEdit();
    return true;
}

void CancelEdit() {
    const FlexGrid& grid = flgdData();
    if (grid.edit.open) {
        LastEditKey = 0;
        RestoreBlockColour(grid.row, grid.col);
        CloseEditBox();
    }
}

void GoToCell(int row, int column) {
    flgdData_RowColChange(row, column, row, column);
    RefreshGrid();
}

void ResetGridEditor() {
    EditOldText.clear();
    LastEditKey = 0;
}

} // namespace qdw8
