#include "position/posi_transfer.h"

#include "device/Module2Calc.h"
#include "position/flex_grid.h"
#include "position/grid_display.h"
#include "setup/posi_read.h"
#include "transfer_fixture.h"

#include <array>

namespace qdw8::test {
namespace {

const std::string kStopped = "Reading of data was stopped.";
const std::string kFailed = "Communication error occurs!";
const std::string kPort = "Failed Communication port open.\r\n\r\n"
                          "Please check a setting of a communication port.";
const std::string kWrongData = "Communication error occurs!\r\ntransmit data is wrong";
const std::string kConfirm = "Read the data from controller, OK?";
const std::string kSaveFirst = "Save the editing data before reading data?";

class TransferTest : public ControllerTest {
protected:
    void expectReadOf(std::int16_t first, std::int16_t last) {
        platform.expectScreen("frmSelectPosiNo2", [first, last] {
            PosiFirst = first;
            PosiLast = last;
        });
        platform.expectBox(kConfirm, BoxButtons::OkCancel, BoxAnswer::Ok);
    }
};

TEST_F(TransferTest, TheWholeTableComesIn) {
    expectReadOf(1, 999);
    ReadFromCt();
    EXPECT_EQ(line.controller.count("0RP"), 999);
    EXPECT_EQ(platform.sent.back(), "0RP3E7");
    EXPECT_EQ(GridText(2, 0), "1");
    EXPECT_EQ(cell(1, kVel), "30");
    EXPECT_EQ(cell(1, kPosi), "12500");
    EXPECT_EQ(cell(1, kItpl), "1");
    EXPECT_EQ(cell(1, kOut), "2");
    EXPECT_EQ(cell(1, kSm), "10");
    EXPECT_EQ(cell(999, kVel), "60");
    EXPECT_EQ(cell(999, kWay), "3");
    EXPECT_EQ(cell(999, kPosi), "20000");
    EXPECT_EQ(cell(999, 15), "4799");
    EXPECT_EQ(cell(999, 7), "0");
    EXPECT_DOUBLE_EQ(PosiUnitTable[1].mm[0], 62.5);
    EXPECT_EQ(PosiFileName, "Inside of C/T");
    EXPECT_EQ(ThePanel().lblFileName, "Inside of C/T");
    EXPECT_EQ(PosiDirtyFlag, kClear);
    EXPECT_EQ(GridRowCount, 999);
    EXPECT_FALSE(TheTransferDialog().shown);
    EXPECT_FALSE(flgdData().locked);
    EXPECT_TRUE(ThePanel().imgGreenLedOnline);
}

TEST_F(TransferTest, TheBarCountsRowsAndHasOneStepMore) {
    PosiFirst = PosiLast = 5;
    std::vector<int> steps;
    Screens().frmTrance = [&] {
        if (TheTransferDialog().shown) {
            steps.push_back(TheTransferDialog().prgBar1);
        }
        EXPECT_EQ(TheTransferDialog().prgBar1Max, 2);
        EXPECT_TRUE(TheTransferDialog().cancelShown);
        EXPECT_EQ(TheTransferDialog().lblSetumei, "Reading data from controller...");
    };
    EXPECT_EQ(ReadPosidataFromCt(), 0);
    EXPECT_EQ(steps, (std::vector<int>{0, 1}));
    EXPECT_EQ(platform.sent, std::vector<std::string>{"0RP005"});
}

TEST_F(TransferTest, CancelThrowsTheRowsAway) {
    showRows(3, 4);
    type(3, kVel, "11");
    platform.expectBox(kSaveFirst, BoxButtons::YesNoCancel, BoxAnswer::No);
    expectReadOf(1, 20);
    line.controller.setTurnaround(10);
    platform.after(125, cmdTranceCancel_Click);
    platform.expectBox(kStopped);
    ReadFromCt();
    EXPECT_GT(line.controller.count("0RP"), 2);
    EXPECT_LT(line.controller.count("0RP"), 20);
    EXPECT_EQ(GridFirst, 3);
    EXPECT_EQ(GridLast, 4);
    EXPECT_EQ(PosiFirst, 3);
    EXPECT_EQ(PosiLast, 4);
    EXPECT_EQ(GridRowCount, 2);
    EXPECT_EQ(cell(3, kVel), "11");
    EXPECT_FALSE(TheTransferDialog().shown);
}

struct FaultCase {
    const char* rule;
    std::vector<std::string> boxes;
};

class ReadFaults : public TransferTest, public testing::WithParamInterface<FaultCase> {};

TEST_P(ReadFaults, EndTheReadWithoutAWrongDatum) {
    const std::string rule = GetParam().rule;
    for (const char* occurrence : {"1", "10", "20"}) {
        SCOPED_TRACE(rule + " at " + occurrence);
        showRows(3, 4);
        line.controller.clearFaults();
        line.controller.clearCounters();
        std::string problem;
        ASSERT_TRUE(line.controller.addFault("0RP:" + std::string(occurrence) +
                                                 (rule.starts_with("+") ? rule : ":" + rule),
                                             problem))
            << problem;
        platform.expectBox(kSaveFirst, BoxButtons::YesNoCancel, BoxAnswer::No);
        expectReadOf(1, 20);
        for (const std::string& box : GetParam().boxes) {
            platform.expectBox(box);
        }
        ReadFromCt();
        platform.checkAllAsked();
        const bool recovered = GetParam().boxes.empty();
        EXPECT_EQ(GridFirst, recovered ? 1 : 3);
        EXPECT_EQ(GridLast, recovered ? 20 : 4);
        EXPECT_EQ(cell(GridFirst, kPosi), recovered ? "12500" : "0");
        EXPECT_EQ(PosiFirst, GridFirst);
        EXPECT_FALSE(TheTransferDialog().shown);
        EXPECT_FALSE(flgdData().locked);
        EXPECT_EQ(CtBusyFlag, kClear);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Table, ReadFaults,
    testing::Values(
        FaultCase{"silence", {}}, FaultCase{"deaf", {}}, FaultCase{"hangup=4", {kPort}},
        FaultCase{"late=400", {}}, FaultCase{"bytes=2", {}},
        // what came of the first reply stands in front of the next one
        FaultCase{"part=20",
                  {"Communication data length error occurs!\r\nLength of data is wrong."}},
        FaultCase{
            "+:silence",
            {"Communication timeout error!\r\n\r\nCheck the followings;\r\n\r\n 1.Power ON for "
             "controller?\r\n\r\n 2.Communication cables are connected?"}},
        FaultCase{"noise-before=zz", {kFailed}}, FaultCase{"echo=0RQ", {kFailed}},
        FaultCase{"noise-inside=7",
                  {"Communication data length error occurs!\r\nLength of data is wrong."}},
        FaultCase{"twice", {"Communication data length error occurs!\r\nLength of data is wrong."}},
        FaultCase{"short", {"Communication data length error occurs!\r\nLength of data is wrong."}},
        FaultCase{"reply=0RP00Z1E30030D41E30000001E30000001E2000000120A", {kWrongData}},
        FaultCase{"error=03", {kFailed + "\r\nError No.3\r\n[Homing not completed]"}}));

TEST_F(TransferTest, AReplyOfAnotherRowStopsTheRead) {
    std::string problem;
    ASSERT_TRUE(line.controller.addFault("0RP:7:previous", problem)) << problem;
    expectReadOf(1, 20);
    platform.expectBox(kWrongData);
    ReadFromCt();
    EXPECT_EQ(line.controller.count("0RP"), 7);
    EXPECT_EQ(GridFirst, 0);
}

TEST_F(TransferTest, TheWaysOutBeforeTheFirstFrameSendNothing) {
    platform.expectScreen("frmSelectPosiNo2", [] { RangeCancelFlag = kSet; });
    ReadFromCt();
    EXPECT_EQ(RangeCancelFlag, kClear);

    platform.expectScreen("frmSelectPosiNo2", [] {
        PosiFirst = 100;
        PosiLast = 200;
    });
    platform.expectBox(kConfirm, BoxButtons::OkCancel, BoxAnswer::Cancel);
    ReadFromCt();
    EXPECT_EQ(PosiFirst, 1);
    EXPECT_EQ(PosiLast, 1);

    showRows(1, 2);
    platform.expectBox(kSaveFirst, BoxButtons::YesNoCancel, BoxAnswer::Cancel);
    ReadFromCt();
    platform.expectBox(kSaveFirst, BoxButtons::YesNoCancel, BoxAnswer::Yes);
    platform.expectScreen("frmSelectPosiNo3", [] { RangeCancelFlag = kSet; });
    ReadFromCt(); // saving was broken off, so nothing is overwritten
    EXPECT_TRUE(platform.sent.empty());
    EXPECT_EQ(GridLast, 2);
}

class Mismatch : public TransferTest {
protected:
    Mismatch() {
        DevSetting[0].DevStroke = 50;
        Culc_MaxPulse();
    }
    void expectChoice(std::int16_t answer) {
        platform.expectSelection(
            {"Select",
             "Setting of AXIS and DEVICE differs by PC software and the "
             "controller. Which processing is performed?",
             {"A setting in a controller is read.", "A setting in a controller is disregarded."},
             false},
            answer);
    }
};

TEST_F(Mismatch, TheControllersSettingCanBeTakenOver) {
    expectReadOf(1, 2);
    expectChoice(0);
    ReadFromCt();
    EXPECT_EQ(DevSetting[0].DevStroke, 100);
    EXPECT_EQ(DevSetting[0].MaxPulse, 20000);
    EXPECT_EQ(platform.settings["DevStroke1"], "100");
    EXPECT_EQ(ThePanel().lblDeviceType[0].substr(0, 11), "QD- 44L-100");
    EXPECT_EQ(GridLast, 2);
}

TEST_F(Mismatch, OrDisregarded) {
    expectReadOf(1, 2);
    expectChoice(1);
    ReadFromCt();
    EXPECT_EQ(DevSetting[0].DevStroke, 50);
    EXPECT_EQ(GridLast, 2);
}

TEST_F(Mismatch, OrTheReadRefused) {
    showRows(5, 6);
    platform.expectBox(kSaveFirst, BoxButtons::YesNoCancel, BoxAnswer::No);
    expectReadOf(1, 2);
    expectChoice(kSelectionCancelled);
    platform.expectBox(kFailed + "\r\n" + kStopped);
    ReadFromCt();
    EXPECT_EQ(line.controller.count("0RP"), 0);
    EXPECT_TRUE(GridShowsItsRange());
    EXPECT_EQ(GridFirst, 5);
    EXPECT_EQ(PosiLast, 6);
}

TEST_F(Mismatch, ACancelledReadLeavesWhatTheUserTyped) {
    showRows(5, 8);
    type(6, kPosi, "1234");
    line.controller.setTurnaround(10);
    platform.expectBox(kSaveFirst, BoxButtons::YesNoCancel, BoxAnswer::No);
    expectReadOf(1, 20);
    expectChoice(0);
    platform.after(150, cmdTranceCancel_Click);
    platform.expectBox(kStopped);
    ReadFromCt();
    EXPECT_EQ(DevSetting[0].DevStroke, 100) << "the devices were taken over";
    EXPECT_EQ(cell(6, kPosi), "1234");
    EXPECT_EQ(GridFirst, 5);
}

TEST_F(Mismatch, OtherAxesInUseAreADifferenceToo) {
    DevSetting[0].DevStroke = 100;
    Culc_MaxPulse();
    line.controller.setAxisMask(0b0001);
    expectReadOf(1, 2);
    expectChoice(0);
    ReadFromCt();
    EXPECT_EQ(AxisOff, (std::array<Flag, kAxes>{kClear, kSet, kSet, kSet}));
    EXPECT_EQ(cell(1, 12), "30");
    EXPECT_EQ(flgdData().rows[2].colour[13], CellColour::OffAxis);
}

TEST_F(Mismatch, ADeadLineAtTheComparisonEndsTheRead) {
    std::string problem;
    ASSERT_TRUE(line.controller.addFault("0RD0:*:silence", problem)) << problem;
    expectReadOf(1, 2);
    platform.expectBox(kFailed);
    ReadFromCt();
    EXPECT_EQ(line.controller.count("0RD"), 6) << "each of the six tries was sent";
    EXPECT_EQ(OffLineFlag, kSet);
    EXPECT_EQ(DevSetting[0].DevStroke, 50);
}

} // namespace
} // namespace qdw8::test
