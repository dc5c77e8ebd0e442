#include "device/device_settings.h"

#include "app/settings.h"
#include "device/axis_device.h"
#include "device/device_list.h"

namespace qdw8 {
namespace {

constexpr std::int16_t kLeastLead = 2;
constexpr std::int16_t kMostLead = 20;

std::string KeyOf(const char* name, std::size_t axis) {
    return name + std::to_string(axis + 1);
}

/// A stored flag counts as set only when it is exactly 1.
Flag StoredFlag(const char* name, std::size_t axis, std::int16_t fallback) {
    return FlagOf(SettingNumber(KeyOf(name, axis), fallback) == 1);
}

void SetNewType(std::size_t axis, Flag newType) {
    DevSetting[axis].NewType = newType;
    DevSettei[axis].NewType = newType;
}

/// Size, speed and stroke into both copies. False if they name no device.
bool TakeKey(std::size_t axis) {
    const std::string size = SettingText(KeyOf("DevSize", axis), " 44");
    const std::string speed = SettingText(KeyOf("DevSpeed", axis), "L");
    const std::int16_t stroke = SettingNumber(KeyOf("DevStroke", axis), 100);
    if (CheckDeviceKey(size, speed, stroke) != 0) {
        return false;
    }
    for (AxisDevice* const device : {&DevSetting[axis], &DevSettei[axis]}) {
        device->DevSize = size;
        device->DevSpeed = speed;
        device->DevStroke = stroke;
    }
    if (ExistsOnlyAsNew(size)) {
        SetNewType(axis, kSet);
    }
    return true;
}

/// Lead and pulses per revolution, from the list if it has the model. `good` is what is known of
/// the axis so far; returns what is known now.
bool TakeLead(std::size_t axis, bool good) {
    AxisDevice& device = DevSetting[axis];
    if (DeviceInList(device.DevSize, device.DevSpeed, device.DevStroke) != 0) {
        const std::int16_t lead = SettingNumber(KeyOf("DevLead", axis), 2);
        if (lead < kLeastLead || lead > kMostLead) {
            return false;
        }
        device.DevLead = lead;
        return good;
    }
    if (FindDeviceLeadPpr(device.DevSize, device.DevSpeed, device.DevStroke) != 0) {
        return false;
    }
    device.DevLead = FoundLeadPpr.lead;
    device.DevPPR = FoundLeadPpr.ppr;
    return true;
}

bool ReadAxis(std::size_t axis) {
    AxisDevice& device = DevSetting[axis];
    const Flag newType = StoredFlag("NewType", axis, 1);
    SetNewType(axis, newType);
    FileNewOld[axis] = IsSet(newType) ? "NEW" : "OLD";
    device.DevPPR = SettingNumber(KeyOf("DevPPR", axis), 400);
    const bool own = SettingText(KeyOf("Device", axis), "QD") == "QD";
    device.Device = FlagOf(own);
    FamilyText[axis] = own ? "QD" : "HN";

    const bool keyGood = TakeKey(axis);
    const bool good = TakeLead(axis, keyGood);

    // The axis texts show the options of the pending copy, which knows nothing else at start.
    device.Vertical = StoredFlag("Vertical", axis, 1);
    DevSettei[axis].Vertical = device.Vertical;
    device.WithPG = StoredFlag("WithPG", axis, 0);
    DevSettei[axis].WithPG = device.WithPG;

    if (device.DevLead <= 0 || device.DevPPR <= 0) {
        return false; // nothing can be converted on such an axis
    }
    return good;
}

} // namespace

std::int16_t ReadDeviceSettings() {
    std::int16_t result = 0;
    for (std::size_t axis = 0; axis < DevSetting.size(); ++axis) {
        if (!ReadAxis(axis)) {
            result = 1;
        }
    }
    return result;
}

void WriteDeviceSettings() {
    const auto saveFlag = [](const char* name, std::size_t axis, Flag flag) {
        SaveSettingNumber(KeyOf(name, axis), IsSet(flag) ? 1 : 0);
    };
    for (std::size_t axis = 0; axis < DevSetting.size(); ++axis) {
        if (IsSet(AxisOff[axis])) {
            continue;
        }
        const AxisDevice& device = DevSetting[axis];
        SaveSettingText(KeyOf("Device", axis), FamilyText[axis]);
        SaveSettingText(KeyOf("DevSize", axis), device.DevSize);
        SaveSettingText(KeyOf("DevSpeed", axis), device.DevSpeed);
        SaveSettingNumber(KeyOf("DevStroke", axis), device.DevStroke);
        SaveSettingNumber(KeyOf("DevLead", axis), device.DevLead);
        saveFlag("NewType", axis, device.NewType);
        saveFlag("Vertical", axis, device.Vertical);
        saveFlag("WithPG", axis, device.WithPG);
    }
    TellLostSettings();
}

} // namespace qdw8
