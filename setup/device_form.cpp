#include "setup/device_form.h"

#include "app/number_forms.h"
#include "device/axis_device.h"
#include "device/device_list.h"
#include "device/device_lists.h"
#include "parameter/factory_lists.h"
#include "parameter/para_device.h"

#include <utility>

namespace qdw8 {
namespace {

/// Of these two sizes there are an old and a new type.
bool ExistsAsBoth(const std::string& size) {
    return size == " 44" || size == " 52";
}

/// While a load of factory parameters is being served, the box of the old type follows the size.
void FollowSize(AxisPanel& panel) {
    if (IsSet(FactoryDeviceFlag)) {
        panel.chkNewOrOld.enabled = ExistsAsBoth(panel.comboDeviceSize.text);
        panel.chkNewOrOld.checked = panel.chkNewOrOld.enabled && panel.chkNewOrOld.checked;
    }
}

void ShowOption(FormBox& box, std::int16_t code, Flag fitted) {
    switch (code) {
    case kOptionNone:
        box.enabled = false;
        box.checked = false;
        break;
    case kOptionChoice:
        box.enabled = true;
        box.checked = IsSet(fitted);
        break;
    case kOptionFitted:
        box.enabled = false;
        box.checked = true;
        break;
    default: break; // a code of another kind says nothing
    }
}

/// The option boxes of the chosen model; of an unknown one nothing is known.
void FollowModel(AxisPanel& panel, std::size_t axis) {
    const std::string& size = panel.comboDeviceSize.text;
    const std::string& speed = panel.comboDeviceSpeed.text;
    const std::int16_t stroke = StrokeNumber(panel.comboDeviceStroke.text);
    const std::int16_t pg = PgOptionCode(size, speed, stroke);
    if (pg == kOptionUnknown) {
        return;
    }
    const std::int16_t vertical = VerticalOptionCode(size, speed, stroke);
    if (vertical == kOptionUnknown) {
        return;
    }
    ShowOption(panel.chkDevPgUse, pg, DevSetting[axis].WithPG);
    if (IsSet(DevSettei[axis].NewType)) {
        panel.chkDevVsiyou.enabled = false;
        panel.chkDevVsiyou.checked = IsSet(DevSetting[axis].Vertical);
    } else {
        ShowOption(panel.chkDevVsiyou, vertical, DevSetting[axis].Vertical);
    }
}

/// Of a list just filled: what is in force if the list has it, else the first row.
void Preselect(FormList& list, const std::string& inForce) {
    if (Holds(list.rows, inForce)) {
        list.text = inForce;
    } else if (!list.rows.empty()) {
        list.text = list.rows.front();
    }
}

void FollowSpeed(AxisPanel& panel, std::size_t axis) {
    // What counts is the box: an axis that was ticked just now needs its strokes too.
    if (!panel.chkAxisEnable) {
        return;
    }
    FormList& strokes = panel.comboDeviceStroke;
    strokes.rows = FilterStrokes(axis, panel.comboDeviceSize.text, panel.comboDeviceSpeed.text);
    strokes.text.clear();
    if (DevSetting[axis].DevStroke != 0) {
        Preselect(strokes, std::to_string(DevSetting[axis].DevStroke));
    }
    FollowModel(panel, axis);
}

void FollowNewSize(AxisPanel& panel, std::size_t axis) {
    const std::string& size = panel.comboDeviceSize.text;
    if (CountsAsNewOnly(size)) {
        DevSettei[axis].NewType = kSet;
        panel.chkNewOrOld.checked = false;
    }
    FollowSize(panel);
    FormList& speeds = panel.comboDeviceSpeed;
    speeds.rows = FilterSpeedsForSize(axis, size);
    speeds.text = size == "J52" || size == " 33" ? "L" : "";
    if (!DevSetting[axis].DevSpeed.empty()) {
        Preselect(speeds, DevSetting[axis].DevSpeed);
    }
    FollowSpeed(panel, axis);
}

/// Fills the lists below the size anew. False: they don't offer what stands in them.
bool KeepsChoice(AxisPanel& panel, std::size_t axis) {
    const std::string& size = panel.comboDeviceSize.text;
    FormList& speed = panel.comboDeviceSpeed;
    FormList& stroke = panel.comboDeviceStroke;
    auto strokes = FilterStrokes(axis, size, speed.text);
    if (!Holds(strokes, stroke.text)) {
        return false;
    }
    speed.rows = FilterSpeedsForSize(axis, size);
    stroke.rows = std::move(strokes);
    return true;
}

/// An actuator that the list doesn't know stays as it stands: it keeps working, and the user must
/// see it. A choice that the list offers stays too.
void FillLists(AxisPanel& panel, std::size_t axis) {
    FormList& sizes = panel.comboDeviceSize;
    sizes.rows = DeviceListTables[axis].sizes;
    if (sizes.text.empty() && Holds(sizes.rows, DevSetting[axis].DevSize)) {
        sizes.text = DevSetting[axis].DevSize;
    }
    if (Holds(sizes.rows, sizes.text) && !KeepsChoice(panel, axis)) {
        FollowNewSize(panel, axis);
    }
}

void FillAllLists(DeviceForm& form) {
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        if (form.axes[axis].chkAxisEnable) {
            FillLists(form.axes[axis], axis);
        }
    }
}

void OfferOptions(AxisPanel& panel) {
    panel.chkDevPgUse.visible = panel.chkDevVsiyou.visible = IsSet(FirstDeviceSetFlag);
    panel.chkDevPgUse.enabled = panel.chkDevVsiyou.enabled = true;
}

void ShowDevice(AxisPanel& panel, std::size_t axis) {
    const AxisDevice& device = DevSetting[axis];
    panel.chkAxisEnable = !IsSet(AxisOff[axis]);
    panel.optQdSelect = FamilyText[axis] == "HN" ? kFamilyHn : kFamilyQd;
    if (panel.chkAxisEnable) {
        panel.comboDeviceSize.text = device.DevSize;
        panel.comboDeviceSpeed.text = device.DevSpeed;
        panel.comboDeviceStroke.text =
            device.DevStroke == 0 ? "" : std::to_string(device.DevStroke);
        panel.chkNewOrOld.checked = !IsSet(device.NewType);
        panel.chkDevPgUse.checked = IsSet(device.WithPG);
        panel.chkDevVsiyou.checked = IsSet(device.Vertical);
    }
    FollowSize(panel);
    OfferOptions(panel);
}

void Open(DeviceForm& form) {
    form = {};
    form.cautionShown = IsSet(DispMmFlag);
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        form.newTypeBefore[axis] = DevSettei[axis].NewType;
        form.familyBefore[axis] = FamilyText[axis];
        ShowDevice(form.axes[axis], axis);
    }
    if (LoadDeviceList() != 0) {
        return;
    }
    FillAllLists(form);
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        if (form.axes[axis].chkAxisEnable) {
            FollowModel(form.axes[axis], axis);
        }
    }
}

} // namespace

