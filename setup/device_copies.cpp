#include "setup/device_copies.h"

#include "app/boxes.h"
#include "device/axis_device.h"
#include "parameter/para_device.h"

#include <tuple>

namespace qdw8 {
namespace {

/// The fields that both copies have, in the order in which they are compared.
auto Fields(const AxisDevice& device) {
    return std::tie(device.NewType, device.DevSize, device.DevSpeed, device.DevStroke,
                    device.WithPG, device.Vertical);
}

void CopyFields(const AxisDevice& from, AxisDevice& to) {
    to.NewType = from.NewType;
    to.DevSize = from.DevSize;
    to.DevSpeed = from.DevSpeed;
    to.DevStroke = from.DevStroke;
    to.WithPG = from.WithPG;
    to.Vertical = from.Vertical;
}

/// What the parameters don't tell: the type of the sizes that exist as both.
void TakeType() {
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        if (!IsSet(AxisOff[axis])) {
            DevSetting[axis].NewType = DevSettei[axis].NewType;
        }
    }
}

} // namespace

void LetDevSettingToDevSettei() {
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        if (!IsSet(AxisOff[axis])) {
            CopyFields(DevSetting[axis], DevSettei[axis]);
        }
    }
}

void ReflectFileDevice2PcDevice() {
    AxisOff = FileAxisOff;
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        if (!IsSet(AxisOff[axis])) {
            CopyFields(DevSettei[axis], DevSetting[axis]);
        }
    }
}

std::int16_t CompareActuatorSettingOfPosifile2PC() {
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        if (!IsSet(FileAxisOff[axis]) && Fields(DevSetting[axis]) != Fields(DevSettei[axis])) {
            return 1;
        }
    }
    return 0;
}

std::int16_t FollowDevicesOfParaSet() {
    const std::int16_t result = TakeParameterDevices();
    TakeType();
    return result;
}

std::int16_t TakeDevicesOfParaSet() {
    const auto setting = DevSetting;
    const auto settei = DevSettei;
    const auto off = AxisOff;
    DeviceTextEmpty.fill(kClear);
    if (FollowDevicesOfParaSet() == 0) {
        return 0;
    }
    // Half a device is none: a model without its lead would convert by a stranger's figures.
    DevSetting = setting;
    DevSettei = settei;
    AxisOff = off;
    for (const Flag empty : DeviceTextEmpty) {
        if (IsSet(empty)) {
            ShowTexts({4, 5}); // figures that no device can have were told already
        }
    }
    return 1;
}

} // namespace qdw8
