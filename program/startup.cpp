#include "program/startup.h"

#include "app/Module1.h"
#include "app/boxes.h"
#include "app/command_states.h"
#include "app/main_panel.h"
#include "app/screens.h"
#include "app/settings.h"
#include "app/string_table.h"
#include "app/transfer_dialog.h"
#include "device/Module2Calc.h"
#include "device/axis_device.h"
#include "device/axis_texts.h"
#include "device/controller_device.h"
#include "device/device_list.h"
#include "device/device_reset.h"
#include "device/device_settings.h"
#include "link/alarm.h"
#include "link/axis_mask.h"
#include "link/ct_commands.h"
#include "link/end_of_run.h"
#include "link/line_state.h"
#include "link/line_status.h"
#include "link/port.h"
#include "link/supervision.h"
#include "parameter/para_reset.h"
#include "platform/fault.h"
#include "platform/platform.h"
#include "position/grid_display.h"
#include "position/posi_table.h"
#include "program/commands.h"
#include "program/init_tables.h"
#include "program/told_to_end.h"
#include "setup/change_device.h"
#include "setup/controller_devices.h"
#include "setup/detail_edit.h"
#include "setup/device_bytes.h"
#include "setup/recovery_offer.h"
#include "setup/repaint_axes.h"
#include "setup/system_info.h"

#include <array>
#include <exception>

