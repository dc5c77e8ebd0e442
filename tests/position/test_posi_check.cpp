#include "position/posi_check.h"

#include "position/check_result.h"
#include "position/flex_grid.h"
#include "position/grid_display.h"
#include "position/posi_file.h"
#include "position_fixture.h"

namespace qdw8::test {
namespace {

constexpr int kAxis4 = 12; // first table column of AXIS 4

const std::string kNoData =
    "There is no position data.\r\nPlease try again after perform [New Data] or [Read from C/T] "
    "and then editing data. ";

struct CellCase {
    int column;
    const char* text;
    bool mm;
    bool passes;
};

class CellLimits : public PositionTest, public testing::WithParamInterface<CellCase> {};

TEST_P(CellLimits, DecideOverTheRow) {
    const CellCase& given = GetParam();
    DispMmFlag = FlagOf(given.mm);
    showRows(1, 3);
    type(2, given.column, given.text);
    if (!given.passes) {
        platform.expectScreen("frmSyogoKekka", [&] {
            const auto rows = ResultRows();
            ASSERT_EQ(rows.size(), 1U);
            EXPECT_EQ(rows[0].position, 2);
            EXPECT_EQ(rows[0].failed.count(), 1U);
            EXPECT_TRUE(rows[0].failed.test(static_cast<std::size_t>(given.column)));
            EXPECT_EQ(SyogoMode, 0);
            EXPECT_EQ(PosiErrorCount, 1);
        });
    }
    EXPECT_EQ(PosiDataCheck3(), given.passes ? 0 : 1);
    EXPECT_EQ(PosiErrorCount, 0);
    EXPECT_TRUE(ResultRows().empty());
    EXPECT_EQ(PosiRowError[1], given.passes ? kClear : kSet);
}

INSTANTIATE_TEST_SUITE_P(
    Table, CellLimits,
    testing::Values(CellCase{kVel, "1", false, true}, CellCase{kVel, "60", false, true},
                    CellCase{kVel, "0", false, false}, CellCase{kVel, "61", false, false},
                    CellCase{kVel, " ", false, false}, CellCase{kAcc, "3", false, true},
                    CellCase{kAcc, "4", false, false}, CellCase{kAcc, "0", false, false},
                    CellCase{kAxis4 + kAcc, "2", false, true},
                    CellCase{kAxis4 + kAcc, "3", false, false}, CellCase{kWay, "3", false, true},
                    CellCase{kWay, "4", false, false}, CellCase{kWay, " ", false, true},
                    CellCase{kItpl, "1", false, true}, CellCase{kItpl, "2", false, false},
                    CellCase{kOut, "3", false, true}, CellCase{kOut, "4", false, false},
                    CellCase{kSm, "20", false, true}, CellCase{kSm, "21", false, false},
                    CellCase{kSm, "-1", false, false}, CellCase{kPosi, "262143", false, true},
                    CellCase{kPosi, "262144", false, false}, CellCase{kPosi, "-1", false, false},
                    CellCase{kPosi, "100.4", true, true}, CellCase{kPosi, "100.6", true, false},
                    CellCase{kAxis4 + kPosi, "200.4", true, true}));

TEST_F(PositionTest, AnEmptyCellFailsWhereItsAxisIsInUse) {
    showRows(1, 2);
    for (int column = 4; column < 12; ++column) { // AXIS 2 and AXIS 3 are out of use
        type(1, column, "");
    }
    EXPECT_EQ(PosiDataCheck3(), 0);
    EXPECT_EQ(PosiTable[1].number[4], 30);
    EXPECT_EQ(PosiTable[1].number[5], 3);
    EXPECT_EQ(PosiTable[1].number[6], 0);
    EXPECT_EQ(PosiTable[1].number[7], 0);

    type(1, kOut, "");
    platform.expectScreen("frmSyogoKekka", [] { EXPECT_TRUE(ResultRows()[0].failed.test(kOut)); });
    EXPECT_EQ(PosiDataCheck3(), 1);
}

TEST_F(PositionTest, OneBadCellKeepsTheWholeRangeOutOfTheTable) {
    showRows(1, 3);
    type(1, kVel, "10");
    type(3, kWay, "9");
    platform.expectScreen("frmSyogoKekka");
    EXPECT_EQ(PosiDataCheck3(), 1);
    EXPECT_EQ(PosiTable[1].number[kVel], 30);

    PosiLast = 2; // the bad row is outside the range now
    EXPECT_EQ(PosiDataCheck3(), 0);
    EXPECT_EQ(PosiTable[1].number[kVel], 10);
}

TEST_F(PositionTest, TheViewDecidesWhichFormIsTheMaster) {
    showRows(1, 1);
    type(1, kPosi, "123");
    EXPECT_EQ(PosiDataCheck3(), 0);
    EXPECT_EQ(PosiTable[1].number[kPosi], 123);
    EXPECT_DOUBLE_EQ(PosiUnitTable[1].mm[0], 0.615);

    DispMmFlag = kSet;
    QdDataHyoji_3();
    EXPECT_EQ(cell(1, kPosi), "  0.615");
    type(1, kPosi, "12.505");
    EXPECT_EQ(PosiDataCheck3(), 0);
    EXPECT_EQ(PosiTable[1].number[kPosi], 2501);
    EXPECT_EQ(PosiUnitTable[1].mm[0], 12.505);
}

TEST_F(PositionTest, ANumberTooWideEndsTheCheckWithNothingCommitted) {
    showRows(1, 2);
    type(1, kVel, "10");
    type(2, kVel, "99999");
    EXPECT_EQ(PosiDataCheck3(), 0);
    EXPECT_EQ(PosiTable[1].number[kVel], 30);
    EXPECT_FALSE(flgdData().locked);
    EXPECT_EQ(flgdData().frozen, 0);
}

TEST_F(PositionTest, ATableThatDidNotTakeTheGridIsNeitherSavedNorShown) {
    showRows(1, 2);
    type(1, kVel, "10");
    type(2, kVel, "99999");
    platform.expectBox("An error occured in saving data.");
    EXPECT_FALSE(TableTakesGrid(422));
    EXPECT_EQ(CheckFaultedFlag, kSet);
    PosiFileName = "never";
    PosiDirtyFlag = kSet;
    platform.expectBox("An error occured in saving data.");
    SavePosiFile();
    EXPECT_EQ(PosiDirtyFlag, kSet);
    EXPECT_EQ(SaveCancelledFlag, kSet);

    EXPECT_EQ(ChangeUnit(kSet), 1);
    EXPECT_EQ(DispMmFlag, kClear);
    EXPECT_EQ(cell(1, kVel), "10");
    type(2, kVel, "20");
    EXPECT_EQ(ChangeUnit(kSet), 0);
    EXPECT_EQ(CheckFaultedFlag, kClear);
    EXPECT_EQ(cell(1, kPosi), "  0.000");
    EXPECT_EQ(cell(2, kVel), "20");
}

TEST_F(PositionTest, AGridWithoutRowsHoldsNoData) {
    GridFirst = 1;
    GridLast = 5;
    EXPECT_EQ(PosiDataCheck3(), 2);
    EXPECT_EQ(GridFirst, 0);
    EXPECT_EQ(GridLast, 0);
    platform.expectBox(kNoData);
    EXPECT_EQ(Check_flgdLineNo(), 1);
}

TEST_F(PositionTest, NoRowIsTakenThatTheGridDoesNotShow) {
    showRows(5, 7);
    EXPECT_EQ(Check_flgdLineNo(), 0);
    GridFirst = PosiFirst = 1; // as a read leaves it that was refused half-way
    GridLast = PosiLast = 3;
    platform.expectBox(kNoData);
    EXPECT_EQ(Check_flgdLineNo(), 1);
    platform.expectBox(kNoData);
    EXPECT_EQ(PosiDataCheck3(), 1);
    EXPECT_FALSE(PosiTable[1].comment == "x");
}

TEST_F(PositionTest, TheGridShowsTheRowsOfItsRange) {
    ClearPosiTable();
    PosiTable[6].number[kVel] = 12;
    PosiTable[6].number[kSm] = 20;
    PosiTable[6].comment = "pick";
    PosiTable[6].number[4] = 7; // AXIS 2 is out of use and shows its fixed values
    PosiUnitTable[6].pulse = {12500, 99, 99, 4799};
    GridFirst = 5;
    GridLast = 7;
    QdDataHyoji_3();
    ASSERT_EQ(flgdData().rows.size(), 5U);
    EXPECT_EQ(GridText(2, 0), "5");
    EXPECT_EQ(GridText(4, 0), "7");
    const std::vector<std::string> shown{"12", "3",    "0", "12500", "30", "3",   "0",
                                         "0",  "30",   "3", "0",     "0",  "30",  "2",
                                         "0",  "4799", "0", "0",     "20", "pick"};
    for (std::size_t column = 0; column < shown.size(); ++column) {
        EXPECT_EQ(cell(6, static_cast<int>(column)), shown[column]) << column;
    }
    EXPECT_EQ(flgdData().rows[3].colour[1], CellColour::Window);
    EXPECT_EQ(flgdData().rows[3].colour[5], CellColour::OffAxis);
    EXPECT_EQ(flgdData().rows[3].colour[13], CellColour::Band);
    EXPECT_EQ(flgdData().rows[3].colour[17], CellColour::Window);
    EXPECT_FALSE(flgdData().locked);

    DispMmFlag = kSet;
    PosiFirst = 5;
    PosiLast = 7;
    ConvertTableToMm();
    QdDataHyoji_3();
    EXPECT_EQ(cell(6, kPosi), " 62.500");
    EXPECT_EQ(cell(6, kAxis4 + kPosi), "199.958");
    EXPECT_EQ(cell(6, 4 + kPosi), "  0.000");
    EXPECT_EQ(GridHead(1, 4), "Posi1(mm)");
    EXPECT_EQ(GridHead(1, 17), "ITPL");
    EXPECT_EQ(GridHead(1, 20), "COMMENT");
    EXPECT_EQ(GridHead(0, 17), "Common");
}

} // namespace
} // namespace qdw8::test
