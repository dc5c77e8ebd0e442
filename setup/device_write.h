#pragma once

#include "setup/device_form.h"

#include <functional>

/// The command of `frmDevice3` that writes a change of the actuators into the controller.
namespace qdw8 {

/// `cmdPrmCtWrite`: the axes of the form become those in use, here and in the controller, then the
/// actuators with their factory parameters are written, made lasting, read back and taken over, and
/// the position table is checked against them. `show` is called when the form has changed. The
/// window stays open.
///
/// Every failure has told the user, but for a failed question whether the machine moves, which only
/// the exchange tells. A stop before the device blocks are written leaves devices and parameters as
/// they were, while the controller may hold the new axis mask, uncommitted, and `AxisOff` agrees
/// with it; if the mask itself couldn't be written, `AxisOff` is as it was. A controller that still
/// answers is put back into mode 0. An axis that came into use and got no device brings the one
/// along that the controller holds, or goes out of use (`CompleteAxes`).
void cmdPrmCtWrite_Click(DeviceForm& form, const std::function<void()>& show);

} // namespace qdw8
