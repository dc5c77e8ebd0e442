#include "setup/controller_devices.h"

#include "app/Module1.h"
#include "app/boxes.h"
#include "device/Module2Calc.h"
#include "device/axis_device.h"
#include "device/controller_device.h"
#include "device/device_settings.h"
#include "link/background.h"
#include "link/line_state.h"
#include "link/port.h"
#include "setup/device_bytes.h"
#include "setup/devices_before.h"
#include "setup/recheck_positions.h"
#include "setup/repaint_axes.h"

#include <exception>

namespace qdw8 {
namespace {

/// The controller's actuators of these axes, which are in use.
std::int16_t TakeOver(const AxisChoice& axes) {
    const DevicesBefore before;
    try {
        if (ReadDeviceBytes() == 0 && TakeControllerFlags(axes) == 0 &&
            TakeControllerDevices(axes) == 0) {
            CalcMaxStrokeMm();
            RepaintAxes();
            WriteDeviceSettings();
            return 0;
        }
    } catch (const std::exception&) {
        // as any other failure
    }
    before.putBack();
    return 1;
}

AxisChoice AxesWithoutLead() {
    AxisChoice axes = AxesInUse();
    for (std::size_t axis = 0; axis < axes.size(); ++axis) {
        const AxisDevice& device = DevSetting[axis];
        axes[axis] = axes[axis] && (device.DevLead <= 0 || device.DevPPR <= 0);
    }
    return axes;
}

AxisChoice LackingAxes() {
    AxisChoice lacking = AxesWithoutLead();
    for (std::size_t axis = 0; axis < lacking.size(); ++axis) {
        // A device that only the settings know of has no stroke end, and may not be the one fitted.
        lacking[axis] = lacking[axis] || (!IsSet(AxisOff[axis]) && DevSetting[axis].MaxPulse <= 0);
    }
    return lacking;
}

} // namespace

std::int16_t TakeOverDevicesOfController() {
    return TakeOver(AxesInUse());
}

bool CompleteAxes() {
    const AxisChoice lacking = LackingAxes();
    if (lacking == AxisChoice{}) {
        return false;
    }
    const PollHeld held;
    bool taken = false;
    if (!IsSet(OffLineFlag)) {
        taken = TakeOver(lacking) == 0;
        CloseCtPort();
    }
    if (TakeOutAxesWithoutLead()) {
        RepaintAxes();
        ShowTexts({4, 5});
    }
    if (taken) {
        RecheckPositions();
    }
    return true;
}

std::int16_t TakeOverLackingDevices() {
    const AxisChoice lacking = LackingAxes();
    if (lacking == AxisChoice{}) {
        return 0;
    }
    const PollHeld held;
    if (TakeOver(lacking) != 0) {
        return 1;
    }
    RecheckPositions();
    return 0;
}

bool TakeOutAxesWithoutLead() {
    const AxisChoice lacking = AxesWithoutLead();
    for (std::size_t axis = 0; axis < lacking.size(); ++axis) {
        if (lacking[axis]) {
            AxisOff[axis] = kSet;
        }
    }
    return lacking != AxisChoice{};
}

} // namespace qdw8
