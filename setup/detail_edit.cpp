#include "setup/detail_edit.h"

#include "app/boxes.h"
#include "app/command_states.h"
#include "app/screens.h"
#include "link/background.h"
#include "setup/device_set.h"

namespace qdw8 {

Flag DetailEditFlag;
Timer frmMain_Timer2{"Timer2", 1000, false, {}};

namespace {

void Timer2_Timer() {
    if (CommandsTaken()) {
        return; // a command has the commands: a window now would stand on its dialogs; next time
    }
    DisableTimer(frmMain_Timer2);
    if (IsSet(DetailEditFlag)) {
        DetailEditFlag = kClear;
        WhenLineIsFree([] { ShowModal([] { Screens().frmParameta2Show(true); }); });
    }
}

} // namespace

void cmdSyosai_Click(const DeviceForm& form) {
    DetailEditFlag = kSet;
    EnableTimer(frmMain_Timer2);
    cmdDeviceSet3_Click(form);
}

void ResetDetailEdit() {
    DetailEditFlag = kClear;
    DisableTimer(frmMain_Timer2);
    frmMain_Timer2.routine = Timer2_Timer;
}

} // namespace qdw8
