// What commands do on the line: a run of exchanges, the writing mode, many rows.

#include "link/batch.h"

#include "app/transfer_dialog.h"
#include "app/waits.h"
#include "link/alarm.h"
#include "link/ct_commands.h"
#include "link/line_state.h"
#include "link/link_fixture.h"
#include "link/receiver.h"
#include "platform/fault.h"

namespace qdw8::test {
namespace {

using BatchTest = LinkTest;
using Frames = std::vector<std::string>;

TEST_F(BatchTest, EveryWayOutTakesDialogAndPortAndFreesThePoll) {
    SetOfflineState();
    try {
        const LineBatch batch;
        platform.answer("0RH1");
        EXPECT_EQ(ReadHomeStatus(), 0);
        ShowTrance(1, "a");
        EXPECT_FALSE(RunInBackground([] {}));
        throw Fault("in the batch");
    } catch (const Fault&) {
        ExpectAtRest(platform);
    }
}

TEST_F(BatchTest, RowsAreReadUntilOneFailsOrTheUserStops) {
    Frames bar;
    Screens().frmTrance = [&bar] {
        const TransferDialog& now = TheTransferDialog();
        bar.push_back(now.shown ? std::to_string(now.prgBar1) + "/" +
                                      std::to_string(now.prgBar1Max) + (now.cancelShown ? "c" : "")
                                : "gone");
    };
    const auto read = [](int index) { return ReadGroup(index + 1); };
    const auto answer = [this](int rows) {
        for (int row = 1; row <= rows; ++row) {
            platform.answer("0RG0" + std::to_string(row) + "001002");
        }
    };
    answer(3);
    EXPECT_EQ(ReadMany(3, {2, 368, true, 0}, read), LineResult::Done);
    EXPECT_EQ(bar, (Frames{"0/2c", "0/2c", "1/2c", "2/2c", "gone"}));
    // A press of before doesn't count; one in the last row does, and none without the button.
    for (const auto& [stop, cancel, result] :
         {std::tuple{&TransferCancelFlag, true, LineResult::Cancelled},
          {&TransferCancelFlag, false, LineResult::Done},
          {&ProgramEndFlag, false, LineResult::Cancelled}}) {
        answer(3);
        EXPECT_EQ(ReadMany(stop == &ProgramEndFlag ? 4 : 3, {3, 368, cancel, 1},
                           [&, flag = stop](int index) {
                               *flag = FlagOf(index == 2);
                               return ReadGroup(index + 1);
                           }),
                  result);
    }
    ProgramEndFlag = TransferCancelFlag = kClear;
    platform.answer("0%%013");
    EXPECT_EQ(ReadMany(3, {3, 368, true, 1}, read), LineResult::Failed);
    EXPECT_FALSE(TheTransferDialog().shown);
}

TEST_F(BatchTest, FramesAreSentUntilAnEchoDiffers) {
    const auto write = [](const std::string& row, const std::string& echo) {
        return LineWrite{[row] { return WriteGroup(row); }, echo};
    };
    const std::vector<LineWrite> writes{
        write("01001002", "0WG01"), {}, write("02001002", ""), write("03001002", "0WG03")};
    const auto send = [&](const std::vector<const char*>& replies) {
        platform.sent.clear();
        for (const char* reply : replies) {
            platform.answer(reply);
        }
        const LineBatch batch;
        return SendMany(writes, {4, 383, false, 1});
    };
    EXPECT_EQ(send({"0WG01", "0WG77", "0WG03"}), LineResult::Done) << "one is not compared";
    EXPECT_EQ(platform.sent.size(), 3U);
    EXPECT_EQ(TheTransferDialog().prgBar1, 4);
    EXPECT_EQ(send({"0WG02"}), LineResult::WrongEcho);
    EXPECT_EQ(platform.boxes, Frames{box::kWrongData});
    EXPECT_EQ(state(), "OnLine");
    ExpectAtRest(platform);
    EXPECT_EQ(send({"0WG01", "0%%013"}), LineResult::Failed);
    ProgramEndFlag = kSet;
    EXPECT_EQ(send({}), LineResult::Cancelled);
    EXPECT_TRUE(platform.sent.empty());
}

TEST(Waits, NestedWaitsTakeTheirOwnTimeAndSixTriesAreSix) {
    Bench bench;
    ScriptedPlatform& platform = bench.platform;
    std::int64_t innerEnd = 0;
    platform.after(30, [&] {
        MsecTimer(40);
        innerEnd = platform.now;
    });
    MsecTimer(100);
    EXPECT_EQ(innerEnd, 70);
    EXPECT_EQ(platform.now, 100);
    platform.after(10, [] { MsecTimer(500); });
    MsecTimer(100);
    EXPECT_EQ(platform.now, 610) << "it can only return behind the inner one";
    int tries = 0;
    EXPECT_FALSE(SixTries([&tries] { return ++tries > 6; }));
    EXPECT_TRUE(SixTries([&tries] { return ++tries > 8; }));
    EXPECT_EQ(tries, 9);
    EXPECT_EQ(platform.now, 610 + 5 * 100 + 2 * 100);
}

} // namespace
} // namespace qdw8::test
