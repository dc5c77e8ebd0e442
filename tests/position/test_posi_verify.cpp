#include "position/posi_verify.h"

#include "file_fixture.h"
#include "position/check_result.h"
#include "position/flex_grid.h"
#include "position/posi_reader.h"
#include "position/range_dialogs.h"
#include "transfer_fixture.h"

namespace qdw8::test {
namespace {

const std::string kReadError = "An error occured in Reading file.";
const std::string kNoData =
    "There is no position data.\r\nPlease try again after perform [New Data] or [Read from C/T] "
    "and then editing data. ";

TEST_F(PositionTest, TheRangesOfFileAndGridOverlap) {
    struct Case {
        std::int16_t fileFirst;
        std::int16_t fileLast;
        std::int16_t gridFirst;
        std::int16_t gridLast;
        std::int16_t first; ///< 0: nothing in common
        std::int16_t last;
    };
    for (const Case& given :
         {Case{5, 20, 1, 10, 5, 10}, Case{1, 7, 5, 10, 5, 7}, Case{11, 20, 1, 10, 0, 0},
          Case{1, 4, 5, 10, 0, 0}, Case{10, 20, 1, 10, 10, 10}, Case{1, 5, 5, 10, 5, 5},
          Case{3, 4, 1, 10, 3, 4}, Case{1, 999, 3, 4, 3, 4}}) {
        SCOPED_TRACE(testing::Message() << given.fileFirst << " " << given.gridFirst);
        FileFirst = given.fileFirst;
        FileLast = given.fileLast;
        GridFirst = given.gridFirst;
        GridLast = given.gridLast;
        EXPECT_EQ(CompareFileRange(), given.first == 0 ? 1 : 0);
        if (given.first != 0) {
            EXPECT_EQ(VerifyFirst, given.first);
            EXPECT_EQ(VerifyLast, given.last);
        }
    }
}

TEST_F(PositionTest, TheVerifyRangeDialogTakesWhatLiesInTheOverlap) {
    FileFirst = 5;
    FileLast = 20;
    GridFirst = 1;
    GridLast = 10;
    ASSERT_EQ(CompareFileRange(), 0);
    const VerifyRangeTexts preset = VerifyRangePreset();
    EXPECT_EQ(preset.file.start + "-" + preset.file.end, "5-20");
    EXPECT_EQ(preset.grid.start + "-" + preset.grid.end, "1-10");
    EXPECT_EQ(preset.range.start + "-" + preset.range.end, "5-10");
    struct Case {
        const char* start;
        const char* end;
        bool taken;
        bool box;
        std::int16_t first;
        std::int16_t last;
    };
    for (const Case& given :
         {Case{"5", "10", true, false, 5, 10}, Case{"7", "7", true, false, 7, 7},
          Case{"5", "3", false, false, 101, 102}, // nothing happens at all
          Case{"4", "9", false, true, 101, 9},    // the end is set all the same
          Case{"6", "11", false, true, 6, 102},   // and so is the start here
          Case{"", "9", false, true, 101, 9}, Case{"0", "999", false, true, 101, 102}}) {
        SCOPED_TRACE(testing::Message() << given.start << "-" << given.end);
        PosiFirst = 101;
        PosiLast = 102;
        if (given.box) {
            platform.expectBox("Invalid value in Position No.");
        }
        EXPECT_EQ(TakeVerifyRange({given.start, given.end}), given.taken);
        EXPECT_EQ(PosiFirst, given.first);
        EXPECT_EQ(PosiLast, given.last);
        platform.checkAllAsked();
    }
}

class FileVerify : public PosiFilesTest {
protected:
    FileVerify() {
        showRows(1, 10);
        for (int position = 1; position <= 10; ++position) {
            type(position, kPosi, std::to_string(1000 + position));
        }
        type(6, kComment, "of the grid");
        std::string rows;
        for (int position = 5; position <= 20; ++position) {
            std::string text = row(position, "of the file");
            // ACC of AXIS 4, a QD-61F, is 2 in the grid.
            const std::string three = R"(," 30"," 3"," 0"," 0"," 0")";
            text.replace(text.find(three), three.size(), R"(," 30"," 2.0"," 0"," 0"," 0")");
            // AXIS 2 is out of use, whatever the file says of it.
            const std::string two = R"(," 30"," 3"," 0"," 0")";
            text.replace(text.find(two), two.size(), R"(," 31"," 1"," 2"," 9")");
            rows += text;
        }
        write("other.qdd", head() + rows);
        name = path("other.qdd");
    }
    void expectFile() {
        platform.expectFile(question("Open Position Data file to be Verified"),
                            FileAnswer{name, "other.qdd"});
    }
    std::string equalBox() const {
        return "Data : indicated and saved into the file(" + name +
               ")\r\n\r\nResult of Verify - OK";
    }
    void expectAsBefore() {
        EXPECT_EQ(GridFirst, 1);
        EXPECT_EQ(PosiFirst, 1);
        EXPECT_EQ(PosiLast, 10);
        EXPECT_EQ(PosiErrorCount, 0);
        EXPECT_TRUE(ResultRows().empty());
        EXPECT_FALSE(flgdData().locked);
        EXPECT_EQ(cell(6, kComment), "of the grid");
    }
    std::string name;
};

TEST_F(FileVerify, EqualDataAreToldInABox) {
    type(1, kWay, "3"); // outside what both have in common
    type(7, 4, "60");   // of an axis out of use
    expectFile();
    platform.expectScreen("frmSelectPosiNo4", [] {
        EXPECT_EQ(VerifyFirst, 5);
        EXPECT_EQ(VerifyLast, 10);
        EXPECT_TRUE(TakeVerifyRange({"5", "10"}));
    });
    platform.expectBox(equalBox());
    PosiDataFileShogo2();
    expectAsBefore();
    EXPECT_EQ(PosiFileName, "");
}

TEST_F(FileVerify, DifferencesAreShownByRowAndColumn) {
    type(6, kVel, "29");
    type(6, kSm, "1");
    type(9, kPosi, "1010");
    expectFile();
    platform.expectScreen("frmSelectPosiNo4", [] { TakeVerifyRange({"5", "10"}); });
    platform.expectScreen("frmSyogoKekka", [] {
        EXPECT_EQ(SyogoMode, kSet);
        EXPECT_EQ(PosiErrorCount, 2);
        const auto rows = ResultRows();
        ASSERT_EQ(rows.size(), 2U);
        EXPECT_EQ(rows[0].position, 6);
        EXPECT_EQ(rows[0].failed.to_ulong(), (1UL << kVel) | (1UL << kSm));
        EXPECT_EQ(rows[1].position, 9);
        EXPECT_EQ(rows[1].failed.to_ulong(), 1UL << kPosi);
    });
    PosiDataFileShogo2();
    expectAsBefore();

    expectFile(); // a narrower range leaves both rows out
    platform.expectScreen("frmSelectPosiNo4", [] { TakeVerifyRange({"7", "8"}); });
    platform.expectBox(equalBox());
    PosiDataFileShogo2();
    expectAsBefore();
}

TEST_F(FileVerify, InMmThePulsesAreCompared) {
    DispMmFlag = kSet;
    for (int position = 1; position <= 10; ++position) {
        type(position, kPosi, std::to_string(5 + 0.005 * position));
        type(position, 15, "0");
    }
    expectFile();
    platform.expectScreen("frmSelectPosiNo4", [] { TakeVerifyRange({"5", "10"}); });
    platform.expectBox(equalBox());
    PosiDataFileShogo2();
}

TEST_F(FileVerify, EveryWayOutBeforeTheComparison) {
    type(3, kOut, "9");
    platform.expectScreen("frmSyogoKekka", [] { EXPECT_EQ(SyogoMode, 0); });
    PosiDataFileShogo2();
    type(3, kOut, "0");

    platform.expectFile(question("Open Position Data file to be Verified"), std::nullopt);
    PosiDataFileShogo2();

    expectFile();
    platform.expectScreen("frmSelectPosiNo4", [] {
        TakeVerifyRange({"7", "8"});
        RangeDialogCancelled();
    });
    PosiDataFileShogo2();
    EXPECT_EQ(RangeCancelFlag, kClear);
    expectAsBefore();

    write("other.qdd", head() + row(11));
    expectFile();
    platform.expectScreen("frmSelectPosiNo4 without a range");
    PosiDataFileShogo2();

    name = path("missing.qdd");
    expectFile();
    platform.expectBox(kReadError);
    PosiDataFileShogo2();
    EXPECT_EQ(platform.now, 500);
    expectAsBefore();

    ResetGrid();
    platform.expectBox(kNoData);
    PosiDataFileShogo2();
}

TEST_F(FileVerify, AForeignFileIsToldAndWhatWasReadBeforeIsCompared) {
    ASSERT_EQ(ReadPosiFile(name), 0);
    write("foreign.txt", "hello");
    name = path("foreign.txt");
    expectFile();
    platform.expectBox("Not Position Data file for QD-W8.\r\nOpening file is canceled.");
    platform.expectScreen("frmSelectPosiNo4", [] { TakeVerifyRange({"5", "10"}); });
    platform.expectBox(equalBox());
    PosiDataFileShogo2();
}

TEST_F(FileVerify, TheButtonAsksWithWhat) {
    platform.expectDataShogo(0);
    VerifyChoose();
    platform.expectDataShogo(1);
    platform.expectFile(question("Open Position Data file to be Verified"), std::nullopt);
    VerifyChoose();
    platform.expectDataShogo(2);
    platform.expectScreen("frmSelectPosiNo3", RangeDialogCancelled);
    VerifyChoose();
    ResetGrid();
    platform.expectBox(kNoData);
    VerifyChoose();
}

class CtVerify : public ControllerTest {
protected:
    CtVerify() {
        PortOccupyFlag = kClear;
        const std::string rest = "1E30000001E30000001E20000000000";
        for (int position = 1; position <= 25; ++position) {
            line.controller.setPositionRow(position, "1E3000064" + rest);
        }
        showRows(1, 25);
        for (int position = 1; position <= 25; ++position) {
            type(position, kPosi, "100");
        }
    }
    void expectRange(std::int16_t first, std::int16_t last) {
        platform.expectScreen("frmSelectPosiNo3", [first, last] {
            PosiFirst = first;
            PosiLast = last;
        });
    }
    void expectAsBefore() {
        EXPECT_EQ(PosiFirst, 1);
        EXPECT_EQ(PosiLast, 25);
        EXPECT_EQ(PosiErrorCount, 0);
        EXPECT_FALSE(TheTransferDialog().shown);
        EXPECT_FALSE(flgdData().locked);
        EXPECT_FALSE(platform.portOpen);
        EXPECT_EQ(CtBusyFlag, kClear);
        EXPECT_EQ(cell(1, kPosi), "100");
    }
    const std::string equal =
        "Data : indicated and inside of controller\r\n\r\nResult of Verify - OK";
};

TEST_F(CtVerify, ComparesTheRangeWithTheController) {
    expectRange(3, 4);
    platform.expectBox(equal);
    PosiDataCtShogo();
    EXPECT_EQ(platform.sent, (std::vector<std::string>{"0CM1", "0RP003", "0RP004"}));
    expectAsBefore();

    type(4, kItpl, "1");
    type(5, kItpl, "1");
    expectRange(3, 4);
    platform.expectScreen("frmSyogoKekka", [] {
        EXPECT_EQ(SyogoMode, kSet);
        const auto rows = ResultRows();
        ASSERT_EQ(rows.size(), 1U);
        EXPECT_EQ(rows[0].position, 4);
        EXPECT_TRUE(rows[0].failed.test(kItpl));
    });
    PosiDataCtShogo();
    expectAsBefore();
}

TEST_F(CtVerify, WaysOut) {
    platform.expectScreen("frmSelectPosiNo3", RangeDialogCancelled);
    PosiDataCtShogo();
    type(1, kOut, "");
    expectRange(1, 2);
    platform.expectScreen("frmSyogoKekka", [] { EXPECT_EQ(SyogoMode, 0); });
    PosiDataCtShogo();
    type(1, kOut, "0");
    platform.failingOpens = -1;
    expectRange(1, 2);
    platform.expectBox("Failed Communication port open.\r\n\r\nPlease check a setting of a "
                       "communication port.");
    PosiDataCtShogo();
    EXPECT_TRUE(platform.sent.empty());
    platform.failingOpens = 0;

    fault("0CM1:1:silence");
    expectRange(1, 2);
    platform.expectBox("Communication timeout error!\r\n\r\nCheck the followings;\r\n\r\n 1.Power "
                       "ON for controller?\r\n\r\n 2.Communication cables are connected?");
    PosiDataCtShogo();
    EXPECT_EQ(CommErrorFlag, kClear);
    EXPECT_EQ(line.controller.count("0RP"), 0);

    line.controller.setTurnaround(10);
    platform.after(100, cmdTranceCancel_Click);
    expectRange(1, 25);
    PosiDataCtShogo(); // cancelled without a word
    EXPECT_LT(line.controller.count("0RP"), 25);
    expectAsBefore();
}

struct FaultCase {
    const char* fault;
    std::vector<std::string> boxes; ///< none: the verify comes to its end
    const char* range = "";
};

class VerifyFaults : public CtVerify, public testing::WithParamInterface<FaultCase> {};

TEST_P(VerifyFaults, EndTheVerifyAndCompareNothingWrong) {
    for (const int occurrence : {1, 10, 20}) {
        const std::string rule =
            "0RP:" + std::to_string(occurrence) + GetParam().range + ":" + GetParam().fault;
        SCOPED_TRACE(rule);
        line.controller.clearFaults();
        line.controller.clearCounters();
        ReplyBuffer.clear(); // half a reply would stand in front of this run's first one
        fault(rule);
        expectRange(1, 20);
        for (const std::string& box : GetParam().boxes) {
            platform.expectBox(box);
        }
        if (GetParam().boxes.empty()) {
            platform.expectBox(equal);
        }
        const std::int64_t begin = platform.now;
        PosiDataCtShogo();
        platform.checkAllAsked();
        EXPECT_LT(platform.now - begin, 20'000);
        EXPECT_GE(line.controller.count("0RP"), occurrence);
        expectAsBefore();
    }
}

const std::string kFailed = "Communication error occurs!";
const std::string kPort = "Failed Communication port open.\r\n\r\n"
                          "Please check a setting of a communication port.";
const std::string kWrongData = "Communication error occurs!\r\ntransmit data is wrong";
const std::string kLength = "Communication data length error occurs!\r\nLength of data is wrong.";
const std::string kTimeout =
    "Communication timeout error!\r\n\r\nCheck the followings;\r\n\r\n 1.Power ON for "
    "controller?\r\n\r\n 2.Communication cables are connected?";

INSTANTIATE_TEST_SUITE_P(
    Table, VerifyFaults,
    testing::Values(FaultCase{"silence", {}}, FaultCase{"deaf", {}}, FaultCase{"late=400", {}},
                    FaultCase{"bytes=2", {}}, FaultCase{"part=20", {kLength}},
                    FaultCase{"silence", {kTimeout}, "+"}, FaultCase{"noise-before=zz", {kFailed}},
                    FaultCase{"noise-inside=7", {kLength}}, FaultCase{"echo=0RQ", {kFailed}},
                    FaultCase{"long", {kLength}}, FaultCase{"short", {kLength}},
                    FaultCase{"twice", {kLength}},
                    FaultCase{"reply=0RP3E71E30000641E30000001E30000001E20000000000", {kWrongData}},
                    FaultCase{"hangup", {kPort}}, FaultCase{"hangup=30", {kPort}},
                    FaultCase{"error=03", {kFailed + "\r\nError No.3\r\n[Homing not completed]"}}));

} // namespace
} // namespace qdw8::test
