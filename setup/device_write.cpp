#include "setup/device_write.h"

#include "app/Module1.h"
#include "app/boxes.h"
#include "device/axis_device.h"
#include "device/device_settings.h"
#include "link/axis_mask.h"
#include "link/batch.h"
#include "parameter/factory_lists.h"
#include "parameter/para_check.h"
#include "parameter/para_rows.h"
#include "parameter/para_transfer.h"
#include "setup/controller_devices.h"
#include "setup/device_copies.h"
#include "setup/device_set.h"
#include "setup/devices_before.h"
#include "setup/para_commands.h"
#include "setup/recheck_positions.h"
#include "setup/repaint_axes.h"

#include <exception>

namespace qdw8 {
namespace {

bool Tell(std::int16_t id) {
    ShowTexts({id});
    return false;
}

void Device3CMDBTN_Muko(DeviceForm& form, const std::function<void()>& show) {
    form.commandsEnabled = false;
    show();
}

void Device3CMDBTN_Yuko(DeviceForm& form, const std::function<void()>& show) {
    form.commandsEnabled = true;
    show();
}

/// The commands of the window are away while the object lives.
class WindowCommandsAway {
public:
    WindowCommandsAway(DeviceForm& deviceForm, const std::function<void()>& showForm)
        : form(deviceForm), show(showForm) {
        Device3CMDBTN_Muko(form, show);
    }
    ~WindowCommandsAway() { Device3CMDBTN_Yuko(form, show); }
    WindowCommandsAway(const WindowCommandsAway&) = delete;
    WindowCommandsAway& operator=(const WindowCommandsAway&) = delete;

private:
    DeviceForm& form;
    const std::function<void()>& show;
};

/// The axes of the form, in the program and in the controller.
bool WriteAxes(const DeviceForm& form) {
    const auto before = AxisOff;
    KeepAxisFlag = kSet;
    KeptAxisMask = 0;
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        const bool used = form.axes[axis].chkAxisEnable;
        AxisOff[axis] = FlagOf(!used);
        if (used) {
            KeptAxisMask = static_cast<std::int16_t>(KeptAxisMask + (1 << axis));
        }
    }
    if (WriteAxisMask(KeptAxisMask) != 0) {
        AxisOff = before;
        return Tell(377);
    }
    return true;
}

/// Everything that the controller holds, so that the write changes only what it must.
bool ReadParameters() {
    if (ReadAxisMask() != 0) {
        return Tell(377);
    }
    return ReadAllBlocks() == 0 && (ApplyRowTable(RowSource::Controller) == 0 || Tell(359));
}

bool LoadDevices(const DeviceForm& form) {
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        if (!IsSet(AxisOff[axis])) {
            FamilyText[axis] = "QD";
        }
    }
    TakeFormDevices(form);
    if (LoadFactoryParametersForDevice() != 0) {
        return false;
    }
    if (ParametaValueCheck2() != 0) {
        ShowTexts({1524, 1525});
        return false;
    }
    return true;
}

bool WriteDevices(const DeviceForm& form) {
    const DevicesBefore before;
    if (ReadParameters() && LoadDevices(form) && WriteDeviceBlocks() == 0) {
        return true;
    }
    before.putBackButAxes(); // the axes follow the mask that was written
    return false;
}

/// True: the controller holds the new devices.
bool Send(const DeviceForm& form) {
    WritingMode mode;
    return StandsStill(OnFailure::Silent) && mode.begin() && WriteAxes(form) && WriteDevices(form);
}

/// False: what was written names devices that can't be, and those of the program stayed.
bool FollowController() {
    const bool followed = FollowDevicesOfParaSet() == 0;
    if (followed) {
        WriteDeviceSettings();
    }
    RepaintAxes();
    RecheckPositions();
    return followed;
}

/// What was written stands: a cancel puts back nothing of it.
void KeepWhatWasWritten(DeviceForm& form) {
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        form.newTypeBefore[axis] = DevSettei[axis].NewType;
        form.familyBefore[axis] = FamilyText[axis];
    }
}

/// The axes and families that came of the write, in the form.
void ShowInForm(DeviceForm& form) {
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        AxisPanel& panel = form.axes[axis];
        if (panel.chkAxisEnable == IsSet(AxisOff[axis])) {
            ChangeAxisEnable(form, axis, !IsSet(AxisOff[axis]));
        }
        panel.optQdSelect = FamilyText[axis] == "HN" ? kFamilyHn : kFamilyQd;
    }
}

void Write(DeviceForm& form) {
    const LineBatch batch;
    const auto axesBefore = AxisOff;
    if (!Send(form)) {
        if (AxisOff != axesBefore) {
            RepaintAxes();
        }
        return;
    }
    KeepWhatWasWritten(form);
    const bool readBack = GetParametaValue2() == 0;
    // Also when the reading back failed: the parameters are then those that were acknowledged.
    const bool followed = FollowController();
    ShowInForm(form);
    if (readBack && followed) {
        Tell(1527);
    }
}

} // namespace

void cmdPrmCtWrite_Click(DeviceForm& form, const std::function<void()>& show) {
    const WindowCommandsAway away(form, show);
    try {
        Write(form);
    } catch (const std::exception&) {
        Tell(397);
    }
    CompleteAxes();
}

} // namespace qdw8
