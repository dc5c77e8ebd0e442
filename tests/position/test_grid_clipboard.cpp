#include "position/grid_clipboard.h"

#include "position/flex_grid.h"
#include "position/grid_editor.h"
#include "position_fixture.h"

namespace qdw8::test {
namespace {

const std::string kOneCell = "Please perform copy after chosing one cell.";
const std::string kWholeRow = "Click at Posi number in order to select the row, and execute.";
const std::string kOneColumn = "It is impossible to paste data into cells of two or more colums.";
const std::string kFirstColumn = "Click at Position number the data pasted to or the first column "
                                 "cell the data pasted, and execute.";

TEST_F(PositionTest, AWholeLineGoesToTheClipboardAndIntoOtherLines) {
    showRows(1, 4);
    type(1, kVel, "11");
    type(1, kComment, "one");
    type(2, kVel, "12");
    type(2, kComment, "原点");
    flgdData_RowColChange(2, 1, 3, 20);
    mnuEditLineCopy_Click();
    EXPECT_EQ(platform.clipboard.substr(0, 6), "11\t3\t0");
    EXPECT_EQ(std::count(platform.clipboard.begin(), platform.clipboard.end(), '\t'), 38);
    EXPECT_EQ(std::count(platform.clipboard.begin(), platform.clipboard.end(), '\r'), 1);
    EXPECT_TRUE(platform.clipboard.ends_with("\t原点"));
    EXPECT_EQ(LineCopiedFlag, kSet);
    EXPECT_EQ(CellCopiedFlag, kSet);
    EXPECT_EQ(PosiDirtyFlag, kClear);

    GoToCell(4, 1);
    mnuEditLinePaste_Click();
    EXPECT_EQ(cell(3, kVel), "11");
    EXPECT_EQ(cell(4, kVel), "12");
    EXPECT_EQ(cell(4, kComment), "原点");
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
    EXPECT_EQ(cell(1, kVel) + cell(2, kVel) + cell(3, kVel) + cell(4, kVel) + cell(5, kVel),
              "777730");
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
    showRows(1, 2);
    PosiDirtyFlag = kClear;
    platform.clipboard.clear();
    GoToCell(2, 1);
    mnuEditCellPaste_Click();
    EXPECT_EQ(cell(1, kVel), "30");
    EXPECT_EQ(PosiDirtyFlag, kClear);
}

TEST_F(PositionTest, PastedTextIsTakenAsItIsAndStopsAtTheEdges) {
    showRows(1, 2);
    std::string line;
    for (int i = 1; i <= 30; ++i) {
        line += (i == 1 ? "" : "\t") + std::to_string(i);
    }
    platform.clipboard = line + "\r\nabc\r\n99999\r\n";
    GoToCell(2, 1);
    mnuEditLinePaste_Click();
    EXPECT_EQ(cell(1, kComment), "20");
    EXPECT_EQ(cell(1, kSm), "19");
    EXPECT_EQ(cell(1, kItpl), "#") << "17 is cut, and must not become 1";
    EXPECT_EQ(cell(2, kVel), "a#");
    EXPECT_EQ(cell(2, kAcc), "3");
    EXPECT_EQ(platform.beeps, 0);

    platform.clipboard.assign(100'000'000, 'x'); // one cell, and no more than that is held
    GoToCell(2, 20);
    platform.expectBox("Comments longer than 40 characters were cut.");
    mnuEditCellPaste_Click();
    EXPECT_EQ(cell(1, kComment), std::string(40, 'x'));
}

TEST_F(PositionTest, EachCommandWantsItsSelection) {
    showRows(1, 4);
    platform.clipboard = "1";
    flgdData_RowColChange(2, 1, 3, 1);
    platform.expectBox(kOneCell);
    mnuEditCellCopy_Click();
    platform.expectBox(kWholeRow);
    mnuEditLineCopy_Click();
    flgdData_RowColChange(2, 1, 3, 2);
    platform.expectBox(kOneColumn);
    mnuEditCellPaste_Click();
    GoToCell(2, 2);
    platform.expectBox(kFirstColumn);
    mnuEditLinePaste_Click();
    GridHome();
    platform.expectBox(kOneCell);
    mnuEditCellCopy_Click();
    platform.expectBox(kFirstColumn);
    mnuEditLinePaste_Click();
    EXPECT_EQ(platform.clipboard, "1");
    EXPECT_EQ(PosiDirtyFlag, kClear);
    EXPECT_EQ(cell(1, kVel), "30");
}

TEST_F(PositionTest, ThePasteCommandsFollowTheClipboard) {
    EXPECT_EQ(ClipKind(""), 0);
    EXPECT_EQ(ClipKind("5"), 2);
    const std::string line(19, '\t');
    EXPECT_EQ(ClipKind(line), 1);
    EXPECT_EQ(ClipKind(line + "\r\n1"), 1);
    EXPECT_EQ(ClipKind(line + "\t"), 2);
    EXPECT_EQ(ClipKind("1\r" + line), 2);

    SetBuilt(Command::mnuEditCellPaste);
    SetBuilt(Command::mnuEditLinePaste);
    showRows(1, 2);
    CMDBTN_Yuko();
    platform.clipboard = line;
    ClipboardChanged();
    EXPECT_FALSE(IsEnabled(Command::mnuEditLinePaste)) << "no line is selected";
    GoToCell(2, 1);
    EXPECT_TRUE(IsEnabled(Command::mnuEditLinePaste));
    platform.clipboard = "5";
    ClipboardChanged();
    EXPECT_FALSE(IsEnabled(Command::mnuEditLinePaste));
    EXPECT_TRUE(IsEnabled(Command::mnuEditCellPaste));
    {
        const GridLock lock; // a command runs
        EditCMD_Muko();
        ClipboardChanged();
        EXPECT_FALSE(IsEnabled(Command::mnuEditCellPaste));
    }
    platform.clipboard.clear();
    ClipboardChanged();
    EXPECT_FALSE(IsEnabled(Command::mnuEditCellPaste));
}

} // namespace
} // namespace qdw8::test
