#include "setup/change_device.h"

#include "app/Module1.h"
#include "app/boxes.h"
#include "app/command_states.h"
#include "app/main_panel.h"
#include "app/screens.h"
#include "app/string_table.h"
#include "device/Module2Calc.h"
#include "device/axis_device.h"
#include "device/device_list.h"
#include "device/device_settings.h"
#include "link/Module3Tusin.h"
#include "link/supervision.h"
#include "parameter/para_device.h"
#include "parameter/para_file.h"
#include "parameter/para_set.h"
#include "position/grid_display.h"
#include "position/posi_check.h"
#include "position/posi_table.h"
#include "setup/device_copies.h"
#include "setup/repaint_axes.h"

#include <exception>

namespace qdw8 {
namespace {

/// What a way that came to no end has touched by then.
struct Before {
    std::array<Flag, kAxes> off = AxisOff;
    std::array<AxisDevice, kAxes> settei = DevSettei;
    std::array<std::string, kAxes> family = FamilyText;
    ParameterSet parameters = ParaSet;

    void putBack() const {
        AxisOff = off;
        DevSettei = settei;
        FamilyText = family;
        ParaSet = parameters;
    }
};

/// The actuators, by the way that the user chose. False: it was cancelled or failed, and nothing
/// has changed.
bool TakeDevices(bool catalogue) {
    const Before before;
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
        const std::int16_t choice = Screens().frmSelection(
            {ResText(471), ResText(41), {ResText(42), ResText(43)}, IsSet(StartDeviceSelectFlag)});
        if (choice == kSelectionCancelled) {
            return false;
        }
        if (TakeDevices(choice == 0)) {
            return true;
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
    if (RecheckPositions() == 1) {
        ShowTexts({1526});
    }
}

/// The button is disabled while the command runs.
struct ButtonAway {
    ButtonAway() { SetEnabled(Command::cmdChangeDev, false); }
    ~ButtonAway() { SetEnabled(Command::cmdChangeDev, true); }
    ButtonAway(const ButtonAway&) = delete;
    ButtonAway& operator=(const ButtonAway&) = delete;
};

bool ListFailedForAxisInUse() {
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        if (!IsSet(AxisOff[axis]) && IsSet(DeviceListFailed[axis])) {
            return true;
        }
    }
    return false;
}

} // namespace

std::int16_t RecheckPositions() {
    // A command on a part of the table may have left its range behind; all rows hang on the
    // devices.
    TakeWholeGrid();
    const PosiCheck check = PosiDataCheck3();
    // After a check that faulted the table is not what the grid shows: nothing is converted then,
    // and the user's rows stay on the screen.
    if (check == PosiCheck::Committed) {
        if (IsSet(DispMmFlag)) {
            ConvertTableToPulse();
        } else {
            ConvertTableToMm();
        }
        ShowTable();
    }
    return check == PosiCheck::Refused ? 1 : 0;
}

void Change_Device() {
    const PollHeld held; // nothing may be sent while the window stands open
    try {
        Change();
    } catch (const std::exception&) {
        ShowTexts({397});
    }
}

void cmdChangeDev_Click() {
    EditCMD_Muko();
    const ButtonAway away;
    Change_Device();
}

void mnuSettingsDeviceOffline_Click() {
    EditCMD_Muko();
    cmdChangeDev_Click();
}

void mnuSettingsDeviceOnline_Click() {
    EditCMD_Muko();
    LoadDeviceList();
    if (!ListFailedForAxisInUse()) {
        const PollHeld held;
        Screens().frmDevice3();
    }
}

} // namespace qdw8
