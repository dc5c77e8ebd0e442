#include "device/Module2Calc.h"
#include "link/line_state.h"
#include "position/cell_edit.h"
#include "position/grid_clipboard.h"
#include "position/posi_columns.h"
#include "position_bench.h"
#include "support/story.h"

namespace qdw8::test {
namespace {

TEST_F(PositionTest, CellTextsAreJudgedAlikeHoweverTheyCame) {
    int lines = 0;
    for (const std::string& given : LinesOf("position/cells.txt")) {
        SCOPED_TRACE(given);
        std::vector<std::string> field;
        Args parts(given + "\t");
        for (std::string part; std::getline(parts, part, '\t');) {
            field.push_back(part);
        }
        ASSERT_EQ(field.size(), 6U);
        const int column = ColumnNamed(field[0]);
        const std::string text = field[2].substr(1, field[2].size() - 2);
        OffLineFlag = FlagOf(++lines % 2 == 0); // neither asks for a controller
        DispMmFlag = FlagOf(field[1] == "mm");
        showRows(5, 7);
        const std::string before = cell(6, column);
        PosiDirtyFlag = kClear;
        platform.beeps = 0;

        GoToCell(3, column + 1);
        ASSERT_TRUE(StartEdit());
        SetEditText(text);
        const bool taken = CommitEdit();
        EXPECT_EQ(taken ? cell(6, column) : "-", field[3]);
        EXPECT_EQ(PosiDirtyFlag, FlagOf(taken));
        EXPECT_EQ(platform.beeps, taken ? 0 : 1);
        EXPECT_EQ(flgdData().edit.open, !taken);
        EXPECT_EQ(taken ? before : flgdData().edit.text, before);
        CancelEdit();

        SetGridText(3, column + 1, "x");
        platform.clipboard = text;
        mnuEditCellPaste_Click();
        if (text.empty()) {
            SetGridText(3, column + 1, ""); // nothing was pasted
        }
        EXPECT_EQ(cell(6, column), field[4]);
        const bool clean = field[5] != "-";
        if (!clean) {
            platform.expectScreen("frmSyogoKekka", [&] {
                ASSERT_EQ(ResultRows().size(), 1U);
                EXPECT_EQ(ResultRows()[0].position, 6);
                EXPECT_EQ(ResultRows()[0].failed.to_ulong(), 1UL << static_cast<unsigned>(column));
            });
        }
        EXPECT_EQ(PosiDataCheck3(), clean ? PosiCheck::Committed : PosiCheck::Refused);
        EXPECT_EQ(PosiRowError[5], FlagOf(!clean));
        EXPECT_EQ(cell(6, column), clean ? field[5] : field[4]);
        EXPECT_EQ(flgdData().row, 3) << "the user's place stays";
        platform.checkAllAsked();
    }
    EXPECT_GT(lines, 50);
}

TEST_F(PositionTest, APositionTypedStandsInBothFormsAtTheRowOfAGridFromOne) {
    const auto edit = [](int row, int column, const std::string& text) {
        GoToCell(row, column + 1);
        ASSERT_TRUE(StartEdit());
        SetEditText(text);
        EXPECT_TRUE(CommitEdit());
    };
    showRows(5, 7);
    edit(3, kPosi, "123");
    EXPECT_EQ(PosiUnitTable[2].pulse[0], 123);
    EXPECT_EQ(PosiUnitTable[2].mm[0], 0.615);
    EXPECT_EQ(PosiUnitTable[6].pulse[0], 0);
    edit(2, kAxis4 + kPosi, "41");
    EXPECT_DOUBLE_EQ(PosiUnitTable[1].mm[3], 1.708) << "of 1.70833";
    DevSetting[0].MaxStrokeMm = 0.6;
    edit(4, kPosi, "124");
    EXPECT_EQ(platform.beeps, 1) << "beyond the stroke in mm it is kept with a beep";
    EXPECT_EQ(PosiUnitTable[3].pulse[0], 0);

    DispMmFlag = kSet;
    DevSetting[0].DevLead = 4; // 0.01 mm a pulse
    CalcMaxStrokeMm();
    for (const Flag up : {kClear, kSet}) {
        MmRoundUpFlag = up;
        edit(4, kPosi, "0.025");
        EXPECT_EQ(cell(7, kPosi), IsSet(up) ? "  0.030" : "  0.020");
        EXPECT_EQ(PosiUnitTable[3].pulse[0], IsSet(up) ? 3 : 2);
    }
    showRows(0, 999);
    edit(1001, kPosi, "5"); // the row of no storage
    EXPECT_EQ(cell(999, kPosi), "  5.000");
}

} // namespace
} // namespace qdw8::test
