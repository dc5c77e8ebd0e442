#include "position/range_dialogs.h"

#include "app/boxes.h"
#include "app/number_forms.h"
#include "position/posi_table.h"

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

void RangeDialogOpened() {
    RangeCancelFlag = kClear;
}
void RangeDialogCancelled() {
    RangeCancelFlag = kSet;
}

} // namespace qdw8
