// The device list file: what is read of it, what the lookups find, and what a bad file leaves.
// Names and codes of devices.

#include "device/device_list.h"
#include "device/device_name.h"
#include "device_bench.h"

#include <numeric>
#include <regex>

namespace qdw8::test {
namespace {

/// Number of records, the first of them, sizes, speeds.
std::string ListText(const DeviceListTable& table) {
    std::string text = std::to_string(table.rows.size());
    if (!table.rows.empty()) {
        const DeviceListRow& row = table.rows[0];
        text += " " + row.size + row.speed;
        for (const int number : {row.stroke, row.lead, row.ppr, row.pgOption, row.verticalOption}) {
            text += " " + std::to_string(number);
        }
    }
    return std::accumulate(table.speeds.begin(), table.speeds.end(),
                           std::accumulate(table.sizes.begin(), table.sizes.end(), text + "/") +
                               "/");
}

TEST(DeviceList, LoadsAndLookups) {
    ForEachRow("lists", [](DeviceBench& bench, const auto& row) {
        const auto told = [&](int result, const DeviceListTable& table) {
            std::string text = std::to_string(result) + bench.boxes() + " ";
            for (const Flag failed : DeviceListFailed) {
                text += IsSet(failed) ? "-" : "+";
            }
            return text + " " + ListText(table);
        };
        EXPECT_EQ(LoadDeviceList(), 0);
        bench.useList(row[0]);
        EXPECT_EQ(told(LoadDeviceListAxis(1), DeviceListTables[1]), row[3]);
        EXPECT_EQ(ListText(DeviceListTables[0]).substr(0, 1), "6") << "has a table of its own";
        DeviceListFailed.fill(kSet);
        EXPECT_EQ(told(LoadDeviceListSizes(), DeviceListTables[0]), row[4]);
        DeviceListFailed.fill(kClear);
        EXPECT_EQ(told(LoadDeviceList(), DeviceListTables[3]), row[5]);
        EXPECT_EQ(ListText(DeviceListTables[0]), ListText(DeviceListTables[3]));

        FoundLeadPpr = {7, 77};
        const LeadPpr pair = GetDeviceLeadPpr(row[1], row[2], 100);
        std::string found = std::to_string(pair.lead) + "/" + std::to_string(pair.ppr);
        for (const auto ask : {FindDeviceLeadPpr, DeviceInList, PgOptionCode, VerticalOptionCode}) {
            found += " " + std::to_string(ask(row[1], row[2], 100));
        }
        found += " " + std::to_string(FoundLeadPpr.lead) + "/" + std::to_string(FoundLeadPpr.ppr);
        EXPECT_EQ(found + bench.boxes(), row[6]);
        bench.useList("models");
        EXPECT_EQ(LoadDeviceListAxis(1) + DeviceListFailed[1], 0) << "a good load clears the mark";
    });
}

TEST(DeviceName, TellsTheDeviceWhateverStoodThere) {
    for (const std::string before : {"", "QNEV"}) {
        ForEachRow("names", [&](DeviceBench& bench, const auto& row) {
            AxisOff = FileAxisOff = {kClear, kSet, kSet, kSet};
            DevSettei[0] = MadeOf(" 52H300", before);
            const AxisDevice other = DevSetting[0] = MadeOf(" 52H300", row[1] == "NEW" ? "" : "N");
            FileDevText[0] = row[0];
            FileNewOld[0] = row[1];
            FamilyText[0] = "--";
            const std::string result = std::to_string(ParseFileDevices());
            EXPECT_EQ(
                result + bench.boxes() + TextOf(DevSettei[0]) + " " + FamilyText[0],
                std::regex_replace(row[2], std::regex("\\[(.*)\\]"), before.empty() ? "" : "$1"));
            EXPECT_EQ(DevSetting[0], other) << "the other copy is not touched";
        });
    }
}

using NamesAndCodes = DeviceTest;

TEST_F(NamesAndCodes, OnlyAxesOfBothSidesAndUpToTheFirstBadName) {
    AxisOff = {kClear, kSet, kClear, kClear};
    FileAxisOff.fill(kClear);
    FileDevText = {"QD-44L-100", "QD-44L-100", "nonsense", "QD-44L-100"};
    const auto taken = [this](int result) {
        std::string text = std::to_string(result) + boxes();
        for (const AxisDevice& device : DevSettei) {
            text += device.DevStroke == 100 ? "+" : "-";
        }
        return text;
    };
    EXPECT_EQ(taken(ParseFileDevices()), "1D+---");
    FileAxisOff[2] = kSet;
    EXPECT_EQ(taken(ParseFileDevices()), "0+--+");
    EXPECT_EQ(taken(ParseFileDevice(1)), "0++-+") << "an axis that the PC begins to use";
}

TEST_F(NamesAndCodes, CodesAndWhatIsNone) {
    EXPECT_EQ(ParseDeviceCode(3, "J52L100"), 0);
    EXPECT_EQ(SplitDeviceCode(" 44H050"), 0);
    for (const char* code : {"44L100", " 44L1000"}) {
        EXPECT_EQ(ParseDeviceCode(3, code) + SplitDeviceCode(code), 2);
    }
    for (const int axis : {-1, 4}) {
        EXPECT_EQ(ParseDeviceCode(axis, " 44L100") + LoadDeviceListAxis(axis), 2);
        EXPECT_EQ(boxes(), "L");
    }
    EXPECT_EQ(CtDevice[3].Size + "," + CtDevice[3].Speed, "J52,L");
    EXPECT_EQ(CtDevice[3].Stroke, 100);
    EXPECT_EQ(CodeTexts.size + "," + CodeTexts.speed + "," + CodeTexts.stroke, " 44,H, 50");
}

} // namespace
} // namespace qdw8::test
