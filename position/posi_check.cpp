#include "position/posi_check.h"

#include "app/boxes.h"
#include "app/number_forms.h"
#include "app/screens.h"
#include "device/Module2Calc.h"
#include "platform/fault.h"
#include "position/check_result.h"
#include "position/flex_grid.h"
#include "position/grid_display.h"
#include "position/posi_table.h"

#include <exception>
#include <vector>

namespace qdw8 {

Flag CheckFaultedFlag = kClear;

namespace {

/// A position in pulses must fit into five hexadecimal digits less one bit.
constexpr std::int32_t kPulseLimit = 262144;

/// The numbers of one row while it is tested. A value that is missing stays as the row before left
/// it.
using WorkingRow = std::array<std::int32_t, kComment>;

bool IsPosi(std::size_t column) {
    return column < kItpl && column % kAxisColumns == kPosi;
}
std::size_t AxisOfColumn(std::size_t column) {
    return column / kAxisColumns;
}
bool IsOffColumn(std::size_t column) {
    return column < kItpl && IsSet(AxisOff[AxisOfColumn(column)]);
}

double OffNumber(std::size_t column) {
    constexpr std::array<double, kAxisColumns> kOff{kOffVel, kOffAcc, kOffWay, kOffPosi};
    return kOff[column % kAxisColumns];
}

const std::string& CellOf(std::int16_t position, std::size_t column) {
    return GridText(position - GridFirst + kGridHeadRows, static_cast<int>(column) + 1);
}

bool Within(std::int32_t value, std::int32_t lowest, std::int32_t highest) {
    return value >= lowest && value <= highest;
}

bool PassesLimits(std::size_t column, std::int32_t value) {
    switch (column) {
    case kItpl: return Within(value, 0, 1);
    case kOut: return Within(value, 0, 3);
    case kSm: return Within(value, 0, 20);
    default: break;
    }
    const std::size_t axis = AxisOfColumn(column);
    switch (column % kAxisColumns) {
    case kVel: return Within(value, 1, 60);
    case kAcc: {
        const AccLimits limits = AccLimitsOf(static_cast<int>(axis));
        return Within(value, limits.lowest, limits.highest);
    }
    case kWay: return Within(value, 0, 3);
    default: break;
    }
    if (IsSet(AxisOff[axis])) {
        return true;
    }
    return IsSet(DispMmFlag) ? Within(value, 0, DevSetting[axis].DevStroke)
                             : Within(value, 0, kPulseLimit - 1);
}

/// Reads the row's numbers, marking what is empty, and tests them. True if the row is clean.
bool TestRow(std::int16_t position, WorkingRow& values) {
    bool clean = true;
    const auto fail = [&](std::size_t column) {
        MarkPosiCell(column, position);
        clean = false;
    };
    for (std::size_t column = 0; column < kComment; ++column) {
        if (IsOffColumn(column)) {
            values[column] = ToInt32(OffNumber(column));
            continue;
        }
        const std::string& text = CellOf(position, column);
        if (text.empty()) {
            fail(column);
            continue;
        }
        const double number = NumberFromText(Trim(text));
        values[column] = IsPosi(column) ? ToInt32(number) : ToInt16(number);
    }
    for (std::size_t column = 0; column < kComment; ++column) {
        if (!PassesLimits(column, values[column])) {
            fail(column);
        }
    }
    return clean;
}

struct CommittedRow {
    PosiRow row;
    PosiUnits units;
};

CommittedRow CommitOf(std::int16_t position) {
    CommittedRow made;
    made.row.written = true;
    for (std::size_t column = 0; column < kComment; ++column) {
        double& number = made.row.number[column];
        if (IsOffColumn(column)) {
            number = OffNumber(column);
            continue;
        }
        const double value = NumberFromText(Trim(CellOf(position, column)));
        if (!IsPosi(column)) {
            number = value;
            continue;
        }
        const std::size_t axis = AxisOfColumn(column);
        const AxisDevice& device = DevSetting[axis];
        if (IsSet(DispMmFlag)) {
            made.units.mm[axis] = value;
            made.units.pulse[axis] = MmToPulse(device.DevLead, device.DevPPR, value);
        } else {
            made.units.pulse[axis] = value;
            made.units.mm[axis] = PulseToMm(device.DevLead, device.DevPPR, value);
        }
        number = made.units.pulse[axis];
    }
    made.row.comment = CellOf(position, kComment);
    return made;
}

/// All rows are worked out before the first one is stored: the table changes in whole or not.
void Commit() {
    std::vector<CommittedRow> rows;
    const int count = PosiLast - PosiFirst + 1;
    rows.reserve(static_cast<std::size_t>(count));
    for (std::int16_t position = PosiFirst; position <= PosiLast; ++position) {
        rows.push_back(CommitOf(position));
    }
    auto index = static_cast<std::size_t>(PosiFirst);
    for (CommittedRow& made : rows) {
        PosiTable[index] = std::move(made.row);
        PosiUnitTable[index] = made.units;
        ++index;
    }
}

void ShowNoData() {
    ShowTexts({433, 434});
}

/// The rows of the range tested and, if all are clean, committed.
void CheckRows() {
    const GridLock lock;
    FreezeGrid();
    WorkingRow values{};
    for (std::int16_t position = PosiFirst; position <= PosiLast; ++position) {
        if (!TestRow(position, values)) {
            ++PosiErrorCount;
            if (position > 0) { // a file can bring a row 0, which no transfer ever asks for
                PosiRowError[static_cast<std::size_t>(position) - 1] = kSet;
            }
        }
    }
    if (PosiErrorCount == 0) {
        Commit();
    }
    GridHome();
    ThawGrid();
}

std::int16_t RunCheck() {
    CheckRows();
    if (PosiErrorCount == 0) {
        return 0;
    }
    SyogoMode = 0;
    Screens().frmSyogoKekka();
    ClearPosiErrors();
    PosiErrorCount = 0;
    return 1;
}

} // namespace

AccLimits AccLimitsOf(int axis) {
    const auto index = static_cast<std::size_t>(axis);
    const bool special = !IsSet(AxisOff[index]) && IsSpecialModel(DevSetting[index]);
    if (IsSet(AccWideFlag)) {
        return {static_cast<std::int16_t>(special ? 2 : 1), 9};
    }
    return {1, static_cast<std::int16_t>(special ? 2 : 3)};
}

std::int16_t Check_flgdLineNo() {
    // A read that was refused half-way can leave the range variables apart from what the grid
    // shows; no row may be taken then, since it would go under another row's number.
    if (flgdData().rows.size() <= kGridHeadRows || !GridShowsItsRange()) {
        ShowNoData();
        return 1;
    }
    return 0;
}

std::int16_t PosiDataCheck3() {
    CheckFaultedFlag = kClear;
    ClearPosiErrors();
    PosiRowError.fill(kClear);
    PosiErrorCount = 0;
    if (flgdData().rows.size() == kGridHeadRows) {
        GridFirst = GridLast = 0;
    }
    if (GridFirst == 0 && GridLast == 0) {
        return 2;
    }
    if (!GridShowsItsRange() || PosiFirst < GridFirst || PosiLast > GridLast) {
        ShowNoData();
        return 1;
    }
    try {
        return RunCheck();
    } catch (const std::exception&) {
        CheckFaultedFlag = kSet;
        ThawGridWholly();
        return 0;
    }
}

bool TableTakesGrid(std::int16_t faultText) {
    if (PosiDataCheck3() != 0) {
        return false;
    }
    if (IsSet(CheckFaultedFlag)) {
        ShowTexts({faultText});
        return false;
    }
    return true;
}

std::int16_t ChangeUnit(Flag mm) {
    if (GridShowsItsRange()) {
        PosiFirst = GridFirst;
        PosiLast = GridLast;
    }
    if (PosiDataCheck3() == 1 || IsSet(CheckFaultedFlag)) {
        return 1;
    }
    DispMmFlag = mm;
    Change_DispUnit();
    QdDataHyoji_3();
    return 0;
}

} // namespace qdw8
