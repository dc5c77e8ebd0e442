// The lists that lie beside the program: a list that breaks a limit is refused as a whole when the
// program starts, or worse, is shown wrongly beside a machine.

#include "device/Module2Calc.h"
#include "device/axis_device.h"
#include "device/device_list.h"
#include "parameter/factory_lists.h"
#include "parameter/para_check.h"
#include "parameter/para_rows.h"
#include "parameter/para_set.h"
#include "platform/cp932_text.h"
#include "platform/whole_file.h"
#include "support/bench.h"
#include "support/story.h"

#include <algorithm>
#include <map>
#include <regex>
#include <set>
#include <sstream>

namespace qdw8::test {
namespace {

std::string ListText(const std::string& name) {
    return ReadWholeFile(QDW8_SOURCE_DIR "/data/" + name);
}

/// The rows of an error list by code, in the order of the file as they must be: rising.
std::map<std::string, std::string> AlarmsOf(const std::string& text) {
    std::map<std::string, std::string> alarms;
    std::set<std::string> messages;
    // The count is looked at as if it were the code of a row without a message: it must not look
    // like the code of any alarm. The controller sends capital letters, and codes are compared as
    // they stand.
    static const std::regex whole("([03-9]\\d?)\r\n(\"[12][0-9A-F]\",\"[^\"\r\n?]+\"\r\n)+");
    std::smatch count;
    EXPECT_TRUE(std::regex_match(text, count, whole)) << text;
    static const std::regex row("\"(..)\",\"(.*)\"\r\n");
    for (std::sregex_iterator at(text.begin(), text.end(), row), end; at != end; ++at) {
        EXPECT_TRUE(alarms.empty() || alarms.rbegin()->first < (*at)[1]) << (*at)[1] << " again";
        EXPECT_TRUE(messages.insert((*at)[2]).second) << (*at)[2] << " again";
        alarms[(*at)[1]] = (*at)[2];
    }
    EXPECT_EQ(std::stoul(count[1]), alarms.size());
    EXPECT_LE(alarms.size(), 40U);
    return alarms;
}

TEST(ErrorLists, HoldTheSameAlarmsInBothLanguages) {
    const std::string english = ListText("erroreng.lst");
    EXPECT_TRUE(std::regex_match(english, std::regex("[ -~\r\n]*"))) << "plain ASCII";
    const auto alarms = AlarmsOf(english);
    auto japanese = AlarmsOf(FromCp932(ListText("errorjpn.lst")));
    for (const auto& [code, message] : alarms) {
        EXPECT_NE(message, japanese[code]) << code;
    }
    EXPECT_EQ(alarms.size(), japanese.size()) << "a code that one of them lacks";
    for (const auto& row : RowsOf("data/alarms.txt")) {
        EXPECT_NE(alarms.at(row[0]).find(row[1]), std::string::npos) << row[0];
        EXPECT_NE(japanese[row[0]].find(row[2]), std::string::npos) << row[0];
    }
}

TEST(DeviceLists, HoldEveryModelInItsLengthsAndNothingElse) {
    std::istringstream models(ReadWholeFile(QDW8_SOURCE_DIR "/tests/data/models.txt"));
    std::string name, options, newItems, oldItems, devices, newTypes, oldTypes;
    int longest = 0, count = 0, oldCount = 0;
    std::int16_t lead = 0, ppr = 0;
    for (std::string remark; models.peek() == '#';) {
        std::getline(models, remark);
    }
    while (models >> name >> longest >> lead >> ppr >> options >> newItems >> oldItems) {
        std::replace(name.begin(), name.end(), '_', ' ');
        for (std::int16_t stroke = 50; stroke <= longest; stroke += 50, ++count) {
            const std::string mm = (stroke < 100 ? "0" : "") + std::to_string(stroke);
            const std::string key = "\"" + name + "-" + mm + "\",";
            const std::string turn = "," + std::to_string(lead) + "," + std::to_string(ppr) + ",";
            const int end = static_cast<int>(MaxPulseOf(stroke, lead, ppr));
            const std::string rest =
                ",5,3,1," + std::to_string(end) + turn + "15,0,\"" + name + mm + "\"\r\n";
            devices += key + turn.substr(1) + options + "\r\n";
            newTypes += key + newItems + rest;
            if (oldItems != "-") {
                oldTypes += key + oldItems + rest;
                ++oldCount;
            }
        }
    }
    const std::string head = "\"QD-K8\",\"QD-STDPRM\"\r\n";
    EXPECT_EQ(ListText("nqddevice.lst"), std::to_string(count) + "\r\n" + devices);
    EXPECT_EQ(ListText("w8nqdstpr.lst"), head + std::to_string(count) + ",13\r\n" + newTypes);
    EXPECT_EQ(ListText("w8qdstpr.lst"), head + std::to_string(oldCount) + ",13\r\n" + oldTypes);
    EXPECT_EQ(count, 78);
}

TEST(FactoryLists, GiveEveryDeviceOfEveryKindItsParameters) {
    const Bench bench;
    ASSERT_EQ(LoadDeviceList(), 0);
    AxisOff = {kClear, kSet, kSet, kSet};
    for (const DeviceListRow& row : DeviceListTables[0].rows) {
        for (int kind = 0; kind < 8; ++kind) {
            const bool newType = (kind & 1) != 0;
            const bool withPg = (kind & 2) != 0;
            const bool vertical = (kind & 4) != 0;
            if ((newType ? !vertical : ExistsOnlyAsNew(row.size)) ||
                (row.pgOption != kOptionChoice && withPg != (row.pgOption == kOptionFitted))) {
                continue; // can't be chosen
            }
            SCOPED_TRACE(row.size + row.speed + std::to_string(row.stroke) + " " +
                         std::to_string(kind));
            DevSettei[0] = {row.size,        row.speed,      row.stroke,
                            FlagOf(newType), FlagOf(withPg), FlagOf(vertical)};
            ParaSet = ParameterSet{};
            EXPECT_EQ(LoadFactoryParameters() + ParametaValueCheck() + ParametaValueCheck2(), 0);
            EXPECT_EQ(ParaSet.parts[0], (ActuatorParts{row.size, row.speed, row.stroke}));
            EXPECT_EQ(ParaSet.TYPE[0], vertical ? 1 : 0);
            std::string common;
            for (std::size_t item = kRowFUNCTION; item <= kRowSTOP_PAUSE; ++item) {
                const ParaItem& of = ItemOfRow(static_cast<ParaRow>(item));
                common += " " + std::to_string(static_cast<int>(ParaValue(ParaSet, of, 0)));
            }
            EXPECT_EQ(common,
                      std::string(withPg ? " 2" : " 0") + " 400 0 1 1 0 50 1 0 10 30 1 0 0");
        }
    }
    const std::regex lines("([ -~]*\r\n)+");
    EXPECT_TRUE(std::regex_match(ListText("w8cmstpr.lst"), lines)) << "plain ASCII lines";
}

} // namespace
} // namespace qdw8::test
