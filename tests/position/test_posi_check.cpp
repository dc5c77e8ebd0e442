#include "position/posi_check.h"

#include "position_bench.h"

namespace qdw8::test {
namespace {

TEST_F(PositionTest, AnEmptyCellFailsWhereItsAxisIsInUse) {
    showRows(1, 2);
    for (int column = 4; column < 12; ++column) { // AXIS 2 and AXIS 3 are out of use
        type(1, column, "");
    }
    EXPECT_EQ(PosiDataCheck3(), PosiCheck::Committed);
    EXPECT_EQ(cell(1, 4) + cell(1, 5) + cell(1, 6) + cell(1, 7), "30300");
    EXPECT_EQ(PosiTable[1].number[4] + PosiTable[1].number[5], 33);
    type(1, kOut, "");
    platform.expectScreen("frmSyogoKekka", [] {
        EXPECT_TRUE(ResultRows()[0].failed.test(kOut));
        EXPECT_EQ(SyogoMode, 0);
        EXPECT_EQ(PosiErrorCount, 1);
    });
    EXPECT_EQ(PosiDataCheck3(), PosiCheck::Refused);
    EXPECT_EQ(PosiErrorCount, 0);
    EXPECT_TRUE(ResultRows().empty());
}

TEST_F(PositionTest, OneBadCellKeepsTheWholeRangeOutOfTheTable) {
    showRows(1, 3);
    type(1, kVel, "10");
    type(3, kWay, "9");
    flgdData_RowColChange(4, 3, 3, 2);
    platform.expectScreen("frmSyogoKekka");
    EXPECT_EQ(PosiDataCheck3(), PosiCheck::Refused);
    EXPECT_EQ(PosiTable[1].number[kVel], 30);
    PosiLast = 2; // the bad row is outside the range now
    EXPECT_EQ(PosiDataCheck3(), PosiCheck::Committed);
    EXPECT_EQ(PosiTable[1].number[kVel], 10);
    const FlexGrid& grid = flgdData();
    EXPECT_EQ((std::array{grid.row, grid.col, grid.rowSel, grid.colSel}), (std::array{4, 3, 3, 2}));
    EXPECT_EQ(grid.locked + grid.frozen, 0);
}

TEST_F(PositionTest, ACheckThatFaultsCommitsNothingAndIsTold) {
    showRows(1, 2);
    type(1, kVel, "10");
    DevSetting[3].DevPPR = 0; // no figures to convert by
    EXPECT_EQ(PosiDataCheck3(), PosiCheck::Faulted);
    EXPECT_EQ(PosiTable[1].number[kVel], 30);
    EXPECT_EQ(flgdData().locked + flgdData().frozen, 0);
    platform.expectBox(box::kSaveError);
    EXPECT_FALSE(TableTakesGrid(422));
    EXPECT_EQ(ChangeUnit(kSet), 1);
    EXPECT_EQ(DispMmFlag, kClear);
    DevSetting[3].DevPPR = 192;
    type(2, kVel, "99999"); // wider than the number of a cell
    EXPECT_EQ(PosiDataCheck3(), PosiCheck::Faulted);
}

TEST_F(PositionTest, TheUnitChangesWithTheWholeGrid) {
    showRows(1, 3);
    type(3, kPosi, "123");
    PosiLast = 1;
    GoToCell(4, 4);
    EXPECT_EQ(ChangeUnit(kSet), 0);
    EXPECT_EQ(cell(3, kPosi), "  0.615");
    EXPECT_EQ(GridHead(1, 4), "Posi1(mm)");
    EXPECT_EQ(flgdData().row, 4) << "the user's place stays";
    type(2, kWay, "9");
    platform.expectScreen("frmSyogoKekka");
    EXPECT_EQ(ChangeUnit(kClear), 1);
    EXPECT_EQ(DispMmFlag, kSet);
}

TEST_F(PositionTest, NoRowIsTakenThatTheGridDoesNotShow) {
    showRows(5, 7);
    EXPECT_EQ(Check_flgdLineNo(), 0);
    GridFirst = PosiFirst = 1;
    GridLast = PosiLast = 3;
    platform.expectBox(box::kNoData);
    EXPECT_EQ(Check_flgdLineNo(), 1);
    platform.expectBox(box::kNoData);
    EXPECT_EQ(PosiDataCheck3(), PosiCheck::Refused);
    ResetGrid();
    EXPECT_EQ(PosiDataCheck3(), PosiCheck::NoData);
    EXPECT_EQ(GridFirst + GridLast, 0);
    platform.expectBox(box::kNoData);
    EXPECT_EQ(Check_flgdLineNo(), 1);
}

TEST_F(PositionTest, TheGridShowsTheRowsOfItsRange) {
    showRows(5, 7);
    PosiTable[6].number[kVel] = 12;
    PosiTable[6].number[kAxis4 + kVel] = 100; // longer than its cell
    PosiTable[6].number[kSm] = 20;
    PosiTable[6].number[4] = 7; // AXIS 2 is out of use and shows its fixed values
    PosiTable[6].comment = "pick";
    PosiUnitTable[6].pulse = {12500, 99, 99, 4799};
    QdDataHyoji_3();
    ASSERT_EQ(flgdData().rows.size(), 5U);
    EXPECT_EQ(GridText(2, 0) + GridText(4, 0), "57");
    const std::vector<std::string> shown{"12", "3",    "0", "12500", "30", "3",   "0",
                                         "0",  "30",   "3", "0",     "0",  "1#",  "2",
                                         "0",  "4799", "0", "0",     "20", "pick"};
    for (std::size_t column = 0; column < shown.size(); ++column) {
        EXPECT_EQ(cell(6, static_cast<int>(column)), shown[column]) << column;
    }
    const auto& colour = flgdData().rows[3].colour;
    EXPECT_EQ((std::array{colour[1], colour[5], colour[13], colour[17]}),
              (std::array{CellColour::Window, CellColour::OffAxis, CellColour::Band,
                          CellColour::Window}));
    DispMmFlag = kSet;
    ConvertTableToMm();
    QdDataHyoji_3();
    EXPECT_EQ(cell(6, kPosi) + cell(6, kAxis4 + kPosi) + cell(6, 7), " 62.500199.958  0.000");
    EXPECT_EQ(GridHead(1, 17) + GridHead(1, 20) + GridHead(0, 17), "ITPLCOMMENTCommon");
}

} // namespace
} // namespace qdw8::test
