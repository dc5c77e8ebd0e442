#pragma once

#include "app/Module1.h"
#include "platform/timer.h"
#include "setup/device_form.h"

/// The way from `frmDevice3` on to the parameter window. Two modal windows must not stand on each
/// other here: the second one is opened by a timer of the main window once the first is gone.
namespace qdw8 {

extern Flag DetailEditFlag;  ///< the parameter window is to open when `frmDevice3` has gone
extern Timer frmMain_Timer2; ///< `Timer2` of the main window, 1000 ms, one shot

/// `cmdSyosai`: as `cmdDeviceSet`, and the parameter window comes next. The window closes after it.
void cmdSyosai_Click(const DeviceForm& form);

/// Ties the timer to the platform in force; nothing is to open.
void ResetDetailEdit();

} // namespace qdw8
