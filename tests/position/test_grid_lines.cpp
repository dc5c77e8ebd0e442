#include "position/grid_lines.h"

#include "app/screens.h"
#include "position/grid_clipboard.h"
#include "position_bench.h"

#include <random>

namespace qdw8::test {
namespace {

/// What the window saw when it was last told to look.
std::vector<std::string> seen;

/// Grid, position numbers, range variables and the screen say the same.
void ExpectInStep() {
    EXPECT_EQ(seen, PositionBench::gridTexts());
    EXPECT_EQ(flgdData().frozen, 0);
    const auto rows = static_cast<int>(flgdData().rows.size()) - kGridHeadRows;
    if (rows == 0) {
        EXPECT_EQ(std::pair(GridFirst, GridLast), std::pair(std::int16_t{0}, std::int16_t{0}));
        EXPECT_EQ(GridRowCount + PosiFirst + PosiLast, 3);
        EXPECT_EQ(PosiDirtyFlag, kClear);
        EXPECT_FALSE(PosiTableHasData()) << "a read has nothing to ask about";
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

class Lines : public PositionTest {
protected:
    Lines() {
        Screens().flgdData = [] {
            if (flgdData().frozen == 0) {
                seen = gridTexts();
            }
        };
    }
};

TEST_F(Lines, InsertPutsAsManyFreshLinesInFrontAsAreSelected) {
    DispMmFlag = kSet;
    showRows(5, 8);
    type(6, kComment, "six");
    PosiLast = 7;
    flgdData_RowColChange(4, 20, 3, 1); // positions 6 and 7, from below
    InsertLine_Click();
    ExpectInStep();
    EXPECT_EQ(GridLast, 10);
    EXPECT_EQ(PosiLast, 7) << "a range that ends before the grid doesn't grow with it";
    EXPECT_EQ(cell(6, kPosi) + cell(6, kAcc) + cell(6, kAxis4 + kAcc), "  0.00032");
    EXPECT_EQ(cell(8, kComment), "six");
    EXPECT_EQ(std::pair(flgdData().row, flgdData().col), std::pair(3, 1));
    EXPECT_EQ(PosiDirtyFlag, kSet);
    EXPECT_EQ(PosiDataCheck3(), PosiCheck::Committed) << "fresh lines are clean";
}

TEST_F(Lines, InsertNeverPassesTheLastPositionAndSaysNothing) {
    showRows(996, 999);
    type(998, kComment, "kept");
    GoToCell(2, 1);
    InsertLine_Click();
    ExpectInStep();
    EXPECT_EQ(cell(999, kComment), "kept");
    flgdData_RowColChange(2, 1, 5, 20);
    InsertLine_Click();
    ExpectInStep();
    EXPECT_EQ(cell(999, kComment), "");
}

TEST_F(Lines, DeleteTakesTheSelectedLinesOut) {
    SetBuilt(Command::cmdInsertLine);
    showRows(5, 9);
    type(8, kComment, "eight");
    PosiFirst = 8;
    flgdData_RowColChange(3, 1, 4, 20);
    DeleteLine_Click();
    ExpectInStep();
    EXPECT_EQ(GridLast, 7);
    EXPECT_EQ(cell(6, kComment), "eight");
    EXPECT_EQ(flgdData().row, 2);
    GoToCell(2, 1);
    DeleteLine_Click();
    EXPECT_EQ(flgdData().row, 2) << "there is no line above the first";
    flgdData_RowColChange(2, 1, 3, 20);
    DeleteLine_Click();
    EXPECT_EQ(flgdData().rows.size(), 2U);
    ExpectInStep();
    EXPECT_FALSE(IsEnabled(Command::cmdInsertLine));
    DeleteLine_Click(); // nothing is left, and nothing is said

    showRows(0, 1); // a file may bring a row 0
    GoToCell(3, 1);
    DeleteLine_Click();
    ExpectInStep();
    EXPECT_EQ(GridFirst, 1);
}

TEST_F(Lines, WithoutACurrentLineABoxSaysSo) {
    showRows(1, 2);
    platform.expectBox("A line has not been selected.\r\nSelect the Copying line and execute.");
    InsertLine_Click();
    platform.expectBox("A line has not been selected.\r\nPlease the deleting line  and execute.");
    DeleteLine_Click();
    EXPECT_EQ(PosiDirtyFlag, kClear);
    EXPECT_EQ(flgdData().rows.size(), 4U);
}

TEST_F(Lines, RandomEditsLeaveGridNumbersRangesAndScreenInStep) {
    std::mt19937 random(20240817); // NOLINT: the same every time
    const auto pick = [&random](int lowest, int highest) {
        return std::uniform_int_distribution(lowest, highest)(random);
    };
    platform.clipboard = "1\t2\t3\r\n4\t5";
    for (int round = 0; round < 60; ++round) {
        const auto first = static_cast<std::int16_t>(round % 10 == 0 ? 0 : pick(1, 999));
        const int end = pick(std::max<int>(first, 1), std::min(first + 30, 999));
        showRows(first, static_cast<std::int16_t>(end));
        PosiFirst = static_cast<std::int16_t>(pick(GridFirst, GridLast));
        PosiLast = static_cast<std::int16_t>(pick(PosiFirst, GridLast));
        PosiDirtyFlag = kClear;
        for (int step = 0; step < 40 && flgdData().rows.size() > kGridHeadRows; ++step) {
            const int last = static_cast<int>(flgdData().rows.size()) - 1;
            const int column = pick(0, 2) == 0 ? 1 : pick(1, 20);
            const bool oneColumn = pick(0, 1) == 0;
            flgdData_RowColChange(pick(2, last), column, pick(2, last), oneColumn ? column : 20);
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
        }
    }
}

} // namespace
} // namespace qdw8::test
