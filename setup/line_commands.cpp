#include "setup/line_commands.h"

#include "app/Module1.h"
#include "app/boxes.h"
#include "app/command_states.h"
#include "app/string_table.h"
#include "app/transfer_dialog.h"
#include "link/alarm.h"
#include "link/axis_mask.h"
#include "link/batch.h"
#include "link/ct_commands.h"
#include "link/line_state.h"
#include "link/receiver.h"
#include "platform/platform.h"
#include "setup/controller_devices.h"
#include "setup/repaint_axes.h"

#include <exception>
#include <string>

namespace qdw8 {
namespace {

/// Runs a user command to its end; a fault in it ends it with the communication box.
template<typename Steps> void RunGuarded(Steps steps) {
    try {
        steps();
    } catch (const std::exception&) {
        ShowTexts({108});
    }
}

void ResetAlarm() {
    const CommandsAway away;
    const LineBatch batch;
    if (SendAlarmReset() != 0) {
        if (IsSet(AlarmNotResettableFlag)) {
            ShowTexts({324, 325});
        }
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
}

void AskOffline() {
    const EditCommandsAway away;
    if (AskBox(ResText(432), BoxButtons::OkCancel) == BoxAnswer::Ok) {
        GoOffLine();
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
    const LineBatch batch;
    const std::string text = ReadVersions();
    if (!text.empty()) {
        ShowBox(text);
    }
}

std::string AxisList() {
    std::string list;
    for (int axis = 0; axis < kAxes; ++axis) {
        if (!IsSet(AxisOff[static_cast<std::size_t>(axis)])) {
            list += (list.empty() ? "" : ",") + std::to_string(axis + 1);
        }
    }
    return list;
}

/// The axes in use, read under the transfer dialog.
bool ReadAxes() {
    const TransferShown shown(2, 368);
    return ReadAxisMaskShown() == 0;
}

void ShowAxes() {
    const CommandsAway away;
    const LineBatch batch;
    if (ReadAxes()) {
        RepaintAxes();
        ShowBox(ResText(412) + AxisList() + ResText(413));
    }
}

} // namespace

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
    const CommandsAway away;
    RunGuarded(ShowAxes);
    CompleteAxes();
}

} // namespace qdw8
