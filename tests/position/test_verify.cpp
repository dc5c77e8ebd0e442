#include "position/posi_verify.h"

#include "position/posi_file.h"
#include "position/posi_reader.h"
#include "position/range_dialogs.h"
#include "position_bench.h"

#include <fstream>
#include <sstream>

namespace qdw8::test {
namespace {

using Range = std::pair<std::int16_t, std::int16_t>;

Range RangeOf(const std::string& text) {
    return {static_cast<std::int16_t>(std::stoi(text)),
            static_cast<std::int16_t>(std::stoi(text.substr(text.find('-') + 1)))};
}

TEST_F(PositionTest, TheRangeDialogsTakeWhatIsInOrderAndInside) {
    EXPECT_EQ(ReadRangePreset().start + "-" + ReadRangePreset().end, "1-15");
    std::ifstream file(QDW8_SOURCE_DIR "/tests/position/ranges.txt");
    for (std::string given; std::getline(file, given);) {
        SCOPED_TRACE(given);
        std::istringstream parts(given);
        std::array<std::string, 4> field;
        for (std::string& part : field) {
            std::getline(parts, part, '\t');
        }
        const auto& [dialog, start, end, outcome] = field;
        if (dialog == "common") {
            std::tie(FileFirst, FileLast) = RangeOf(start);
            std::tie(GridFirst, GridLast) = RangeOf(end);
            EXPECT_EQ(CompareFileRange(), outcome == "-" ? 1 : 0);
            EXPECT_TRUE(outcome == "-" || RangeOf(outcome) == Range(VerifyFirst, VerifyLast));
        } else if (!dialog.starts_with('#')) {
            showRows(5, 20);
            std::tie(VerifyFirst, VerifyLast) = Range{5, 10};
            std::tie(PosiFirst, PosiLast) = Range{101, 102};
            const bool told = outcome.starts_with("box ");
            if (told) {
                platform.expectBox("Invalid value in Position No.");
            }
            const bool taken = dialog == "read"   ? TakeReadRange(false, {start, end})
                               : dialog == "grid" ? TakeGridRange({start, end})
                                                  : TakeVerifyRange({start, end});
            EXPECT_EQ(taken, outcome.find(' ') == outcome.npos);
            EXPECT_EQ(Range(PosiFirst, PosiLast), RangeOf(outcome.substr(outcome.find(' ') + 1)));
            platform.checkAllAsked();
        }
    }
    EXPECT_EQ(ReadRangePreset().start + "-" + GridRangePreset().end, "3-4");
    EXPECT_EQ(VerifyRangePreset().file.end + "-" + VerifyRangePreset().range.start, "999-3");
    EXPECT_TRUE(TakeReadRange(true, {"", ""}));
    EXPECT_EQ(Range(PosiFirst, PosiLast), Range(1, 999));
}

/// A grid of rows 1 to 10 and a file of rows 5 to 20, the same where both have rows.
class FileVerify : public PositionTest {
protected:
    FileVerify() {
        showRows(5, 20);
        fill();
        EXPECT_EQ(PosiDataCheck3(), PosiCheck::Committed);
        for (int position = 5; position <= 20; ++position) {
            PosiTable[static_cast<std::size_t>(position)].number[4] = 31; // an axis out of use
            PosiTable[static_cast<std::size_t>(position)].comment = "of the file";
        }
        PosiFolder = folder;
        EXPECT_EQ(SaveFileAs2("other.qdd"), 0);
        ShowPosiFileName("mine");
        showRows(1, 10);
        fill();
        GoToCell(4, 4);
    }
    void verify(const char* end = "10") {
        expectFile(FileQuestion::Kind::Open, "Open Position Data file to be Verified", name);
        platform.expectScreen("frmSelectPosiNo4", [end] { TakeVerifyRange({"5", end}); });
    }
    void expectEqual() {
        platform.expectBox("Data : indicated and saved into the file(" + name +
                           ")\r\n\r\nResult of Verify - OK");
    }
    void runAndExpectAsBefore() {
        PosiDataFileShogo2();
        platform.checkAllAsked();
        ExpectRanges(1, 10);
        EXPECT_EQ(PosiErrorCount, 0);
        EXPECT_TRUE(ResultRows().empty());
        EXPECT_EQ(flgdData().row, 4) << "the user's place stays";
        EXPECT_EQ(cell(6, kComment) + PosiFileName, "mine");
        ExpectAtRest(platform);
    }
    std::string name = pathOf("other.qdd");

private:
    static void fill() {
        for (int position = GridFirst; position <= GridLast; ++position) {
            type(position, kPosi, std::to_string(1000 + position));
        }
    }
};

TEST_F(FileVerify, TellsEqualDataAndShowsDifferencesByRowAndColumn) {
    type(1, kWay, "3"); // outside what both have in common
    verify();
    expectEqual();
    runAndExpectAsBefore();
    type(6, kVel, "29");
    type(6, kSm, "1");
    type(9, kPosi, "1010");
    verify();
    platform.expectScreen("frmSyogoKekka", [] {
        EXPECT_EQ(SyogoMode, kSet);
        EXPECT_EQ(PosiErrorCount, 2);
        const auto rows = ResultRows();
        ASSERT_EQ(rows.size(), 2U);
        EXPECT_EQ(rows[0].position * rows[1].position, 54);
        EXPECT_EQ(rows[0].failed.to_ulong(), (1UL << kVel) | (1UL << kSm));
        EXPECT_EQ(rows[1].failed.to_ulong(), 1UL << kPosi);
    });
    runAndExpectAsBefore();
    verify("5"); // a narrower range leaves both rows out
    expectEqual();
    runAndExpectAsBefore();
    type(6, kVel, "30");
    type(6, kSm, "0");
    type(9, kPosi, "1009");
    EXPECT_EQ(ChangeUnit(kSet), 0); // in mm the pulses are compared
    verify();
    expectEqual();
    runAndExpectAsBefore();
}

TEST_F(FileVerify, EveryWayOutBeforeTheComparison) {
    const std::string title = "Open Position Data file to be Verified";
    type(3, kOut, "9");
    platform.expectScreen("frmSyogoKekka", [] { EXPECT_EQ(SyogoMode, 0); });
    runAndExpectAsBefore();
    type(3, kOut, "0");
    expectFile(FileQuestion::Kind::Open, title, "");
    runAndExpectAsBefore();
    expectFile(FileQuestion::Kind::Open, title, name);
    platform.expectScreen("frmSelectPosiNo4", RangeDialogCancelled);
    runAndExpectAsBefore();
    expectFile(FileQuestion::Kind::Open, title, pathOf("missing.qdd"));
    platform.expectBox(box::kReadError);
    runAndExpectAsBefore();
    expectFile(FileQuestion::Kind::Open, title, fileOf("zero.qdd"));
    GridFirst = PosiFirst = 5;
    showRows(5, 6); // nothing in common
    platform.expectScreen("frmSelectPosiNo4 without a range");
    PosiDataFileShogo2();

    platform.expectDataShogo(0);
    VerifyChoose();
    platform.expectDataShogo(1);
    expectFile(FileQuestion::Kind::Open, title, "");
    VerifyChoose();
    platform.expectDataShogo(2);
    platform.expectScreen("frmSelectPosiNo3", RangeDialogCancelled);
    VerifyChoose();
    ResetGrid();
    for (const auto command : {VerifyChoose, PosiDataFileShogo2}) {
        platform.expectBox(box::kNoData);
        command();
    }
}

} // namespace
} // namespace qdw8::test
