// The devices as they come from the stored settings and from the controller, and as they go into
// the store.

#include "device/controller_device.h"
#include "device/device_settings.h"
#include "device_bench.h"

namespace qdw8::test {
namespace {

TEST(DeviceSettings, AreReadAndWrittenForTheFirstAxisAndTheLast) {
    for (const std::size_t axis : {0U, 3U}) {
        ForEachRow("settings", [&](DeviceBench& bench, const auto& row) {
            for (const std::string& setting : Parts(row[1], ';')) {
                const auto keyAndValue = Parts(setting, '=');
                bench.platform.settings[keyAndValue[0] + std::to_string(axis + 1)] =
                    keyAndValue.back();
            }
            bench.useList(row[0]);
            if (row.size() > 4) {
                DevSetting[axis] = MadeOf(row[4], "");
            }
            AxisOff.fill(kSet); // axes out of use are read as well
            const auto told = [&](int result) {
                return std::to_string(result) + bench.boxes() + TextOf(DevSetting[axis]) + " " +
                       FamilyText[axis] + " " + FileNewOld[axis];
            };
            EXPECT_EQ(told(ReadDeviceSettings()), row[2]);
            EXPECT_EQ(TextOf(DevSettei[axis]), row[3]);
            EXPECT_EQ(TextOf(DevSetting[1]), " 44L100 2/400 QNV") << "the others are complete";
            if (row[1].find("DevPPR") == std::string::npos && row[2].starts_with('0')) {
                AxisOff[axis] = kClear; // and those in use are stored so that they come back
                bench.platform.settings.clear();
                WriteDeviceSettings();
                EXPECT_EQ(bench.platform.settings.size(), 8U);
                FileNewOld[axis] = row[2].substr(row[2].size() - 3);
                EXPECT_EQ(told(ReadDeviceSettings()), row[2]);
            }
        });
    }
}

TEST(Controller, TellsTheDeviceOfAnAxisWhateverStoodThere) {
    ForEachRow("controller", [](DeviceBench& bench, const auto& row) {
        AxisOff = {kClear, kSet, kClear, kSet};
        CtDevice.fill({1, 2, 400, 0, 2000, " 52", "L", 10});
        CtDevice[2] = {Number(row[0]), Number(row[4]),    std::stoi(row[5]),
                       Number(row[7]), std::stoi(row[6]), row[1],
                       row[2],         Number(row[3])};
        DevSetting.fill(MadeOf("J52F50", row[8]));
        DevSettei = DevSetting;
        FamilyText.fill("HN");
        const auto told = [&](int result) {
            return std::to_string(result) + bench.boxes() + TextOf(DevSetting[2]) + " " +
                   std::to_string(DevSetting[2].MaxPulse) + " " + FamilyText[2] + "; " +
                   TextOf(DevSettei[2]) + "; " + TextOf(DevSetting[0]);
        };
        EXPECT_EQ(told(TakeControllerFlags()), row[9]);
        EXPECT_EQ(told(TakeControllerDevices()), row[10]);
        EXPECT_EQ(TextOf(DevSetting[3]) + FamilyText[3], "J52F50 0/0 " + row[8] + "HN");
    });
}

} // namespace
} // namespace qdw8::test
