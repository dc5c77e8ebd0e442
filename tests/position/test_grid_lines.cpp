#include "position/grid_lines.h"

#include "app/screens.h"
#include "position/cell_edit.h"
#include "position/grid_clipboard.h"
#include "position/grid_undo.h"
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

/// What a step brings back: texts, marks, ranges, the user's place, and whether a read would ask.
std::vector<std::string> Standing() {
    const FlexGrid& grid = flgdData();
    auto all = PositionBench::gridTexts();
    for (const auto& row : grid.rows) {
        auto bad = row.bad; // what couldn't be typed has a mark when it comes back
        for (std::size_t cell = 1; cell < kGridColumns; ++cell) {
            bad.set(cell, bad[cell] || !MayBeTyped(static_cast<int>(cell), row.text[cell]));
        }
        all.push_back(bad.to_string());
    }
    for (const int number : {int{GridFirst}, int{GridLast}, int{PosiFirst}, int{PosiLast}, grid.row,
                             grid.col, grid.rowSel, grid.colSel, int{PosiTableHasData()}}) {
        all.push_back(std::to_string(number));
    }
    return all;
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

TEST_F(Lines, RandomEditsLeaveGridNumbersRangesAndScreenInStep) {
    std::mt19937 random(20240817); // NOLINT: the same every time
    const auto pick = [&random](int lowest, int highest) {
        return std::uniform_int_distribution(lowest, highest)(random);
    };
    platform.clipboard = "1\t2\t3\r\n4\t5";
    for (int round = 0; round < 40; ++round) {
        const auto first = static_cast<std::int16_t>(round % 10 == 0 ? 0 : pick(1, 999));
        const int end = pick(std::max<int>(first, 1), std::min(first + 30, 999));
        showRows(first, static_cast<std::int16_t>(end));
        PosiFirst = static_cast<std::int16_t>(pick(GridFirst, GridLast));
        PosiLast = static_cast<std::int16_t>(pick(PosiFirst, GridLast));
        PosiDirtyFlag = kClear;
        SetGridBad(pick(2, end - first + 2), pick(1, 19), true);
        auto saved = gridTexts();
        std::vector<std::pair<std::vector<std::string>, std::vector<std::string>>> steps;
        for (int step = 0; step < 40 && flgdData().rows.size() > kGridHeadRows; ++step) {
            const int last = static_cast<int>(flgdData().rows.size()) - 1;
            const int column = pick(0, 2) == 0 ? 1 : pick(1, 20);
            const bool oneColumn = pick(0, 1) == 0;
            flgdData_RowColChange(pick(2, last), column, pick(2, last), oneColumn ? column : 20);
            if (pick(0, 9) == 0) {
                saved = gridTexts();
                PosiDirtyFlag = kClear;
            }
            const auto before = Standing();
            const auto cells = gridTexts();
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
            if (cells != gridTexts()) {
                steps.emplace_back(before, Standing());
            }
        }
        const auto takeBack = [&](auto&& click, const auto& wanted) {
            click();
            ASSERT_EQ(Standing(), wanted);
            ExpectInStep();
            ASSERT_TRUE(IsSet(PosiDirtyFlag) || saved == gridTexts() || gridTexts().empty());
        };
        for (auto step = steps.rbegin(); step != steps.rend(); ++step) {
            takeBack(mnuGridUndo_Click, step->first);
        }
        for (const auto& step : steps) {
            takeBack(mnuGridRedo_Click, step.second);
        }
        ASSERT_FALSE(HasFailure()) << "round " << round;
    }
}

} // namespace
} // namespace qdw8::test
