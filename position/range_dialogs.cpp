#include "position/range_dialogs.h"

#include "app/boxes.h"
#include "app/number_forms.h"
#include "position/posi_reader.h"
#include "position/posi_table.h"
#include "position/posi_verify.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace qdw8 {
namespace {

/// The position number in a field; 0, which is none, for anything else.
int PositionIn(const std::string& text) {
    const auto number = NumberOfCell(text);
    const bool position =
        number && *number == std::trunc(*number) && *number >= 1 && *number <= kLastPosition;
    return position ? static_cast<int>(*number) : 0;
}

/// Sets the working range if both numbers are valid and lie in order between the limits.
bool TakeRange(const RangeTexts& texts, int lowest, int highest) {
    const int start = PositionIn(texts.start);
    const int end = PositionIn(texts.end);
    if (start < std::max(lowest, 1) || end > highest || start > end) {
        ShowTexts({1610});
        return false;
    }
    PosiFirst = static_cast<std::int16_t>(start);
    PosiLast = static_cast<std::int16_t>(end);
    return true;
}

} // namespace

RangeTexts ReadRangePreset() {
    if (GridFirst == 0 && GridLast == 0) {
        return {"1", "15"};
    }
    return GridRangePreset();
}

bool TakeReadRange(bool allData, const RangeTexts& texts) {
    if (allData) {
        PosiFirst = 1;
        PosiLast = kLastPosition;
        return true;
    }
    return TakeRange(texts, 1, kLastPosition);
}

RangeTexts GridRangePreset() {
    return {std::to_string(GridFirst), std::to_string(GridLast)};
}

bool TakeGridRange(const RangeTexts& texts) {
    return TakeRange(texts, GridFirst, GridLast);
}

VerifyRangeTexts VerifyRangePreset() {
    const auto texts = [](std::int16_t first, std::int16_t last) {
        return RangeTexts{std::to_string(first), std::to_string(last)};
    };
    return {texts(FileFirst, FileLast), GridRangePreset(), texts(VerifyFirst, VerifyLast)};
}

bool TakeVerifyRange(const RangeTexts& texts) {
    // A field without a number counts as 0.
    const double start = NumberOfCell(texts.start).value_or(0);
    const double end = NumberOfCell(texts.end).value_or(0);
    if (start > end) {
        return false;
    }
    const int first = PositionIn(texts.start);
    const int last = PositionIn(texts.end);
    bool valid = first != 0 && last != 0;
    if (start < VerifyFirst) {
        valid = false;
    } else if (first != 0) {
        PosiFirst = static_cast<std::int16_t>(first);
    }
    if (end > VerifyLast) {
        valid = false;
    } else if (last != 0) {
        PosiLast = static_cast<std::int16_t>(last);
    }
    if (!valid) {
        ShowTexts({1610});
    }
    return valid;
}

void RangeDialogOpened() {
    RangeCancelFlag = kClear;
}
void RangeDialogCancelled() {
    RangeCancelFlag = kSet;
}

} // namespace qdw8
