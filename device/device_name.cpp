#include "device/device_name.h"

#include "app/boxes.h"
#include "app/number_forms.h"
#include "device/axis_device.h"
#include "device/device_list.h"
#include "platform/fault.h"

namespace qdw8 {

DeviceCodeTexts CodeTexts;

namespace {

constexpr std::size_t kCodeLength = 7;
constexpr std::size_t kMostOptions = 3;
constexpr std::size_t kToEnd = std::string::npos;

/// The digits of the name from the position on, counted from 1.
std::string_view DigitsAt(std::string_view name, std::size_t from) {
    std::string_view digits = Mid(name, from, kToEnd);
    std::size_t count = 0;
    while (count < digits.size() && digits[count] >= '0' && digits[count] <= '9') {
        ++count;
    }
    return digits.substr(0, count);
}

bool Holds(const std::string& letters, char letter) {
    return letters.find(letter) != std::string::npos;
}

void TakeVertical(AxisDevice& device, std::int16_t code, const std::string& options) {
    if (code == kOptionUnknown) {
        throw Fault("the device is not in the list");
    }
    if (code == kOptionFitted || (code == kOptionChoice && Holds(options, 'V'))) {
        device.Vertical = kSet;
    } else if (code == kOptionNone || (code == kOptionChoice && !IsSet(device.NewType))) {
        // A new-type name doesn't tell the mounting, so what was known before stands.
        device.Vertical = kClear;
    }
}

void TakePg(AxisDevice& device, std::int16_t code, const std::string& options) {
    if (code == kOptionFitted) {
        device.WithPG = kSet;
    } else if (code == kOptionNone) {
        device.WithPG = kClear;
    } else if (code == kOptionChoice) {
        device.WithPG = FlagOf(Holds(options, 'E'));
    }
}

/// 0 good, 1 failed without a word; throws `Fault` for a failure that the user is told.
std::int16_t ParseInto(AxisDevice& device, std::string& family, const std::string& name,
                       const std::string& type) {
    if (!name.starts_with("QD-") && !name.starts_with("HN-")) {
        throw Fault("the name is of no family");
    }
    const bool own = name.starts_with("QD");
    device.Device = FlagOf(own);
    device.NewType = FlagOf(own && type == "NEW");
    if (own) {
        family = "QD";
    }

    const DeviceNameParts parts = SplitDeviceName(name);
    if (CheckDeviceKey(parts.size, parts.speed, parts.stroke) != 0) {
        throw Fault("the name is of no device");
    }
    device.DevSize = parts.size;
    device.DevSpeed = parts.speed;
    device.DevStroke = parts.stroke;
    if (ExistsOnlyAsNew(parts.size)) {
        device.NewType = kSet;
    }
    if (parts.options.size() > kMostOptions) {
        throw Fault("the name has too many option letters");
    }
    TakeVertical(device, VerticalOptionCode(parts.size, parts.speed, parts.stroke), parts.options);
    const std::int16_t pg = PgOptionCode(parts.size, parts.speed, parts.stroke);
    if (pg == kOptionUnknown) {
        return 1; // this one failure is not told
    }
    TakePg(device, pg, parts.options);
    return 0;
}

} // namespace

DeviceNameParts SplitDeviceName(std::string_view name) {
    DeviceNameParts parts;
    if (Mid(name, 7, 1) == "-") {
        parts.size = PadLeft(Mid(name, 4, 2), 3);
        parts.speed = Mid(name, 6, 1);
        if (name.size() >= 9) {
            parts.stroke = ToInt16(NumberFromText(DigitsAt(name, 8)));
        }
        parts.options = Mid(name, 11, kToEnd);
    } else {
        parts.size = Mid(name, 4, 3);
        parts.speed = Mid(name, 7, 1);
        parts.stroke = ToInt16(NumberFromText(Mid(name, 9, 3)));
        parts.options = Mid(name, 12, kToEnd);
    }
    return parts;
}

std::int16_t ParseFileDevices() {
    for (std::size_t axis = 0; axis < DevSettei.size(); ++axis) {
        if (!IsSet(AxisOff[axis]) && !IsSet(FileAxisOff[axis]) && ParseFileDevice(axis) != 0) {
            return 1;
        }
    }
    return 0;
}

std::int16_t ParseFileDevice(std::size_t axis) {
    try {
        return ParseInto(DevSettei[axis], FamilyText[axis], FileDevText[axis], FileNewOld[axis]);
    } catch (const Fault&) {
        ShowTexts({4, 5});
        return 1;
    }
}

std::int16_t ParseDeviceCode(int axis, const std::string& code) {
    if (axis < 0 || axis >= kAxes || code.size() != kCodeLength) {
        return 1;
    }
    ControllerDevice& device = CtDevice[static_cast<std::size_t>(axis)];
    device.Size = Mid(code, 1, 3);
    device.Speed = Mid(code, 4, 1);
    device.Stroke = ToInt16(NumberFromText(Mid(code, 5, 3)));
    return 0;
}

std::int16_t SplitDeviceCode(const std::string& code) {
    if (code.size() != kCodeLength) {
        return 1;
    }
    CodeTexts.size = Mid(code, 1, 3);
    CodeTexts.speed = Mid(code, 4, 1);
    const std::int16_t stroke = ToInt16(NumberFromText(Trim(Mid(code, 5, 3))));
    CodeTexts.stroke = PadLeft(std::to_string(stroke), 3);
    if (CodeTexts.stroke.size() > 3) {
        CodeTexts.stroke = "X";
        return 1;
    }
    return 0;
}

} // namespace qdw8
