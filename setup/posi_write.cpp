#include "setup/posi_write.h"

#include "app/boxes.h"
#include "app/screens.h"
#include "app/string_table.h"
#include "app/waits.h"
#include "link/axis_mask.h"
#include "link/batch.h"
#include "position/posi_check.h"
#include "position/posi_command.h"
#include "position/posi_table.h"
#include "position/posi_write.h"
#include "position/stroke_check.h"
#include "setup/device_bytes.h"

#include <exception>
#include <optional>

namespace qdw8 {
namespace {

/// Range, check and confirmation. Nothing: nothing goes out.
std::optional<PosiFrames> AskWhatToWrite() {
    if (Check_flgdLineNo() != 0 || !AskRange(Screens().frmSelectPosiNo3) || !TableTakesGrid(397)) {
        return std::nullopt;
    }
    PosiFrames frames = TakePosiFrames();
    if (AskBox(ResText(375), BoxButtons::OkCancel) != BoxAnswer::Ok) {
        return std::nullopt;
    }
    return frames;
}

/// Axes and actuators are those of the controller. False: the command ends.
bool SettingsAgree() {
    if (ReadAxisMaskToCompare() != 0) {
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

/// What is written in the writing mode. A run that stops before its last row leaves the controller
/// in it, so that nothing moves by half a table; the end of the program ends it.
void WriteRows(const PosiFrames& frames) {
    WritingMode mode;
    if (!mode.begin()) {
        return;
    }
    LineResult result = LineResult::Failed;
    if (SettingsAgree() && PosiKakikomimaeParaCheck() == 0) {
        result = WritePosidataToCt(frames);
    }
    if (result == LineResult::Done) {
        mode.end(kRetries + 1);
        ShowTexts({376});
    } else if (!IsSet(ProgramEndFlag)) {
        mode.leave();
    }
}

void Write() {
    const auto frames = AskWhatToWrite();
    if (!frames) {
        return;
    }
    MsecTimer(1); // what is pending of events runs before the first frame
    const LineBatch batch;
    if (StandsStill(OnFailure::Silent)) {
        WriteRows(*frames);
    }
}

} // namespace

void WriteToCt() {
    const PositionCommand command;
    const WholeGridAfter wholeGrid;
    try {
        Write();
    } catch (const std::exception&) {
        ShowTexts({108});
    }
}

} // namespace qdw8
