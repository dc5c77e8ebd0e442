// The port, the receiver, the half-second tick with its poll, and commands out of its wait.

#include "app/command_states.h"
#include "app/main_panel.h"
#include "app/transfer_dialog.h"
#include "link/alarm.h"
#include "link/background.h"
#include "link/ct_commands.h"
#include "link/line_state.h"
#include "link/link_fixture.h"
#include "link/port.h"
#include "link/receiver.h"
#include "link/supervision.h"
#include "platform/fault.h"

namespace qdw8::test {
namespace {

using PortTest = LinkTest;

TEST_F(PortTest, LineSettingsAreWrittenBehindTheOpen) {
    SerialControl& port = MSComm1();
    port.SetCDTimeout = [this](int ms) { platform.events.push_back("CD " + std::to_string(ms)); };
    port.SetHandshaking = [this](int kind) {
        platform.events.push_back("handshaking " + std::to_string(kind));
    };
    PortNo = 9;
    EXPECT_EQ(OpenCtPort(), 0);
    EXPECT_EQ(OpenCtPort(), 0) << "an open port is left as it is";
    EXPECT_EQ(platform.events, (std::vector<std::string>{"open 9", "settings 9600,N,8,1", "CD 3000",
                                                         "handshaking 0"}));
    CloseCtPortForce();
    port.SetHandshaking = [](int) { throw Fault("refused"); };
    EXPECT_EQ(OpenCtPort(), 1);
}

TEST_F(PortTest, PortNumberOutOfRangeIsReplacedByTheStoredOne) {
    for (const auto& [number, stored, used] :
         {std::tuple{0, "3", 3}, {10, "9", 9}, {-1, "", 1}, {10, "12", 12}, {5, "3", 5}}) {
        PortNo = static_cast<std::int16_t>(number);
        platform.settings.clear();
        if (*stored != 0) {
            platform.settings["PortNo"] = stored;
        }
        EXPECT_EQ(OpenCtPort(), used <= 9 ? 0 : 1);
        EXPECT_EQ(PortNo, used);
        EXPECT_TRUE(used > 9 || platform.openedPort == used);
        CloseCtPortForce();
    }
}

TEST_F(PortTest, FlowWithoutALineEndIsBounded) {
    OpenCtPort();
    platform.arrive(1, std::string(5000, 'x'));
    platform.arrive(2, "0RH1");
    platform.run(5);
    EXPECT_EQ(ReplyBuffer, std::string(4092, 'x') + "0RH1");
}

TEST_F(PortTest, PollIsHeldAndThePortLampFollowsThePort) {
    EnableTimer(Timer1);
    letAlarmStand();
    OpenCtPort();
    {
        const PollHeld outer;
        const PollHeld inner;
        platform.run(2000);
        EXPECT_TRUE(ThePanel().imgPortGreen) << "the tick itself goes on";
    }
    {
        const CommandsAway away;
        platform.run(2000);
    }
    {
        const EditCommandsAway away;
        platform.run(2000);
    }
    EXPECT_TRUE(platform.sent.empty());
    platform.answer("0CM1");
    platform.run(2000);
    EXPECT_EQ(platform.sent.size(), 1U);
    EXPECT_FALSE(ThePanel().imgPortGreen);
}

// What a tick throws comes behind the command that was kept.
TEST_F(PortTest, FaultOfATickLosesNoCommand) {
    platform.answer("0RI123456", 300);
    platform.answer("0AR");
    platform.after(50, [] { WhenLineIsFree([] { SendAlarmReset(); }); });
    EXPECT_THROW(RunInBackground([] {
                     ReadInputs();
                     throw Fault("in the tick");
                 }),
                 Fault);
    EXPECT_EQ(platform.sent, (std::vector<std::string>{"0RI", "0AR"}));
}

} // namespace
} // namespace qdw8::test
