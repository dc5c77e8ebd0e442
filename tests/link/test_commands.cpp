// What each command does beyond its exchange.

#include "link/Module3Tusin.h"
#include "link/axis_mask.h"
#include "link/ct_commands.h"
#include "link/link_fixture.h"

#include <array>
#include <cstdint>
#include <initializer_list>
#include <utility>

namespace qdw8::test {
namespace {

const std::string kBlock(32, 'A');
const std::string kZeros(40, '0');
const std::string kAxesBlock = "0RD0" + std::string(12, '0') + "05" + std::string(18, '0');

using CommandTest = LinkTest;

TEST_F(CommandTest, GroupRunWaitsAsLongAsItTakes) {
    platform.answer("0MG01", 3'600'000);
    EXPECT_EQ(RunGroup(1), 0);
    EXPECT_EQ(platform.sent, std::vector<std::string>{"0MG01"});
    EXPECT_EQ(ReplyTimeoutMs, 0);
}

TEST_F(CommandTest, StopNeverWaitsWithoutLimit) {
    ReplyTimeoutMs = 0;
    platform.expectBox(box::kTimeout);
    EXPECT_EQ(StopMotion(), 1);
    EXPECT_EQ(platform.now, 1000);
}

TEST_F(CommandTest, JogTakesTheLimitOfAGroupRun) {
    ReplyTimeoutMs = 0;
    platform.answer("0JR", 90'000);
    EXPECT_EQ(JogRun("1"), 0);
    EXPECT_EQ(ReplyTimeoutMs, 0);
}

TEST_F(CommandTest, MasksHoldTheAxesInUse) {
    AxisOff = {kClear, kSet, kClear, kSet};
    platform.answer("0MM0005");
    platform.answer("0MP0015");
    platform.answer("0RC50000100002");
    EXPECT_EQ(MoveToPosition(0, 1), 0);
    EXPECT_EQ(MoveToPosition(1, 2), 0);
    EXPECT_EQ(ReadPresentPosition(), 0);
    AxisOff.fill(kSet);
    platform.answer("0RC0");
    EXPECT_EQ(ReadPresentPosition(), 0);
    EXPECT_EQ(platform.sent, (std::vector<std::string>{"0MM0005", "0MP0015", "0RC5", "0RC0"}));
}

TEST_F(CommandTest, ModeGoesOnLineFirst) {
    SetOfflineState();
    CommErrorFlag = kSet;
    for (const auto mode : std::initializer_list<std::int16_t>{0, 1, 2, 3, -1}) {
        const std::string frame = "0CM0" + std::to_string(mode > 2 || mode < 0 ? 0 : mode);
        platform.answer(frame);
        EXPECT_EQ(SetCtMode(mode), 0);
        EXPECT_EQ(platform.sent.back(), frame);
        EXPECT_EQ(state(), "OnLine PortOpen");
        SetOfflineState();
    }
}

TEST_F(CommandTest, HomeStatusMovesFlagAndLamp) {
    // Anything but "1" and "0" changes nothing.
    for (const auto& [reply, homed] : {std::pair{"0RH1", true},
                                       {"0RH2", true},
                                       {"0RH0", false},
                                       {"0RHx", false},
                                       {"0RH1", true}}) {
        platform.answer(reply);
        EXPECT_EQ(ReadHomeStatus(), 0);
        EXPECT_EQ(IsSet(HomedFlag), homed) << reply;
        EXPECT_EQ(ThePanel().imgHomeGreen, homed) << reply;
    }
}

TEST_F(CommandTest, IdentityAndBoardVersionsAreKept) {
    platform.answer("0CM1");
    platform.answer("0RV123x2y");
    EXPECT_EQ(CheckCtIdentity(), 0) << "which count of axes is right is not decided here";
    EXPECT_EQ(CtVersion, "123");
    EXPECT_EQ(CtAxisCount, 2);
    platform.answer("0RV2210K8R");
    platform.answer("0RV3999K8S");
    EXPECT_EQ(ReadAxisVersion(1), 0);
    EXPECT_EQ(ReadAxisVersion(2), 1) << "another kind of board";
    EXPECT_EQ(CtAxisVersion[1], "210");
    EXPECT_EQ(CtAxisVersion[2], "");
}

TEST_F(CommandTest, FailedStatusCheckAsksNoIdentity) {
    platform.answer("0%%013");
    platform.expectBox(box::kHoming);
    EXPECT_EQ(CheckCtIdentity(), 1);
    EXPECT_EQ(platform.sent, std::vector<std::string>{"0CM1"});
    EXPECT_EQ(state(), "OffLine PortOpen Alarm ErrorFound");
}

// One late reply would shift every row behind it, so a reply with another number fails the batch.
TEST_F(CommandTest, ReplyWithAnotherNumberFails) {
    struct Row {
        std::int16_t (*call)();
        std::string reply;
    };
    for (const Row& row : {Row{[] { return ReadPosiRow(2); }, "0RP001" + kZeros},
                           Row{[] { return ReadGroup(2); }, "0RG01001002"},
                           Row{[] { return ReadMacro(2); }, "0RS01" + kBlock},
                           Row{[] { return ReadParaBlock(2); }, "0RD1" + kBlock},
                           Row{[] { return ReadAxisMask(); }, "0RD8" + kBlock}}) {
        platform.answer(row.reply);
        platform.expectBox(box::kWrongData);
        EXPECT_EQ(row.call(), 1) << row.reply;
        platform.checkAllAsked();
        EXPECT_EQ(state(), "OnLine PortOpen");
    }
    platform.answer("0RD8" + kBlock);
    EXPECT_EQ(ReadParaBlock0Quiet(), 1) << "and no box for the quiet read";
}

TEST_F(CommandTest, LateReplyIsNotTakenForTheNextRow) {
    platform.answerBytes({{1005, "0RP001" + kZeros + "\r\n"}});
    platform.answerBytes({{40, "0RP001" + kZeros + "\r\n"}});
    platform.answerBytes({});
    platform.expectBox(box::kWrongData);
    EXPECT_EQ(ReadPosiRow(1), 0);
    EXPECT_EQ(ReadPosiRow(2), 1);
}

TEST_F(CommandTest, AWrapperWaitsForTheLine) {
    CtBusyFlag = kSet;
    platform.after(300, [] { CtBusyFlag = kClear; });
    platform.answer("0RH0");
    EXPECT_EQ(ReadHomeStatus(), 0);
    EXPECT_EQ(platform.sentAt, std::vector<std::int64_t>{300});
}

TEST_F(CommandTest, AWrapperGivesUpOnlyOnALineThatIsStillTaken) {
    CtBusyFlag = kSet;
    platform.after(300, [] { CommErrorFlag = kSet; });
    EXPECT_EQ(ReadHomeStatus(), 1);
    EXPECT_EQ(platform.sent.size(), 0U);
    EXPECT_EQ(state(), "OnLine CommError CtBusy") << "the flag is its owner's to clear";

    CtBusyFlag = kClear;
    platform.answer("0RH0");
    EXPECT_EQ(ReadHomeStatus(), 0) << "an old failure alone keeps nobody from sending";
}

TEST_F(CommandTest, WrappersThatOpenThePortTellOnce) {
    for (const auto call : {CheckCtIdentity, ReadAxisMask, ReadAxisMaskShown}) {
        GoOnLine();
        platform.failingOpens = -1;
        platform.expectBox(box::kPort);
        EXPECT_EQ(call(), 1);
        platform.checkAllAsked();
        EXPECT_EQ(state(), "OffLine");
    }
    EXPECT_EQ(platform.sent.size(), 0U);
}

TEST_F(CommandTest, AxisMaskIsTakenFromBlockZero) {
    platform.answer(kAxesBlock);
    EXPECT_EQ(ReadAxisMask(), 0);
    EXPECT_EQ(AxisOff, (std::array<Flag, kAxes>{kClear, kSet, kClear, kSet}));
    EXPECT_EQ(CtAxisOff, (std::array<Flag, kAxes>{}));

    std::string broken = kAxesBlock;
    broken.replace(16, 2, "G?");
    platform.answer(broken);
    platform.expectBox(box::kWrongData);
    AxisOff.fill(kClear);
    EXPECT_EQ(ReadAxisMask(), 1);
    EXPECT_EQ(AxisOff, (std::array<Flag, kAxes>{})) << "a failed read leaves them as they were";
}

TEST_F(CommandTest, QuietAxisMaskLeavesTheWorkingFlagsAlone) {
    platform.answer(kAxesBlock);
    EXPECT_EQ(ReadAxisMaskQuiet(), 0);
    EXPECT_EQ(CtAxisOff, (std::array<Flag, kAxes>{kClear, kSet, kClear, kSet}));
    EXPECT_EQ(AxisOff, (std::array<Flag, kAxes>{}));
}

TEST_F(CommandTest, QuietAxisMaskHearsTheReplyOfItsLastTry) {
    for (int failed = 0; failed < 5; ++failed) {
        platform.silence();
    }
    platform.answer(kAxesBlock);
    EXPECT_EQ(ReadAxisMaskQuiet(), 0);
    EXPECT_EQ(platform.sentAt, (std::vector<std::int64_t>{0, 1100, 2200, 3300, 4400, 5500}));
    EXPECT_EQ(state(), "OnLine PortOpen");
    EXPECT_TRUE(ThePanel().imgGreenLedOnline);
}

TEST_F(CommandTest, QuietAxisMaskGivesUpAfterSixTries) {
    EXPECT_EQ(ReadAxisMaskQuiet(), 1);
    EXPECT_EQ(platform.sent, std::vector<std::string>(6, "0RD0"));
    EXPECT_EQ(platform.now, 6 * 1000 + 5 * 100);
    EXPECT_EQ(state(), "OffLine CommError");
}

} // namespace
} // namespace qdw8::test
