#include "position/grid_editor.h"

#include "position_bench.h"

#include <algorithm>

namespace qdw8::test {
namespace {

using Place = std::pair<int, int>;
Place At() {
    return {flgdData().row, flgdData().col};
}

/// Types a text into the current cell and ends with a key, as the window does it.
bool Edit(const std::string& text, int key = kKeyEscape + 100) {
    EXPECT_TRUE(StartEdit());
    SetEditText(text);
    flgdData_KeyDownEdit(key);
    return CommitEdit();
}

TEST_F(PositionTest, AnEditFillsTheSelectedRowsOfItsColumn) {
    showRows(1, 9);
    flgdData_RowColChange(4, 1, 6, 1);
    ASSERT_TRUE(Edit("10"));
    for (int position = 1; position <= 9; ++position) {
        EXPECT_EQ(cell(position, kVel), position >= 3 && position <= 5 ? "10" : "30");
    }
    flgdData_RowColChange(9, 3, 8, 1); // dragged upwards and to the left
    ASSERT_TRUE(Edit("1"));
    EXPECT_EQ(cell(7, kWay) + cell(8, kWay) + cell(9, kWay), "110");
    EXPECT_EQ(cell(7, kVel) + cell(7, kAcc), "303") << "the edited column alone";
    EXPECT_EQ(flgdData().fillMode, FillMode::OneCell);
    flgdData_RowColChange(2, 1, 4, 1);
    EXPECT_FALSE(Edit("99"));
    CancelEdit();
    EXPECT_EQ(cell(1, kVel) + cell(2, kVel) + cell(3, kVel), "303010");
}

TEST_F(PositionTest, EditsAreRefusedWhereNothingCanBeTyped) {
    EXPECT_FALSE(StartEdit()) << "no data";
    showRows(1, 2);
    EXPECT_FALSE(StartEdit()) << "no cell is current";
    EXPECT_FALSE(flgdData_KeyPressEdit('1'));
    flgdData_KeyDownEdit(kKeyEnter);
    flgdData_AfterEdit();
    EXPECT_EQ(At(), (Place{0, 0}));
    GoToCell(2, 8);
    EXPECT_FALSE(StartEdit()) << "an axis out of use";
    GoToCell(2, 1);
    {
        const GridLock lock;
        EXPECT_FALSE(StartEdit());
    }
    EXPECT_TRUE(flgdData_DblClick());
    EXPECT_FALSE(StartEdit()) << "it is being edited already";
    EXPECT_FALSE(flgdData_BeforeEdit(99, 1));
    EXPECT_FALSE(flgdData_BeforeEdit(2, 0));
}

TEST_F(PositionTest, TheCellBeingEditedIsPaintedAndGetsItsColourBack) {
    showRows(1, 2);
    const auto colour = [] { return flgdData().rows[2].colour[13]; };
    GoToCell(2, 13);
    ASSERT_TRUE(StartEdit());
    EXPECT_EQ(colour(), CellColour::Editing);
    SetEditText("5");
    flgdData_KeyDownEdit(kKeyEscape);
    EXPECT_EQ(flgdData().edit.text, "30");
    CancelEdit();
    EXPECT_EQ(colour(), CellColour::Band);
    ASSERT_TRUE(Edit("5"));
    EXPECT_EQ(colour(), CellColour::Band);
}

TEST_F(PositionTest, EachColumnHasItsLengthAndItsKeys) {
    struct Keys {
        int column;
        int length;
        std::u32string taken;
    };
    const std::u32string digits = U"0123456789";
    const std::vector<Keys> table{
        {kVel, 2, digits},  {kAcc, 1, U"123"},         {kWay, 1, U"0123"},
        {kPosi, 7, digits}, {kItpl, 1, U"01"},         {kOut, 1, U"0123"},
        {kSm, 2, digits},   {kPosi, 7, digits + U"."}, {kComment, 40, {}}};
    showRows(1, 1);
    const std::u32string offered = U"0123456789.-+eE &Habcあ";
    for (const Keys& keys : table) {
        SCOPED_TRACE(keys.column);
        DispMmFlag = FlagOf(keys.taken.size() == 11);
        GoToCell(2, keys.column + 1);
        ASSERT_TRUE(StartEdit());
        EXPECT_EQ(flgdData().edit.maxLength, keys.length);
        std::u32string passed;
        std::copy_if(offered.begin(), offered.end(), std::back_inserter(passed),
                     flgdData_KeyPressEdit);
        EXPECT_EQ(passed, keys.column == kComment ? offered : keys.taken);
        EXPECT_TRUE(flgdData_KeyPressEdit('\b') && flgdData_KeyPressEdit('\r'));
        CancelEdit();
    }
    AccWideFlag = kSet;
    GoToCell(2, kAcc + 1);
    EXPECT_TRUE(flgdData_KeyPressEdit('9'));
}

TEST_F(PositionTest, EnterAndTabGoAlongTheRow) {
    showRows(1, 2);
    struct Step {
        Place from;
        int key;
        Place to;
    };
    for (const Step& step : {Step{{2, 4}, kKeyEnter, {2, 5}}, // the next axis, in use or not
                             Step{{2, 20}, kKeyEnter, {3, 1}}, Step{{2, 4}, kKeyTab, {2, 5}},
                             Step{{2, 20}, kKeyTab, {2, 20}}, Step{{2, 1}, 0, {2, 1}},
                             Step{{3, 20}, kKeyEnter, {4, 1}}}) { // a new line
        GoToCell(step.from.first, step.from.second);
        ASSERT_TRUE(Edit("7", step.key));
        EXPECT_EQ(At(), step.to) << step.from.second << " " << step.key;
    }
    EXPECT_EQ(GridLast, 3);
    EXPECT_EQ(GridText(4, 0) + cell(3, kVel) + cell(3, kAxis4 + kAcc), "3302");
    GoToCell(2, 1);
    EXPECT_FALSE(Edit("99", kKeyEnter));
    SetEditText("11");
    EXPECT_TRUE(CommitEdit()); // a click elsewhere: the refused Enter is forgotten
    EXPECT_EQ(At(), (Place{2, 1}));
    showRows(990, 999);
    GoToCell(11, 20);
    ASSERT_TRUE(Edit("last", kKeyEnter));
    EXPECT_EQ(At(), (Place{2, 1}));
    EXPECT_EQ(GridLast, 999);
}

TEST_F(PositionTest, ASelectionGivesCommandsScaleAndInputMethod) {
    SetBuilt(Command::cmdInsertLine);
    showRows(1, 2);
    platform.imeOpen = true;
    {
        const CommandsAway command;
        GoToCell(2, 20);
        EXPECT_FALSE(IsEnabled(Command::cmdInsertLine));
    }
    EXPECT_TRUE(IsEnabled(Command::cmdInsertLine)) << "back with the selection that still stands";
    EXPECT_TRUE(platform.imeOpen) << "Japanese may be typed into the comment";
    flgdData_RowColChange(2, 4, 2, 4);
    EXPECT_FALSE(platform.imeOpen);
    EXPECT_EQ(ThePanel().scale[0], "<1>1mm = 200Pulse");
    {
        const CommandsAway command;
        showRows(1, 3); // other data: no cell is current
    }
    EXPECT_FALSE(IsEnabled(Command::cmdInsertLine));
}

TEST_F(PositionTest, DeleteEmptiesTheSelectedCommentsAlone) {
    showRows(1, 4);
    for (int position = 1; position <= 4; ++position) {
        type(position, kComment, "c");
    }
    flgdData_RowColChange(4, 20, 3, 20);
    flgdData_Delete();
    EXPECT_EQ(cell(1, kComment) + cell(2, kComment) + cell(3, kComment) + cell(4, kComment), "cc");
    EXPECT_EQ(PosiDirtyFlag, kSet);
    const auto texts = gridTexts();
    flgdData_RowColChange(2, 20, 5, 19);
    flgdData_Delete();
    GoToCell(5, 1);
    flgdData_Delete();
    GoToCell(5, 20);
    {
        const GridLock lock;
        flgdData_Delete();
    }
    EXPECT_EQ(gridTexts(), texts);
}

TEST_F(PositionTest, APasteIntoTheEditBoxIsWholeOrNone) {
    showRows(1, 1);
    struct Paste {
        int column;
        const char* text;
        int room;
        const char* taken; ///< null: refused
    };
    const std::string longest(40, 'x');
    const std::string longer = longest + "x";
    for (const Paste& paste :
         {Paste{kPosi, "12.5", 7, "12.5"}, Paste{kPosi, " 12.5 \r\n", 7, "12.5"},
          Paste{kPosi, "12,5", 7, nullptr}, Paste{kPosi, "-5", 7, nullptr},
          Paste{kPosi, "1\t2", 7, nullptr}, Paste{kPosi, "12345678", 7, nullptr},
          Paste{kPosi, "12", 1, nullptr}, Paste{kPosi, "\r\n", 7, nullptr},
          Paste{kVel, "2.5", 2, nullptr}, Paste{kVel, "２", 2, nullptr},
          Paste{kComment, "原点 \"A\"", 40, "原点 'A'"}, Paste{kComment, "a\nb", 40, nullptr},
          Paste{kComment, longest.c_str(), 40, longest.c_str()},
          Paste{kComment, longest.c_str(), 39, nullptr},
          Paste{kComment, longer.c_str(), 41, nullptr}}) {
        SCOPED_TRACE(paste.text);
        DispMmFlag = kSet;
        platform.beeps = 0;
        GoToCell(2, paste.column + 1);
        const auto taken = TextToPaste(paste.text, paste.room);
        EXPECT_EQ(taken,
                  paste.taken == nullptr ? std::nullopt : std::optional<std::string>(paste.taken));
        EXPECT_EQ(platform.beeps, taken ? 0 : 1);
    }
    SetEditText("\"a\"");
    EXPECT_EQ(flgdData().edit.text, "'a'") << "in sight while it is typed";
}

} // namespace
} // namespace qdw8::test
