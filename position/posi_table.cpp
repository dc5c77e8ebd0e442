#include "position/posi_table.h"

#include "app/main_panel.h"
#include "app/number_forms.h"
#include "device/Module2Calc.h"
#include "position/check_result.h"
#include "position/flex_grid.h"
#include "position/grid_editor.h"
#include "position/posi_file.h"
#include "position/posi_reader.h"
#include "position/posi_verify.h"
#include "position/stroke_check.h"

#include <algorithm>

namespace qdw8 {

std::array<PosiRow, kPosiRows> PosiTable;
std::array<PosiUnits, kPosiRows> PosiUnitTable;
std::array<StageRow, kPosiRows> PosiStage;
std::array<std::string, kPosiRows> PosiFrameText;

std::int16_t GridFirst = 0;
std::int16_t GridLast = 0;
std::int16_t GridRowCount = 1;
std::int16_t PosiFirst = 1;
std::int16_t PosiLast = 1;
std::int16_t SavedGridFirst = 0;
std::int16_t SavedGridLast = 0;
Flag PosiDirtyFlag = kClear;
Flag PosiHasDataFlag = kClear;
std::string PosiFileName;

namespace {

/// Rows of the working range that exist, as storage indices.
template<typename Visit> void ForWorkingRows(Visit visit) {
    const int first = std::max<int>(PosiFirst, 0);
    const int last = std::min<int>(PosiLast, kLastPosition);
    for (int row = first; row <= last; ++row) {
        visit(static_cast<std::size_t>(row));
    }
}

} // namespace

double NumberOf(const StageCell& cell) {
    const auto* number = std::get_if<double>(&cell);
    return number != nullptr ? *number : NumberFromText(std::get<std::string>(cell));
}

std::string TextOf(const StageCell& cell) {
    const auto* text = std::get_if<std::string>(&cell);
    return text != nullptr ? *text : PlainDecimal(std::get<double>(cell));
}

double DefaultNumber(int axis, int item) {
    const auto index = static_cast<std::size_t>(axis);
    switch (item) {
    case kVel: return 30;
    case kAcc: return !IsSet(AxisOff[index]) && IsSpecialModel(DevSetting[index]) ? 2 : 3;
    default: return 0;
    }
}

void ClearPosiTable() {
    PosiRow fresh;
    fresh.written = true;
    for (int axis = 0; axis < kAxes; ++axis) {
        for (int item = 0; item < kAxisColumns; ++item) {
            const int column = kAxisColumns * axis + item;
            fresh.number[static_cast<std::size_t>(column)] = DefaultNumber(axis, item);
        }
    }
    PosiTable.fill(fresh);
    PosiUnitTable.fill({});
    PosiFrameText.fill({});
}

void PosiStageToTable() {
    ForWorkingRows([](std::size_t row) {
        const StageRow& stage = PosiStage[row];
        PosiTable[row].written = true;
        for (std::size_t column = 0; column < kComment; ++column) {
            const double number = NumberOf(stage[column + 1]);
            if (column < kItpl && column % kAxisColumns == kPosi) {
                PosiUnitTable[row].pulse[column / kAxisColumns] = number;
            } else {
                PosiTable[row].number[column] = number;
            }
        }
        PosiTable[row].comment = TextOf(stage[kComment + 1]);
    });
}

void ConvertTableToMm() {
    ForWorkingRows([](std::size_t row) {
        PosiUnits& units = PosiUnitTable[row];
        for (std::size_t axis = 0; axis < kAxes; ++axis) {
            const AxisDevice& device = DevSetting[axis];
            units.mm[axis] = IsSet(AxisOff[axis])
                                 ? 0
                                 : PulseToMm(device.DevLead, device.DevPPR, units.pulse[axis]);
        }
    });
}

void ConvertTableToPulse() {
    ForWorkingRows([](std::size_t row) {
        PosiUnits& units = PosiUnitTable[row];
        for (std::size_t axis = 0; axis < kAxes; ++axis) {
            const AxisDevice& device = DevSetting[axis];
            units.pulse[axis] =
                IsSet(AxisOff[axis]) ? 0 : MmToPulse(device.DevLead, device.DevPPR, units.mm[axis]);
        }
    });
}

bool PosiTableHasData() {
    // The last row is not looked at: the test runs over the rows 0 to 998.
    const bool any = std::any_of(PosiTable.begin(), PosiTable.end() - 1,
                                 [](const PosiRow& row) { return row.written; });
    PosiHasDataFlag = FlagOf(any);
    return any;
}

void ShowPosiFileName(const std::string& name) {
    PosiFileName = name;
    SetPanel(&MainPanel::lblFileName, name);
}

void ResetPositions() {
    PosiTable.fill({});
    PosiUnitTable.fill({});
    PosiStage.fill({});
    PosiFrameText.fill({});
    GridFirst = GridLast = 0;
    GridRowCount = PosiFirst = PosiLast = 1;
    SavedGridFirst = SavedGridLast = 0;
    PosiDirtyFlag = PosiHasDataFlag = kClear;
    PosiFileName.clear();
    ResetGrid();
    ResetGridEditor();
    ResetCheckResult();
    ResetPosiFile();
    ResetPosiReader();
    ResetStrokeCheck();
    ResetVerify();
}

} // namespace qdw8
