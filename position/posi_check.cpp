#include "position/posi_check.h"

#include "app/boxes.h"
#include "app/number_forms.h"
#include "app/screens.h"
#include "device/Module2Calc.h"
#include "device/axis_device.h"
#include "position/bad_cells.h"
#include "position/check_result.h"
#include "position/flex_grid.h"
#include "position/grid_display.h"
#include "position/posi_columns.h"
#include "position/posi_table.h"

#include <exception>
#include <optional>
#include <string>
#include <vector>

namespace qdw8 {

namespace {

/// The widest field of a row on the line: five hexadecimal digits.
constexpr std::int32_t kWidestPulse = 0xFFFFF;

const std::string& CellOf(std::int16_t position, int column) {
    return GridText(position - GridFirst + kGridHeadRows, column + 1);
}

double PulsesOf(std::size_t axis, double mm) {
    return MmToPulse(DevSetting[axis].DevLead, DevSetting[axis].DevPPR, mm);
}

/// An empty cell holds no data; blanks alone do.
bool PassesCheck(int column, const std::string& text) {
    const auto number = text.empty() ? std::nullopt : CellNumber(column, text);
    if (!number) {
        return false;
    }
    const PosiColumn& kind = ColumnOf(column);
    const bool posi = kind.item == kPosi;
    const std::int32_t value = posi ? ToInt32(*number) : ToInt16(*number);
    const PosiLimits limits = LimitsOf(column);
    if (value < limits.lowest || value > limits.highest) {
        return false;
    }
    return !posi || !IsSet(DispMmFlag) ||
           PulsesOf(static_cast<std::size_t>(kind.axis), *number) <= kWidestPulse;
}

/// Tests the row's cells and marks what fails. True if the row is clean.
bool TestRow(std::int16_t position) {
    bool clean = true;
    for (int column = 0; column < kComment; ++column) {
        if (!IsOffColumn(column) && !PassesCheck(column, CellOf(position, column))) {
            MarkPosiCell(static_cast<std::size_t>(column), position);
            clean = false;
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
    for (int column = 0; column < kComment; ++column) {
        const PosiColumn& kind = ColumnOf(column);
        double& number = made.row.number[static_cast<std::size_t>(column)];
        if (IsOffColumn(column)) {
            number = kind.off;
            continue;
        }
        const double value = CellNumber(column, CellOf(position, column)).value_or(0);
        number = value;
        if (kind.item == kPosi) {
            // In mm the nearest pulse is what goes out, and so what the cell shows from now on.
            const auto axis = static_cast<std::size_t>(kind.axis);
            const AxisDevice& device = DevSetting[axis];
            number = IsSet(DispMmFlag) ? PulsesOf(axis, value) : value;
            made.units.pulse[axis] = number;
            made.units.mm[axis] = PulseToMm(device.DevLead, device.DevPPR, number);
        }
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
        ShowTableRow(static_cast<int>(index));
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
    for (std::int16_t position = PosiFirst; position <= PosiLast; ++position) {
        if (!TestRow(position)) {
            ++PosiErrorCount;
            if (position > 0) { // a file can bring a row 0, which no transfer ever asks for
                PosiRowError[static_cast<std::size_t>(position) - 1] = kSet;
            }
        }
    }
    if (PosiErrorCount == 0) {
        Commit();
    }
    ThawGrid();
}

PosiCheck RunCheck() {
    CheckRows();
    MarkBadCells();
    if (PosiErrorCount == 0) {
        return PosiCheck::Committed;
    }
    SyogoMode = 0;
    Screens().frmSyogoKekka();
    ClearPosiErrors();
    PosiErrorCount = 0;
    return PosiCheck::Refused;
}

} // namespace

std::int16_t Check_flgdLineNo() {
    // Range variables apart from what the grid shows would take a row under another row's number.
    if (flgdData().rows.size() <= kGridHeadRows || !GridShowsItsRange()) {
        ShowNoData();
        return 1;
    }
    return 0;
}

PosiCheck PosiDataCheck3() {
    ClearPosiErrors();
    PosiRowError.fill(kClear);
    PosiErrorCount = 0;
    if (flgdData().rows.size() == kGridHeadRows) {
        GridFirst = GridLast = 0;
    }
    if (GridFirst == 0 && GridLast == 0) {
        return PosiCheck::NoData;
    }
    if (!GridShowsItsRange() || PosiFirst < GridFirst || PosiLast > GridLast) {
        ShowNoData();
        return PosiCheck::Refused;
    }
    try {
        return RunCheck();
    } catch (const std::exception&) {
        ThawGridWholly();
        return PosiCheck::Faulted;
    }
}

bool TableTakesGrid(std::int16_t faultText) {
    const PosiCheck check = PosiDataCheck3();
    if (check == PosiCheck::Faulted) {
        ShowTexts({faultText});
    }
    return check == PosiCheck::Committed;
}

std::int16_t ChangeUnit(Flag mm) {
    TakeWholeGrid();
    const PosiCheck check = PosiDataCheck3();
    if (check == PosiCheck::Refused || check == PosiCheck::Faulted) {
        return 1;
    }
    DispMmFlag = mm;
    Change_DispUnit();
    ShowTable();
    return 0;
}

} // namespace qdw8
