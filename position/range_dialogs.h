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

/// `frmSelectPosiNo4`, verify with a file: what the file holds, what the grid shows, and what both
/// have in common. Without anything in common the range and its boxes are hidden, and OK only
/// closes.
struct VerifyRangeTexts {
    RangeTexts file;
    RangeTexts grid;
    RangeTexts range;
};
VerifyRangeTexts VerifyRangePreset();
/// Takes a range inside the common one. True: the dialog may close. False: it stays; a box has told
/// that a number is not valid, but of the two a number inside its own limit has been set all the
/// same. A start behind the end, or with an
/// empty end, is refused without a box, and nothing is set.
bool TakeVerifyRange(const RangeTexts& texts);

/// Called when a range dialog opens, and when it is left by Cancel or by closing it.
void RangeDialogOpened();
void RangeDialogCancelled();

} // namespace qdw8
