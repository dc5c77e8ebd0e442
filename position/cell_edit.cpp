#include "position/cell_edit.h"

#include "app/number_forms.h"
#include "device/Module2Calc.h"
#include "platform/fault.h"
#include "platform/platform.h"
#include "position/flex_grid.h"
#include "position/grid_display.h"
#include "position/posi_check.h"
#include "position/posi_table.h"

#include <cmath>
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

Accepted TakeMm(int gridRow, std::size_t axis, const std::string& text) {
    const AxisDevice& device = DevSetting[axis];
    const double typed = NumberFromText(CutFigure(PlainDecimal(NumberFromText(text))));
    if (!(typed >= 0 && typed <= device.MaxStrokeMm)) {
        return std::nullopt;
    }
    const std::int16_t roundUp = IsSet(MmRoundUpFlag) ? 1 : 0;
    const double mm = SnapMmToPulse(device.DevLead, roundUp, device.DevPPR, typed);
    StoreUnits(gridRow, axis, MmToPulse(device.DevLead, device.DevPPR, mm), mm);
    return MmText(mm);
}

Accepted TakePulses(int gridRow, std::size_t axis, const std::string& text) {
    const AxisDevice& device = DevSetting[axis];
    const double pulse = NumberFromText(text);
    if (pulse != std::trunc(pulse) || pulse < 0 || pulse > device.MaxPulse) {
        return std::nullopt;
    }
    const double mm = CutToThousandths(PulseToMm(device.DevLead, device.DevPPR, pulse));
    if (mm <= device.MaxStrokeMm) {
        StoreUnits(gridRow, axis, pulse, mm);
    } else {
        ThePlatform().Beep(); // kept all the same: in pulses only `MaxPulse` is a limit
    }
    return PlainDecimal(pulse);
}

Accepted TakeWhole(const std::string& text, std::int32_t lowest, std::int32_t highest) {
    const std::int32_t value = ToInt32(NumberFromText(text));
    if (value < lowest || value > highest) {
        return std::nullopt;
    }
    return std::to_string(value);
}

Accepted TakeText(int row, int column, const std::string& text) {
    const int tableColumn = column - 1;
    switch (tableColumn) {
    case kItpl: return TakeWhole(text, 0, 1);
    case kOut: return TakeWhole(text, 0, 3);
    case kSm: return TakeWhole(text, 0, 20);
    case kComment: return Trim(text);
    default: break;
    }
    const int axis = tableColumn / kAxisColumns;
    const auto index = static_cast<std::size_t>(axis);
    switch (tableColumn % kAxisColumns) {
    case kVel: return TakeWhole(text, 1, 60);
    case kAcc: {
        const AccLimits limits = AccLimitsOf(axis);
        return TakeWhole(text, limits.lowest, limits.highest);
    }
    case kWay: return TakeWhole(text, 0, 3);
    default: return IsSet(DispMmFlag) ? TakeMm(row, index, text) : TakePulses(row, index, text);
    }
}

Accepted TakeGuarded(int row, int column, const std::string& text) {
    try {
        return TakeText(row, column, text);
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

} // namespace

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
