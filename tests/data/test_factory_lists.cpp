// The factory lists against the device list: whatever can be chosen must bring its parameters.

#include "device/Module2Calc.h"
#include "device/axis_device.h"
#include "device/device_list.h"
#include "parameter/factory_lists.h"
#include "parameter/para_check.h"
#include "parameter/para_reset.h"
#include "parameter/para_set.h"
#include "platform/whole_file.h"
#include "support/scripted_platform.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <vector>

namespace qdw8::test {
namespace {

class FactoryLists : public testing::Test {
protected:
    FactoryLists() {
        ThePlatform().programFolder = QDW8_DATA_DIR;
        ResetModule1();
        ResetDevices();
        ResetParameters();
        EXPECT_EQ(LoadDeviceList(), 0);
    }

    static const std::vector<DeviceListRow>& devices() { return DeviceListTables[0].rows; }
    static bool existsAsOld(const DeviceListRow& row) { return !ExistsOnlyAsNew(row.size); }

    ScriptedPlatform platform;
};

/// Every kind in which an actuator can be chosen.
struct Kind {
    bool newType;
    bool withPg;
    bool vertical;
};

std::vector<Kind> KindsOf(const DeviceListRow& row) {
    std::vector<Kind> kinds;
    for (const bool newType : {true, false}) {
        for (const bool withPg : {true, false}) {
            for (const bool vertical : {true, false}) {
                const bool typeFits = newType ? vertical : !ExistsOnlyAsNew(row.size);
                const bool pgFits =
                    row.pgOption == kOptionChoice || withPg == (row.pgOption == kOptionFitted);
                if (typeFits && pgFits) {
                    kinds.push_back({newType, withPg, vertical});
                }
            }
        }
    }
    return kinds;
}

TEST_F(FactoryLists, EveryDeviceOfEveryKindHasItsParameters) {
    ASSERT_EQ(devices().size(), 78U);
    AxisOff = {kClear, kSet, kSet, kSet};
    for (const DeviceListRow& row : devices()) {
        for (const Kind& kind : KindsOf(row)) {
            SCOPED_TRACE(row.size + row.speed + " " + std::to_string(row.stroke) +
                         (kind.newType ? " new" : " old") + (kind.withPg ? " PG" : "") +
                         (kind.vertical ? " V" : ""));
            AxisDevice& device = DevSettei[0];
            device.DevSize = row.size;
            device.DevSpeed = row.speed;
            device.DevStroke = row.stroke;
            device.NewType = FlagOf(kind.newType);
            device.WithPG = FlagOf(kind.withPg);
            device.Vertical = FlagOf(kind.vertical);
            ParaSet = ParameterSet{};
            ASSERT_EQ(LoadFactoryParameters(), 0);
            EXPECT_EQ(ParametaValueCheck(), 0);
            EXPECT_EQ(ParametaValueCheck2(), 0);
            EXPECT_EQ(ParaSet.parts[0], (ActuatorParts{row.size, row.speed, row.stroke}));
            EXPECT_EQ(ParaSet.Actuator[0], BuildActuator(ParaSet.parts[0]));
            EXPECT_EQ(ParaSet.LEAD[0], row.lead);
            EXPECT_EQ(ParaSet.PULSE[0], row.ppr);
            EXPECT_EQ(ParaSet.STROKE[0], MaxPulseOf(row.stroke, row.lead, row.ppr));
            EXPECT_EQ(ParaSet.TYPE[0], kind.vertical ? 1 : 0);
            EXPECT_EQ(ParaSet.FUNCTION[0] != 0, kind.withPg);
        }
    }
}

TEST_F(FactoryLists, HoldNoDeviceThatCantBeChosen) {
    DevSettei[1].NewType = kClear;
    ASSERT_EQ(ReadFactoryLists(), 0);
    for (const std::size_t axis : {0U, 1U}) {
        const bool old = axis == 1;
        const auto fits = [old](const DeviceListRow& row) { return !old || existsAsOld(row); };
        EXPECT_EQ(static_cast<std::ptrdiff_t>(FactoryDeviceTable[axis].size()),
                  std::count_if(devices().begin(), devices().end(), fits));
        std::set<std::string> names;
        for (const FactoryDevice& device : FactoryDeviceTable[axis]) {
            const std::string name = BuildActuator(device.key);
            EXPECT_TRUE(names.insert(name).second) << name << " stands twice";
            EXPECT_TRUE(std::any_of(devices().begin(), devices().end(), [&](const auto& row) {
                return fits(row) && name == BuildActuator({row.size, row.speed, row.stroke});
            })) << name;
        }
    }
}

TEST_F(FactoryLists, AreLinesOfPlainAsciiWithCrLf) {
    for (const char* name : {"w8nqdstpr.lst", "w8qdstpr.lst", "w8cmstpr.lst"}) {
        const std::string text = ReadWholeFile(std::string(QDW8_DATA_DIR) + "/" + name);
        EXPECT_TRUE(text.starts_with("\"QD-K8\",\"QD-")) << name;
        EXPECT_TRUE(text.ends_with("\r\n")) << name;
        char before = '\0';
        for (const char c : text) {
            ASSERT_EQ(before == '\r', c == '\n') << name;
            ASSERT_TRUE(c == '\r' || c == '\n' || (c >= ' ' && c < 0x7F)) << name;
            before = c;
        }
    }
}

} // namespace
} // namespace qdw8::test
