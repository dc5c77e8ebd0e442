#pragma once

#include <string>

/// The rules behind the range dialogs. Each takes the texts of `txtStartPosiNo` and
/// `txtEndPosiNo`; the windows hold the controls only.
namespace qdw8 {

struct RangeTexts {
    std::string start;
    std::string end;
};

/// `frmSelectPosiNo2`, read from the controller: the grid's rows, or 1 and 15 without data.
RangeTexts ReadRangePreset();
/// Takes all 999 positions, or the two texts. True: the dialog may close, `PosiFirst` and
/// `PosiLast` are set. False: a box has told that the numbers are not valid, nothing is set.
bool TakeReadRange(bool allData, const RangeTexts& texts);

/// `frmSelectPosiNo3`, save as, write and their kin: the grid's rows.
RangeTexts GridRangePreset();
/// Takes a range inside the grid's rows; results as above.
bool TakeGridRange(const RangeTexts& texts);

/// Called when a range dialog opens, and when it is left by Cancel or by closing it.
void RangeDialogOpened();
void RangeDialogCancelled();

} // namespace qdw8
