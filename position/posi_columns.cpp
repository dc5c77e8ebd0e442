#include "position/posi_columns.h"

#include "app/number_forms.h"
#include "device/axis_device.h"
#include "platform/cp932_text.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace qdw8 {
namespace {

constexpr std::size_t kColumns = 20;
constexpr std::size_t kFirstBlock = 4; ///< behind the three digits of the position number
constexpr std::size_t kBlockWidth = 9;

/// In pulses a position must fit into five hexadecimal digits less one bit.
constexpr double kMostPulses = 0x3FFFF;

/// Nobody writes a figure of more characters; no time is spent on such a text.
constexpr std::size_t kLongestNumber = 400;

constexpr std::array<PosiColumn, kAxisColumns> kAxisItems{
    {{kVel, 0, 225, 0, 2, 2, 1, 60, 30, 30},
     {kAcc, 0, 226, 2, 1, 1, 1, 3, 3, 3},
     {kWay, 0, 227, 3, 1, 1, 0, 3, 0, 0},
     {kPosi, 0, 228, 4, 5, 7, 0, kMostPulses, 0, 0}}};
constexpr std::array<PosiColumn, kColumns - kItpl> kCommonItems{
    {{kItpl, -1, 231, 40, 1, 1, 0, 1, 0, 0},
     {kOut, -1, 232, 41, 1, 1, 0, 3, 0, 0},
     {kSm, -1, 233, 42, 2, 2, 0, 20, 0, 0},
     {kComment, -1, 234, 0, 0, 40, 0, 0, 0, 0}}};

constexpr std::array<PosiColumn, kColumns> MakeColumns() {
    std::array<PosiColumn, kColumns> columns;
    for (std::size_t i = 0; i < kColumns; ++i) {
        if (i >= kItpl) {
            columns[i] = kCommonItems[i - kItpl];
            continue;
        }
        const std::size_t axis = i / kAxisColumns;
        columns[i] = kAxisItems[i % kAxisColumns];
        columns[i].axis = static_cast<int>(axis);
        columns[i].place += kFirstBlock + kBlockWidth * axis;
    }
    return columns;
}
constexpr std::array<PosiColumn, kColumns> kColumnTable = MakeColumns();

/// `QD-61F` has one acceleration less than the others.
bool IsSpecialAxis(int axis) {
    const auto index = static_cast<std::size_t>(axis);
    return !IsSet(AxisOff[index]) && IsSpecialModel(DevSetting[index]);
}

bool IsContinuation(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

/// Bytes of the first `count` characters of a text.
std::size_t LengthOf(std::string_view text, int count) {
    std::size_t end = 0;
    for (; end < text.size(); ++end) {
        if (!IsContinuation(text[end]) && count-- == 0) {
            break;
        }
    }
    return end;
}

std::string_view WithoutBlanks(std::string_view text) {
    const std::size_t first = std::min(text.find_first_not_of(' '), text.size());
    text.remove_prefix(first);
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

/// A number that is too long for its cell as it stands, in a form that fits; nothing if none does.
std::optional<std::string> ShorterNumber(int tableColumn, std::string_view text) {
    text = WithoutBlanks(text);
    const auto number = text.size() > kLongestNumber ? std::nullopt : CellNumber(tableColumn, text);
    if (!number) {
        return std::nullopt;
    }
    const PosiColumn& column = ColumnOf(tableColumn);
    const auto room = static_cast<std::size_t>(column.editLength);
    std::string form = PlainDecimal(*number);
    if (form.size() <= room) {
        return form;
    }
    const std::size_t point = form.find('.');
    if (point == std::string::npos || point > room) {
        return std::nullopt;
    }
    form.resize(point == room - 1 ? point : std::min(room, form.size()));
    return form;
}

} // namespace

const PosiColumn& ColumnOf(int tableColumn) {
    return kColumnTable.at(static_cast<std::size_t>(tableColumn));
}

bool IsOffColumn(int tableColumn) {
    const int axis = ColumnOf(tableColumn).axis;
    return axis >= 0 && IsSet(AxisOff[static_cast<std::size_t>(axis)]);
}

double FreshNumber(int tableColumn) {
    const PosiColumn& column = ColumnOf(tableColumn);
    return column.item == kAcc && IsSpecialAxis(column.axis) ? 2 : column.fresh;
}

PosiLimits LimitsOf(int tableColumn) {
    const PosiColumn& column = ColumnOf(tableColumn);
    PosiLimits limits{column.lowest, column.highest};
    if (column.item == kAcc) {
        const bool special = IsSpecialAxis(column.axis);
        if (IsSet(AccWideFlag)) {
            return {special ? 2.0 : 1.0, 9};
        }
        limits.highest = special ? 2 : 3;
    } else if (column.item == kPosi && IsSet(DispMmFlag)) {
        limits.highest = DevSetting[static_cast<std::size_t>(column.axis)].DevStroke;
    }
    return limits;
}

PosiLimits TypedLimitsOf(int tableColumn) {
    const PosiColumn& column = ColumnOf(tableColumn);
    PosiLimits limits = LimitsOf(tableColumn);
    if (column.item == kPosi) {
        const AxisDevice& device = DevSetting[static_cast<std::size_t>(column.axis)];
        limits.highest = IsSet(DispMmFlag) ? device.MaxStrokeMm : device.MaxPulse;
    }
    return limits;
}

bool PassesFilter(int tableColumn, char32_t character) {
    const PosiColumn& column = ColumnOf(tableColumn);
    const auto within = [character](char32_t lowest, char32_t highest) {
        return character >= lowest && character <= highest;
    };
    switch (column.item) {
    case kComment: return true;
    case kAcc: return within('1', IsSet(AccWideFlag) ? '9' : '3');
    case kWay:
    case kOut: return within('0', '3');
    case kItpl: return within('0', '1');
    case kPosi: return within('0', '9') || (character == '.' && IsSet(DispMmFlag));
    default: return within('0', '9');
    }
}

std::optional<double> CellNumber(int tableColumn, std::string_view text) {
    text = WithoutBlanks(text);
    if (text.empty()) {
        return 0;
    }
    const auto number = text.front() == '-' ? std::nullopt : NumberOfCell(text);
    const bool inMm = ColumnOf(tableColumn).item == kPosi && IsSet(DispMmFlag);
    if (number && !inMm && *number != std::trunc(*number)) {
        return std::nullopt;
    }
    return number;
}

BoundText BoundCellText(int tableColumn, std::string_view text) {
    const int room = ColumnOf(tableColumn).editLength;
    if (tableColumn == kComment) {
        const std::size_t length = LengthOf(text, room);
        BoundText bound{WithCp932Signs(text.substr(0, length)), length < text.size()};
        std::replace(bound.text.begin(), bound.text.end(), '"', '\'');
        return bound;
    }
    if (LengthOf(text, room) == text.size()) {
        return {std::string(text), false};
    }
    if (auto number = ShorterNumber(tableColumn, text)) {
        return {std::move(*number), false};
    }
    return {std::string(text.substr(0, LengthOf(text, room - 1))) + "#", true};
}

} // namespace qdw8
