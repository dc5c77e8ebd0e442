#include "position/grid_clipboard.h"
#include "position_bench.h"

namespace qdw8::test {
namespace {

TEST_F(PositionTest, EditsAreRefusedWhereNothingCanBeTyped) {
    EXPECT_FALSE(StartEdit()) << "no data";
    showRows(1, 2);
    EXPECT_FALSE(StartEdit()) << "no cell is current";
    EXPECT_FALSE(StartTyping("1"));
    flgdData_KeyDownEdit(kKeyEnter);
    flgdData_AfterEdit();
    EXPECT_EQ(flgdData().row, 0);
    GoToCell(2, 8);
    EXPECT_FALSE(StartEdit()) << "an axis out of use";
    GoToCell(2, 13);
    {
        const GridLock lock;
        EXPECT_FALSE(StartEdit());
        platform.clipboard = "1";
        ClipboardChanged();
        EXPECT_FALSE(IsEnabled(Command::mnuEditCellPaste));
    }
    const auto colour = [] { return flgdData().rows[2].colour[13]; };
    EXPECT_TRUE(flgdData_DblClick());
    EXPECT_FALSE(StartEdit()) << "it is being edited already";
    EXPECT_FALSE(flgdData_BeforeEdit(99, 1));
    EXPECT_EQ(colour(), CellColour::Editing);
    SetEditText("5");
    flgdData_KeyDownEdit(kKeyEscape);
    EXPECT_EQ(flgdData().edit.text, "30");
    CancelEdit();
    EXPECT_EQ(colour(), CellColour::Band);
    GoToCell(2, 20);
    platform.imeOpen = true;
    ASSERT_TRUE(StartEdit());
    SetEditText("\"a\"");
    EXPECT_EQ(flgdData().edit.text, "'a'") << "in sight while it is typed";
    EXPECT_TRUE(platform.imeOpen) << "Japanese may be typed into the comment";
    CancelEdit();
    GoToCell(2, 4);
    EXPECT_FALSE(platform.imeOpen);
    EXPECT_EQ(ThePanel().scale[0], "<1>1mm = 200Pulse");
}

TEST_F(PositionTest, AClipboardOfAHundredMegabytesIsOnlyLookedAt) {
    showRows(1, 3);
    for (const char unit : {'x', '\t', '\n', '\r'}) { // one cell, one row, rows without end
        platform.clipboard.assign(100'000'000, unit);
        ClipboardChanged();
        flgdData_RowColChange(2, 20, 3, 20);
        if (unit == 'x') {
            platform.expectBox(box::kCut);
        }
        mnuEditCellPaste_Click();
        EXPECT_EQ(cell(2, kComment), unit == 'x' ? std::string(40, 'x') : "");
        platform.checkAllAsked();
    }
}

TEST_F(PositionTest, NoRowIsTakenThatTheGridDoesNotShow) {
    showRows(5, 7);
    type(5, kVel, "99999"); // wider than the number of a cell
    EXPECT_EQ(PosiDataCheck3(), PosiCheck::Faulted);
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
}

TEST_F(PositionTest, TheGridShowsTheRowsOfItsRange) {
    showRows(5, 7);
    PosiTable[6].number[kVel] = 12;
    PosiTable[6].number[kAxis4 + kVel] = 100; // longer than its cell
    PosiTable[6].number[4] = 7;               // AXIS 2 is out of use and shows its fixed values
    PosiTable[6].comment = "pick";
    PosiUnitTable[6].pulse = {12500, 99, 99, 4799};
    QdDataHyoji_3();
    std::string row = GridText(3, 0);
    for (int column = 0; column <= kComment; ++column) {
        row += " " + cell(6, column);
    }
    EXPECT_EQ(row, "6 12 3 0 12500 30 3 0 0 30 3 0 0 1# 2 0 4799 0 0 0 pick");
    const auto& colour = flgdData().rows[3].colour;
    EXPECT_EQ((std::array{colour[1], colour[5], colour[13], colour[17]}),
              (std::array{CellColour::Window, CellColour::OffAxis, CellColour::Band,
                          CellColour::Window}));
    DispMmFlag = kSet;
    ConvertTableToMm();
    QdDataHyoji_3();
    EXPECT_EQ(cell(6, kPosi) + cell(6, kAxis4 + kPosi) + cell(6, 7), " 62.500199.958  0.000");
    EXPECT_EQ(GridHead(1, 4) + GridHead(1, 17) + GridHead(0, 17), "Posi1(mm)ITPLCommon");
}

} // namespace
} // namespace qdw8::test
