#include "parameter/para_device.h"

#include "app/screens.h"
#include "device/axis_device.h"
#include "link/receiver.h"
#include "parameter/factory_lists.h"
#include "parameter/parameter_bench.h"
#include "setup/controller_devices.h"

namespace qdw8::test {
namespace {

struct DeviceBench : ParameterBench {
    DeviceBench() {
        GoOnLine();
        ParaSet.LEAD = {8, 2, 2, 2};
        ParaSet.PULSE = {400, 400, 400, 400};
        ParaSet.STROKE = {15000, 10000, 20000, 40000};
        ParaSet.TYPE = {0, 1, 4, 5};
        ParaSet.FUNCTION = {0, 1, 2, 0};
    }
};
using ParaDevice = Unit<DeviceBench>;

TEST_F(ParaDevice, TheImageBecomesTheDevices) {
    DevSetting[1].NewType = kClear;
    DevSettei[3].NewType = kClear;
    ParaSet.AXIS = 0b1011;
    ASSERT_EQ(TakeParameterDevices(), 0);
    EXPECT_EQ(AxisOff, (std::array<Flag, kAxes>{kClear, kClear, kSet, kClear}));
    EXPECT_EQ(DevSetting[0].Device, kSet);
    EXPECT_EQ(DevSetting[0].DevSize, " 61");
    EXPECT_EQ(DevSetting[0].DevSpeed, "H");
    EXPECT_EQ(DevSetting[0].DevStroke, 300);
    EXPECT_EQ(DevSetting[0].DevLead, 8);
    EXPECT_EQ(DevSetting[0].DevPPR, 400);
    EXPECT_EQ(DevSetting[0].MaxPulse, 15000);
    EXPECT_DOUBLE_EQ(DevSetting[0].MaxStrokeMm, 300);
    EXPECT_EQ(DevSetting[0].Vertical, kClear);
    EXPECT_EQ(DevSetting[1].Vertical, kSet);
    EXPECT_EQ(DevSetting[1].WithPG, kSet);
    EXPECT_EQ(DevSettei[1].WithPG, kSet);
    EXPECT_EQ(DevSetting[1].NewType, kClear) << "a 44 exists as both";
    EXPECT_EQ(DevSettei[3].NewType, kSet) << "a 33 doesn't";
    EXPECT_EQ(DevSetting[2].DevSize, "") << "out of use";

    Culc_MaxPulse2();
    EXPECT_EQ(DevSetting[3].MaxPulse, 40000);
    EXPECT_EQ(DevSetting[2].MaxPulse, 0);
}

TEST_F(ParaDevice, FiguresThatNoDeviceHasAreToldAndChangeNoDevice) {
    const auto before = DevSetting;
    const auto refused = [&](auto change) {
        const ParameterSet good = ParaSet;
        change(ParaSet);
        platform.expectBox(box::kInvalid);
        EXPECT_EQ(TakeParameterDevices(), 1);
        platform.checkAllAsked();
        EXPECT_EQ(DevSetting, before);
        ParaSet = good;
    };
    refused([](ParameterSet& set) { set.PULSE[3] = 32768; });
    refused([](ParameterSet& set) { set.PULSE[1] = 0; });
    refused([](ParameterSet& set) { set.LEAD[2] = 0; });
    refused([](ParameterSet& set) { set.STROKE[0] = 3e9; });
    refused([](ParameterSet& set) { set.STROKE[0] = -1; });
    refused([](ParameterSet& set) { set.STROKE[0] = 262144; });
    refused([](ParameterSet& set) { set.parts[3].stroke = 501; });
    refused([](ParameterSet& set) { set.parts[2].size = "44"; });
    refused([](ParameterSet& set) { set.parts[1].speed.clear(); });
    ParaSet.PULSE[3] = 32767;
    ParaSet.parts[3] = {" 77", "z", 5}; // in no catalogue; the check lets it pass
    EXPECT_EQ(TakeParameterDevices(), 0);
}

TEST_F(ParaDevice, AnAxisWithoutAnActuatorEndsIt) {
    ParaSet.Actuator[1].clear();
    EXPECT_EQ(TakeParameterDevices(), 1);
    EXPECT_EQ(DeviceTextEmpty, (std::array<Flag, kAxes>{kClear, kSet, kClear, kClear}));
    EXPECT_EQ(DevSetting[0].DevSize, " 61");
    EXPECT_EQ(DevSetting[2].DevSize, "");
}

TEST_F(ParaDevice, OnlyAxesThatLackTheirLeadAreCompleted) {
    ASSERT_EQ(TakeOverDevicesOfController(), 0);
    forgetFrames();
    EXPECT_FALSE(CompleteAxes());
    EXPECT_TRUE(platform.sent.empty());

    DevSetting[0].DevStroke = 250; // differs, but is known
    DevSetting[2] = DevSettei[2] = {};
    line.controller.setBlock(6, "0108FFFF003A983D48012C0000000000"); // of no concern here
    EXPECT_TRUE(CompleteAxes());
    EXPECT_EQ(AxisOff, (std::array<Flag, kAxes>{}));
    EXPECT_EQ(DevSetting[0].DevStroke, 250);
    EXPECT_EQ(DevSetting[2].DevSize, "J52");
    EXPECT_EQ(DevSetting[2].MaxStrokeMm, 100);
    EXPECT_EQ(platform.settings["DevSize3"], "J52");
    ExpectAtRest(platform);
}

TEST_F(ParaDevice, AnAxisThatCantBeCompletedGoesOutOfUse) {
    ASSERT_EQ(TakeOverDevicesOfController(), 0);
    const auto whole = DevSetting;
    const auto goes = [&](std::vector<std::string> boxes) {
        AxisOff.fill(kClear);
        DevSetting[3].DevPPR = 0;
        const auto before = DevSetting;
        boxes.push_back(box::kNotSelected);
        for (const std::string& box : boxes) {
            platform.expectBox(box);
        }
        EXPECT_TRUE(CompleteAxes());
        platform.checkAllAsked();
        EXPECT_EQ(AxisOff, (std::array<Flag, kAxes>{kClear, kClear, kClear, kSet}));
        EXPECT_EQ(DevSetting, before);
        ExpectAtRest(platform);
        DevSetting = whole;
    };
    for (const int step : {1, 4}) {
        SCOPED_TRACE(step);
        forgetFrames();
        GoOnLine();
        addFault("0RD:" + std::to_string(step) + "+:silence");
        goes({box::kTimeout});
    }
    forgetFrames();
    goes({}); // off line by now
    EXPECT_TRUE(platform.sent.empty());

    GoOnLine();
    line.controller.setBlock(12, std::string(32, '0'));
    goes({});
}

TEST_F(ParaDevice, TheChosenActuatorsBringTheirFactoryParameters) {
    KeepAxisFlag = kSet;
    Screens().frmDevice2 = [] {
        EXPECT_EQ(FactoryDeviceFlag, kSet);
        EXPECT_EQ(FirstDeviceSetFlag, kSet);
        EXPECT_EQ(KeepAxisFlag, kClear);
        AxisOff = {kClear, kClear, kSet, kSet};
        DevSettei[0] = {" 61", "F", 200, kSet, kSet, kSet};
        DevSettei[1] = {" 52", "H", 50, kClear, kClear, kClear};
    };
    ASSERT_EQ(SelectDeviceAndLoadFactory(), 0);
    EXPECT_EQ(FactoryDeviceFlag, kClear);
    EXPECT_EQ(FirstDeviceSetFlag, kSet);
    EXPECT_EQ(ParaSet.AXIS, 3);
    EXPECT_EQ(ParaSet.Actuator[0], " 61F200");
    EXPECT_EQ(ParaSet.STROKE[0], 4800);
    EXPECT_EQ(ParaSet.STROKE[1], 3334) << "a broken pulse counts as a whole one";
    EXPECT_EQ(ParaSet.TYPE[0], 1);
    EXPECT_EQ(ParaSet.TYPE[1], 0);
    EXPECT_NE(ParaSet.FUNCTION[0], 0);
    EXPECT_EQ(ParaSet.FUNCTION[1], 0);
}

} // namespace
} // namespace qdw8::test
