// Pulses, millimetres and stroke ends, the scale texts and the axis texts.

#include "app/main_panel.h"
#include "app/number_forms.h"
#include "device/Module2Calc.h"
#include "device/axis_texts.h"
#include "device_bench.h"
#include "platform/fault.h"

#include <map>
#include <utility>

namespace qdw8::test {
namespace {

using Figure = double (*)(std::int16_t lead, std::int16_t ppr, double value);
const std::map<std::string, Figure> kFigures{
    {"PulseToMm", PulseToMm},
    {"MmToPulse", MmToPulse},
    {"SnapDown", [](auto lead, auto ppr, auto mm) { return SnapMmToPulse(lead, 0, ppr, mm); }},
    {"SnapUp", [](auto lead, auto ppr, auto mm) { return SnapMmToPulse(lead, 1, ppr, mm); }},
    {"SnapSeven", [](auto lead, auto ppr, auto mm) { return SnapMmToPulse(lead, 7, ppr, mm); }},
    {"MaxPulseOf", [](auto lead, auto ppr, auto stroke) {
         return MaxPulseOf(static_cast<std::int16_t>(stroke), lead, ppr);
     }}};

TEST(Units, Figures) {
    ForEachRow("units", [](DeviceBench&, const auto& row) {
        const auto result = [&] {
            return kFigures.at(row[0])(Number(row[1]), Number(row[2]), std::stod(row[3]));
        };
        if (row[4] == "!") {
            EXPECT_THROW(result(), Fault);
        } else {
            EXPECT_DOUBLE_EQ(result(), std::stod(row[4]));
        }
    });
}

TEST(Units, EveryPulseComesBackFromItsMillimetres) {
    for (const auto& [lead, ppr] : std::vector<std::pair<std::int16_t, std::int16_t>>{
             {2, 400}, {6, 400}, {8, 400}, {8, 192}, {20, 32767}}) {
        for (int pulse = -20; pulse < 100000; pulse += pulse < 5000 ? 1 : 37) {
            const double mm = PulseToMm(lead, ppr, pulse);
            ASSERT_EQ(MmToPulse(lead, ppr, mm), pulse) << lead << "/" << ppr;
            for (std::int16_t roundUp = 0; roundUp < 2 && pulse >= 0; ++roundUp) {
                const double snapped = SnapMmToPulse(lead, roundUp, ppr, mm);
                ASSERT_EQ(MmToPulse(lead, ppr, snapped), pulse) << lead << "/" << ppr;
            }
        }
    }
}

TEST(Units, WhatIsShownOfAnAxis) {
    ForEachRow("axes", [](DeviceBench& bench, const auto& row) {
        bench.useList(row[0]);
        AxisOff = {kSet, kClear, kClear, kSet};
        DevSetting[1] = MadeOf(row[1], row[2]);
        DevSetting[1].DevLead = Number(row[3]);
        DevSetting[1].DevPPR = Number(row[4]);
        DevSetting[0] = DevSetting[3] = DevSetting[1];
        DevSettei[1] = MadeOf("J52L100", row[5]);
        DevSetting[2] = MadeOf(" 61F200", "QN");
        DevSetting[0].MaxPulse = 77;
        DevSetting[0].MaxStrokeMm = 7.7;
        const MainPanel& panel = ThePanel();
        SetPanelText(&MainPanel::lblDeviceType, 0, "what stood there");
        ShowAxisDevices();
        EXPECT_EQ(bench.boxes() + panel.axisHeader[1] + ";" + panel.lblDeviceType[1] + ";" +
                      panel.lblDeviceType[2],
                  row[6]);
        EXPECT_EQ(panel.axisHeader[0] + panel.lblDeviceType[0], "AXIS 1:************");
        SetPanelScale("", "");
        ShowUnitScale();
        for (const int axis : {-1, 0, 2, 3, 4}) {
            ShowUnitScaleOfAxis(axis); // none or out of use; 2 has no lead
        }
        EXPECT_EQ(panel.scale[0] + panel.scale[1], row[7]);
        EXPECT_THROW(Culc_MaxPulse(), Fault) << "at the axis without a lead";
        EXPECT_THROW(CalcMaxStrokeMm(), Fault);
        EXPECT_EQ(std::to_string(DevSetting[1].MaxPulse) + " " +
                      PlainDecimal(DevSetting[1].MaxStrokeMm),
                  row[8]);
        EXPECT_EQ(DevSetting[0].MaxPulse, 0);
        EXPECT_EQ(DevSetting[0].MaxStrokeMm, 7.7) << "left as it stands";
    });
}

} // namespace
} // namespace qdw8::test
