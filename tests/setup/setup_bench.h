#pragma once

#include "device/Module2Calc.h"
#include "device/axis_device.h"
#include "link/receiver.h"
#include "parameter/para_fields.h"
#include "parameter/para_set.h"
#include "position/grid_bench.h"
#include "setup/controller_devices.h"
#include "setup/para_commands.h"
#include "support/boxes.h"

namespace qdw8::test {

/// AXIS 1 a QD-44L of 100 mm, AXIS 2 an old QD-52H of 200 mm with a pulse generator, AXIS 3 and 4
/// out of use; the controller holds its start machine.
struct SetupBench : GridBench {
    SetupBench() {
        AxisOff = {kClear, kClear, kSet, kSet};
        FirstDeviceSetFlag = kSet;
        DevSetting[0] = {" 44", "L", 100, kSet, kClear, kSet, kSet, 2, 400, 0, 0};
        DevSetting[1] = {" 52", "H", 200, kClear, kSet, kClear, kSet, 6, 400, 0, 0};
        for (AxisDevice* const device : {&DevSetting[2], &DevSetting[3]}) {
            device->DevSize = " 44";
            device->DevSpeed = "L";
            device->DevStroke = 100;
        }
        DevSettei = DevSetting;
        Culc_MaxPulse();
        CalcMaxStrokeMm();
    }
    /// PC and controller agree on axes and actuators; the fields show what the controller holds.
    void agree() {
        AxisOff.fill(kClear);
        GoOnLine();
        EXPECT_EQ(TakeOverDevicesOfController(), 0);
        EXPECT_EQ(GetParametaValue2(), 0);
        ParametaHyoji();
        forgetFrames();
    }
};

/// Everything that says which devices are fitted.
struct Everything {
    std::array<AxisDevice, kAxes> setting = DevSetting, settei = DevSettei;
    std::array<Flag, kAxes> off = AxisOff;
    std::array<std::string, kAxes> family = FamilyText;
    ParameterSet parameters = ParaSet;

    bool operator==(const Everything&) const = default;
};

} // namespace qdw8::test
