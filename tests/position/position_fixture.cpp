#include "position_fixture.h"

#include "device/Module2Calc.h"
#include "position/flex_grid.h"
#include "position/grid_display.h"
#include "position/position_reset.h"

namespace qdw8::test {

PositionTest::PositionTest() {
    ResetModule1();
    ResetCommandStates();
    ResetMainPanel();
    ResetTransferDialog();
    ResetModule3Tusin();
    ResetDevices();
    ResetPositions();
    PortOccupyFlag = kSet;
    AxisOff = {kClear, kSet, kSet, kClear};
    DevSetting[0] = {" 44", "L", 100, kSet, kClear, kSet, kSet, 2, 400, 0.005, 0, 0};
    DevSetting[3] = {" 61", "F", 200, kSet, kSet, kSet, kSet, 8, 192, 8.0 / 192, 0, 0};
    Culc_MaxPulse();
    CalcMaxStrokeMm();
}

void PositionTest::showRows(std::int16_t first, std::int16_t last) {
    ClearPosiTable();
    GridFirst = PosiFirst = first;
    GridLast = PosiLast = last;
    GridRowCount = static_cast<std::int16_t>(last - first + 1);
    QdDataHyoji_3();
}

void PositionTest::type(int position, int column, const std::string& text) {
    SetGridText(position - GridFirst + kGridHeadRows, column + 1, text);
}

std::string PositionTest::cell(int position, int column) {
    return GridText(position - GridFirst + kGridHeadRows, column + 1);
}

} // namespace qdw8::test
