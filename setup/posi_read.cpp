#include "setup/posi_read.h"

#include "app/boxes.h"
#include "app/screens.h"
#include "app/string_table.h"
#include "app/transfer_dialog.h"
#include "platform/platform.h"
#include "position/flex_grid.h"
#include "position/grid_display.h"
#include "position/posi_command.h"
#include "position/posi_file.h"
#include "position/posi_table.h"
#include "position/posi_transfer.h"
#include "setup/controller_settings.h"

#include <exception>

namespace qdw8 {
namespace {

/// Data in the table can be saved first. False: the command ends here.
bool OfferToSave() {
    if (!PosiTableHasData()) {
        return true;
    }
    switch (AskBox(ResText(369), BoxButtons::YesNoCancel)) {
    case BoxAnswer::Yes:
        SavePosiFileAs();
        // What the user wanted to keep is not overwritten because saving it was broken off.
        return !IsSet(SaveCancelledFlag);
    case BoxAnswer::No: return true;
    default: return false;
    }
}

/// Range and confirmation. False: the command ends here.
bool AskRange() {
    Screens().frmSelectPosiNo2();
    if (IsSet(RangeCancelFlag)) {
        RangeCancelFlag = kClear;
        return false;
    }
    return AskBox(ResText(370), BoxButtons::OkCancel) == BoxAnswer::Ok;
}

void ShowWhatCame() {
    GridFirst = PosiFirst;
    GridLast = PosiLast;
    GridRowCount = static_cast<std::int16_t>(GridLast - GridFirst + 1);
    PosiStageToTable();
    ConvertTableToMm();
    QdDataHyoji_3();
    ShowPosiFileName(ResText(374));
    PosiDirtyFlag = kClear;
}

/// True: the rows have come. Until then grid and range variables say what the grid shows, and a
/// save in the middle of the read saves that.
bool ReadChosenRange() {
    const LineBatch batch;
    const std::int16_t first = PosiFirst;
    const std::int16_t last = PosiLast;
    const std::int16_t compared = MatchControllerSettings();
    if (compared != 0) {
        ShowBox(compared == 1 ? TextLines({108, 425}) : ResText(108));
        return false;
    }
    PosiFirst = first; // devices taken over bring a check of the whole grid with them
    PosiLast = last;
    const LineResult result = ReadPosidataFromCt();
    if (result == LineResult::Cancelled && !IsSet(ProgramEndFlag)) {
        ShowTexts({425});
    }
    return result == LineResult::Done;
}

void Read() {
    if (!OfferToSave()) {
        return;
    }
    const RangesBefore before;
    bool read = false;
    try {
        read = AskRange() && ReadChosenRange();
    } catch (const std::exception&) {
        before.putBack();
        throw;
    }
    if (read) {
        ShowWhatCame();
    } else {
        before.putBack();
    }
}

} // namespace

void ReadFromCt() {
    const PositionCommand command;
    try {
        Read();
    } catch (const std::exception&) {
        ShowTexts({108});
    }
}

} // namespace qdw8
