#include "position/grid_clipboard.h"

#include "position_bench.h"

#include <algorithm>

namespace qdw8::test {
namespace {

TEST_F(PositionTest, AWholeLineGoesToTheClipboardAndIntoOtherLines) {
    showRows(1, 4);
    type(1, kVel, "11");
    type(1, kComment, "one");
    type(2, kVel, "12");
    type(2, kComment, "原点");
    flgdData_RowColChange(2, 1, 3, 20);
    mnuEditLineCopy_Click();
    EXPECT_TRUE(platform.clipboard.starts_with("11\t3\t0"));
    EXPECT_TRUE(platform.clipboard.ends_with("\t原点"));
    EXPECT_EQ(std::count(platform.clipboard.begin(), platform.clipboard.end(), '\t'), 38);
    EXPECT_EQ(std::count(platform.clipboard.begin(), platform.clipboard.end(), '\r'), 1);
    EXPECT_EQ(LineCopiedFlag + CellCopiedFlag, 2 * kSet);
    EXPECT_EQ(PosiDirtyFlag, kClear);

    GoToCell(4, 1);
    mnuEditLinePaste_Click();
    EXPECT_EQ(cell(3, kVel) + cell(4, kVel) + cell(4, kComment), "1112原点");
    EXPECT_EQ(GridText(4, 0), "3") << "the number is not part of what is copied";
    EXPECT_EQ(PosiDirtyFlag, kSet);
    EXPECT_EQ(LineCopiedFlag, kSet);
    EXPECT_EQ(std::pair(flgdData().row, flgdData().col), std::pair(4, 1));

    GoToCell(5, 1);
    mnuEditLinePaste_Click(); // the second line has no row to go to
    EXPECT_EQ(cell(4, kVel), "11");
    EXPECT_EQ(flgdData().rows.size(), 6U);
}

TEST_F(PositionTest, OneCellFillsTheSelectionAndAColumnGoesDownIt) {
    showRows(1, 6);
    type(1, kVel, "7");
    GoToCell(2, 1);
    mnuEditCellCopy_Click();
    EXPECT_EQ(platform.clipboard, "7");
    EXPECT_EQ(LineCopiedFlag, kClear);
    EXPECT_EQ(CellCopiedFlag, kSet);
    LineCopiedFlag = kSet;
    flgdData_RowColChange(5, 1, 3, 1);
    mnuEditCellPaste_Click();
    EXPECT_EQ(cell(1, kVel) + cell(2, kVel) + cell(4, kVel) + cell(5, kVel), "77730");
    EXPECT_EQ(LineCopiedFlag, kClear);
    EXPECT_EQ(PosiDirtyFlag, kSet);
    for (const char* text : {"1\r2\r3", "1\r\n2\r\n3\r\n", "1\n2\n3\n", "1\t2\r\n3\t4\r\n"}) {
        showRows(1, 6);
        platform.clipboard = text;
        flgdData_RowColChange(2, 3, 3, 3);
        mnuEditCellPaste_Click();
        EXPECT_EQ(cell(1, kWay) + cell(2, kWay) + cell(3, kWay), "120") << text;
        flgdData_RowColChange(2, 3, 7, 3);
        mnuEditCellPaste_Click();
        EXPECT_EQ(cell(3, kWay), "3") << text;
        EXPECT_EQ(cell(6, kWay), "0") << "what the clipboard doesn't reach stays";
    }
}

TEST_F(PositionTest, APasteOfAnySizeIsBoundedAndACutCommentToldOnce) {
    showRows(1, 3);
    std::string table;
    for (int i = 1; i <= 30; ++i) {
        table += (i == 1 ? "" : "\t") + std::to_string(i);
    }
    platform.clipboard = table + "\r\nabc\r\n" + std::string(19, '\t') + std::string(41, 'y');
    GoToCell(2, 1);
    platform.expectBox(box::kCut);
    mnuEditLinePaste_Click();
    EXPECT_EQ(cell(1, kComment), "20");
    EXPECT_EQ(cell(1, kItpl), "#") << "17 is cut, and must not become 1";
    EXPECT_EQ(cell(2, kVel) + cell(2, kAcc), "a#3");
    EXPECT_EQ(cell(3, kComment), std::string(40, 'y'));

    for (const char* unit : {"x", "\t", "\n", "\r"}) { // one cell, one row, rows without end
        platform.clipboard.assign(100'000'000, *unit);
        ClipboardChanged();
        flgdData_RowColChange(2, 20, 3, 20);
        if (*unit == 'x') {
            platform.expectBox(box::kCut);
        }
        mnuEditCellPaste_Click();
        EXPECT_EQ(cell(2, kComment), *unit == 'x' ? std::string(40, 'x') : "");
        platform.checkAllAsked();
    }
}

TEST_F(PositionTest, EachCommandWantsItsSelection) {
    const std::string oneCell = "Please perform copy after chosing one cell.";
    const std::string firstColumn = "Click at Position number the data pasted to or the first "
                                    "column cell the data pasted, and execute.";
    showRows(1, 4);
    platform.clipboard = "1";
    flgdData_RowColChange(2, 1, 3, 1);
    platform.expectBox(oneCell);
    mnuEditCellCopy_Click();
    platform.expectBox("Click at Posi number in order to select the row, and execute.");
    mnuEditLineCopy_Click();
    flgdData_RowColChange(2, 1, 3, 2);
    platform.expectBox("It is impossible to paste data into cells of two or more colums.");
    mnuEditCellPaste_Click();
    GoToCell(2, 2);
    platform.expectBox(firstColumn);
    mnuEditLinePaste_Click();
    GridHome();
    platform.expectBox(oneCell);
    mnuEditCellCopy_Click();
    platform.expectBox(firstColumn);
    mnuEditLinePaste_Click();
    EXPECT_EQ(platform.clipboard, "1");
    EXPECT_EQ(PosiDirtyFlag, kClear);
}

TEST_F(PositionTest, ThePasteCommandsFollowTheClipboard) {
    const std::string line20(19, '\t');
    EXPECT_EQ(ClipKind(""), 0);
    EXPECT_EQ(ClipKind(line20), 1);
    EXPECT_EQ(ClipKind(line20 + "\r\n1"), 1);
    EXPECT_EQ(ClipKind(line20 + "\t"), 2);
    EXPECT_EQ(ClipKind("1\r" + line20), 2);
    SetBuilt(Command::mnuEditCellPaste);
    SetBuilt(Command::mnuEditLinePaste);
    showRows(1, 2);
    CMDBTN_Yuko();
    const auto given = [this](const std::string& clip) {
        platform.clipboard = clip;
        ClipboardChanged();
        return 10 * IsEnabled(Command::mnuEditLinePaste) + IsEnabled(Command::mnuEditCellPaste);
    };
    EXPECT_EQ(given(line20), 0) << "no line is selected";
    GoToCell(2, 1);
    EXPECT_EQ(given(line20), 11);
    EXPECT_EQ(given("5"), 1);
    {
        const GridLock lock; // a command runs
        EditCMD_Muko();
        EXPECT_EQ(given(line20), 0);
    }
    EXPECT_EQ(given(""), 0);
}

} // namespace
} // namespace qdw8::test
