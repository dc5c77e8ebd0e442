#include "setup/device_write.h"

#include "app/Module1.h"
#include "app/boxes.h"
#include "app/transfer_dialog.h"
#include "device/axis_device.h"
#include "link/Module3Tusin.h"
#include "link/axis_mask.h"
#include "link/ct_commands.h"
#include "link/supervision.h"
#include "parameter/factory_lists.h"
#include "parameter/para_check.h"
#include "parameter/para_device.h"
#include "parameter/para_file.h"
#include "parameter/para_rows.h"
#include "parameter/para_set.h"
#include "parameter/para_transfer.h"
#include "position/flex_grid.h"
#include "setup/change_device.h"
#include "setup/controller_devices.h"
#include "setup/device_copies.h"
#include "setup/device_set.h"
#include "setup/para_commands.h"
#include "setup/repaint_axes.h"

#include <exception>

namespace qdw8 {
namespace {

constexpr std::int16_t kIdle = 0;
constexpr std::int16_t kWriting = 1;

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

/// What every way out of the command gives back.
class Batch {
public:
    Batch(DeviceForm& deviceForm, const std::function<void()>& showForm)
        : form(deviceForm), show(showForm) {
        Device3CMDBTN_Muko(form, show);
    }
    ~Batch() {
        UnloadTrance();
        CloseCtPort();
        Device3CMDBTN_Yuko(form, show);
    }
    Batch(const Batch&) = delete;
    Batch& operator=(const Batch&) = delete;

private:
    DeviceForm& form;
    const std::function<void()>& show;
    PollHeld held;
};

/// What a write that stops halfway puts back.
struct Before {
    ParameterSet parameters = ParaSet;
    std::array<AxisDevice, kAxes> settei = DevSettei;
    std::array<std::string, kAxes> family = FamilyText;

    void putBack() const {
        ParaSet = parameters;
        DevSettei = settei;
        FamilyText = family;
    }
};

bool StandsStill() {
    switch (ReadArrivalStatus()) {
    case 1: return true;
    case 0: return Tell(424);
    default: return false; // the exchange has told
    }
}

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
    FactoryFailedFlag = kClear;
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
    const Before before;
    ParaWriteFailedFlag = kClear;
    if (ReadParameters() && LoadDevices(form) && WriteDeviceBlocks() == 0) {
        return true;
    }
    before.putBack();
    return false;
}

/// True: the controller holds the new devices.
bool Send(const DeviceForm& form) {
    if (!StandsStill()) {
        return false;
    }
    if (SetCtMode(kWriting) != 0) {
        return Tell(377);
    }
    const bool written = WriteAxes(form) && WriteDevices(form);
    // A controller that was left in the writing mode would refuse to move. One that no longer
    // answers isn't asked again.
    const bool answers = written || (!IsSet(OffLineFlag) && !IsSet(CommErrorFlag));
    if (answers && SetCtMode(kIdle) != 0) {
        Tell(377);
    }
    return written;
}

void FollowController() {
    FollowDevicesOfParaSet();
    RepaintAxes();
    if (flgdData().rows.size() > kGridHeadRows && RecheckPositions() == 1) {
        Tell(1526);
    }
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
    GoOnLine();
    const auto axesBefore = AxisOff;
    if (!Send(form)) {
        if (AxisOff != axesBefore) {
            RepaintAxes();
        }
        return;
    }
    KeepWhatWasWritten(form);
    const bool readBack = GetParametaValue2() == 0;
    UnloadTrance();
    // Also when the reading back failed: the parameters are then those that were acknowledged.
    FollowController();
    ShowInForm(form);
    if (readBack) {
        Tell(1527);
    }
}

} // namespace

void cmdPrmCtWrite_Click(DeviceForm& form, const std::function<void()>& show) {
    const Batch batch(form, show);
    try {
        Write(form);
    } catch (const std::exception&) {
        Tell(397);
    }
    CompleteAxes();
}

} // namespace qdw8
