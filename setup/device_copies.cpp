#include "setup/device_copies.h"

#include "app/boxes.h"
#include "app/number_forms.h"
#include "app/string_table.h"
#include "device/axis_device.h"
#include "parameter/para_device.h"
#include "setup/devices_before.h"

#include <tuple>
#include <utility>

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

constexpr std::int16_t kAxisCaption = 220;
constexpr std::int16_t kOldText = 127;

std::string TypeMark(bool newType) {
    return newType ? "" : ResText(kOldText);
}

/// A device with its family and all that is compared, in the main window's form without its gaps.
/// That tells the mounting of a new type nowhere; here it stands where it makes the difference.
std::string NameOf(const AxisDevice& device, bool mounting) {
    std::string name =
        Trim(device.DevSize) + device.DevSpeed + "-" + std::to_string(device.DevStroke);
    name.insert(0, IsSet(device.Device) ? "QD-" : "HN-");
    name += IsSet(device.WithPG) ? "E" : "";
    name += IsSet(device.Vertical) && (mounting || !IsSet(device.NewType)) ? "V" : "";
    return name + TypeMark(IsSet(device.NewType));
}

/// The same out of a file, for an axis that the program doesn't use: its device was not taken
/// apart.
std::string FileNameOf(std::size_t axis) {
    std::string name = FileDevText[axis];
    std::erase_if(name, [](char c) { return c == ' ' || c == '_'; });
    const std::size_t from = name.find('-') + 1;
    std::string size = name.substr(from, name.find('-', from) - from);
    size.resize(size.empty() ? 0 : size.size() - 1); // the speed
    return name + TypeMark(FileNewOld[axis] == "NEW" || ExistsOnlyAsNew(PadLeft(size, 3)));
}

/// The line of an axis, empty where both sides agree.
std::string DifferenceOf(std::size_t axis) {
    const AxisDevice& pc = DevSetting[axis];
    const AxisDevice& file = DevSettei[axis];
    const bool pcOff = IsSet(AxisOff[axis]);
    const bool fileOff = IsSet(FileAxisOff[axis]);
    if (pcOff == fileOff && (pcOff || Fields(pc) == Fields(file))) {
        return {};
    }
    const bool mounting = !pcOff && !fileOff && pc.Vertical != file.Vertical;
    const std::string none = ResText(3052);
    const std::string fileName = pcOff ? FileNameOf(axis) : NameOf(file, mounting);
    return ResText(static_cast<std::int16_t>(kAxisCaption + static_cast<int>(axis))) + ":  " +
           ResText(3050) + " " + (pcOff ? none : NameOf(pc, mounting)) + ",  " + ResText(3051) +
           " " + (fileOff ? none : fileName);
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

std::vector<std::string> DeviceDifferences() {
    std::vector<std::string> lines;
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        if (std::string line = DifferenceOf(axis); !line.empty()) {
            lines.push_back(std::move(line));
        }
    }
    return lines;
}

std::int16_t FollowDevicesOfParaSet() {
    const DevicesBefore before;
    if (TakeParameterDevices() != 0) {
        before.putBackButAxes(); // a new type on the device of before would be half of each
        return 1;
    }
    TakeType();
    return 0;
}

std::int16_t TakeDevicesOfParaSet() {
    const DevicesBefore before;
    DeviceTextEmpty.fill(kClear);
    if (FollowDevicesOfParaSet() == 0) {
        return 0;
    }
    before.putBack();
    for (const Flag empty : DeviceTextEmpty) {
        if (IsSet(empty)) {
            ShowTexts({4, 5}); // figures that no device can have were told already
        }
    }
    return 1;
}

} // namespace qdw8
