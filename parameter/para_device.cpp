#include "parameter/para_device.h"

#include "app/boxes.h"
#include "app/number_forms.h"
#include "app/screens.h"
#include "device/Module2Calc.h"
#include "device/axis_device.h"
#include "parameter/factory_lists.h"
#include "parameter/para_check.h"
#include "parameter/para_set.h"
#include "platform/fault.h"

namespace qdw8 {

Flag FactoryDeviceFlag;
Flag DeviceCancelled;

namespace {

/// The figures of an axis in the form that a device has. Faults for those that it can't have.
struct DeviceFigures {
    explicit DeviceFigures(std::size_t axis)
        : lead(ToInt16(ParaSet.LEAD[axis])), ppr(ToInt16(ParaSet.PULSE[axis])),
          maxPulse(ToInt32(ParaSet.STROKE[axis])) {
        if (!DeviceFiguresGood(axis)) {
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

std::int16_t SelectDeviceAndLoadFactory() {
    KeepAxisFlag = kClear;
    FirstDeviceSetFlag = kSet;
    FactoryDeviceFlag = kSet;
    if (!ShowModal(Screens().frmDevice2) || IsSet(DeviceCancelled)) {
        DeviceCancelled = kClear;
        FactoryDeviceFlag = kClear;
        return -1;
    }
    const std::int16_t result = LoadFactoryParameters();
    FactoryDeviceFlag = kClear;
    return result;
}

} // namespace qdw8
