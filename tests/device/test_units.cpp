// Pulses, millimetres and stroke ends, the scale texts and the axis texts.

#include "device/Module2Calc.h"
#include "device/axis_texts.h"
#include "device_test.h"
#include "platform/fault.h"

#include <cmath>
#include <limits>

namespace qdw8::test {
namespace {

TEST(Units, PulsesAndMillimetres) {
    EXPECT_EQ(PulseToMm(2, 400, 1), 0.005);
    EXPECT_EQ(PulseToMm(6, 400, 12500), 12500 * 0.015);
    EXPECT_EQ(PulseToMm(8, 192, -3), -3 * (8.0 / 192.0));
    EXPECT_EQ(MmToPulse(2, 400, 0.0125), 2) << "half goes to the even neighbour";
    EXPECT_EQ(MmToPulse(2, 400, 0.0175), 4);
    EXPECT_EQ(MmToPulse(2, 400, -0.0125), -2);
    EXPECT_THROW(PulseToMm(2, 0, 1), Fault);
    EXPECT_THROW(MmToPulse(0, 400, 1), Fault);
}

TEST(Units, EveryPulseComesBackFromItsMillimetres) {
    for (const auto& [lead, ppr] : {std::pair<std::int16_t, std::int16_t>{2, 400},
                                    {6, 400},
                                    {8, 400},
                                    {8, 192},
                                    {20, 32767}}) {
        for (int pulse = -20; pulse < 100000; pulse += pulse < 5000 ? 1 : 37) {
            const double mm = PulseToMm(lead, ppr, pulse);
            ASSERT_EQ(MmToPulse(lead, ppr, mm), pulse) << lead << "/" << ppr;
            if (pulse < 0) {
                continue; // no negative figure is ever entered
            }
            for (const std::int16_t roundUp : {std::int16_t{0}, std::int16_t{1}}) {
                const double snapped = SnapMmToPulse(lead, roundUp, ppr, mm);
                ASSERT_EQ(MmToPulse(lead, ppr, snapped), pulse) << lead << "/" << ppr;
            }
        }
    }
}

TEST(Units, SnapToThePulseGrid) {
    struct Case {
        double mm;
        double down; ///< without round-up
        double up;   ///< with it
    };
    for (const Case& c : {Case{0.0075, 0.005, 0.01},
                          {0.0074, 0.005, 0.005},
                          {0.0076, 0.01, 0.01},
                          {0.005, 0.005, 0.005},
                          {0, 0, 0},
                          {-0.0075, -0.005, -0.005},
                          {-0.0099, -0.005, -0.005},
                          // Half a pulse is judged at four decimals of a pulse ...
                          {0.0075002, 0.005, 0.01},
                          // ... but the step that follows then cuts what falls just below it.
                          {0.0074998, 0.005, 0.005}}) {
        EXPECT_DOUBLE_EQ(SnapMmToPulse(2, 0, 400, c.mm), c.down) << c.mm;
        EXPECT_DOUBLE_EQ(SnapMmToPulse(2, 1, 400, c.mm), c.up) << c.mm;
    }
    EXPECT_EQ(SnapMmToPulse(2, 7, 400, 0.0075), 0) << "a choice that is neither";
    for (const auto& [lead, ppr] : {std::pair<std::int16_t, std::int16_t>{0, 400}, {2, 0}}) {
        EXPECT_THROW(SnapMmToPulse(lead, 0, ppr, 1), Fault);
    }
    EXPECT_THROW(SnapMmToPulse(2, 0, 400, 1e8), Fault);
    EXPECT_THROW(SnapMmToPulse(2, 0, 400, 1e300), Fault);
    EXPECT_THROW(SnapMmToPulse(2, 0, 400, std::numeric_limits<double>::quiet_NaN()), Fault);
}

TEST(Units, StrokeEndInPulses) {
    EXPECT_EQ(MaxPulseOf(100, 6, 400), 6667);
    EXPECT_EQ(MaxPulseOf(100, 2, 400), 20000) << "whole strokes get no pulse more";
    EXPECT_EQ(MaxPulseOf(100, 8, 192), 2400);
    // One tenth of a pulse counts as a whole one, less than half a tenth as nothing; in between
    // the one decimal decides.
    EXPECT_EQ(MaxPulseOf(1, 10, 1), 1);
    EXPECT_EQ(MaxPulseOf(1001, 1000, 100), 101);
    EXPECT_EQ(MaxPulseOf(401, 400, 16), 16) << "16.04 shows as 16.0";
    EXPECT_EQ(MaxPulseOf(321, 320, 16), 17) << "16.05 shows as 16.1";
    EXPECT_THROW(MaxPulseOf(100, 0, 400), Fault);
    EXPECT_THROW(MaxPulseOf(0, 2, 400), Fault);
    EXPECT_THROW(MaxPulseOf(1, 25, 1), Fault) << "0.04 shows no digit at all";
}

class AxisUnits : public DeviceTest {
protected:
    AxisUnits() {
        AxisOff = {kSet, kClear, kClear, kSet};
        setDevice(DevSetting[1], " 44", "L", 100);
        setDevice(DevSetting[2], " 61", "F", 200);
        for (const std::size_t axis : {1U, 2U}) {
            DevSetting[axis].Device = kSet;
            DevSetting[axis].NewType = kSet;
        }
        DevSetting[1].DevLead = 2;
        DevSetting[1].DevPPR = 400;
        DevSetting[2].DevLead = 8;
        DevSetting[2].DevPPR = 192;
        writeList(kModels);
    }
};

TEST_F(AxisUnits, StrokeEnds) {
    DevSetting[0].MaxPulse = 77;
    DevSetting[0].MaxStrokeMm = 7.7;
    Culc_MaxPulse();
    CalcMaxStrokeMm();
    EXPECT_EQ(DevSetting[0].MaxPulse, 0);
    EXPECT_EQ(DevSetting[0].MaxStrokeMm, 7.7) << "left as it stands";
    EXPECT_EQ(DevSetting[1].MaxPulse, 20000);
    EXPECT_EQ(DevSetting[1].MaxStrokeMm, 100);
    DevSetting[2].MaxPulse = 2401;
    CalcMaxStrokeMm();
    EXPECT_EQ(DevSetting[2].MaxStrokeMm, 100.041) << "cut, not rounded: 100.04166...";
}

TEST_F(AxisUnits, ScaleTexts) {
    ShowUnitScale();
    EXPECT_EQ(ThePanel().scale[0], "<2>1mm = 200Pulse") << "the first axis in use";
    EXPECT_EQ(ThePanel().scale[1], "<2>1Pulse= 0.005mm");
    ShowUnitScaleOfAxis(2);
    EXPECT_EQ(ThePanel().scale[0], "<3>1mm = 24Pulse");
    EXPECT_EQ(ThePanel().scale[1], "<3>1Pulse= 0.042mm");
    DevSetting[2].DevLead = 6;
    DevSetting[2].DevPPR = 400;
    ShowUnitScaleOfAxis(2);
    EXPECT_EQ(ThePanel().scale[0], "<3>1mm = 66.667Pulse");
    EXPECT_EQ(ThePanel().scale[1], "<3>1Pulse= 0.015mm");

    const auto before = MainPanel(ThePanel());
    for (const int axis : {-1, 0, 3, 4}) {
        ShowUnitScaleOfAxis(axis);
    }
    DevSetting[1].DevPPR = 0;
    ShowUnitScale();
    AxisOff.fill(kSet);
    ShowUnitScale();
    EXPECT_EQ(ThePanel(), before);
}

TEST_F(AxisUnits, HeadsOfThePositionColumns) {
    DispMmFlag = kSet;
    Change_DispUnit();
    EXPECT_EQ(ThePanel().posiHeader[0], "Posi1(mm)");
    DispMmFlag = kClear;
    Change_DispUnit();
    EXPECT_EQ(ThePanel().posiHeader[3], "Posi4(pls)");
}

TEST_F(AxisUnits, AxisTexts) {
    SetPanelText(&MainPanel::lblDeviceType, 0, "what stood there");
    ShowAxisDevices();
    EXPECT_EQ(ThePanel().axisHeader[0], "AXIS 1:************");
    EXPECT_EQ(ThePanel().lblDeviceType[0], "");
    EXPECT_EQ(ThePanel().axisHeader[1], "AXIS 2:QD- 44L-100_ ");
    EXPECT_EQ(ThePanel().lblDeviceType[1], "QD- 44L-100_ ");
    EXPECT_EQ(ThePanel().lblDeviceType[2], "QD- 61F-200  ") << "the generator is always fitted";
    EXPECT_EQ(ThePanel().axisHeader[3], "AXIS 4:************");

    // The device comes from the program's own copy, its options from the pending one.
    setDevice(DevSetting[1], " 44", "L", 50);
    setDevice(DevSettei[1], "J52", "L", 100);
    DevSetting[1].NewType = kClear;
    DevSettei[1].WithPG = kSet;
    DevSettei[1].Vertical = kSet;
    ShowAxisDevices();
    EXPECT_EQ(ThePanel().axisHeader[1], "AXIS 2:QD- 44L- 50EV(Old)");
    EXPECT_EQ(ThePanel().lblDeviceType[1], "QD- 44L- 50EV");
    DevSettei[1].Vertical = kClear;
    ShowAxisDevices();
    EXPECT_EQ(ThePanel().lblDeviceType[1], "QD- 44L- 50E_");
}

TEST_F(AxisUnits, AnUnknownDeviceTakesTheMarksOfTheAxisBefore) {
    DevSetting[1].NewType = kClear;
    DevSettei[1].WithPG = kSet;
    DevSettei[1].Vertical = kSet;
    DevSetting[2].DevStroke = 123;
    ShowAxisDevices();
    EXPECT_EQ(ThePanel().lblDeviceType[2], "QD- 61F-123EV");
    DevSetting[1].DevStroke = 123;
    ShowAxisDevices();
    EXPECT_EQ(ThePanel().lblDeviceType[1], "QD- 44L-123  ") << "no axis before: blank";
}

TEST_F(AxisUnits, AForeignFamilyEndsTheTexts) {
    ShowAxisDevices();
    const auto before = MainPanel(ThePanel());
    DevSetting[1].Device = kClear;
    DevSetting[2].DevSpeed = "L";
    AxisOff[3] = kClear;
    ShowAxisDevices();
    EXPECT_EQ(ThePanel(), before);
}

TEST_F(AxisUnits, AMissingListIsToldByEachLookup) {
    removeList();
    for (int i = 0; i < 4; ++i) {
        platform.expectBox(kNoList);
    }
    ShowAxisDevices();
    EXPECT_EQ(ThePanel().lblDeviceType[1], "QD- 44L-100  ");
}

} // namespace
} // namespace qdw8::test
