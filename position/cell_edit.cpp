#include "position/cell_edit.h"

#include "app/number_forms.h"
#include "device/Module2Calc.h"
#include "device/axis_device.h"
#include "platform/platform.h"
#include "position/flex_grid.h"
#include "position/grid_display.h"
#include "position/posi_columns.h"
#include "position/posi_table.h"

#include <cmath>
#include <exception>
#include <optional>

namespace qdw8 {
namespace {

/// What a cell is to show; nothing when the text is rejected.
using Accepted = std::optional<std::string>;

/// The first seven characters of a figure, or three behind its decimal point.
std::string CutFigure(const std::string& figure) {
    std::string cut;
    int budget = 7;
    for (const char c : figure) {
        if (budget == 0) {
            break;
        }
        if (c == '.') {
            budget = 4;
        }
        cut += c;
        --budget;
    }
    return cut;
}

/// A mm figure cut, not rounded, to three decimals.
double CutToThousandths(double mm) {
    const double whole = std::trunc(mm);
    const std::string fraction = PlainDecimal(mm - whole);
    return whole + NumberFromText(fraction.substr(0, 5)); // "0.123"
}

void StoreUnits(int gridRow, std::size_t axis, double pulse, double mm) {
    const auto row = static_cast<std::size_t>(gridRow) - 1;
    if (row >= PosiUnitTable.size()) {
        return; // the last row of a grid that begins at 0; the commit fills both forms
    }
    PosiUnits& units = PosiUnitTable[row];
    units.pulse[axis] = pulse;
    units.mm[axis] = mm;
}

Accepted TakeMm(int gridRow, std::size_t axis, double typed) {
    const AxisDevice& device = DevSetting[axis];
    const std::int16_t roundUp = IsSet(MmRoundUpFlag) ? 1 : 0;
    const double mm = SnapMmToPulse(device.DevLead, roundUp, device.DevPPR, typed);
    StoreUnits(gridRow, axis, MmToPulse(device.DevLead, device.DevPPR, mm), mm);
    return MmText(mm);
}

Accepted TakePulses(int gridRow, std::size_t axis, double pulse) {
    const AxisDevice& device = DevSetting[axis];
    const double mm = CutToThousandths(PulseToMm(device.DevLead, device.DevPPR, pulse));
    if (mm <= device.MaxStrokeMm) {
        StoreUnits(gridRow, axis, pulse, mm);
    } else {
        ThePlatform().Beep(); // kept all the same: in pulses only `MaxPulse` is a limit
    }
    return PlainDecimal(pulse);
}

/// The figure of a text that may be typed.
std::optional<double> TypedNumber(int tableColumn, const std::string& text) {
    std::optional<double> number = CellNumber(tableColumn, text);
    if (number && ColumnOf(tableColumn).item == kPosi && IsSet(DispMmFlag)) {
        number = NumberFromText(CutFigure(PlainDecimal(*number)));
    }
    const PosiLimits limits = TypedLimitsOf(tableColumn);
    if (number && !(*number >= limits.lowest && *number <= limits.highest)) {
        number.reset();
    }
    return number;
}

Accepted TakeText(int row, int tableColumn, const std::string& text) {
    if (tableColumn == kComment) {
        return Trim(text);
    }
    const auto number = TypedNumber(tableColumn, text);
    if (!number) {
        return std::nullopt;
    }
    const PosiColumn& column = ColumnOf(tableColumn);
    if (column.item == kPosi) {
        const auto axis = static_cast<std::size_t>(column.axis);
        return IsSet(DispMmFlag) ? TakeMm(row, axis, *number) : TakePulses(row, axis, *number);
    }
    return PlainDecimal(*number);
}

Accepted TakeGuarded(int row, int column, const std::string& text) {
    try {
        return TakeText(row, column - 1, text);
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

} // namespace

bool MayBeTyped(int column, const std::string& text) {
    try {
        return column == kGridCommentColumn || IsOffColumn(column - 1) ||
               TypedNumber(column - 1, text);
    } catch (const std::exception&) {
        return false;
    }
}

std::int16_t SetDataForFlex(int row, int column) {
    const Accepted text = TakeGuarded(row, column, flgdData().edit.text);
    if (!text) {
        ThePlatform().Beep();
        return 1;
    }
    SetEditText(*text);
    PosiDirtyFlag = kSet;
    return 0;
}

} // namespace qdw8
