#include "position/range_dialogs.h"

#include "app/boxes.h"
#include "app/number_forms.h"
#include "position/posi_reader.h"
#include "position/posi_table.h"
#include "position/posi_verify.h"

namespace qdw8 {
namespace {

/// Sets the working range if both numbers are valid and lie in order between the limits.
bool TakeRange(const RangeTexts& texts, int lowest, int highest) {
    const double start = NumberFromText(texts.start);
    const double end = NumberFromText(texts.end);
    if (!(start >= 1 && end <= kLastPosition && start >= lowest && end <= highest &&
          start <= end)) {
        ShowTexts({1610});
        return false;
    }
    PosiFirst = ToInt16(start);
    PosiLast = ToInt16(end);
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
    const double start = NumberFromText(texts.start);
    const double end = NumberFromText(texts.end);
    if (start > end) {
        return false;
    }
    const auto isPosition = [](double number) { return number >= 1 && number <= kLastPosition; };
    bool valid = isPosition(start) && isPosition(end);
    if (start < VerifyFirst) {
        valid = false;
    } else if (isPosition(start)) {
        PosiFirst = ToInt16(start);
    }
    if (end > VerifyLast) {
        valid = false;
    } else if (isPosition(end)) {
        PosiLast = ToInt16(end);
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
