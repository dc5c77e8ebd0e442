#include "setup/para_commands.h"

#include "app/boxes.h"
#include "app/string_table.h"
#include "device/Module2Calc.h"
#include "device/device_settings.h"
#include "link/axis_mask.h"
#include "link/background.h"
#include "link/batch.h"
#include "link/port.h"
#include "parameter/para_device.h"
#include "parameter/para_field_check.h"
#include "parameter/para_fields.h"
#include "parameter/para_file.h"
#include "parameter/para_rows.h"
#include "parameter/para_set.h"
#include "parameter/para_transfer.h"
#include "setup/controller_devices.h"
#include "setup/device_bytes.h"
#include "setup/recheck_positions.h"
#include "setup/repaint_axes.h"

#include <array>
#include <exception>
#include <string>

namespace qdw8 {
namespace {

constexpr std::int16_t kInsideOfCt = 374;

void Tell(std::int16_t id) {
    ShowTexts({id});
}

/// Edited data can be saved first. False: the command ends here.
bool OfferToSave() {
    if (!ParaFieldsFilled()) {
        return true;
    }
    switch (AskBox(ResText(355), BoxButtons::YesNoCancel)) {
    case BoxAnswer::Yes:
        // What the user wanted to keep is not overwritten because saving it was broken off.
        return SaveParameters() == 0;
    case BoxAnswer::No: return true;
    default: return false;
    }
}

enum class Got { Done, Failed, Refused };

/// The actuators of both sides must agree.
Got MatchDevices() {
    switch (CompareDeviceSettings()) {
    case 0: return Got::Done;
    case 1: break;
    default: Tell(356); return Got::Failed;
    }
    if (AskBox(TextLines({357, 358}), BoxButtons::YesNo) != BoxAnswer::Yes) {
        return Got::Refused;
    }
    if (TakeOverDevicesOfController() != 0) {
        Tell(359);
        return Got::Failed;
    }
    RecheckPositions();
    return Got::Done;
}

/// All blocks into `ParaSet`.
bool ReadParaSet() {
    if (ReadAllBlocks() != 0 || ApplyRowTable(RowSource::Controller) != 0) {
        Tell(359);
        return false;
    }
    return true;
}

/// The axes in use; the main window follows at once.
bool ReadAxes() {
    const auto axesBefore = AxisOff;
    if (ReadAxisMask() != 0) {
        Tell(359);
        return false;
    }
    if (AxisOff != axesBefore) {
        RepaintAxes();
    }
    return true;
}

/// What the user refused brings no axis into use either.
void LeaveOut(const std::array<Flag, kAxes>& offBefore) {
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        AxisOff[axis] = FlagOf(IsSet(AxisOff[axis]) || IsSet(offBefore[axis]));
    }
    YukoJikuHyojiSettei();
    RepaintAxes();
}

Got Get() {
    const LineBatch batch;
    const auto offBefore = AxisOff;
    if (!ReadAxes()) {
        return Got::Failed;
    }
    YukoJikuHyojiSettei();
    const Got matched = MatchDevices();
    if (matched == Got::Refused) {
        LeaveOut(offBefore);
    }
    if (matched != Got::Done) {
        return matched;
    }
    if (!ReadParaSet()) {
        return Got::Failed;
    }
    ParaEditedFlag = kClear;
    ParaName = ResText(kInsideOfCt);
    ParametaHyoji();
    return Got::Done;
}

bool Get2() {
    const LineBatch batch;
    return ReadAxes() && ReadParaSet();
}

/// Both sides must use the same axes. False: the command ends here.
bool MatchAxes() {
    if (ReadAxisMaskToCompare() != 0) {
        return false;
    }
    if (CtAxisOff != AxisOff) {
        const std::int16_t choice =
            AskChoice({ResText(471), ResText(472), {ResText(473), ResText(474)}, false});
        if (choice == kSelectionCancelled ||
            (choice == 0 ? WriteAxisMask() : ReadAxisMask()) != 0) {
            return false;
        }
        RepaintAxes();
    }
    ShowAgreedMask(); // it goes out so, whatever stood in the field
    return true;
}

/// What only the controller knows goes back as it was.
bool CarryWhatWasNotRead() {
    if (FetchWhatIsCarried() != 0) {
        Tell(1528);
        return false;
    }
    return true;
}

bool WriteInMode() {
    WritingMode mode;
    if (!mode.begin()) {
        return false;
    }
    const bool written = WriteAllBlocks() == 0;
    mode.end();
    CloseCtPort();
    if (written) {
        if (IsSet(ParaEditedFlag)) {
            ParaName = ResText(kInsideOfCt); // the file that they came from lacks the edits
        }
        CountParaAsKept();
    } else {
        Tell(1528);
    }
    return written;
}

bool Send() {
    const LineBatch batch;
    return MatchAxes() && TakeParaFields(1524, 1525) && StandsStill(OnFailure::Tell) &&
           CarryWhatWasNotRead() && WriteInMode();
}

/// What the controller now holds becomes what the program works with. False: it couldn't be read,
/// or names devices that can't be.
bool Reflect() {
    if (GetParametaValue2() != 0) {
        return false;
    }
    ParametaHyoji();
    if (TakeParameterDevices() != 0) {
        // The parameters are written, and the axes follow them; devices that can't be taken were
        // told and stay as they were. An axis that has none is seen to at the end.
        RepaintAxes();
        return false;
    }
    Culc_MaxPulse2();
    CalcMaxStrokeMm();
    RepaintAxes();
    WriteDeviceSettings();
    RecheckPositions();
    return true;
}

void Write() {
    const PollHeld held;
    if (!Send()) {
        return;
    }
    if (AskBox(ResText(685), BoxButtons::YesNo) == BoxAnswer::Yes && !Reflect()) {
        return;
    }
    Tell(1527);
}

/// The axes that the command brought into use; the fields of one that had to go again are emptied.
void FinishAxes() {
    const auto axesBefore = AxisOff;
    CompleteAxes();
    if (AxisOff != axesBefore) {
        YukoJikuHyojiSettei();
    }
}

} // namespace

std::int16_t GetParametaValue() {
    if (!OfferToSave()) {
        return 1;
    }
    Got got = Got::Failed;
    try {
        got = Get();
    } catch (const std::exception&) {
        Tell(359);
    }
    if (got != Got::Refused) {
        FinishAxes();
    }
    return got == Got::Done ? 0 : 1;
}

std::int16_t GetParametaValue2() {
    try {
        return Get2() ? 0 : 1;
    } catch (const std::exception&) {
        Tell(359);
        return 1;
    }
}

void cmdParaWrite_Click() {
    if (AskBox(ResText(470), BoxButtons::YesNo) != BoxAnswer::Yes) {
        return;
    }
    try {
        Write();
    } catch (const std::exception&) {
        Tell(1528);
    }
    FinishAxes();
}

} // namespace qdw8
