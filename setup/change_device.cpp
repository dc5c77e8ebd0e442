#include "setup/change_device.h"

#include "app/Module1.h"
#include "app/boxes.h"
#include "app/command_states.h"
#include "app/main_panel.h"
#include "app/screens.h"
#include "app/string_table.h"
#include "device/device_list.h"
#include "device/device_settings.h"
#include "link/background.h"
#include "link/line_state.h"
#include "parameter/para_device.h"
#include "parameter/para_file.h"
#include "setup/device_copies.h"
#include "setup/devices_before.h"
#include "setup/recheck_positions.h"
#include "setup/repaint_axes.h"

#include <exception>

namespace qdw8 {
namespace {

/// The actuators, by the way that the user chose. False: it was cancelled or failed, and nothing
/// has changed.
bool TakeDevices(bool catalogue) {
    const DevicesBefore before;
    const std::int16_t loaded = catalogue ? SelectDeviceAndLoadFactory() : OpenParaFile();
    if (loaded == 0 && TakeDevicesOfParaSet() == 0) {
        return true;
    }
    before.putBack();
    return false;
}

/// False: the user cancelled the command.
bool AskAndTakeDevices() {
    while (true) {
        const std::int16_t choice = AskChoice(
            {ResText(471), ResText(41), {ResText(42), ResText(43)}, IsSet(StartDeviceSelectFlag)});
        if (choice == kSelectionCancelled) {
            return false;
        }
        if (TakeDevices(choice == 0)) {
            return true;
        }
        if (IsSet(ProgramEndFlag)) {
            return false;
        }
    }
}

/// What the program knows of the devices is no longer what the controller holds: the next command
/// that talks to it begins by going on line, and compares.
void LeaveLine() {
    if (!IsSet(OffLineFlag)) {
        OffLineFlag = kSet;
        OnLineFlag = kSet; // deliberately both
        SetPanel(&MainPanel::imgGreenLedOnline, false);
    }
}

void Change() {
    if (!AskAndTakeDevices()) {
        return;
    }
    // Off line on every way out from here on: the devices have changed.
    struct Leaving {
        ~Leaving() { LeaveLine(); }
    };
    const Leaving leaving;
    WriteDeviceSettings();
    RepaintAxes();
    RecheckPositions();
}

bool ListFailedForAxisInUse() {
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        if (!IsSet(AxisOff[axis]) && IsSet(DeviceListFailed[axis])) {
            return true;
        }
    }
    return false;
}

} // namespace

void Change_Device() {
    const PollHeld held; // nothing may be sent while the window stands open
    try {
        Change();
    } catch (const std::exception&) {
        ShowTexts({397});
    }
}

void cmdChangeDev_Click() {
    const CommandsAway away;
    Change_Device();
}

void mnuSettingsDeviceOffline_Click() {
    cmdChangeDev_Click();
}

void mnuSettingsDeviceOnline_Click() {
    const CommandsAway away;
    LoadDeviceList();
    if (!ListFailedForAxisInUse()) {
        const PollHeld held;
        ShowModal(Screens().frmDevice3);
    }
}

} // namespace qdw8
