#include "setup/device_set.h"

#include "app/boxes.h"
#include "app/program_end.h"
#include "app/string_table.h"
#include "device/axis_device.h"
#include "device/device_lists.h"
#include "parameter/factory_lists.h"
#include "parameter/para_device.h"
#include "platform/message_box.h"

namespace qdw8 {
namespace {

void TakePanel(const AxisPanel& panel, std::size_t axis) {
    AxisDevice& device = DevSettei[axis];
    const bool own = FamilyText[axis] == "QD";
    device.DevSize = panel.comboDeviceSize.text;
    device.DevSpeed = panel.comboDeviceSpeed.text;
    device.DevStroke = StrokeNumber(panel.comboDeviceStroke.text);
    if (CountsAsNewOnly(device.DevSize) || !panel.chkNewOrOld.checked) {
        device.NewType = kSet;
        device.Vertical = kSet;
    } else {
        device.NewType = kClear;
        device.Vertical = FlagOf(panel.chkDevVsiyou.checked && own);
    }
    device.WithPG = FlagOf(panel.chkDevPgUse.checked && own);
    device.Device = FlagOf(own);
}

bool AskAxes() {
    BoxQuestion question;
    question.title = ResText(1150);
    question.text = TextLines({1151, 1152});
    question.buttons = BoxButtons::YesNo;
    question.icon = BoxIcon::Question;
    return AskBox(question) == BoxAnswer::Yes;
}

void PutBack(const DeviceForm& form) {
    FamilyText = form.familyBefore;
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        DevSettei[axis].NewType = form.newTypeBefore[axis];
    }
}

} // namespace

void TakeFormDevices(const DeviceForm& form) {
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        if (!IsSet(AxisOff[axis])) {
            TakePanel(form.axes[axis], axis);
        }
    }
}

void cmdDeviceSet2_Click(const DeviceForm& form) {
    std::array<Flag, kAxes> off{};
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        off[axis] = FlagOf(!form.axes[axis].chkAxisEnable);
    }
    if (off != AxisOff && AskAxes()) {
        AxisOff = off;
    }
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        if (form.axes[axis].optQdSelect == kFamilyQd) {
            FamilyText[axis] = "QD";
        }
    }
    TakeFormDevices(form);
}

void cmdDeviceSet3_Click(const DeviceForm& form) {
    FamilyText.fill("QD");
    TakeFormDevices(form);
}

bool CancelDevice2(const DeviceForm& form) {
    if (!form.cancelShown && !AskToEndProgram()) {
        return false;
    }
    PutBack(form);
    DeviceCancelled = kSet;
    return true;
}

bool CancelDevice3(const DeviceForm& form) {
    if (!form.commandsEnabled) {
        return false;
    }
    PutBack(form);
    return true;
}

void Device3Closed() {
    KeepAxisFlag = kClear;
}

} // namespace qdw8
