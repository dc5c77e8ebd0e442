#include "device/axis_device.h"

namespace qdw8 {

std::array<AxisDevice, kAxes> DevSetting;
std::array<AxisDevice, kAxes> DevSettei;
std::array<Flag, kAxes> FileAxisOff;
std::array<std::string, kAxes> FamilyText;
std::array<std::string, kAxes> FileDevText;
std::array<std::string, kAxes> FileNewOld;
std::array<Flag, kAxes> DeviceTextEmpty;
std::array<ControllerDevice, kAxes> CtDevice;

AxisChoice AxesInUse() {
    AxisChoice axes{};
    for (std::size_t axis = 0; axis < axes.size(); ++axis) {
        axes[axis] = !IsSet(AxisOff[axis]);
    }
    return axes;
}

bool IsSpecialModel(const AxisDevice& device) {
    return device.DevSize == " 61" && device.DevSpeed == "F";
}

bool ExistsOnlyAsNew(const std::string& size) {
    return size == "J52" || size == " 33" || size == " 61";
}

} // namespace qdw8
