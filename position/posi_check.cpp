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

#include <array>
#include <exception>
#include <optional>
#include <string>
#include <utility>
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

/// The number of a cell that passes the check. An empty cell holds no data; blanks alone do.
std::optional<double> CheckedNumber(int column, const std::string& text) {
    const auto number = text.empty() ? std::nullopt : CellNumber(column, text);
    if (!number) {
        return std::nullopt;
    }
    const PosiColumn& kind = ColumnOf(column);
    const bool posi = kind.item == kPosi;
    const std::int32_t value = posi ? ToInt32(*number) : ToInt16(*number);
    const PosiLimits limits = LimitsOf(column);
    if (value < limits.lowest || value > limits.highest) {
        return std::nullopt;
    }
    const bool tooWide = posi && IsSet(DispMmFlag) &&
                         PulsesOf(static_cast<std::size_t>(kind.axis), *number) > kWidestPulse;
    return tooWide ? std::nullopt : number;
}

/// What a row of the grid holds, as the table will.
struct CheckedRow {
    PosiRow row;
    PosiUnits units;
};

void TakePosi(CheckedRow& made, int column, double value) {
    // In mm the nearest pulse is what goes out, and so what the cell shows from now on.
    const auto axis = static_cast<std::size_t>(ColumnOf(column).axis);
    const double pulse = IsSet(DispMmFlag) ? PulsesOf(axis, value) : value;
    made.row.number[static_cast<std::size_t>(column)] = pulse;
    made.units.pulse[axis] = pulse;
}

/// Behind the test of all cells: a device without figures faults here, and must not hide what was
/// found.
void TakeMm(CheckedRow& made) {
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        if (!IsSet(AxisOff[axis])) {
            const AxisDevice& device = DevSetting[axis];
            made.units.mm[axis] = PulseToMm(device.DevLead, device.DevPPR, made.units.pulse[axis]);
        }
    }
}

/// Tests the row's cells and marks what fails. Nothing: the row is not clean.
std::optional<CheckedRow> TakeRow(std::int16_t position) {
    CheckedRow made;
    made.row.written = true;
    bool clean = true;
    for (int column = 0; column < kComment; ++column) {
        const PosiColumn& kind = ColumnOf(column);
        if (IsOffColumn(column)) {
            made.row.number[static_cast<std::size_t>(column)] = kind.off;
        } else if (const auto number = CheckedNumber(column, CellOf(position, column)); !number) {
            MarkPosiCell(static_cast<std::size_t>(column), position);
            clean = false;
        } else if (kind.item == kPosi) {
            TakePosi(made, column, *number);
        } else {
            made.row.number[static_cast<std::size_t>(column)] = *number;
        }
    }
    if (!clean) {
        return std::nullopt;
    }
    made.row.comment = CellOf(position, kComment);
    return made;
}

/// All rows were worked out before the first one is stored: the table changes in whole or not.
void Commit(std::vector<CheckedRow>& rows) {
    auto index = static_cast<std::size_t>(PosiFirst);
    for (CheckedRow& made : rows) {
        PosiTable[index] = std::move(made.row);
        PosiUnitTable[index] = made.units;
        ShowCommittedRow(static_cast<int>(index));
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
    std::vector<CheckedRow> rows;
    rows.reserve(static_cast<std::size_t>(PosiLast - PosiFirst + 1));
    for (std::int16_t position = PosiFirst; position <= PosiLast; ++position) {
        if (auto made = TakeRow(position)) {
            rows.push_back(std::move(*made));
        } else {
            ++PosiErrorCount;
            if (position > 0) { // a file can bring a row 0, which no transfer ever asks for
                PosiRowError[static_cast<std::size_t>(position) - 1] = kSet;
            }
        }
    }
    if (PosiErrorCount == 0) {
        for (CheckedRow& made : rows) {
            TakeMm(made);
        }
        Commit(rows);
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
    ShowModal(Screens().frmSyogoKekka);
    ClearPosiErrors();
    PosiErrorCount = 0;
    return PosiCheck::Refused;
}

using Figures = std::array<double, kComment>;

/// The figures of the grid's rows that a file would hold. The pulses of rows that came from a file
/// or the controller reach the table only with a check.
std::vector<Figures> FiguresOfGrid() {
    std::vector<Figures> rows;
    for (int position = GridFirst; position <= GridLast; ++position) {
        const auto row = static_cast<std::size_t>(position);
        Figures figures = PosiTable[row].number;
        for (std::size_t axis = 0; axis < kAxes; ++axis) {
            figures[axis * kAxisColumns + kPosi] = PosiUnitTable[row].pulse[axis];
        }
        rows.push_back(figures);
    }
    return rows;
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

PosiCheck CheckWholeGrid() {
    const std::vector<Figures> before = FiguresOfGrid();
    // A command on a part of the table may have left its range behind.
    TakeWholeGrid();
    const PosiCheck check = PosiDataCheck3();
    if (check == PosiCheck::Committed && FiguresOfGrid() != before) {
        PosiDirtyFlag = kSet;
    }
    return check;
}

std::int16_t ChangeUnit(Flag mm) {
    const PosiCheck check = CheckWholeGrid();
    if (check == PosiCheck::Refused || check == PosiCheck::Faulted) {
        return 1;
    }
    DispMmFlag = mm;
    Change_DispUnit();
    ShowTable();
    return 0;
}

} // namespace qdw8
