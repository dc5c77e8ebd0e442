#include "position/posi_write.h"

#include "position/check_result.h"
#include "position/flex_grid.h"
#include "position/grid_editor.h"
#include "position/posi_check.h"
#include "position/stroke_check.h"
#include "setup/posi_write.h"
#include "transfer_fixture.h"

#include <algorithm>

namespace qdw8::test {
namespace {

const std::string kFailed = "Communication error occurs!";
const std::string kWrongData = "Communication error occurs!\r\ntransmit data is wrong";
const std::string kLength = "Communication data length error occurs!\r\nLength of data is wrong.";
const std::string kTimeout =
    "Communication timeout error!\r\n\r\nCheck the followings;\r\n\r\n 1.Power ON for "
    "controller?\r\n\r\n 2.Communication cables are connected?";
const std::string kConfirm = "Data is transmitted to controller,Yes?";
const std::string kDone = "Completed data transmit.";
const std::string kNoExchange = "Communication Error occured.";
const std::string kMoving = "The writing of data is not made during movement.";
const std::string kPort =
    "Failed Communication port open.\r\n\r\nPlease check a setting of a communication port.";
const std::string kUnmatched =
    "Axis setting by the side of PC and in side of controller unmatched.\r\nPlease change the "
    "setting of Device by [Online Device Setting] or [detail edit].";

class WriteTest : public ControllerTest {
protected:
    WriteTest() { PortOccupyFlag = kClear; }

