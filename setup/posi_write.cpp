#include "setup/posi_write.h"

#include "app/boxes.h"
#include "app/screens.h"
#include "app/string_table.h"
#include "app/transfer_dialog.h"
#include "link/Module3Tusin.h"
#include "link/axis_mask.h"
#include "link/ct_commands.h"
#include "link/supervision.h"
#include "platform/platform.h"
#include "position/check_result.h"
#include "position/posi_check.h"
#include "position/posi_command.h"
#include "position/posi_table.h"
#include "position/posi_write.h"
#include "position/stroke_check.h"
#include "setup/device_bytes.h"

#include <exception>

namespace qdw8 {
namespace {

/// Range, check and confirmation. False: nothing goes out.
bool AskWhatToWrite() {
    if (Check_flgdLineNo() != 0) {
        return false;
    }
    Screens().frmSelectPosiNo3();
    if (IsSet(RangeCancelFlag)) {
        RangeCancelFlag = kClear;
        return false;
    }
    return TableTakesGrid(397) && AskBox(ResText(375), BoxButtons::OkCancel) == BoxAnswer::Ok;
}

/// The controller stands still and is in the mode for writing. False: the command ends.
bool PrepareController() {
    const std::int16_t arrived = ReadArrivalStatus();
    if (arrived != 1) {
        if (arrived == 0) {
            ShowTexts({424});
        }
        return false;
    }
    if (SetCtMode(1) != 0) {
        ShowTexts({377});
        return false;
    }
    return true;
}

/// Axes and actuators are those of the controller. False: the command ends.
bool SettingsAgree() {
    if (ReadAxisMaskQuiet() != 0) {
        return false;
    }
    const std::int16_t compared = CtAxisOff != AxisOff ? std::int16_t{1} : CompareDeviceSettings();
    if (compared == 1) {
        ShowTexts({357, 483});
    }
    if (compared != 0) {
        return false;
    }
    if (ReadDeviceBytes() != 0) {
        ShowTexts({377});
        return false;
    }
    return true;
}

/// Back to the normal mode, with six tries.
void FinishController() {
    int tries = 0;
    while (SetCtMode(0) != 0) {
        if (++tries > kRetries) {
            ShowTexts({377});
            break;
        }
        MsecTimer(kRetryPauseMs);
    }
    ShowTexts({376});
}

void Write() {
    if (!AskWhatToWrite()) {
        return;
    }
    const PollHeld held;
    TransferCancelFlag = kClear;
    MsecTimer(1); // what is pending of events runs before the first frame
    GoOnLine();
    if (PrepareController() && SettingsAgree() && PosiKakikomimaeParaCheck() == 0 &&
        WritePosidataToCt() == 0) {
        FinishController();
    }
    CloseCtPort();
}

} // namespace

void WriteToCt() {
    const PositionCommand command;
    const WholeGridAfter wholeGrid;
    try {
        Write();
    } catch (const std::exception&) {
        UnloadTrance();
        CloseCtPort();
        ShowTexts({108});
    }
    TransferRunFlag = kClear;
}

} // namespace qdw8
