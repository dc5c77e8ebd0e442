#include "device/axis_texts.h"

#include "app/main_panel.h"
#include "app/number_forms.h"
#include "app/string_table.h"
#include "device/axis_device.h"
#include "device/device_list.h"

namespace qdw8 {
namespace {

constexpr std::int16_t kAxisCaption = 220;

std::string CaptionOf(std::size_t axis) {
    return ResText(static_cast<std::int16_t>(kAxisCaption + static_cast<int>(axis))) + ":";
}

/// The mark of an option that can be chosen is its letter, or "_" when it wasn't. An option that
/// can't be chosen leaves a blank, and an unknown device the mark of the axis before.
void SetMark(char& mark, std::int16_t code, char letterOrGap) {
    if (code == kOptionNone || code == kOptionFitted) {
        mark = ' ';
    } else if (code == kOptionChoice) {
        mark = letterOrGap;
    }
}

} // namespace

void ShowAxisDevices() {
    char pgMark = ' ';
    char verticalMark = ' ';
    for (std::size_t axis = 0; axis < DevSetting.size(); ++axis) {
        if (IsSet(AxisOff[axis])) {
            SetPanelText(&MainPanel::axisHeader, axis, CaptionOf(axis) + "************");
            SetPanelText(&MainPanel::lblDeviceType, axis, "");
            continue;
        }
        const AxisDevice& device = DevSetting[axis];
        if (!IsSet(device.Device)) {
            return;
        }
        const bool newType = IsSet(device.NewType);
        SetMark(pgMark, PgOptionCode(device.DevSize, device.DevSpeed, device.DevStroke),
                IsSet(DevSettei[axis].WithPG) ? 'E' : '_');
        const char mounting = IsSet(DevSettei[axis].Vertical) ? 'V' : '_';
        SetMark(verticalMark, VerticalOptionCode(device.DevSize, device.DevSpeed, device.DevStroke),
                newType ? ' ' : mounting);

        const std::string name = "QD-" + device.DevSize + device.DevSpeed + "-" +
                                 PadLeft(std::to_string(device.DevStroke), 3) + pgMark +
                                 verticalMark;
        SetPanelText(&MainPanel::axisHeader, axis,
                     CaptionOf(axis) + name + (newType ? "" : "(Old)"));
        SetPanelText(&MainPanel::lblDeviceType, axis, name);
    }
}

std::string TypeWordOf(std::size_t axis) {
    const bool old = !ThePanel().lblDeviceType[axis].empty() && !IsSet(AxisOff[axis]) &&
                     !IsSet(DevSetting[axis].NewType);
    return old ? "OLD" : "NEW";
}

} // namespace qdw8
