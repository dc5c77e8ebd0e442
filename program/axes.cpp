#include "program/axes.h"

#include "app/Module1.h"
#include "app/boxes.h"
#include "app/command_states.h"
#include "device/Module2Calc.h"
#include "device/axis_device.h"
#include "device/axis_texts.h"
#include "device/controller_device.h"
#include "device/device_settings.h"
#include "link/Module3Tusin.h"
#include "link/supervision.h"
#include "parameter/device_bytes.h"
#include "position/grid_display.h"

#include <array>

namespace qdw8 {
namespace {

bool LacksLead(std::size_t axis) {
    return !IsSet(AxisOff[axis]) && (DevSetting[axis].DevLead <= 0 || DevSetting[axis].DevPPR <= 0);
}

/// Of the axes without a lead alone. False if the controller's memory gives none either.
bool BringActuators() {
    const auto setting = DevSetting;
    const auto settei = DevSettei;
    const auto family = FamilyText;
    std::array<bool, kAxes> lacks{};
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        lacks[axis] = LacksLead(axis);
    }
    const bool good =
        ReadDeviceBytes() == 0 && TakeControllerFlags() == 0 && TakeControllerDevices() == 0;
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        if (!good || !lacks[axis]) {
            DevSetting[axis] = setting[axis];
            DevSettei[axis] = settei[axis];
            FamilyText[axis] = family[axis];
        }
    }
    return good;
}

void CompleteAxes() {
    if (IsSet(OffLineFlag)) {
        TakeOutAxesWithoutLead();
        return;
    }
    const PollHeld held;
    const bool good = BringActuators();
    CloseCtPort();
    if (good) {
        CalcMaxStrokeMm();
        WriteDeviceSettings();
    } else if (TakeOutAxesWithoutLead()) {
        ShowTexts({4, 5});
    }
}

bool AnyAxisLacksLead() {
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        if (LacksLead(axis)) {
            return true;
        }
    }
    return false;
}

} // namespace

void RepaintAxes() {
    ShowAxisDevices();
    DispAxisData();
    ShowUnitScale();
}

void CheckAxes_Click() {
    const CommandsAway away;
    mnuFuncGetAxis_Click();
    if (AnyAxisLacksLead()) {
        CompleteAxes();
        RepaintAxes();
    }
}

bool TakeOutAxesWithoutLead() {
    bool any = false;
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        if (LacksLead(axis)) {
            AxisOff[axis] = kSet;
            any = true;
        }
    }
    return any;
}

} // namespace qdw8
