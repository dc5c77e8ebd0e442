#include "position/grid_display.h"

#include "app/number_forms.h"
#include "device/Module2Calc.h"
#include "position/bad_cells.h"
#include "position/flex_grid.h"
#include "position/grid_history.h"
#include "position/posi_columns.h"
#include "position/posi_table.h"

namespace qdw8 {
namespace {

CellColour BlockColour(int gridColumn) {
    if (gridColumn < 1) {
        return CellColour::Window;
    }
    if (IsOffColumn(gridColumn - 1)) {
        return CellColour::OffAxis;
    }
    const int axis = ColumnOf(gridColumn - 1).axis;
    return axis == 1 || axis == 3 ? CellColour::Band : CellColour::Window;
}

/// A number as a cell shows it. What came from a file or from the controller may be longer than any
/// cell.
std::string NumberText(int tableColumn, double number) {
    if (ColumnOf(tableColumn).item == kPosi && IsSet(DispMmFlag)) {
        return BoundCellText(tableColumn, MmText(number)).text;
    }
    return BoundCellText(tableColumn, PlainDecimal(number)).text;
}

std::string CellText(std::size_t position, int tableColumn) {
    const PosiRow& row = PosiTable[position];
    if (tableColumn == kComment) {
        return BoundCellText(kComment, row.comment).text;
    }
    const PosiColumn& column = ColumnOf(tableColumn);
    if (IsOffColumn(tableColumn)) {
        return NumberText(tableColumn, column.off);
    }
    if (column.item == kPosi) {
        const PosiUnits& units = PosiUnitTable[position];
        const auto axis = static_cast<std::size_t>(column.axis);
        return NumberText(tableColumn, IsSet(DispMmFlag) ? units.mm[axis] : units.pulse[axis]);
    }
    return NumberText(tableColumn, row.number[static_cast<std::size_t>(tableColumn)]);
}

/// True for a whole number as a cell shows it: digits, and no zero in front of others.
bool IsShownForm(const std::string& text) {
    return !text.empty() && text.find_first_not_of("0123456789") == text.npos &&
           (text.front() != '0' || text.size() == 1);
}

/// The row of the grid takes what the table holds.
void ShowTableRow(int position) {
    for (int column = 0; column <= kComment; ++column) {
        ShowTableCell(position, column);
    }
}

} // namespace

void ShowTableCell(int position, int tableColumn) {
    SetGridText(position - GridFirst + kGridHeadRows, tableColumn + 1,
                CellText(static_cast<std::size_t>(position), tableColumn));
}

std::string MmText(double mm) {
    return PadLeft(FixedDecimals(mm, 3), 7);
}

void RestoreBlockColour(int gridRow, int gridColumn) {
    SetGridColour(gridRow, gridColumn, BlockColour(gridColumn));
}

void ColourGridRow(int gridRow) {
    for (int column = 1; column < kGridColumns; ++column) {
        RestoreBlockColour(gridRow, column);
    }
}

void FillDefaults(int gridRow) {
    for (int column = 0; column < kComment; ++column) {
        SetGridText(gridRow, column + 1, NumberText(column, FreshNumber(column)));
    }
    SetGridText(gridRow, kGridCommentColumn, {});
}

void ShowCommittedRow(int position) {
    const int gridRow = position - GridFirst + kGridHeadRows;
    for (int column = 0; column <= kComment; ++column) {
        const bool inMm = ColumnOf(column).item == kPosi && IsSet(DispMmFlag);
        if (column == kComment || inMm || IsOffColumn(column) ||
            !IsShownForm(GridText(gridRow, column + 1))) {
            ShowTableCell(position, column);
        }
    }
}

void Coloring_FlexGrid(int first, int last) {
    FreezeGrid();
    for (int i = 0; i <= last - first; ++i) {
        ColourGridRow(i + kGridHeadRows);
    }
    ThawGrid();
}

void NumberGridRows() {
    const int rows = static_cast<int>(flgdData().rows.size());
    FreezeGrid();
    for (int row = kGridHeadRows; row < rows; ++row) {
        SetGridText(row, 0, std::to_string(GridFirst + row - kGridHeadRows));
    }
    ThawGrid();
}

void Set_MainFormStr() {
    Change_DispUnit();
}

void ShowTable() {
    if (GridFirst == 0 && GridLast == 0) {
        return;
    }
    EndGridHistory();
    FreezeGrid();
    SetGridRows(GridLast - GridFirst + 1 + kGridHeadRows);
    Change_DispUnit();
    for (int position = GridFirst; position <= GridLast; ++position) {
        ShowTableRow(position);
        ColourGridRow(position - GridFirst + kGridHeadRows);
    }
    NumberGridRows();
    ThawGrid();
}

void QdDataHyoji_3() {
    if (GridFirst != 0 || GridLast != 0) {
        FreezeGrid();
        ClearBadCells();
        ShowTable();
        GridHome();
        ThawGrid();
    }
}

void DispAxisData() {
    const int rows = static_cast<int>(flgdData().rows.size());
    if (rows <= kGridHeadRows) {
        return;
    }
    Coloring_FlexGrid(1, rows - kGridHeadRows);
    ShowUndoCommands();
}

bool GridShowsItsRange() {
    const auto rows = static_cast<int>(flgdData().rows.size());
    return rows == GridLast - GridFirst + 1 + kGridHeadRows && rows > kGridHeadRows &&
           GridLast > 0 && GridText(kGridHeadRows, 0) == std::to_string(GridFirst);
}

void TakeWholeGrid() {
    if (GridShowsItsRange()) {
        PosiFirst = GridFirst;
        PosiLast = GridLast;
    }
}

} // namespace qdw8
