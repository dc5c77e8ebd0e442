#include "setup/detail_edit.h"

#include "app/screens.h"
#include "setup/device_set.h"

namespace qdw8 {

Flag DetailEditFlag = kClear;
Timer frmMain_Timer2{"Timer2", 1000, false, {}};

namespace {

void Timer2_Timer() {
    DisableTimer(frmMain_Timer2);
    if (IsSet(DetailEditFlag)) {
        DetailEditFlag = kClear;
        Screens().frmParameta2Show();
    }
}

} // namespace

bool DetailEditPossible() {
    return static_cast<bool>(Screens().frmParameta2Show);
}

void cmdSyosai_Click(const DeviceForm& form) {
    DetailEditFlag = kSet;
    EnableTimer(frmMain_Timer2);
    cmdDeviceSet3_Click(form);
}

void ResetDetailEdit() {
    DetailEditFlag = kClear;
    frmMain_Timer2.enabled = false;
    frmMain_Timer2.routine = Timer2_Timer;
}

} // namespace qdw8
