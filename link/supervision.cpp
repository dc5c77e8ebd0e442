#include "link/supervision.h"

#include "app/boxes.h"
#include "app/command_states.h"
#include "app/main_panel.h"
#include "app/screens.h"
#include "app/string_table.h"
#include "app/transfer_dialog.h"
#include "link/Module3Tusin.h"
#include "link/axis_mask.h"
#include "link/ct_commands.h"
#include "platform/platform.h"

#include <exception>

namespace qdw8 {
namespace {

int pollHolders = 0;

bool PollIsDue() {
    // While a command has the commands, the poll would run on top of its dialogs, and a wait of the
    // poll would keep the command from ending.
    return pollHolders == 0 && !CommandsTaken() && !IsSet(OffLineFlag) &&
           !IsSet(AlarmNotResettableFlag) && IsSet(AlarmFlag) && !IsSet(CtBusyFlag);
}

/// A poll that fails leaves the line as the exchange left it: on line with the alarm still
/// standing, off line when nothing answered.
void Poll() {
    if (PollCtStatus() == 0) {
        AlarmFlag = kClear;
        CloseCtPort();
    }
}

/// Runs a user command to its end; a fault in it ends it with the communication box.
template<typename Steps> void RunGuarded(Steps steps) {
    try {
        steps();
    } catch (const std::exception&) {
        UnloadTrance();
        CloseCtPort();
        ShowTexts({108});
    }
}

void ResetAlarm() {
    const CommandsAway away;
    GoOnLine();
    if (SendAlarmReset() != 0) {
        if (IsSet(AlarmNotResettableFlag)) {
            ShowTexts({324, 325});
        }
        CloseCtPort();
        return;
    }
    if (ReplyText.starts_with("0AR")) {
        AlarmFlag = kClear;
        ClearAlarmDisplay();
    }
    if (CheckCtStatus() != 0) {
        // A failed check after a reset doesn't block the next command.
        CommErrorFlag = kClear;
    }
    CloseCtPort();
}

void AskOffline() {
    const EditCommandsAway away;
    if (AskBox(ResText(432), BoxButtons::OkCancel) == BoxAnswer::Ok) {
        CloseCtPortForce();
        SetOfflineState();
    }
}

std::string VersionLine(std::int16_t nameId, const std::string& version) {
    return "\r\n\r\n<" + ResText(nameId) + ">  " + version;
}

/// The whole text of the version box; empty when a read failed.
std::string ReadVersions() {
    if (CheckCtIdentity() != 0) {
        return {};
    }
    std::string text = ResText(426) + VersionLine(427, CtVersion);
    for (int axis = 0; axis < kAxes; ++axis) {
        const auto index = static_cast<std::size_t>(axis);
        if (IsSet(AxisOff[index])) {
            continue;
        }
        if (ReadAxisVersion(axis) != 0) {
            return {};
        }
        text += VersionLine(static_cast<std::int16_t>(1405 + axis), CtAxisVersion[index]);
    }
    return text;
}

void ShowVersions() {
    const CommandsAway away;
    const PollHeld held;
    GoOnLine();
    const std::string text = ReadVersions();
    if (!text.empty()) {
        ShowBox(text);
    }
    CloseCtPort();
}

std::string AxesInUse() {
    std::string list;
    for (int axis = 0; axis < kAxes; ++axis) {
        if (!IsSet(AxisOff[static_cast<std::size_t>(axis)])) {
            list += (list.empty() ? "" : ",") + std::to_string(axis + 1);
        }
    }
    return list;
}

void ShowAxes() {
    const CommandsAway away;
    const PollHeld held;
    GoOnLine();
    TransferRunFlag = kClear;
    ShowTrance(2, ResText(368));
    const std::int16_t result = ReadAxisMaskShown();
    UnloadTrance();
    if (result == 0) {
        if (Screens().frmMainAxes) {
            Screens().frmMainAxes();
        }
        ShowBox(ResText(412) + AxesInUse() + ResText(413));
    }
    CloseCtPort();
}

} // namespace

void SupervisionTick() {
    try {
        SetPanel(&MainPanel::imgPortGreen, MSComm1().PortOpen());
        if (PollIsDue()) {
            Poll();
        }
    } catch (const std::exception&) {
        // The tick comes again in half a second; there is nothing to tell the user meanwhile.
        SetPanel(&MainPanel::imgPortGreen, false);
    }
}

PollHeld::PollHeld() {
    ++pollHolders;
}
PollHeld::~PollHeld() {
    --pollHolders;
}

void cmdReset_Click() {
    RunGuarded(ResetAlarm);
}

void mnuSettingsOffline_Click() {
    RunGuarded(AskOffline);
}

void mnuFuncCtversion_Click() {
    RunGuarded(ShowVersions);
}

void mnuFuncGetAxis_Click() {
    RunGuarded(ShowAxes);
}

void ResetSupervision() {
    pollHolders = 0;
}

} // namespace qdw8
