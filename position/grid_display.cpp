#include "position/grid_display.h"

#include "app/number_forms.h"
#include "device/Module2Calc.h"
#include "position/flex_grid.h"
#include "position/posi_table.h"

namespace qdw8 {
namespace {

CellColour BlockColour(int gridColumn) {
    const int tableColumn = gridColumn - 1;
    if (gridColumn < 1 || tableColumn >= kItpl) {
        return CellColour::Window;
    }
    const int axis = tableColumn / kAxisColumns;
    if (IsSet(AxisOff[static_cast<std::size_t>(axis)])) {
        return CellColour::OffAxis;
    }
    return axis % 2 == 1 ? CellColour::Band : CellColour::Window;
}

std::string PosiText(const PosiUnits& units, std::size_t axis) {
    const bool off = IsSet(AxisOff[axis]);
    if (IsSet(DispMmFlag)) {
        return MmText(off ? kOffPosi : units.mm[axis]);
    }
    return PlainDecimal(off ? kOffPosi : units.pulse[axis]);
}

std::string DefaultText(int tableColumn) {
    if (tableColumn == kComment) {
        return {};
    }
    if (tableColumn >= kItpl) {
        return "0";
    }
    const int item = tableColumn % kAxisColumns;
    if (item == kPosi && IsSet(DispMmFlag)) {
        return MmText(0);
    }
    return PlainDecimal(DefaultNumber(tableColumn / kAxisColumns, item));
}

std::string CellText(std::size_t position, int tableColumn) {
    const auto column = static_cast<std::size_t>(tableColumn);
    if (tableColumn == kComment) {
        return PosiTable[position].comment;
    }
    if (tableColumn >= kItpl) {
        return PlainDecimal(PosiTable[position].number[column]);
    }
    const auto axis = column / kAxisColumns;
    const int item = tableColumn % kAxisColumns;
    if (item == kPosi) {
        return PosiText(PosiUnitTable[position], axis);
    }
    if (IsSet(AxisOff[axis])) {
        constexpr std::array<double, 3> kOff{kOffVel, kOffAcc, kOffWay};
        return PlainDecimal(kOff[static_cast<std::size_t>(item)]);
    }
    return PlainDecimal(PosiTable[position].number[column]);
}

} // namespace

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
    for (int column = 0; column <= kComment; ++column) {
        SetGridText(gridRow, column + 1, DefaultText(column));
    }
}

void Init_FlexGrid(int first, int last) {
    FreezeGrid();
    SetGridRows(last - first + 1 + kGridHeadRows);
    for (int i = 0; i <= last - first; ++i) {
        SetGridText(i + kGridHeadRows, 0, std::to_string(GridFirst + i));
        FillDefaults(i + kGridHeadRows);
    }
    GridHome();
    ThawGrid();
    Coloring_FlexGrid(first, last);
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

void QdDataHyoji_3() {
    if (GridFirst == 0 && GridLast == 0) {
        return;
    }
    SetGridRows(GridLast - GridFirst + 1 + kGridHeadRows);
    Change_DispUnit();
    const GridLock lock;
    FreezeGrid();
    for (int i = 0; i <= GridLast - GridFirst; ++i) {
        const int gridRow = i + kGridHeadRows;
        const int position = GridFirst + i;
        SetGridText(gridRow, 0, std::to_string(position));
        for (int column = 0; column <= kComment; ++column) {
            SetGridText(gridRow, column + 1, CellText(static_cast<std::size_t>(position), column));
        }
        ColourGridRow(gridRow);
    }
    GridHome();
    ThawGrid();
}

void DispAxisData() {
    const int rows = static_cast<int>(flgdData().rows.size());
    if (rows <= kGridHeadRows) {
        return;
    }
    Coloring_FlexGrid(1, rows - kGridHeadRows);
}

bool GridShowsItsRange() {
    const auto rows = static_cast<int>(flgdData().rows.size());
    return rows == GridLast - GridFirst + 1 + kGridHeadRows && rows > kGridHeadRows &&
           GridLast > 0 && GridText(kGridHeadRows, 0) == std::to_string(GridFirst);
}

} // namespace qdw8
