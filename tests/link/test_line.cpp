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

TEST_F(PortTest, BatchTriesSixTimesAndOccupiedPortIsClosedByForceOnly) {
    platform.failingOpens = 5;
    EXPECT_EQ(OpenCtPortForBatch(), 0);
    EXPECT_EQ(platform.now, 500);
    PortOccupyFlag = kSet;
    CloseCtPort();
    EXPECT_TRUE(platform.portOpen);
    CloseCtPortForce();
    EXPECT_FALSE(platform.portOpen);
    PortOccupyFlag = 1; // only -1 counts as set
    OpenCtPort();
    CloseCtPort();
    EXPECT_FALSE(platform.portOpen);
    platform.failingOpens = 6;
    EXPECT_EQ(OpenCtPortForBatch(), 1);
    EXPECT_EQ(story(), "close close port off, 1000");
    EXPECT_EQ(state(), "OffLine");
}

class ReceiverTest : public LinkTest {
protected:
    ReceiverTest() { OpenCtPort(); }
    void comes(const std::string& characters) {
        platform.arrive(1, characters);
        platform.run(5);
    }
};

TEST_F(ReceiverTest, LineIsWholeWhenTheBufferEndsInTheLineEnd) {
    for (const auto& [text, reply, rest] : {std::tuple{"0RH", "", "0RH"},
                                            {"1\r", "", "0RH1\r"},
                                            {"\n", "0RH1\r\n", ""},
                                            {"0RA1\r\n0R", "", "0RA1\r\n0R"},
                                            {"V\r\n", "0RA1\r\n0RV\r\n", ""}}) {
        ReplyText.clear();
        ReplyDoneFlag = kClear;
        SetInterval(timerTimeout, 50);
        EnableTimer(timerTimeout);
        comes(text);
        EXPECT_EQ(ReplyText, reply);
        EXPECT_EQ(ReplyBuffer, rest);
        EXPECT_EQ(IsSet(ReplyDoneFlag), *reply != 0);
        EXPECT_EQ(timerTimeout.enabled, *reply == 0) << "a whole line stops the limit";
    }
    EnableTimer(timerTimeout);
    platform.run(50);
    EXPECT_TRUE(IsSet(TimeoutFlag));
    TimeoutFlag = kClear;
    platform.run(500);
    EXPECT_FALSE(IsSet(TimeoutFlag)) << "it fires once";
    comes(std::string(5000, 'x'));
    comes("0RH1");
    EXPECT_EQ(ReplyBuffer, std::string(4092, 'x') + "0RH1") << "a flow without end is bounded";
}

// What came while the program was deaf belongs to an exchange that is over, and so does the
// beginning of a line; a whole error line that came on line is the controller's own word.
TEST_F(ReceiverTest, GoingOnLineLeavesNothingOfAnOlderExchange) {
    SetOfflineState();
    CommErrorFlag = kSet;
    comes("0RH1\r\n0R");
    GoOnLine();
    EXPECT_EQ(ReplyText + ReplyBuffer, "");
    EXPECT_EQ(state(), "OnLine");
    EXPECT_FALSE(ThePanel().imgGreenLedOnline) << "the lamp waits for a good reply";
    comes("0RA");
    EXPECT_EQ(ReplyBuffer, "0RA");
    GoOnLine();
    EXPECT_EQ(ReplyBuffer, "");
    comes("0%%134\r\n");
    EXPECT_EQ(state(), "OnLine Alarm NotResettable ErrorFound") << "lit at once";
    // But nothing is taken away from an exchange that waits.
    platform.after(15, GoOnLine);
    platform.answerBytes({{10, "0RH"}, {20, "1\r\n"}});
    EXPECT_EQ(ReadHomeStatus(), 0);
    EXPECT_TRUE(ThePanel().imgGreenLedOnline);
}

TEST_F(ReceiverTest, FaultWhileReceivingAndAPortThatClosesItself) {
    platform.inputFaults = true;
    comes("0RH1\r\n");
    EXPECT_EQ(state(), "OffLine OnLine") << "the one place where both flags stand";
    EXPECT_TRUE(ThePanel().imgGreenLedOnline);
    GoOnLine();
    OpenCtPort();
    platform.breakLine();
    EXPECT_EQ(state(), "OffLine");
    EXPECT_FALSE(ThePanel().imgGreenLedOnline) << "in sight";
    EXPECT_TRUE(platform.boxes.empty());
}

class TickTest : public LinkTest {
protected:
    TickTest() {
        SetBuilt(Command::cmdReset);
        CMDBTN_Yuko();
        EnableTimer(Timer1);
        letAlarmStand();
    }
};