void OpenDevice2(DeviceForm& form) {
    Open(form);
    form.cancelShown = !IsSet(StartDeviceSelectFlag);
}

void OpenDevice3(DeviceForm& form) {
    KeepAxisFlag = kSet;
    Open(form);
}

void ChangeAxisEnable(DeviceForm& form, std::size_t axis, bool ticked) {
    AxisPanel& panel = form.axes[axis];
    panel.chkAxisEnable = ticked;
    if (ticked) {
        if (panel.comboDeviceSize.text.empty()) {
            // Shown for the first time: the type goes with the model that the lists will show.
            panel.chkNewOrOld.checked = !IsSet(DevSetting[axis].NewType);
        }
        FillLists(panel, axis);
    }
}

void ChangeFamily(DeviceForm& form, std::size_t axis, int family) {
    AxisPanel& panel = form.axes[axis];
    panel.optQdSelect = family;
    FamilyText[axis] = family == kFamilyHn ? "HN" : "QD";
    OfferOptions(panel);
    if (LoadDeviceList() == 0) {
        FillAllLists(form);
        FollowModel(panel, axis);
    }
}

void ChangeSize(DeviceForm& form, std::size_t axis, const std::string& text) {
    const std::string size = SizeCodeOf(text);
    if (size != form.axes[axis].comboDeviceSize.text) {
        form.axes[axis].comboDeviceSize.text = size;
        FollowNewSize(form.axes[axis], axis);
    }
}

void ChangeSpeed(DeviceForm& form, std::size_t axis, const std::string& text) {
    const std::string speed = SpeedLetterOf(text);
    if (speed != form.axes[axis].comboDeviceSpeed.text) {
        form.axes[axis].comboDeviceSpeed.text = speed;
        FollowSpeed(form.axes[axis], axis);
    }
}

void ChangeStroke(DeviceForm& form, std::size_t axis, const std::string& text) {
    const std::string stroke = Trim(text);
    if (stroke != form.axes[axis].comboDeviceStroke.text) {
        form.axes[axis].comboDeviceStroke.text = stroke;
        FollowModel(form.axes[axis], axis);
    }
}

void ChangeNewOrOld(DeviceForm& form, std::size_t axis, bool ticked) {
    AxisPanel& panel = form.axes[axis];
    if (!panel.chkNewOrOld.enabled) {
        return;
    }
    panel.chkNewOrOld.checked = ticked;
    DevSettei[axis].NewType = FlagOf(!ticked);
    if (LoadDeviceListAxis(static_cast<int>(axis)) == 0) {
        FollowNewSize(panel, axis);
    }
}

} // namespace qdw8
