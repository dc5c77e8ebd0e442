// Every command of the controller's language: frame, reply, limit and form; and what each does
// beyond its exchange.

#include "app/main_panel.h"
#include "link/axis_mask.h"
#include "link/ct_commands.h"
#include "link/line_state.h"
#include "link/link_fixture.h"
#include "link/port.h"
#include "link/receiver.h"

#include <array>

namespace qdw8::test {
namespace {

enum Form { R = 6, O = 1, Q = 0 }; // sends in all after a time-out; Q sends once and tells nothing

const std::string kBlock(32, 'A');
const std::string kZeros(40, '0');
const std::string kAxes5 = "0RD0" + std::string(12, '0') + "05" + std::string(18, '0');
constexpr std::int16_t kLeft = 700; ///< the limit that the command before left

struct CommandRow {
    std::int16_t (*call)();
    Form form;
    std::string frame;
    std::string reply;      ///< the good one
    std::size_t echoed = 0; ///< characters behind the word that must come back
    std::int16_t limit = 1000;
    std::int16_t good = 0;
    std::int16_t failed = 1;
};

const std::vector<CommandRow>& Commands() {
    static const std::vector<CommandRow> rows{
        {[] { return CheckCtStatus(); }, O, "0CM1", "0CM1", 1},
        {[] { return PollCtStatus(); }, Q, "0CM1", "0CM1", 1},
        {[] { return SetCtMode(2); }, O, "0CM02", "0CM02", 2},
        {[] { return SetCtMode(3); }, O, "0CM00", "0CM00", 2},
        {[] { return SetCtMode(-1); }, O, "0CM00", "0CM00", 2},
        {[] { return SendAlarmReset(); }, R, "0AR", "0AR"},
        {[] { return ReadHomeStatus(); }, R, "0RH", "0RH1"},
        {[] { return ReadArrivalStatus(); }, R, "0RA", "0RA1", 0, 1000, 1, -1},
        {[] { return ReadArrivalStatus(); }, R, "0RA", "0RA2", 0, 1000, 0, -1},
        {[] { return ReadAxisVersion(3); }, R, "0RV4", "0RV4210K8R", 1},
        {[] { return MoveToPosition(0, 1); }, O, "0MM0005", "0MM0005", 4},
        {[] { return MoveToPosition(999, 2); }, O, "0MP3E75", "0MP3E75", 4},
        {[] { return RunGroup(99); }, O, "0MG63", "0MG63", 2, 0},
        {[] { return JogRun("01234"); }, O, "0JR01234", "0JR", 0, kLeft},
        {[] { return InchingMove("56789"); }, O, "0MV56789", "0MV", 0, kLeft},
        {[] { return StopMotion(); }, O, "0SP", "0SP", 0, kLeft},
        {[] { return ReadPresentPosition(); }, O, "0RC5", "0RC50000100002", 1},
        {[] { return ReadParaBlock(12); }, R, "0RDC", "0RDC" + kBlock, 1},
        {[] { return ReadParaBlock0Quiet(); }, Q, "0RD0", "0RD0" + kBlock, 1},
        {[] { return ReadAxisMask(); }, R, "0RD0", kAxes5, 1},
        {[] { return WriteParaBlock(6, kBlock); }, R, "0WD6" + kBlock, "0WD6"},
        {[] { return CommitParameters(); }, R, "0WE2", "0WE2", 0, 2000},
        {[] { return CommitGroups(); }, R, "0WE3", "0WE3", 0, 2000},
        {[] { return CommitMacros(); }, R, "0WE1", "0WE1", 0, 2000},
        {[] { return ReadPosiRow(999); }, R, "0RP3E7", "0RP3E7" + kZeros, 3},
        {[] { return WritePosiRow("001" + kZeros); }, R, "0WP001" + kZeros, "0WP001"},
        {[] { return ReadGroup(99); }, R, "0RG63", "0RG63001002", 2},
        {[] { return WriteGroup("63001002"); }, R, "0WG63001002", "0WG63"},
        {[] { return ReadMacro(20); }, R, "0RS14", "0RS14" + kBlock, 2},
        {[] { return WriteMacro("14" + kBlock); }, R, "0WS14" + kBlock, "0WS14"},
        {[] { return ReadInputs(); }, O, "0RI", "0RI012345"},
        {[] { return ReadOutputs(); }, O, "0RO", "0ROABCDEF"},
        {[] { return WriteOutputs("800001"); }, O, "0WO800001", "0WO800001", 6},
    };
    return rows;
}

struct CommandBench : LinkBench {
    CommandBench() {
        AxisOff = {kClear, kSet, kClear, kSet};
        ReplyTimeoutMs = kLeft;
        letAlarmStand();
    }
};

TEST(Commands, FrameReplyAndLimit) {
    for (const CommandRow& row : Commands()) {
        SCOPED_TRACE(row.frame);
        {
            CommandBench bench;
            bench.platform.answer(row.reply);
            EXPECT_EQ(row.call(), row.good);
            EXPECT_EQ(bench.platform.sent, std::vector<std::string>{row.frame});
            EXPECT_EQ(LinkBench::state(), "OnLine");
        }
        if (row.limit > 0) {
            CommandBench bench;
            EXPECT_EQ(row.call(), row.failed);
            const int sends = std::max<int>(row.form, 1);
            EXPECT_EQ(bench.platform.sent, std::vector(static_cast<std::size_t>(sends), row.frame));
            EXPECT_EQ(bench.platform.now, sends * row.limit);
            EXPECT_EQ(bench.platform.boxes.empty(), row.form == Q);
            EXPECT_EQ(CtBusyFlag, kClear);
        }
    }
}

// A late reply would otherwise pass for the answer to another request.
TEST(Commands, WhatComesBackOfTheRequestIsCompared) {
    for (const CommandRow& row : Commands()) {
        for (std::size_t at = 3; at < 3 + row.echoed; ++at) {
            SCOPED_TRACE(row.frame + " at " + std::to_string(at));
            CommandBench bench;
            std::string reply = row.reply;
            reply[at] = reply[at] == '7' ? '8' : '7';
            bench.platform.answer(reply);
            EXPECT_EQ(row.call(), row.failed);
            EXPECT_EQ(bench.platform.boxes,
                      row.form == Q ? std::vector<std::string>{} : std::vector{box::kWrongData});
            EXPECT_TRUE(IsSet(AlarmFlag)) << "it tells nothing of the alarm";
        }
    }
}

using CommandTest = Unit<CommandBench>;

TEST_F(CommandTest, MaskWithoutAnAxis) {
    AxisOff.fill(kSet);
    platform.answer("0RC0");
    EXPECT_EQ(ReadPresentPosition(), 0);
}

TEST_F(CommandTest, HomeStatusMovesFlagAndLamp) {
    // Anything but "1" and "0" changes nothing.
    for (const auto& [reply, homed] :
         {std::pair{"0RH1", true}, {"0RH2", true}, {"0RH0", false}, {"0RHx", false}}) {
        platform.answer(reply);
        EXPECT_EQ(ReadHomeStatus(), 0);
        EXPECT_EQ(IsSet(HomedFlag), homed) << reply;
        EXPECT_EQ(ThePanel().imgHomeGreen, homed) << reply;
    }
}

TEST_F(CommandTest, IdentityAndBoardVersionsAreKept) {
    for (const char* reply : {"0CM1", "0RV123x2y", "0RV2210K8R", "0RV3999K8S"}) {
        platform.answer(reply);
    }
    EXPECT_EQ(CheckCtIdentity(), 0) << "which count of axes is right is not decided here";
    EXPECT_EQ(CtVersion, "123");
    EXPECT_EQ(CtAxisCount, 2);
    EXPECT_EQ(ReadAxisVersion(1), 0);
    EXPECT_EQ(ReadAxisVersion(2), 1) << "another kind of board";
    EXPECT_EQ(CtAxisVersion[1], "210");
    EXPECT_EQ(CtAxisVersion[2], "");
}

TEST_F(CommandTest, AxisMaskIsTakenFromBlockZero) {
    AxisOff.fill(kClear);
    std::string broken = kAxes5;
    broken.replace(16, 2, "G?");
    platform.answer(broken);
    EXPECT_EQ(ReadAxisMask(), 1);
    EXPECT_EQ(platform.boxes, std::vector{box::kWrongData});
    EXPECT_EQ(AxisOff, (std::array<Flag, kAxes>{})) << "a failed read leaves them as they were";
    platform.answer(kAxes5);
    EXPECT_EQ(ReadAxisMask(), 0);
    EXPECT_EQ(AxisOff, (std::array<Flag, kAxes>{kClear, kSet, kClear, kSet}));
    EXPECT_EQ(CtAxisOff, (std::array<Flag, kAxes>{}));
}

} // namespace
} // namespace qdw8::test