namespace qdw8 {
namespace {

constexpr int kSmallScreenWidth = 800; ///< pixels; up to here the window is made small

/// It runs for the life of the object and leaves nothing behind, wherever the splash is broken off.
class SplashTimer {
public:
    SplashTimer() { EnableTimer(timerSplash); }
    ~SplashTimer() { DisableTimer(timerSplash); }
    SplashTimer(const SplashTimer&) = delete;
    SplashTimer& operator=(const SplashTimer&) = delete;

private:
    Timer timerSplash{"timerSplash", 2000, false, [] { SplashDoneFlag = kSet; }};
};

void ShowSplash() {
    SplashDoneFlag = kClear;
    Screens().frmSplashShow();
    {
        const SplashTimer timer;
        while (!IsSet(SplashDoneFlag)) {
            PumpEvents();
        }
    }
    SplashDoneFlag = kClear;
    Screens().frmSplashUnload();
}

/// What a run begins with before the settings say otherwise: no actuator anywhere.
void MarkNoActuators() {
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        AxisOff[axis] = kSet;
        FamilyText[axis] = "QD";
        DevSetting[axis].NewType = kSet;
        DevSettei[axis].NewType = kSet;
    }
    FirstDeviceSetFlag = kSet;
}

void ReadRunSettings() {
    LanguageChangedFlag = kClear;
    DispMmFlag = FlagOf(SettingNumber("DispMmUnit", 1) != 0);
    MarkNoActuators();
    LanguageNo = SettingNumber("Language", 2);
    LanguageBase = LanguageNo == 1 ? std::int16_t{0} : std::int16_t{10000};
    PortNo = StoredPortNo();
    PortOccupyFlag = FlagOf(SettingNumber("PortOccupy", 1) != 0);
    MmRoundUpFlag = FlagOf(SettingNumber("MmRoundUp", 1) != 0);
    AccWideFlag = kClear;
}

/// Off line. Both flags are set first, so that `SetOfflineState` changes neither of them.
void LeaveLine() {
    OffLineFlag = kSet;
    OnLineFlag = kSet;
    CloseCtPortForce();
    SetOfflineState();
}

bool OpenLine() {
    if (OpenCtPortWithTries() == 0) {
        return true;
    }
    OffLineFlag = kSet;
    CloseCtPortForce();
    SetOfflineState();
    UnloadTrance();
    ShowPortBox();
    return false;
}

bool BeginTalk() {
    const std::int16_t result = SetCtMode(2);
    CtBusyFlag = kClear;
    return result == 0;
}

bool IsRightController() {
    if (CheckCtIdentity() != 0) {
        return false;
    }
    if (CtAxisCount != kAxes) {
        LeaveLine();
        LastHeard = {Heard::Stranger, PortNo};
        ShowTexts({124, 125});
        return false;
    }
    return true;
}

/// Flags, leads and stroke ends from the blocks. A lead or pulse figure of 0 is no device.
bool TakeDeviceBytes() {
    try {
        if (TakeControllerFlags() != 0) {
            return false;
        }
        CalcMaxStrokeMm();
        return true;
    } catch (const Fault&) {
        return false;
    }
}

/// The controller's axes and actuators, step by step; a line given up between two steps ends it
/// too, and so does the end of the program. False: the program is off line now.
bool AskController() {
    if (!OpenLine()) {
        return false;
    }
    const std::array<bool (*)(), 4> steps{
        BeginTalk, IsRightController, [] { return ReadAxisMask() == 0; },
        [] { return ReadDeviceBytes() == 0 && TakeDeviceBytes(); }};
    for (std::size_t done = 0; done < steps.size(); ++done) {
        if ((done > 0 && IsSet(OffLineFlag)) || IsSet(ProgramEndFlag)) {
            LeaveLine(); // the line was given up, or the end confirmed, in between
            break;
        }
        if (!steps[done]()) {
            done + 1 < steps.size() ? LeaveLine() : SetOfflineState();
            break;
        }
        SetTranceValue(static_cast<int>(done) + 1);
    }
    UnloadTrance();
    CloseCtPort();
    return !IsSet(OffLineFlag);
}

/// The user says what is fitted; there is no way out of the choice but an answer.
void ChooseDevices() {
    if (IsSet(ProgramEndFlag)) {
        return;
    }
    struct Choosing {
        Choosing() { StartDeviceSelectFlag = kSet; }
        ~Choosing() { StartDeviceSelectFlag = kClear; }
    };
    {
        const Choosing choosing;
        cmdChangeDev_Click();
    }
    if (IsSet(ProgramEndFlag)) {
        return;
    }
    TakeOutAxesWithoutLead();
    RepaintAxes();
}

/// Off line: the devices come from the settings, and the user may choose others.
void StartOffLine() {
    if (IsSet(ProgramEndFlag)) {
        return;
    }
    if (ReadDeviceSettings() == 1) {
        ShowTexts({4, 5});
    } else {
        for (std::size_t axis = 0; axis < kAxes; ++axis) {
            if (IsSet(AxisOff[axis])) {
                FamilyText[axis] = "QD";
            }
        }
        if (LoadDeviceList() != 0) {
            return; // the main window stays, with no devices to choose from
        }
    }
    ChooseDevices();
}

void StartRun() {
    if (SelectStartMode() != 0) {
        SetOfflineState();
        StartOffLine();
        return;
    }
    TransferRunFlag = kClear;
    ShowTrance(4, ResText(368));
    if (!AskController()) {
        StartOffLine();
        return;
    }
    if (TakeControllerDevices() != 0) {
        // The controller holds no model for an axis: the user has to say what is fitted.
        SetOfflineState();
        ChooseDevices();
        return;
    }
    RepaintAxes();
    UnloadProcessing();
}

/// The main window and the run's first steps; every failure ends off line with the window usable.
void LoadAndStart() {
    try {
        frmMain_Load();
        StartRun();
    } catch (const std::exception&) {
        UnloadTrance();
        LeaveLine();
        ShowTexts({397});
        StartOffLine();
    }
}

} // namespace

void Main() {
    InitTables();
    ShowSplash();
    ReadRunSettings();
    if (Screens().languageSettled) {
        Screens().languageSettled();
    }
    RegisterCommands();
    ObeyToldToEnd();
    {
        const CommandsAway away;
        try {
            LoadAndStart();
        } catch (const std::exception&) {
            TakeOutAxesWithoutLead();
        }
    }
    EditCMD_Muko();
    if (!IsSet(ProgramEndFlag)) {
        OfferRecovery();
    }
    EndIfConfirmed();
}

void frmMain_Load() {
    HomedFlag = kClear;
    WatchLine();
    EnableTimer(Timer1);
    LoadErrorList();
    Set_MainFormStr();
    ShowAxisDevices();
    SetPanel(&MainPanel::lblFileName, ProductLine());
    PosiFirst = PosiLast = GridRowCount = 1;
    const bool small = ThePlatform().GetScreenSize().width <= kSmallScreenWidth;
    if (small) {
        ShowTexts({435, 436});
    }
    Screens().frmMainShow(small);
    EditCMD_Muko();
}

std::int16_t SelectStartMode() {
    return AskChoice({ResText(471), ResText(1), {ResText(2), ResText(3)}, false});
}

} // namespace qdw8
