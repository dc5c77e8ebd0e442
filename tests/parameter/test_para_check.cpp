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
    ParaSet.Actuator[3].clear();
    EXPECT_EQ(ParametaValueCheck() + ParametaValueCheck2(), 2) << "whatever its parts say";
    AxisOff.fill(kSet);
    ParaSet = ParameterSet{};
    EXPECT_EQ(ParametaValueCheck(), 1) << "the common items count without any axis";
    EXPECT_EQ(ParametaValueCheck2(), 0);
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