TEST_F(TickTest, PollsWhileAResettableAlarmStandsAndNothingHoldsIt) {
    for (Flag* flag : {&OffLineFlag, &AlarmNotResettableFlag, &CtBusyFlag}) {
        *flag = kSet;
        platform.run(2000);
        *flag = kClear;
    }
    AlarmFlag = kClear;
    platform.run(2000);
    AlarmFlag = kSet;
    {
        const PollHeld outer;
        const PollHeld inner;
        OpenCtPort();
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
    platform.answer("0%%013");
    platform.answer("0CM1");
    CloseCtPortForce();
    platform.run(5000);
    EXPECT_EQ(story(), "close 14500 send close 15000 send close, 19000");
    EXPECT_EQ(state(), "OnLine ErrorFound");
    EXPECT_FALSE(ThePanel().imgPortGreen);
}

TEST_F(TickTest, PollEndsByALastingAlarmAndBySilence) {
    PortOccupyFlag = kSet;
    platform.answer("0%%134");
    platform.run(5000);
    EXPECT_EQ(story(), "500 send, 5000") << "the port stays open";
    EXPECT_EQ(state(), "OnLine Alarm NotResettable ErrorFound");
    AlarmNotResettableFlag = kClear;
    platform.run(5000);
    EXPECT_EQ(story(), "5500 send close off, 10000");
}

// However the poll ends, the command runs behind it; a second one meanwhile is dropped.
TEST_F(TickTest, CommandOutOfTheWaitOfThePollRunsBehindIt) {
    Screens().frmGiveUp = [] { TheGiveUpOffer().shown ? cmdGiveUp_Click() : void(); };
    struct Row {
        std::vector<const char*> replies; ///< to the poll; "" is silence
        int failingOpens;
        std::vector<std::int64_t> sentAt; ///< from the tick on; the last is the command's
    };
    for (const Row& row :
         {Row{{"0%%013"}, 0, {0, 300}}, Row{{"0CM1"}, 0, {0, 300}}, Row{{""}, 0, {0, 1000}},
          Row{{"0%%013"}, 2, {200, 500}}, Row{{"0ZZ1", ""}, 0, {0, 300, 1300}}}) {
        letAlarmStand();
        CloseCtPortForce();
        platform.sentAt.clear();
        platform.failingOpens = row.failingOpens;
        for (const char* reply : row.replies) {
            *reply == 0 ? platform.silence() : platform.answer(reply, 300);
        }
        platform.answer("0RH1");
        const std::int64_t tick = platform.now + 500;
        platform.after(550, [] {
            WhenLineIsFree([] {
                GoOnLine();
                EXPECT_EQ(ReadHomeStatus(), 0);
            });
        });
        platform.after(560, [] { WhenLineIsFree([] { ADD_FAILURE() << "a second command"; }); });
        platform.run(5000);
        for (std::int64_t& at : platform.sentAt) {
            at -= tick;
        }
        EXPECT_EQ(platform.sentAt, row.sentAt);
        EXPECT_EQ(state().substr(0, 6), "OnLine");
        EXPECT_EQ(GrpMoveStopFlag, kClear);
    }
}

// Whatever goes off line while the poll waits, a late answer doesn't bring the program back.
TEST_F(TickTest, LateAnswerOfAPollDoesNotGoOnLineAgain) {
    platform.answer("0CM1", 100);
    platform.after(550, SetOfflineState);
    platform.run(5000);
    EXPECT_EQ(state(), "OffLine CommError Alarm");
}

// A tick that talks in full, as windows for motion have them. What it throws comes behind the
// command.
TEST_F(TickTest, CommandOutOfTheWaitOfATalkingTickRunsBehindIt) {
    AlarmFlag = kClear;
    platform.answer("0RI123456", 300);
    platform.answer("0AR");
    platform.after(500, [] {
        EXPECT_ANY_THROW(RunInBackground([] {
            ReadInputs();
            throw Fault("in the tick");
        }));
    });
    platform.after(550, [] { WhenLineIsFree([] { SendAlarmReset(); }); });
    platform.after(600, [] { EXPECT_FALSE(RunInBackground([] { ADD_FAILURE(); })); });
    platform.run(5000);
    EXPECT_EQ(platform.sent, (std::vector<std::string>{"0RI", "0AR"}));
    EXPECT_EQ(platform.sentAt[1] - platform.sentAt[0], 300);
}

} // namespace
} // namespace qdw8::test