    void expectRange(std::int16_t first, std::int16_t last) {
        platform.expectScreen("frmSelectPosiNo3", [first, last] {
            PosiFirst = first;
            PosiLast = last;
        });
    }
    void expectWriteOf(std::int16_t first, std::int16_t last) {
        expectRange(first, last);
        platform.expectBox(kConfirm, BoxButtons::OkCancel, BoxAnswer::Ok);
    }
    std::string held(int position) const {
        return line.controller.machine().working.positions[static_cast<std::size_t>(position) - 1];
    }
    void expectCommandsBack() {
        EXPECT_FALSE(TheTransferDialog().shown);
        EXPECT_FALSE(flgdData().locked);
        EXPECT_EQ(flgdData().frozen, 0);
        EXPECT_EQ(CtBusyFlag, kClear);
        EXPECT_FALSE(platform.portOpen);
        EXPECT_EQ(PosiFirst, GridFirst);
        EXPECT_EQ(PosiLast, GridLast);
    }
};

TEST_F(WriteTest, ARowIsFortyThreeCharactersInPulses) {
    showRows(1, 999);
    type(1, kPosi, "12500");
    type(999, kVel, "60");
    type(999, kAcc, "1");
    type(999, kWay, "3");
    type(999, kPosi, "262143");
    type(999, 15, "4799");
    type(999, kItpl, "1");
    type(999, kOut, "2");
    type(999, kSm, "20");
    DevSetting[0].MaxPulse = 262143;
    ASSERT_EQ(PosiDataCheck3(), 0);
    EXPECT_EQ(PosiRowText(1), "0011E30030D41E30000001E30000001E20000000000");
    EXPECT_EQ(PosiRowText(999), "3E73C133FFFF1E30000001E30000001E20012BF1214");
    PosiTable[2].number[kVel] = 256;
    EXPECT_EQ(PosiRowText(2), "002X3000000" + PosiRowText(1).substr(12));
}

TEST_F(WriteTest, TheWholeOrderOfAWrite) {
    showRows(4, 9);
    type(6, kPosi, "123");
    const std::string before = held(7);
    expectWriteOf(5, 6);
    std::vector<std::string> dialogs;
    Screens().frmTrance = [&] {
        const TransferDialog& dialog = TheTransferDialog();
        const std::string text = dialog.lblSetumei + (dialog.cancelShown ? " cancel " : " ") +
                                 std::to_string(dialog.prgBar1) + "/" +
                                 std::to_string(dialog.prgBar1Max);
        dialogs.push_back(dialog.shown ? text : "gone");
    };
    platform.expectBox(kDone);
    WriteToCt();
    EXPECT_EQ(platform.sent, (std::vector<std::string>{
                                 "0RA", "0CM01", // stands still; the mode for writing
                                 "0RD0", "0RD6", "0RDC", "0RD6", "0RDC", // axes, devices
                                 "0CM1", "0RD0", "0RD6", "0RDC",         // the stroke check
                                 "0WP0051E30000001E30000001E30000001E20000000000",
                                 "0WP0061E300007B1E30000001E30000001E20000000000", "0CM00"}));
    const std::string sending = "Sending Data to the controller... cancel ";
    const std::string checking = "Communication checking... ";
    EXPECT_EQ(dialogs,
              (std::vector<std::string>{checking + "0/4", checking + "1/4", checking + "2/4",
                                        checking + "3/4", checking + "4/4", sending + "0/2",
                                        sending + "1/2", sending + "2/2", "gone"}));
    EXPECT_EQ(held(6).substr(0, 9), "1E300007B");
    EXPECT_EQ(held(7), before);
    EXPECT_EQ(line.controller.machine().mode, 0);
    EXPECT_EQ(CtStrokeLimit, (std::array<std::int32_t, kAxes>{20000, 0, 0, 4800}));
    EXPECT_EQ(GridFirst, 4);
    expectCommandsBack();
}

TEST_F(WriteTest, NothingGoesOutBeforeEveryQuestionIsAnswered) {
    platform.expectBox("There is no position data.\r\nPlease try again after perform [New Data] or "
                       "[Read from C/T] and then editing data. ");
    WriteToCt();
    showRows(1, 9);
    platform.expectScreen("frmSelectPosiNo3", [] { RangeCancelFlag = kSet; });
    WriteToCt();
    EXPECT_EQ(RangeCancelFlag, kClear);
    expectRange(2, 3);
    platform.expectBox(kConfirm, BoxButtons::OkCancel, BoxAnswer::Cancel);
    WriteToCt();
    expectCommandsBack();
    type(3, kOut, "");
    expectRange(2, 3);
    platform.expectScreen("frmSyogoKekka");
    WriteToCt();
    expectCommandsBack();
    EXPECT_TRUE(platform.sent.empty());
}

TEST_F(WriteTest, AControllerThatMovesOrAnswersNothingIsNotWrittenTo) {
    struct Case {
        const char* rule;
        std::vector<std::string> boxes;
        const char* last; ///< the last frame that goes out
    };
    const std::vector<Case> cases{
        {"0RA:*:reply=0RA0", {kMoving}, "0RA"},
        {"0RA:*:silence", {kTimeout}, "0RA"},
        {"0CM01:*:silence", {kTimeout, kNoExchange}, "0CM01"},
        {"0RD0:*:silence", {}, "0RD0"},
        {"0RD6:1:error=03", {kFailed + "\r\nError No.3\r\n[Homing not completed]"}, "0RD6"},
        {"0RD6:2:error=03",
         {kFailed + "\r\nError No.3\r\n[Homing not completed]", kNoExchange},
         "0RD6"},
        {"0CM1:1:silence", {kTimeout}, "0CM1"},
        {"0RD0:2+:silence", {}, "0RD0"},
        {"0RD0:2:reply=0RD00000000000000B000000000000000000", {}, "0RD0"}, // other axes by now
        {"0RDC:3:reply=0RDC000800C002ZZ12C03D4600C800000000", {kWrongData}, "0RDC"},
    };
    showRows(1, 3);
    for (const Case& given : cases) {
        SCOPED_TRACE(given.rule);
        line.controller.clearFaults();
        line.controller.clearCounters();
        fault(given.rule);
        expectWriteOf(1, 2);
        for (const std::string& box : given.boxes) {
            platform.expectBox(box);
        }
        WriteToCt();
        platform.checkAllAsked();
        EXPECT_EQ(platform.sent.back(), given.last);
        EXPECT_EQ(line.controller.count("0WP"), 0);
        expectCommandsBack();
    }
}

TEST_F(WriteTest, AClosedPortIsToldOnce) {
    showRows(1, 2);
    platform.failingOpens = -1;
    expectWriteOf(1, 2);
    platform.expectBox(kPort);
    WriteToCt();
    EXPECT_TRUE(platform.sent.empty());
    expectCommandsBack();

    platform.expectBox(kPort);
    EXPECT_EQ(PosiKakikomimaeParaCheck(), 1);
    EXPECT_FALSE(TheTransferDialog().shown);
}

TEST_F(WriteTest, OtherAxesOrDevicesStopTheWrite) {
    showRows(1, 2);
    line.controller.setAxisMask(0b1011);
    expectWriteOf(1, 2);
    platform.expectBox(kUnmatched);
    WriteToCt();
    EXPECT_EQ(platform.sent.back(), "0RD0");
    line.controller.setAxisMask(0b1001);
    DevSetting[0].DevStroke = 50;
    expectWriteOf(1, 2);
    platform.expectBox(kUnmatched);
    WriteToCt();
    EXPECT_EQ(platform.sent.back(), "0RDC");
    EXPECT_EQ(line.controller.count("0WP"), 0);
    EXPECT_EQ(line.controller.machine().mode, 1) << "the mode stays";
    expectCommandsBack();
}

TEST_F(WriteTest, PositionsBeyondTheControllersStrokeAreListed) {
    DevSetting[0].MaxPulse = 20000;
    showRows(1, 9);
    type(1, kPosi, "20000"); // the end itself is not too far
    type(2, kPosi, "20001");
    type(4, 15, "4801");
    expectWriteOf(1, 9);
    platform.expectBox("Some position data exceed the soft limit in the Parameter(Stroke).\r\n"
                       "Confirm the position data indicated bellow, and try it again.\r\n"
                       " <Position No. 2,4,>");
    WriteToCt();
    EXPECT_EQ(line.controller.count("0WP"), 0);
    expectCommandsBack();

    // The rows are counted from the top of the grid: 3 to 5 has rows 1 to 3 tested.
    expectWriteOf(3, 5);
    platform.expectBox("Some position data exceed the soft limit in the Parameter(Stroke).\r\n"
                       "Confirm the position data indicated bellow, and try it again.\r\n"
                       " <Position No. 4,>");
    WriteToCt();
    expectWriteOf(4, 4); // and so this one is not seen
    platform.expectBox(kDone);
    WriteToCt();
    EXPECT_EQ(held(4).substr(27, 9), "1E20012C1");

    DispMmFlag = kSet; // a figure in mm is compared with a limit in pulses
    type(1, kPosi, "100.4");
    for (int position = 2; position <= 9; ++position) {
        type(position, kPosi, "  0.000");
        type(position, 15, "  0.000");
    }
    type(1, 15, "  0.000");
    expectWriteOf(1, 1);
    platform.expectBox(kDone);
    WriteToCt();
    EXPECT_EQ(held(1).substr(4, 5), "04E70") << "20080 pulses";
}

TEST_F(WriteTest, ARowThatHasNoWholeFormIsNotSent) {
    showRows(1, 3);
    ASSERT_EQ(PosiDataCheck3(), 0);
    PosiTable[2].number[kPosi] = 1 << 20;
    platform.expectBox(kWrongData);
    EXPECT_EQ(WritePosidataToCt(), 1);
    EXPECT_EQ(line.controller.count("0WP"), 1);
    EXPECT_FALSE(TheTransferDialog().shown);

    PosiRowError[1] = kSet; // a marked row is left out
    EXPECT_EQ(WritePosidataToCt(), 0);
    EXPECT_EQ(platform.sent.back().substr(0, 6), "0WP003");
    PosiRowError[1] = kClear;
    PosiTable[2].number[kPosi] = 1e12;
    platform.expectBox(kWrongData);
    EXPECT_EQ(WritePosidataToCt(), 1);
}

TEST_F(WriteTest, TheEndOfTheModeIsTriedSixTimesAndTheEndIsTold) {
    showRows(1, 2);
    fault("0CM00:*:error=03");
    expectWriteOf(1, 2);
    for (int i = 0; i < 6; ++i) {
        platform.expectBox(kFailed + "\r\nError No.3\r\n[Homing not completed]");
    }
    platform.expectBox(kNoExchange);
    platform.expectBox(kDone);
    WriteToCt();
    EXPECT_EQ(std::count(platform.sent.begin(), platform.sent.end(), "0CM00"), 6);
    expectCommandsBack();
}

TEST_F(WriteTest, ThePollIsHeldAndAnEditInProgressIsDropped) {
    showRows(1, 2);
    GoToCell(2, 1);
    ASSERT_TRUE(StartEdit());
    SetEditText("1");
    AlarmFlag = kSet;
    SetInterval(Timer1, 1);
    EnableTimer(Timer1);
    expectWriteOf(1, 2);
    platform.expectBox(kDone);
    WriteToCt();
    DisableTimer(Timer1);
    EXPECT_EQ(platform.sent.front(), "0RA");
    EXPECT_FALSE(flgdData().edit.open);
    EXPECT_EQ(cell(1, kVel), "30");
    EXPECT_EQ(flgdData().rows[2].colour[1], CellColour::Window);
}

TEST_F(WriteTest, AWriteCantBeCancelled) {
    showRows(1, 20);
    line.controller.setTurnaround(10);
    platform.after(250, cmdTranceCancel_Click);
    expectWriteOf(1, 20);
    platform.expectBox(kDone);
    WriteToCt();
    EXPECT_EQ(TransferCancelFlag, kSet);
    EXPECT_EQ(line.controller.count("0WP"), 20);
}

struct FaultCase {
    const char* fault;
    std::vector<std::string> boxes; ///< none: the run recovers
    const char* range = "";         ///< behind the occurrence: "+" from this one on
};

class WriteFaults : public WriteTest, public testing::WithParamInterface<FaultCase> {};

TEST_P(WriteFaults, EndTheRunWithWhatWasAcknowledged) {
    for (const int occurrence : {1, 10, 20}) {
        const std::string rule =
            "0WP:" + std::to_string(occurrence) + GetParam().range + ":" + GetParam().fault;
        SCOPED_TRACE(rule);
        line.controller.clearFaults();
        line.controller.clearCounters();
        showRows(1, 25);
        std::vector<std::string> before;
        for (int position = 1; position <= 25; ++position) {
            // Never the same twice, so that what is there afterwards tells where it came from.
            type(position, kPosi, std::to_string(100 * occurrence + position));
            before.push_back(held(position));
        }
        fault(rule);
        expectWriteOf(1, 20);
        for (const std::string& box : GetParam().boxes) {
            platform.expectBox(box);
        }
        const bool recovered = GetParam().boxes.empty();
        if (recovered) {
            platform.expectBox(kDone);
        }
        const std::int64_t begin = platform.now;
        WriteToCt();
        platform.checkAllAsked();
        EXPECT_LT(platform.now - begin, 20'000);
        const int acknowledged = recovered ? 20 : occurrence - 1;
        for (int position = 1; position <= 25; ++position) {
            const std::string fresh = PosiRowText(static_cast<std::int16_t>(position)).substr(3);
            if (position <= acknowledged) {
                EXPECT_EQ(held(position), fresh) << position;
            } else if (position > acknowledged + 1) {
                EXPECT_EQ(held(position), before[static_cast<std::size_t>(position) - 1])
                    << position;
            } else {
                EXPECT_TRUE(held(position) == fresh ||
                            held(position) == before[static_cast<std::size_t>(position) - 1]);
            }
        }
        expectCommandsBack();
        EXPECT_GE(line.controller.count("0WP"), occurrence);
        ReplyBuffer.clear(); // half a reply would stand in front of the next run's first one
    }
}

INSTANTIATE_TEST_SUITE_P(
    Table, WriteFaults,
    testing::Values(FaultCase{"silence", {}}, FaultCase{"deaf", {}}, FaultCase{"late=400", {}},
                    FaultCase{"bytes=2", {}}, FaultCase{"part=4", {kLength}},
                    FaultCase{"silence", {kTimeout}, "+"}, FaultCase{"deaf", {kTimeout}, "+"},
                    FaultCase{"noise-before=zz", {kFailed}}, FaultCase{"noise-inside=7", {kLength}},
                    FaultCase{"echo=0WQ", {kFailed}}, FaultCase{"long", {kLength}},
                    FaultCase{"short", {kLength}}, FaultCase{"twice", {kLength}},
                    FaultCase{"reply=0WP3E7", {kWrongData}}, FaultCase{"hangup", {kPort}},
                    FaultCase{"hangup=4", {kPort}},
                    FaultCase{"error=03", {kFailed + "\r\nError No.3\r\n[Homing not completed]"}}));

TEST_F(WriteTest, TheReplyOfTheRowBeforeStopsTheRun) {
    showRows(1, 20);
    fault("0WP:7:previous");
    expectWriteOf(1, 20);
    platform.expectBox(kWrongData);
    WriteToCt();
    EXPECT_EQ(CommErrorFlag, kSet);
    EXPECT_EQ(line.controller.count("0WP"), 7);
    expectCommandsBack();
}

} // namespace
} // namespace qdw8::test
