// The devices as they come from the stored settings and from the controller, and as they go into
// the store.

#include "device/controller_device.h"
#include "device/device_settings.h"
#include "device_test.h"

#include <tuple>

namespace qdw8::test {
namespace {

using DeviceSettings = DeviceTest;

TEST_F(DeviceSettings, AnEmptyStoreGivesAWorkingSet) {
    writeList(kModels);
    AxisOff.fill(kSet);
    EXPECT_EQ(ReadDeviceSettings(), 0) << "all four axes, in use or not";
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        for (const AxisDevice* device : {&DevSetting[axis], &DevSettei[axis]}) {
            EXPECT_EQ(device->DevSize, " 44");
            EXPECT_EQ(device->DevSpeed, "L");
            EXPECT_EQ(device->DevStroke, 100);
            EXPECT_TRUE(IsSet(device->NewType));
            EXPECT_TRUE(IsSet(device->Vertical));
            EXPECT_FALSE(IsSet(device->WithPG));
        }
        EXPECT_TRUE(IsSet(DevSetting[axis].Device));
        EXPECT_EQ(FamilyText[axis], "QD");
        EXPECT_EQ(DevSetting[axis].DevLead, 2);
        EXPECT_EQ(DevSetting[axis].DevPPR, 400);
        EXPECT_DOUBLE_EQ(DevSetting[axis].MmPerPulse, 0.005);
    }
}

TEST_F(DeviceSettings, StoredValuesAndFlags) {
    writeList(kModels);
    platform.settings = {{"DevSize1", " 61"},   {"DevSpeed1", "F"},  {"DevStroke1", "200"},
                         {"DevLead1", "19"},    {"DevPPR1", "1000"}, {"NewType1", "0"},
                         {"Vertical1", "0"},    {"WithPG1", "1"},    {"NewType2", "-1"},
                         {"Vertical2", "2"},    {"WithPG2", "-1"},   {"Device3", "HN"},
                         {"DevStroke3", "500"}, {"DevLead3", "20"},  {"DevPPR3", "192"}};
    EXPECT_EQ(ReadDeviceSettings(), 0);
    EXPECT_TRUE(IsSpecialModel(DevSetting[0]));
    EXPECT_EQ(DevSetting[0].DevLead, 8) << "the list wins";
    EXPECT_EQ(DevSetting[0].DevPPR, 192) << "the list wins";
    EXPECT_TRUE(IsSet(DevSetting[0].NewType)) << "no old type was ever made of this size";
    EXPECT_TRUE(IsSet(DevSettei[0].NewType));
    EXPECT_FALSE(IsSet(DevSettei[0].Vertical));
    EXPECT_TRUE(IsSet(DevSettei[0].WithPG));
    EXPECT_FALSE(IsSet(DevSetting[1].NewType)) << "only exactly 1 counts";
    EXPECT_FALSE(IsSet(DevSetting[1].Vertical));
    EXPECT_FALSE(IsSet(DevSetting[1].WithPG));
    EXPECT_EQ(FamilyText[2], "HN");
    EXPECT_FALSE(IsSet(DevSetting[2].Device));
    EXPECT_EQ(DevSetting[2].DevLead, 20) << "not in the list: the stored lead and pulses count";
    EXPECT_EQ(DevSetting[2].DevPPR, 192);
    EXPECT_DOUBLE_EQ(DevSetting[2].MmPerPulse, 20.0 / 192);
}

TEST_F(DeviceSettings, ABadAxisGivesOne) {
    writeList(kModels);
    struct Case {
        std::string key;
        std::string value;
        int result;
    };
    // Device and stroke 250 is in no list, so that the stored lead and pulses are asked for.
    for (const Case& c : {Case{"DevLead4", "2", 0},
                          {"DevLead4", "20", 0},
                          {"DevLead4", "1", 1},
                          {"DevLead4", "21", 1},
                          {"DevLead4", "none", 1},
                          {"DevPPR4", "0", 1},
                          {"DevPPR4", "-400", 1},
                          {"DevSize4", "44", 1},
                          {"DevSpeed4", "l", 1},
                          {"DevSpeed4", "", 1},
                          {"DevStroke4", "9", 1},
                          {"DevStroke4", "501", 1}}) {
        SCOPED_TRACE(c.key + "=" + c.value);
        ResetDevices();
        platform.settings = {{"DevStroke4", "250"}};
        platform.settings[c.key] = c.value;
        EXPECT_EQ(ReadDeviceSettings(), c.result);
        EXPECT_EQ(DevSetting[0].DevLead, 2) << "the other axes are complete";
    }
}

TEST_F(DeviceSettings, WithoutAListTheStoredLeadIsUsed) {
    platform.settings = {{"DevLead2", "6"}};
    for (int axis = 0; axis < kAxes; ++axis) {
        platform.expectBox(kNoList);
    }
    EXPECT_EQ(ReadDeviceSettings(), 0);
    EXPECT_EQ(DevSetting[1].DevLead, 6);
    EXPECT_EQ(DevSetting[1].DevPPR, 400);
}

TEST_F(DeviceSettings, WritesTheAxesInUse) {
    AxisOff = {kSet, kClear, kSet, kSet};
    setDevice(DevSetting[1], "J52", "L", 50);
    DevSetting[1].DevLead = 2;
    DevSetting[1].DevPPR = 400;
    DevSetting[1].NewType = kSet;
    DevSetting[1].Vertical = kClear;
    DevSetting[1].WithPG = kSet;
    WriteDeviceSettings();
    const std::map<std::string, std::string> expected{
        {"Device2", "QD"}, {"DevSize2", "J52"}, {"DevSpeed2", "L"}, {"DevStroke2", "50"},
        {"DevLead2", "2"}, {"NewType2", "1"},   {"Vertical2", "0"}, {"WithPG2", "1"}};
    EXPECT_EQ(platform.settings, expected);
}

class FromController : public DeviceTest {
protected:
    FromController() {
        AxisOff = {kClear, kSet, kClear, kSet};
        CtDevice[0] = {1, 6, 400, 1, 20000, " 44", "H", 300};
        CtDevice[2] = {0, 8, 192, 0, 4800, " 61", "F", 200};
    }
};

TEST_F(FromController, FlagsAndNumbers) {
    struct Case {
        std::int16_t kind;
        std::string size;
        Flag before;
        bool own;
        bool newType;
        bool vertical;
    };
    for (const Case& c : {Case{0, " 44", kSet, true, false, false},
                          {1, " 44", kSet, true, true, true},
                          {1, " 52", kClear, true, false, true},
                          {1, "J52", kClear, true, true, true},
                          {1, " 33", kClear, true, true, true},
                          {1, " 61", kClear, true, true, true},
                          {2, " 61", kSet, false, false, false},
                          {4, " 44", kSet, false, false, false}}) {
        SCOPED_TRACE(c.size + " of kind " + std::to_string(c.kind));
        CtDevice[0].KindCode = c.kind;
        CtDevice[0].Size = c.size;
        for (AxisDevice* device : {&DevSetting[0], &DevSettei[0]}) {
            device->NewType = c.before;
        }
        ASSERT_EQ(TakeControllerFlags(), 0);
        EXPECT_EQ(IsSet(DevSetting[0].Device), c.own);
        for (const AxisDevice* device : {&DevSetting[0], &DevSettei[0]}) {
            EXPECT_EQ(IsSet(device->NewType), c.newType);
            EXPECT_EQ(IsSet(device->Vertical), c.vertical);
        }
    }
    EXPECT_EQ(DevSetting[0].DevLead, 6);
    EXPECT_EQ(DevSetting[0].DevPPR, 400);
    EXPECT_EQ(DevSetting[0].MaxPulse, 20000);
    EXPECT_EQ(DevSetting[2].DevPPR, 192);
    EXPECT_EQ(DevSetting[1].DevLead, 0) << "an axis out of use is skipped";
    EXPECT_EQ(DevSetting[0].DevSize, "") << "the device itself is taken afterwards";
}

TEST_F(FromController, PulseGenerator) {
    for (const auto& [function, withPg] :
         {std::pair<std::int16_t, bool>{0, false}, {1, true}, {2, true}, {3, false}}) {
        CtDevice[0].Function = function;
        ASSERT_EQ(TakeControllerFlags(), 0);
        EXPECT_EQ(IsSet(DevSetting[0].WithPG), withPg) << function;
        EXPECT_EQ(IsSet(DevSettei[0].WithPG), withPg) << function;
    }
}

TEST_F(FromController, NumbersThatFitNoDeviceLeaveAllAsItWas) {
    CtDevice[2].PPR = 32768;
    platform.expectBox("Communication error occurs!\r\ntransmit data is wrong");
    EXPECT_EQ(TakeControllerFlags(), 1);
    CtDevice[2].PPR = 0;
    EXPECT_EQ(TakeControllerFlags(), 1);
    CtDevice[2] = {0, 0, 400, 0, 4800, " 61", "F", 200};
    EXPECT_EQ(TakeControllerFlags(), 1);
    EXPECT_EQ(DevSetting[0].DevLead, 0);
    CtDevice[2].Lead = 8;
    CtDevice[2].PPR = 32767;
    EXPECT_EQ(TakeControllerFlags(), 0);
    EXPECT_EQ(DevSetting[2].DevPPR, 32767);
}

TEST_F(FromController, Devices) {
    DevSettei[2].NewType = kClear;
    DevSetting[2].NewType = kClear;
    ASSERT_EQ(TakeControllerDevices(), 0);
    EXPECT_EQ(DevSetting[0].DevSize, " 44");
    EXPECT_EQ(DevSetting[0].DevSpeed, "H");
    EXPECT_EQ(DevSetting[0].DevStroke, 300);
    EXPECT_TRUE(IsSet(DevSetting[0].Device));
    EXPECT_EQ(DevSettei[0].DevSize, "") << "only the program's own copy";
    EXPECT_TRUE(IsSet(DevSetting[2].NewType));
    EXPECT_TRUE(IsSet(DevSettei[2].NewType));
}

TEST_F(FromController, AnAxisWithoutADeviceEndsIt) {
    const ControllerDevice whole = CtDevice[2];
    for (int missing = 0; missing < 3; ++missing) {
        CtDevice[2] = whole;
        (missing == 0 ? CtDevice[2].Size : CtDevice[2].Speed) = missing < 2 ? "" : "F";
        CtDevice[2].Stroke = missing == 2 ? std::int16_t{0} : whole.Stroke;
        EXPECT_EQ(TakeControllerDevices(), 1) << missing;
        EXPECT_EQ(DevSetting[0].DevStroke, 300);
        EXPECT_EQ(DevSetting[2].DevStroke, 0);
    }
}

} // namespace
} // namespace qdw8::test
