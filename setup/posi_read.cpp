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
#include "position/recovery.h"
#include "setup/controller_settings.h"
#include "setup/devices_before.h"
#include "setup/recheck_positions.h"

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
        // What the user wanted to keep is not overwritten because saving it was broken off, or
        // because only a part of it was saved: such a part is no file of the document's own.
        return !IsSet(SaveCancelledFlag) && !PosiFilePath.empty();
    case BoxAnswer::No: return true;
    default: return false;
    }
}

/// Range and confirmation. False: the command ends here.
bool AskWhatToRead() {
    return AskRange(Screens().frmSelectPosiNo2) &&
           AskBox(ResText(370), BoxButtons::OkCancel) == BoxAnswer::Ok;
}

void ShowWhatCame() {
    GridFirst = PosiFirst;
    GridLast = PosiLast;
    GridRowCount = static_cast<std::int16_t>(GridLast - GridFirst + 1);
    PosiStageToTable();
    ConvertTableToMm();
    QdDataHyoji_3();
    ShowPosiFileName(ResText(374));
    NothingUnsaved();
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
    PosiFirst = first; // a save that was offered meanwhile may have moved them
    PosiLast = last;
    const LineResult result = ReadPosidataFromCt();
    if (WasStopped(result)) {
        ShowTexts({425});
    }
    return result == LineResult::Done;
}

void Read() {
    if (!OfferToSave()) {
        return;
    }
    const RangesBefore before;
    const DevicesBefore devices;
    bool read = false;
    try {
        read = AskWhatToRead() && ReadChosenRange();
    } catch (const std::exception&) {
        ShowTexts({108});
    }
    if (read) {
        ShowWhatCame();
    } else {
        before.putBack();
        // Rows that come are the controller's own; those that stay stand on its devices now.
        if (devices.haveChanged() && !IsSet(ProgramEndFlag)) {
            RecheckPositions();
        }
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
