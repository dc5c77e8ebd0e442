// Device names of a position file and device codes of the parameters.

#include "device/device_name.h"

#include "device_test.h"

#include <tuple>
#include <vector>

namespace qdw8::test {
namespace {

class DeviceName : public DeviceTest {
protected:
    DeviceName() {
        AxisOff = {kClear, kSet, kSet, kSet};
        FileAxisOff = {kClear, kSet, kSet, kSet};
        FileNewOld.fill("OLD");
        writeList(kModels);
    }

    std::int16_t parse(const std::string& name) {
        FileDevText[0] = name;
        return ParseFileDevices();
    }
};

std::tuple<std::string, std::string, int> KeyOf(const AxisDevice& device) {
    return {device.DevSize, device.DevSpeed, device.DevStroke};
}

TEST_F(DeviceName, TakesBothFormsApart) {
    struct Case {
        std::string name;
        std::string size;
        std::string speed;
        int stroke;
        bool withPg;
        bool vertical;
    };
    const std::vector<Case> cases{
        {"QD-44L-100EV", " 44", "L", 100, true, true},
        {"QD-44L-100VE", " 44", "L", 100, true, true},
        {"QD-44L-100V", " 44", "L", 100, false, true},
        {"QD-44L-100", " 44", "L", 100, false, false},
        {"QD-44L-100xyE", " 44", "L", 100, true, false},
        {"QD- 44L-100E_", " 44", "L", 100, true, false},
        {"QD- 44L- 50_V", " 44", "L", 50, false, true},
        // A stroke of two digits moves the letters out of the places where they are looked for.
        {"QD-44L-50E", " 44", "L", 50, false, false},
        {"QD-44L-50_E", " 44", "L", 50, true, false},
        {"QD-44L-050E", " 44", "L", 50, true, false},
        {"QD-J52L-100", "J52", "L", 100, true, false},
        {"QD-33L-050E", " 33", "L", 50, false, true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        DevSettei[0] = AxisDevice{};
        ASSERT_EQ(parse(c.name), 0);
        EXPECT_EQ(KeyOf(DevSettei[0]), std::tuple(c.size, c.speed, c.stroke));
        EXPECT_EQ(IsSet(DevSettei[0].WithPG), c.withPg);
        EXPECT_EQ(IsSet(DevSettei[0].Vertical), c.vertical);
    }
}

TEST_F(DeviceName, BadNamesAreTold) {
    for (const char* name :
         {"", "QD", "XX-44L-100", "qd-44L-100", "QD-44L-9", "QD-44L-", "QD-44L-9 ", "QD-44L-501",
          "QD-44l-100", "QD-44L-99999999", "QD-444", "QD-J52l-100", "QD-44L-100EVEV",
          "QD- 44L-100    ", "QD-44L-250", "QD-52L-300"}) {
        SCOPED_TRACE(name);
        platform.expectBox(kNotSelected);
        EXPECT_EQ(parse(name), 1);
        platform.checkAllAsked();
    }
}

TEST_F(DeviceName, AnUnknownPulseGeneratorCodeFailsInSilence) {
    DevSettei[0].WithPG = kSet;
    EXPECT_EQ(parse("QD-52H-300"), 1);
    EXPECT_EQ(KeyOf(DevSettei[0]), std::tuple(" 52", "H", 300));
    EXPECT_TRUE(IsSet(DevSettei[0].WithPG));
}

TEST_F(DeviceName, AMissingListIsToldBeforeTheName) {
    removeList();
    platform.expectBox(kNoList);
    platform.expectBox(kNotSelected);
    EXPECT_EQ(parse("QD-44L-100"), 1);
}

TEST_F(DeviceName, FamilyAndType) {
    struct Case {
        std::string name;
        std::string type;
        bool own;
        bool newType;
    };
    for (const Case& c : {Case{"QD-44L-100", "NEW", true, true},
                          {"QD-44L-100", "OLD", true, false},
                          {"QD-44L-100", "new", true, false},
                          {"HN-44L-100", "NEW", false, false},
                          {"QD-33L-050", "OLD", true, true},
                          {"QD-J52L-100", "OLD", true, true},
                          {"QD-61F-200", "OLD", true, true}}) {
        SCOPED_TRACE(c.name + c.type);
        FileNewOld[0] = c.type;
        FamilyText[0] = "HN";
        DevSetting[0].NewType = kClear;
        ASSERT_EQ(parse(c.name), 0);
        EXPECT_EQ(IsSet(DevSettei[0].Device), c.own);
        EXPECT_EQ(FamilyText[0], c.own ? "QD" : "HN");
        EXPECT_EQ(IsSet(DevSettei[0].NewType), c.newType);
        EXPECT_FALSE(IsSet(DevSetting[0].NewType)) << "the other copy is not touched";
    }
}

TEST_F(DeviceName, TheMountingOfANewTypeStandsWhenTheNameDoesNotTell) {
    for (const Flag before : {kSet, kClear}) {
        FileNewOld[0] = "NEW";
        DevSettei[0].Vertical = before;
        ASSERT_EQ(parse("QD-44L-100"), 0);
        EXPECT_EQ(DevSettei[0].Vertical, before);
        ASSERT_EQ(parse("QD-44L-100V"), 0);
        EXPECT_TRUE(IsSet(DevSettei[0].Vertical));
        FileNewOld[0] = "OLD";
        ASSERT_EQ(parse("QD-44L-100"), 0);
        EXPECT_FALSE(IsSet(DevSettei[0].Vertical));
    }
}

TEST_F(DeviceName, OnlyAxesOfBothSidesAndUpToTheFirstBadName) {
    AxisOff = {kClear, kSet, kClear, kClear};
    FileAxisOff = {kClear, kClear, kClear, kClear};
    FileDevText = {"QD-44L-100", "QD-44L-050", "nonsense", "QD-44L-050"};
    platform.expectBox(kNotSelected);
    EXPECT_EQ(ParseFileDevices(), 1);
    EXPECT_EQ(DevSettei[0].DevStroke, 100);
    EXPECT_EQ(DevSettei[1].DevStroke, 0);
    EXPECT_EQ(DevSettei[3].DevStroke, 0);

    EXPECT_EQ(ParseFileDevice(1), 0) << "an axis that the PC begins to use";
    EXPECT_EQ(DevSettei[1].DevStroke, 50);

    FileAxisOff[2] = kSet;
    EXPECT_EQ(ParseFileDevices(), 0);
    EXPECT_EQ(DevSettei[3].DevStroke, 50);
}

TEST_F(DeviceName, Codes) {
    EXPECT_EQ(ParseDeviceCode(3, "J52L100"), 0);
    EXPECT_EQ(CtDevice[3].Size, "J52");
    EXPECT_EQ(CtDevice[3].Speed, "L");
    EXPECT_EQ(CtDevice[3].Stroke, 100);
    EXPECT_EQ(SplitDeviceCode(" 44H050"), 0);
    EXPECT_EQ(CodeTexts.size, " 44");
    EXPECT_EQ(CodeTexts.speed, "H");
    EXPECT_EQ(CodeTexts.stroke, " 50");
    for (const char* code : {"", "44L100", " 44L1000"}) {
        EXPECT_EQ(ParseDeviceCode(3, code), 1);
        EXPECT_EQ(SplitDeviceCode(code), 1);
    }
    for (const int axis : {-1, 4}) {
        EXPECT_EQ(ParseDeviceCode(axis, " 44L100"), 1);
    }
    EXPECT_EQ(CtDevice[3].Size, "J52");
}

} // namespace
} // namespace qdw8::test
