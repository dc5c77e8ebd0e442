#include "parameter/para_check.h"

#include "parameter/para_rows.h"
#include "parameter/para_verify.h"
#include "parameter/parameter_bench.h"

#include <sstream>

namespace qdw8::test {
namespace {

TEST_F(ParameterTest, EveryItemIsHeldToItsLimitsOnEveryAxis) {
    std::istringstream table(ReadWholeFile(kHere + "limits.txt"));
    std::string head;
    std::getline(table, head);
    std::size_t rows = 0;
    int row = 0;
    double low = 0;
    double high = 0;
    for (char device = 0; table >> row >> low >> high >> device; ++rows) {
        const ParaItem& item = ItemOfRow(static_cast<ParaRow>(row));
        for (std::size_t axis = 0; axis < (item.perAxis() ? kAxes : 1); ++axis) {
            SCOPED_TRACE("row " + std::to_string(row) + " axis " + std::to_string(axis));
            for (const double good : {low, high}) {
                SetParaValue(ParaSet, item, axis, good);
                EXPECT_EQ(ParametaValueCheck(), 0) << good;
            }
            for (const double bad : {low - 1, high + 1}) {
                SetParaValue(ParaSet, item, axis, bad);
                EXPECT_EQ(ParametaValueCheck(), 1) << bad;
                EXPECT_EQ(ParametaValueCheck2(), device == 'D' ? 1 : 0) << bad;
                AxisOff[axis] = kSet;
                EXPECT_EQ(ParametaValueCheck(), item.perAxis() ? 0 : 1);
                AxisOff[axis] = kClear;
            }
            SetParaValue(ParaSet, item, axis, low);
        }
    }
    EXPECT_EQ(rows + 1, ParaItems().size()) << "all but the acceleration setting";
    ParaSet.ACC_DCC = 32767;
    EXPECT_EQ(ParametaValueCheck(), 0) << "which is never looked at";
    AxisOff.fill(kSet);
    ParaSet = ParameterSet{};
    EXPECT_EQ(ParametaValueCheck(), 1) << "the common items count without any axis";
    EXPECT_EQ(ParametaValueCheck2(), 0);
}

TEST_F(ParameterTest, TheActuatorNeedsAllItsParts) {
    const ActuatorParts good{" 44", "L", 500};
    for (const auto& parts : std::vector<ActuatorParts>{
             good, {"44", "L", 50}, {" 44", "", 50}, {" 44", "L", 501}, {" 44", "L", -1}}) {
        for (const char* text : {"J52L050", ""}) {
            ParaSet.parts[3] = parts;
            ParaSet.Actuator[3] = text;
            const int bad = parts == good && *text != '\0' ? 0 : 1;
            EXPECT_EQ(ParametaValueCheck(), bad) << parts.stroke;
            EXPECT_EQ(ParametaValueCheck2(), bad) << parts.stroke;
        }
    }
    EXPECT_EQ(BuildActuator({" 44", "L", 50}), " 44L050");
    EXPECT_EQ(BuildActuator({" 44", "L", 1000}), " 44LX");
    EXPECT_EQ(ParseActuator("J52L050"), (ActuatorParts{"J52", "L", 50}));
    EXPECT_EQ(ParseActuator("44H100"), (ActuatorParts{" 44", "H", 100})) << "its blank was lost";
    EXPECT_EQ(ParseActuator(" 44 100"), (ActuatorParts{" 44", "", 100}));
    EXPECT_EQ(ParseActuator("44HX"), (ActuatorParts{" 44", "H", 0}));
}

// verify.txt: the report, without its line ends, when an item differs on every axis, AXIS 3 being
// out of use, by the item's row; and when all do.
TEST_F(ParameterTest, AVerifyNamesEachDifference) {
    AxisOff[2] = kSet;
    platform.recordsBoxes = true;
    std::string reports;
    const auto report = [&](const std::string& name) {
        CompareParaSet();
        ShowParaReport();
        std::string text = platform.boxes.back();
        std::erase_if(text, [](char sign) { return sign == '\r' || sign == '\n'; });
        reports += name + " " + text + "\n";
    };
    ParaRows all;
    for (std::size_t row = kRowOFFSET; row <= kRowACC_DCC; ++row) {
        FillRowTable("x");
        for (std::size_t column = 0; column < kAxes; ++column) {
            all.at(column, row) = ParaRowTable.at(column, row) = "no such value";
        }
        report(std::to_string(row));
    }
    ParaRowTable = all;
    report("all");
    EXPECT_EQ(reports, ReadWholeFile(kHere + "verify.txt"));
    FillRowTable("x");
    ParaRowTable.at(1, kRowActuator) = "44L050"; // its blank was lost
    EXPECT_FALSE(CompareParaSet());
    ParaRowTable.at(0, kRowPUSH) = ParaSet.PUSH[0] + 0.5;
    EXPECT_TRUE(CompareParaSet());
}

} // namespace
} // namespace qdw8::test
