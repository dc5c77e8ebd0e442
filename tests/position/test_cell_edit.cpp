#include "position/cell_edit.h"

#include "device/Module2Calc.h"
#include "position/flex_grid.h"
#include "position/grid_editor.h"
#include "position_fixture.h"

namespace qdw8::test {
namespace {

constexpr int kAxis4 = 12; // first table column of AXIS 4

/// Types a text into the current cell and ends with a key, as the window does it.
bool Edit(const std::string& text, int key = kKeyTab) {
    EXPECT_TRUE(StartEdit());
    SetEditText(text);
    flgdData_KeyDownEdit(key);
    return CommitEdit();
}

struct CellEditCase {
    int column;
    bool mm;
    const char* typed;
    const char* shown; ///< null: rejected
};

class CellEdit : public PositionTest, public testing::WithParamInterface<CellEditCase> {};

TEST_P(CellEdit, TakesOrRejects) {
    const CellEditCase& given = GetParam();
    DispMmFlag = FlagOf(given.mm);
    showRows(5, 7);
    const std::string before = cell(6, given.column);
    GoToCell(3, given.column + 1);
    const bool taken = Edit(given.typed);
    EXPECT_EQ(taken, given.shown != nullptr);
    EXPECT_EQ(cell(6, given.column), taken ? given.shown : before);
    EXPECT_EQ(PosiDirtyFlag, FlagOf(taken));
    EXPECT_EQ(platform.beeps, taken ? 0 : 1);
    EXPECT_EQ(flgdData().edit.open, !taken);
    if (!taken) {
        EXPECT_EQ(flgdData().edit.text, before);
        CancelEdit();
        EXPECT_EQ(cell(6, given.column), before);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Table, CellEdit,
    testing::Values(
        CellEditCase{kVel, false, "01", "1"}, CellEditCase{kVel, false, "60", "60"},
        CellEditCase{kVel, false, "0", nullptr}, CellEditCase{kVel, false, "61", nullptr},
        CellEditCase{kVel, false, "", nullptr}, CellEditCase{kVel, false, "99999999999", nullptr},
        CellEditCase{kAcc, false, "3", "3"}, CellEditCase{kAcc, false, "0", nullptr},
        CellEditCase{kAxis4 + kAcc, false, "2", "2"},
        CellEditCase{kAxis4 + kAcc, false, "3", nullptr}, CellEditCase{kWay, false, "3", "3"},
        CellEditCase{kWay, false, "4", nullptr}, CellEditCase{kItpl, false, "1", "1"},
        CellEditCase{kItpl, false, "2", nullptr}, CellEditCase{kOut, false, "3", "3"},
        CellEditCase{kOut, false, "4", nullptr}, CellEditCase{kSm, false, "20", "20"},
        CellEditCase{kSm, false, "21", nullptr},
        CellEditCase{kComment, false, "  pick 原 ", "pick 原"},
        CellEditCase{kPosi, false, "20000", "20000"}, CellEditCase{kPosi, false, "0020", "20"},
        CellEditCase{kPosi, false, "20001", nullptr}, CellEditCase{kPosi, false, "1.5", nullptr},
        CellEditCase{kPosi, false, "-1", nullptr}, CellEditCase{kPosi, true, "12.34567", " 12.345"},
        CellEditCase{kPosi, true, "12.3429", " 12.340"},
        CellEditCase{kPosi, true, "100", "100.000"}, CellEditCase{kPosi, true, "100.001", nullptr},
        CellEditCase{kPosi, true, "100.0009", "100.000"},
        CellEditCase{kPosi, true, "-0.1", nullptr}, CellEditCase{kPosi, true, "", "  0.000"},
        CellEditCase{kAxis4 + kPosi, true, "0.05", "  0.042"}));

TEST_F(PositionTest, APositionTypedStandsInBothFormsAtTheRowOfAGridFromOne) {
    showRows(5, 7);
    GoToCell(3, kPosi + 1);
    ASSERT_TRUE(Edit("123"));
    EXPECT_EQ(PosiUnitTable[2].pulse[0], 123);
    EXPECT_EQ(PosiUnitTable[2].mm[0], 0.615);
    EXPECT_EQ(PosiUnitTable[6].pulse[0], 0);

    DispMmFlag = kSet;
    MmRoundUpFlag = kSet;
    GoToCell(4, kPosi + 1);
    ASSERT_TRUE(Edit("0.0125"));
    EXPECT_EQ(cell(7, kPosi), "  0.010") << "cut to three decimals before it is snapped";
    GoToCell(4, kAxis4 + kPosi + 1);
    ASSERT_TRUE(Edit("0.021"));
    EXPECT_EQ(PosiUnitTable[3].pulse[3], 1);
    EXPECT_DOUBLE_EQ(PosiUnitTable[3].mm[3], 8.0 / 192);
}

TEST_F(PositionTest, HalfAPulseGoesDownUnlessTheOptionSaysUp) {
    DispMmFlag = kSet;
    DevSetting[0].DevLead = 4; // 0.01 mm a pulse
    for (const Flag up : {kClear, kSet}) {
        MmRoundUpFlag = up;
        showRows(1, 1);
        GoToCell(2, kPosi + 1);
        ASSERT_TRUE(Edit("0.025"));
        EXPECT_EQ(cell(1, kPosi), IsSet(up) ? "  0.030" : "  0.020");
        EXPECT_EQ(PosiUnitTable[1].pulse[0], IsSet(up) ? 3 : 2);
    }
}

TEST_F(PositionTest, InPulsesTheMmFormIsCutToThreeDecimals) {
    showRows(1, 1);
    GoToCell(2, kAxis4 + kPosi + 1);
    ASSERT_TRUE(Edit("41"));
    EXPECT_DOUBLE_EQ(PosiUnitTable[1].mm[3], 1.708); // of 1.70833
}

TEST_F(PositionTest, InPulsesAFigureBeyondTheStrokeInMmIsKeptWithABeep) {
    showRows(1, 1);
    DevSetting[0].MaxStrokeMm = 0.6;
    GoToCell(2, kPosi + 1);
    EXPECT_TRUE(Edit("123"));
    EXPECT_EQ(cell(1, kPosi), "123");
    EXPECT_EQ(platform.beeps, 1);
    EXPECT_EQ(PosiUnitTable[1].pulse[0], 0);
    EXPECT_EQ(PosiDirtyFlag, kSet);
}

TEST_F(PositionTest, AnEditFillsTheSelectedRowsOfItsColumn) {
    showRows(1, 9);
    flgdData_RowColChange(4, 1, 6, 1);
    ASSERT_TRUE(Edit("10"));
    for (int position = 1; position <= 9; ++position) {
        EXPECT_EQ(cell(position, kVel), position >= 3 && position <= 5 ? "10" : "30");
    }
    flgdData_RowColChange(9, 2, 8, 3); // upwards, over two columns
    ASSERT_TRUE(Edit("1"));
    EXPECT_EQ(cell(7, kAcc), "1");
    EXPECT_EQ(cell(8, kAcc), "1");
    EXPECT_EQ(cell(9, kAcc), "3");
    EXPECT_EQ(cell(7, kWay), "0");
    EXPECT_EQ(flgdData().fillMode, FillMode::OneCell);

    flgdData_RowColChange(2, 1, 4, 1);
    EXPECT_FALSE(Edit("99")); // the other selected rows keep what they have
    CancelEdit();
    EXPECT_EQ(cell(1, kVel), "30");
    EXPECT_EQ(cell(3, kVel), "10");
}

TEST_F(PositionTest, AnEditIsRefusedWhereThereIsNothingToEdit) {
    EXPECT_FALSE(StartEdit()) << "no data";
    showRows(1, 2);
    EXPECT_FALSE(StartEdit()) << "no current cell";
    GoToCell(2, 5);
    EXPECT_FALSE(flgdData_DblClick()) << "AXIS 2 is out of use";
    GoToCell(2, 1);
    {
        const GridLock lock;
        EXPECT_FALSE(StartEdit());
    }
    EXPECT_TRUE(flgdData_DblClick());
    EXPECT_FALSE(StartEdit()) << "it is being edited already";
    EXPECT_FALSE(flgdData_BeforeEdit(99, 1));
}

TEST_F(PositionTest, TheCellBeingEditedIsPaintedAndGetsItsColourBack) {
    showRows(1, 2);
    const auto colour = [](std::size_t column) { return flgdData().rows[2].colour[column]; };
    GoToCell(2, 13);
    ASSERT_TRUE(StartEdit());
    EXPECT_EQ(colour(13), CellColour::Editing);
    SetEditText("5");
    flgdData_KeyDownEdit(kKeyEscape);
    EXPECT_EQ(flgdData().edit.text, "30");
    CancelEdit();
    EXPECT_EQ(colour(13), CellColour::Band);
    ASSERT_TRUE(Edit("5"));
    EXPECT_EQ(colour(13), CellColour::Band);
    EXPECT_EQ(cell(1, kAxis4), "5");
}

TEST_F(PositionTest, EachColumnHasItsLengthAndItsKeys) {
    struct Keys {
        int column;
        int length;
        std::u32string pulses;
        std::u32string mm;
    };
    const std::vector<Keys> table{{kVel, 2, U"0123456789", U"0123456789"},
                                  {kAcc, 1, U"123", U"123"},
                                  {kWay, 1, U"0123", U"0123"},
                                  {kPosi, 7, U"0123456789", U"0123456789."},
                                  {kItpl, 1, U"01", U"01"},
                                  {kOut, 1, U"0123", U"0123"},
                                  {kSm, 2, U"0123456789", U"0123456789"}};
    showRows(1, 1);
    const std::u32string offered = U"0123456789.-+eE &Habcあ";
    for (const Keys& keys : table) {
        for (const bool mm : {false, true}) {
            SCOPED_TRACE(keys.column);
            DispMmFlag = FlagOf(mm);
            GoToCell(2, keys.column + 1);
            ASSERT_TRUE(StartEdit());
            EXPECT_EQ(flgdData().edit.maxLength, keys.length);
            std::u32string passed;
            std::copy_if(offered.begin(), offered.end(), std::back_inserter(passed),
                         flgdData_KeyPressEdit);
            EXPECT_EQ(passed, mm ? keys.mm : keys.pulses);
            for (const char32_t key : {U'\b', U'\t', U'\r'}) {
                EXPECT_TRUE(flgdData_KeyPressEdit(key));
            }
            CancelEdit();
        }
    }
    AccWideFlag = kSet;
    GoToCell(2, kAcc + 1);
    EXPECT_TRUE(flgdData_KeyPressEdit('9'));
    GoToCell(2, kComment + 1);
    ASSERT_TRUE(StartEdit());
    EXPECT_EQ(flgdData().edit.maxLength, 40);
    EXPECT_TRUE(std::all_of(offered.begin(), offered.end(), flgdData_KeyPressEdit));
}

TEST_F(PositionTest, EnterGoesAlongTheRowAndIntoANewLine) {
    const auto at = [] { return std::pair(flgdData().row, flgdData().col); };
    showRows(1, 2);
    GoToCell(2, 4);
    ASSERT_TRUE(Edit("7", kKeyEnter));
    EXPECT_EQ(at(), std::pair(2, 5)) << "the next axis, in use or not";
    GoToCell(2, kGridCommentColumn);
    ASSERT_TRUE(Edit("a", kKeyEnter));
    EXPECT_EQ(at(), std::pair(3, 1));
    GoToCell(3, kGridCommentColumn);
    ASSERT_TRUE(Edit("b", kKeyEnter));
    EXPECT_EQ(at(), std::pair(4, 1));
    EXPECT_EQ(GridLast, 3);
    EXPECT_EQ(GridText(4, 0), "3");
    EXPECT_EQ(cell(3, kVel), "30");
    EXPECT_EQ(cell(3, kAxis4 + kAcc), "2");
    EXPECT_EQ(cell(2, kComment), "b");

    GoToCell(2, 1);
    ASSERT_TRUE(Edit("9", kKeyTab));
    EXPECT_EQ(at(), std::pair(2, 2)) << "Tab goes one cell to the right";
    GoToCell(2, 1);
    EXPECT_FALSE(Edit("99", kKeyEnter));
    SetEditText("11");
    EXPECT_TRUE(CommitEdit()); // a click elsewhere: the refused Enter is forgotten
    EXPECT_EQ(at(), std::pair(2, 1));

    showRows(990, 999);
    GoToCell(11, kGridCommentColumn);
    ASSERT_TRUE(Edit("last", kKeyEnter));
    EXPECT_EQ(at(), std::pair(2, 1));
    EXPECT_EQ(GridLast, 999);
    EXPECT_EQ(flgdData().rows.size(), 12U);
}

TEST_F(PositionTest, TheInputMethodIsOffButInTheComment) {
    showRows(1, 2);
    platform.imeOpen = true;
    flgdData_RowColChange(2, kGridCommentColumn, 2, kGridCommentColumn);
    EXPECT_TRUE(platform.imeOpen);
    flgdData_RowColChange(2, 4, 2, 4);
    EXPECT_FALSE(platform.imeOpen);
    EXPECT_EQ(ThePanel().scale[0], "<1>1mm = 200Pulse");
}

} // namespace
} // namespace qdw8::test
