#include "position/grid_lines.h"

#include "position/flex_grid.h"
#include "position/grid_clipboard.h"
#include "position/grid_display.h"
#include "position/grid_editor.h"
#include "position/posi_check.h"
#include "position_fixture.h"

#include <random>

namespace qdw8::test {
namespace {

/// Grid, position numbers and range variables say the same.
void ExpectInStep() {
    const auto rows = static_cast<int>(flgdData().rows.size()) - kGridHeadRows;
    if (rows == 0) {
        EXPECT_EQ(GridFirst, 0);
        EXPECT_EQ(GridLast, 0);
        EXPECT_EQ(GridRowCount, 1);
        EXPECT_EQ(PosiFirst, 1);
        EXPECT_EQ(PosiLast, 1);
        EXPECT_EQ(PosiDirtyFlag, kClear);
        return;
    }
    EXPECT_EQ(GridLast - GridFirst + 1, rows);
    EXPECT_EQ(GridRowCount, rows);
    EXPECT_LE(GridLast, kLastPosition);
    EXPECT_LE(GridFirst, PosiFirst);
    EXPECT_LE(PosiFirst, PosiLast);
    EXPECT_LE(PosiLast, GridLast);
    for (int row = 0; row < rows; ++row) {
        ASSERT_EQ(GridText(row + kGridHeadRows, 0), std::to_string(GridFirst + row));
        ASSERT_EQ(flgdData().rows[static_cast<std::size_t>(row + kGridHeadRows)].colour[13],
                  CellColour::Band);
    }
    EXPECT_GE(flgdData().row, kGridHeadRows);
    EXPECT_LT(flgdData().row, rows + kGridHeadRows);
}

TEST_F(PositionTest, InsertPutsAsManyFreshLinesInFrontAsAreSelected) {
    DispMmFlag = kSet;
    showRows(5, 8);
    type(6, kComment, "six");
    flgdData_RowColChange(4, 20, 3, 1); // positions 6 and 7, from below
    InsertLine_Click();
    ExpectInStep();
    EXPECT_EQ(GridLast, 10);
    EXPECT_EQ(PosiLast, 10);
    EXPECT_EQ(cell(6, kPosi), "  0.000");
    EXPECT_EQ(cell(6, kAcc), "3");
    EXPECT_EQ(cell(6, 12 + kAcc), "2");
    EXPECT_EQ(cell(8, kComment), "six");
    EXPECT_EQ(flgdData().row, 3);
    EXPECT_EQ(flgdData().col, 1);
    EXPECT_EQ(PosiDirtyFlag, kSet);
    EXPECT_EQ(PosiDataCheck3(), 0) << "fresh lines are clean";
}

TEST_F(PositionTest, InsertNeverPassesTheLastPositionAndSaysNothing) {
    showRows(996, 999);
    type(998, kComment, "kept");
    type(999, kComment, "dropped");
    GoToCell(2, 1);
    InsertLine_Click();
    ExpectInStep();
    EXPECT_EQ(GridLast, 999);
    EXPECT_EQ(cell(999, kComment), "kept");
    flgdData_RowColChange(2, 1, 5, 20);
    InsertLine_Click();
    ExpectInStep();
    EXPECT_EQ(cell(999, kComment), "");
}

TEST_F(PositionTest, ARangeThatEndsBeforeTheGridDoesntGrowWithIt) {
    showRows(1, 9);
    PosiLast = 5;
    GoToCell(2, 1);
    InsertLine_Click();
    EXPECT_EQ(GridLast, 10);
    EXPECT_EQ(PosiLast, 5);
}

TEST_F(PositionTest, DeleteTakesTheSelectedLinesOut) {
    showRows(5, 9);
    type(5, kComment, "five");
    type(8, kComment, "eight");
    PosiFirst = 8;
    PosiLast = 9; // as a save of a part left it
    flgdData_RowColChange(3, 1, 4, 20);
    DeleteLine_Click();
    ExpectInStep();
    EXPECT_EQ(GridLast, 7);
    EXPECT_EQ(cell(5, kComment), "five");
    EXPECT_EQ(cell(6, kComment), "eight");
    EXPECT_EQ(flgdData().row, 2);
    EXPECT_EQ(PosiDirtyFlag, kSet);
    GoToCell(2, 1);
    DeleteLine_Click();
    EXPECT_EQ(flgdData().row, 2) << "there is no line above the first";
    ExpectInStep();
}

TEST_F(PositionTest, WithoutItsLastLineTheGridHoldsNoData) {
    SetBuilt(Command::cmdInsertLine);
    showRows(5, 6);
    flgdData_RowColChange(2, 1, 3, 20);
    PosiDirtyFlag = kSet;
    DeleteLine_Click();
    EXPECT_EQ(flgdData().rows.size(), 2U);
    ExpectInStep();
    EXPECT_FALSE(IsEnabled(Command::cmdInsertLine));
    DeleteLine_Click(); // nothing is left, and nothing is said
}

TEST_F(PositionTest, WithoutACurrentLineABoxSaysSo) {
    showRows(1, 2);
    platform.expectBox("A line has not been selected.\r\nSelect the Copying line and execute.");
    InsertLine_Click();
    platform.expectBox("A line has not been selected.\r\nPlease the deleting line  and execute.");
    DeleteLine_Click();
    EXPECT_EQ(PosiDirtyFlag, kClear);
    EXPECT_EQ(flgdData().rows.size(), 4U);
}

TEST_F(PositionTest, RandomEditsLeaveGridNumbersAndRangesInStep) {
    std::mt19937 random(20240817); // NOLINT: the same every time
    const auto pick = [&random](int lowest, int highest) {
        return std::uniform_int_distribution(lowest, highest)(random);
    };
    platform.clipboard = "1\t2\t3\r\n4\t5";
    for (int round = 0; round < 60; ++round) {
        // Every tenth grid begins at row 0, as a file may.
        const auto first = static_cast<std::int16_t>(round % 10 == 0 ? 0 : pick(1, 999));
        showRows(first, static_cast<std::int16_t>(
                            pick(std::max<int>(first, 1), std::min(first + 30, 999))));
        PosiFirst = static_cast<std::int16_t>(pick(GridFirst, GridLast));
        PosiLast = static_cast<std::int16_t>(pick(PosiFirst, GridLast));
        PosiDirtyFlag = kClear;
        for (int step = 0; step < 40 && flgdData().rows.size() > kGridHeadRows; ++step) {
            const int last = static_cast<int>(flgdData().rows.size()) - 1;
            const int column = pick(0, 2) == 0 ? 1 : pick(1, 20);
            flgdData_RowColChange(pick(2, last), column, pick(2, last),
                                  pick(0, 1) == 0 ? column : 20);
            switch (pick(0, 4)) {
            case 0: InsertLine_Click(); break;
            case 1: DeleteLine_Click(); break;
            case 2:
                if (StartEdit()) {
                    SetEditText(std::to_string(pick(0, 70)));
                    flgdData_KeyDownEdit(pick(0, 1) == 0 ? kKeyEnter : kKeyTab);
                    if (!CommitEdit()) {
                        CancelEdit();
                    }
                }
                break;
            case 3:
                if (flgdData().col == flgdData().colSel) {
                    mnuEditCellPaste_Click();
                }
                break;
            default:
                if (flgdData().col == 1) {
                    mnuEditLinePaste_Click();
                }
                break;
            }
            ExpectInStep();
            ASSERT_FALSE(HasFailure()) << "round " << round << " step " << step;
            EXPECT_EQ(flgdData().frozen, 0);
        }
    }
}

TEST_F(PositionTest, TheLastLineOfAGridFromRowZeroBecomesPositionOne) {
    showRows(0, 1);
    GoToCell(kGridHeadRows + 1, 1);
    DeleteLine_Click();
    EXPECT_EQ(GridFirst, 1);
    EXPECT_EQ(GridLast, 1);
    EXPECT_EQ(GridText(kGridHeadRows, 0), "1");
    EXPECT_EQ(PosiDataCheck3(), 0);
}

TEST_F(PositionTest, TheLastRowOfAGridFromRowZeroCanBeEdited) {
    showRows(0, 999);
    GoToCell(1001, 4);
    ASSERT_TRUE(StartEdit());
    SetEditText("5");
    EXPECT_TRUE(CommitEdit());
    EXPECT_EQ(GridText(1001, 4), "5");
}

} // namespace
} // namespace qdw8::test
