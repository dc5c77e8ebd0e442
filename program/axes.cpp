#include "program/axes.h"

#include "app/Module1.h"
#include "device/Module2Calc.h"
#include "device/axis_device.h"
#include "device/axis_texts.h"
#include "position/controller_settings.h"
#include "position/grid_display.h"

namespace qdw8 {
namespace {

bool LacksLead(std::size_t axis) {
    return !IsSet(AxisOff[axis]) && (DevSetting[axis].DevLead <= 0 || DevSetting[axis].DevPPR <= 0);
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

void TakeOutAxesWithoutLead() {
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        if (LacksLead(axis)) {
            AxisOff[axis] = kSet;
        }
    }
}

void TakeOverAxes() {
    if (AnyAxisLacksLead() && TakeOverControllerDevices() != 0) {
        TakeOutAxesWithoutLead();
    }
    ShowAxisDevices();
    DispAxisData();
    ShowUnitScale();
}

} // namespace qdw8
