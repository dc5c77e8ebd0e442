#include "parameter/para_device.h"

#include "app/boxes.h"
#include "app/number_forms.h"
#include "app/screens.h"
#include "device/Module2Calc.h"
#include "device/axis_device.h"
#include "device/axis_texts.h"
#include "device/controller_device.h"
#include "device/device_list.h"
#include "device/device_settings.h"
#include "link/Module3Tusin.h"
#include "link/supervision.h"
#include "parameter/device_bytes.h"
#include "parameter/factory_lists.h"
#include "parameter/para_set.h"
#include "platform/fault.h"

#include <array>
#include <exception>
#include <string>

namespace qdw8 {

Flag FactoryDeviceFlag = kClear;
Flag DeviceCancelled = kClear;

namespace {

/// The figures of an axis in the form that a device has. Faults for those that it can't have.
struct DeviceFigures {
    explicit DeviceFigures(std::size_t axis)
        : lead(ToInt16(ParaSet.LEAD[axis])), ppr(ToInt16(ParaSet.PULSE[axis])),
          maxPulse(ToInt32(ParaSet.STROKE[axis])) {
        const ActuatorParts& parts = ParaSet.parts[axis];
        if (lead <= 0 || ppr <= 0 || maxPulse < 0 ||
            CheckDeviceKey(parts.size, parts.speed, parts.stroke) != 0) {
            throw Fault("no device has such figures");
        }
    }
    std::int16_t lead;
    std::int16_t ppr;
    std::int32_t maxPulse;
};

bool HoldsHorizontalType(std::int16_t type) {
    constexpr std::int16_t kPush = 0;
    constexpr std::int16_t kUnlisted = 4; // a good value, though no list offers it
    return type == kPush || type == kUnlisted;
}

/// The devices as they are now, to go back to.
struct DevicesBefore {
    std::array<AxisDevice, kAxes> setting = DevSetting;
    std::array<AxisDevice, kAxes> settei = DevSettei;
    std::array<std::string, kAxes> family = FamilyText;

    void putBack() const {
        DevSetting = setting;
        DevSettei = settei;
        FamilyText = family;
    }
};

/// The controller's actuators of these axes, which are in use.
std::int16_t TakeOver(const AxisChoice& axes) {
    const DevicesBefore before;
    try {
        if (ReadDeviceBytes() == 0 && TakeControllerFlags(axes) == 0 &&
            TakeControllerDevices(axes) == 0) {
            CalcMaxStrokeMm();
            ShowTakenDevices();
            WriteDeviceSettings();
            return 0;
        }
    } catch (const std::exception&) {
        // as any other failure
    }
    // Half a device is none: a lead without its model would convert by a stranger's figures.
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

void TakeDevice(std::size_t axis) {
    const DeviceFigures figures(axis);
    AxisDevice& device = DevSetting[axis];
    AxisDevice& pending = DevSettei[axis];
    const ActuatorParts& parts = ParaSet.parts[axis];
    device.DevSize = parts.size;
    device.DevSpeed = parts.speed;
    device.DevStroke = parts.stroke;
    if (ExistsOnlyAsNew(parts.size)) {
        device.NewType = kSet;
        pending.NewType = kSet;
    }
    device.Device = FlagOf(FamilyText[axis] == "QD");
    DeviceTextEmpty[axis] = kClear;
    device.DevLead = figures.lead;
    device.DevPPR = figures.ppr;
    device.MaxPulse = figures.maxPulse;
    pending.Vertical = FlagOf(!HoldsHorizontalType(ParaSet.TYPE[axis]));
    const std::int16_t function = ParaSet.FUNCTION[axis];
    pending.WithPG = FlagOf(function == 1 || function == 2);
    device.Vertical = pending.Vertical;
    device.WithPG = pending.WithPG;
}

} // namespace

std::int16_t TakeParameterDevices() {
    SetAxisOffByMask(AxisOff, ParaSet.AXIS);
    try {
        // Looked at for all axes first, so that none is taken over when one can't be.
        for (std::size_t axis = 0; axis < kAxes; ++axis) {
            if (!IsSet(AxisOff[axis])) {
                if (ParaSet.Actuator[axis].empty()) {
                    break;
                }
                const DeviceFigures probe(axis);
            }
        }
    } catch (const Fault&) {
        ShowTexts({1524, 1525});
        return 1;
    }
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        if (IsSet(AxisOff[axis])) {
            continue;
        }
        if (ParaSet.Actuator[axis].empty()) {
            DeviceTextEmpty[axis] = kSet;
            return 1;
        }
        TakeDevice(axis);
    }
    CalcMaxStrokeMm();
    return 0;
}

void Culc_MaxPulse2() {
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        DevSetting[axis].MaxPulse = IsSet(AxisOff[axis]) ? 0 : ToInt32(ParaSet.STROKE[axis]);
    }
}

std::int16_t TakeOverDevicesOfController() {
    return TakeOver(AxesInUse());
}

bool CompleteAxes() {
    AxisChoice lacking = AxesWithoutLead();
    for (std::size_t axis = 0; axis < lacking.size(); ++axis) {
        // A device that only the settings know of has no stroke end, and may not be the one fitted.
        lacking[axis] = lacking[axis] || (!IsSet(AxisOff[axis]) && DevSetting[axis].MaxPulse <= 0);
    }
    if (lacking == AxisChoice{}) {
        return false;
    }
    const PollHeld held;
    if (!IsSet(OffLineFlag)) {
        TakeOver(lacking);
        CloseCtPort();
    }
    if (TakeOutAxesWithoutLead()) {
        ShowTakenDevices();
        ShowTexts({4, 5});
    }
    return true;
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

void ShowTakenDevices() {
    if (Screens().frmMainAxes) {
        Screens().frmMainAxes(); // shows the two below as well
        return;
    }
    ShowAxisDevices();
    ShowUnitScale();
}

std::int16_t SelectDeviceAndLoadFactory() {
    KeepAxisFlag = kClear;
    FirstDeviceSetFlag = kSet;
    FactoryDeviceFlag = kSet;
    Screens().frmDevice2();
    if (IsSet(DeviceCancelled)) {
        DeviceCancelled = kClear;
        FactoryDeviceFlag = kClear;
        return -1;
    }
    FactoryFailedFlag = kClear;
    const std::int16_t result = LoadFactoryParameters();
    FactoryDeviceFlag = kClear;
    return result;
}

} // namespace qdw8
