#include "motion/teach_chart.h"

#include "app/boxes.h"
#include "app/string_table.h"
#include "device/Module2Calc.h"
#include "device/axis_device.h"
#include "position/flex_grid.h"
#include "position/grid_display.h"
#include "position/grid_editor.h"
#include "position/grid_history.h"
#include "position/posi_columns.h"
#include "position/posi_table.h"

#include <memory>

namespace qdw8 {
namespace {

constexpr std::int16_t kAdopt = 2224;
constexpr std::int16_t kLeftOut = 3234;

/// The state of a fresh start.
struct TeachChartState {
    Flag TeachingDataFlag = kClear;
    std::int16_t lblPosiNo = 0;
    std::map<std::int16_t, AxisPulses> rows;

    std::unique_ptr<GridLock> grid;
};
TeachChartState state;

bool IsOffered(int position) {
    return GridShowsItsRange() && position >= GridFirst && position <= GridLast;
}

/// Without its figures an axis has no millimetres, and a 0 in their place would be a position.
bool CanBeAdopted(std::size_t axis) {
    const AxisDevice& device = DevSetting[axis];
    return !IsSet(AxisOff[axis]) && device.DevLead != 0 && device.DevPPR != 0;
}

void Adopt(int position, std::size_t axis, std::int32_t pulse) {
    const auto row = static_cast<std::size_t>(position);
    const AxisDevice& device = DevSetting[axis];
    const std::size_t column = axis * kAxisColumns + kPosi;
    PosiUnitTable[row].pulse[axis] = pulse;
    PosiUnitTable[row].mm[axis] = PulseToMm(device.DevLead, device.DevPPR, pulse);
    PosiTable[row].number[column] = pulse;
    // What the user has typed into the row's other cells reaches the table with the next check, so
    // the grid is not filled anew.
    ShowTableCell(position, static_cast<int>(column));
    flgdData_CellChanged(position - GridFirst + kGridHeadRows, static_cast<int>(column) + 1);
}

} // namespace

Flag& TeachingDataFlag = state.TeachingDataFlag;
std::int16_t& lblPosiNo = state.lblPosiNo;

const std::map<std::int16_t, AxisPulses>& TeachChart() {
    return state.rows;
}

void LoadTeachChart() {
    state = {};
    state.grid = std::make_unique<GridLock>();
    ChooseTeachRow(GridFirst);
    ChooseTeachRow(flgdData().row - kGridHeadRows + GridFirst);
}

void ChooseTeachRow(int position) {
    if (IsOffered(position)) {
        lblPosiNo = static_cast<std::int16_t>(position);
    }
}

void TeachPosition(const AxisPulses& present) {
    if (lblPosiNo != 0) {
        state.rows[lblPosiNo] = present;
        TeachingDataFlag = kSet;
    }
}

ChartEnd AskAboutTeachChart() {
    if (!IsSet(TeachingDataFlag)) {
        return ChartEnd::Leave;
    }
    switch (AskBox(ResText(kAdopt), BoxButtons::YesNoCancel)) {
    case BoxAnswer::Yes: return ChartEnd::Adopt;
    case BoxAnswer::No: return ChartEnd::Leave;
    default: return ChartEnd::Stay;
    }
}

void AdoptTeachingData() {
    bool leftOut = false;
    auto step = std::make_unique<GridStep>();
    FreezeGrid();
    for (const auto& [position, taught] : state.rows) {
        for (std::size_t axis = 0; axis < kAxes; ++axis) {
            if (!taught[axis]) {
                continue;
            }
            if (!IsOffered(position) || !CanBeAdopted(axis)) {
                leftOut = true;
                continue;
            }
            Adopt(position, axis, *taught[axis]);
            PosiDirtyFlag = kSet;
        }
    }
    TeachingDataFlag = kClear;
    ThawGrid();
    step.reset();
    if (leftOut) {
        ShowTexts({kLeftOut});
    }
}

void ResetTeachChart() {
    state = {};
}

} // namespace qdw8
