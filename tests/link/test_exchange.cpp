// The exchange: every fault of the line in each of its forms.

#include "link/exchange.h"

#include "app/command_states.h"
#include "app/main_panel.h"
#include "link/background.h"
#include "link/line_state.h"
#include "link/link_fixture.h"
#include "link/port.h"
#include "link/receiver.h"
#include "link/window_command.h"
#include "support/story.h"

#include <stdexcept>

namespace qdw8::test {
namespace {

void CheckFault(const std::vector<std::string>& row, char form, bool kept) {
    LinkBench bench;
    LinkBench::letAlarmStand();
    PortOccupyFlag = FlagOf(kept);
    ReplyTimeoutMs = 1000;
    bench.platform.failingOpens = row[1] == "closed" ? 6 : 0;
    bench.platform.outputFaults = row[1] == "faults";
    bench.answer(row[1]);
    std::string story = row[3];
    if (const auto stop = story.find(" stop"); stop != story.npos) {
        story.erase(stop, 5);
        bench.platform.after(5000, [] { GrpMoveStopFlag = kSet; });
    }
    if (const auto maybe = story.find(" close?"); maybe != story.npos) {
        story.replace(maybe, 7, kept ? "" : " close");
    }
    const auto send = form == 'R'   ? SendCtCommand
                      : form == 'O' ? SendCtCommandOnce
                                    : SendCtCommandQuiet;
    const std::string data = row[0] == "OtherStatus" ? "1" : "";
    const bool good = send("0RH", 6, data, data.size()) == 0;
    const std::string state = LinkBench::state();
    EXPECT_EQ(bench.story(), story);
    EXPECT_EQ(state, row[4]);
    EXPECT_EQ(good, state == "OnLine");
    EXPECT_EQ(ThePanel().imgGreenLedOnline, state.starts_with("OnLine"));
    EXPECT_EQ(ThePanel().imgAlarmLed, !good);
    EXPECT_EQ(ThePanel().lblErrorComment == "No Error", good);
    EXPECT_EQ(ThePanel().lblErrorComment == "Old alarm",
              !good && row[1].find("0%%") == std::string::npos);
    EXPECT_EQ(bench.platform.portOpen,
              (" " + story).find(" close") == story.npos && row[1] != "closed");
    EXPECT_FALSE(timerTimeout.enabled);
    EXPECT_EQ(GrpMoveStopFlag, kClear);
    // What is still on its way finds a program that is not waiting any more.
    bench.platform.run(10'000);
    EXPECT_EQ(LinkBench::state(), state);
}

TEST(ExchangeFaults, EveryFaultInEveryForm) {
    int rows = 0;
    for (const auto& row : RowsOf("link/faults.txt")) {
        ASSERT_EQ(row.size(), 5U) << row[0];
        for (const char form : row[2]) {
            for (const bool kept : {false, true}) {
                SCOPED_TRACE(row[0] + (kept ? ", port kept: " : ": ") + form);
                CheckFault(row, form, kept);
                ++rows;
            }
        }
    }
    EXPECT_GT(rows, 100);
}

TEST_F(LinkTest, AWindowCommandHasTheCommandsAndTheLineForItself) {
    GoOnLine();
    platform.expectBox("Error occured!");
    RunWindowCommand([] {
        EXPECT_TRUE(CommandsTaken());
        EXPECT_FALSE(RunInBackground([] {}));
        RunWindowCommand([] { ADD_FAILURE() << "inside another command"; });
        throw std::runtime_error("what nobody handles");
    });
    EXPECT_FALSE(CommandsTaken());
    EXPECT_TRUE(RunInBackground([] {}));
}

} // namespace
} // namespace qdw8::test
