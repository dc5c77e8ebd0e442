// The half-second tick with its poll, the alarm reset, and the small commands of the controller's
// menu, as a user meets them.

#include "app/command_states.h"
#include "app/transfer_dialog.h"
#include "device/axis_device.h"
#include "device/axis_texts.h"
#include "device/device_reset.h"
#include "link/Module3Tusin.h"
#include "link/axis_mask.h"
#include "link/ct_commands.h"
#include "link/link_fixture.h"
#include "link/supervision.h"
#include "setup/line_commands.h"

#include <functional>
#include <map>
#include <ostream>

namespace qdw8::test {
namespace {

using Command::cmdReset;

class SupervisionTest : public LinkTest {
protected:
    SupervisionTest() {
        for (const Command command : {cmdReset, Command::cmdPosiRead, Command::mnuFunctionCt,
                                      Command::tbRead, Command::mnuEditGyoInsert}) {
            SetBuilt(command);
        }
        CMDBTN_Yuko();
        ToolBar_Yuko();
        Menyu_Yuko();
        EditCMD_Yuko();
        // While a command talks, none may be started.
        onSend = [](const std::string&) { EXPECT_FALSE(IsEnabled(cmdReset)); };
        platform.onOutput = [this](const std::string& text) { onSend(text); };
    }
    void expectCommandsBack() {
        for (const Command command :
             {cmdReset, Command::cmdPosiRead, Command::mnuFunctionCt, Command::tbRead}) {
            EXPECT_TRUE(IsEnabled(command)) << NameOf(command);
        }
        EXPECT_FALSE(IsEnabled(Command::mnuEditGyoInsert)) << "returns with a grid selection";
    }
    /// The controller answers each frame by the list; a frame that it lacks meets silence.
    void answerWith(std::map<std::string, std::string> replies) {
        onSend = [this, replies = std::move(replies)](const std::string& text) {
            EXPECT_FALSE(IsEnabled(cmdReset));
            const auto found = replies.find(text.substr(0, text.size() - 2));
            if (found != replies.end()) {
                platform.arrive(10, found->second + "\r\n");
            }
        };
    }

    /// No axis that comes into use lacks a device.
    static void knowDevices() {
        ResetDevices();
        for (AxisDevice& device : DevSetting) {
            device = {" 44", "L", 100, kSet, kClear, kSet, kSet, 2, 400, 20000, 100};
        }
    }

    std::function<void(const std::string&)> onSend;
};

// ---- the tick ----

class TickTest : public SupervisionTest {
protected:
    TickTest() {
        onSend = [](const std::string&) {};
        EnableTimer(Timer1);
    }
};

TEST_F(TickTest, PortLampFollowsThePort) {
    OpenCtPort();
    platform.run(499);
    EXPECT_FALSE(ThePanel().imgPortGreen);
    platform.run(1);
    EXPECT_TRUE(ThePanel().imgPortGreen);
    SetOfflineState();
    CloseCtPortForce();
    platform.run(500);
    EXPECT_FALSE(ThePanel().imgPortGreen) << "off line as well";
}

TEST_F(TickTest, NothingGoesOutUnlessAResettableAlarmStands) {
    struct Row {
        const char* what;
        Flag* flag;
    };
    platform.run(5000); // no alarm
    letAlarmStand();
    for (const Row& row : {Row{"off line", &OffLineFlag}, Row{"lasting", &AlarmNotResettableFlag},
                           Row{"busy", &CtBusyFlag}}) {
        SCOPED_TRACE(row.what);
        *row.flag = kSet;
        platform.run(5000);
        EXPECT_EQ(platform.sent.size(), 0U);
        *row.flag = kClear;
    }
    {
        const PollHeld outer;
        const PollHeld inner;
        OpenCtPort();
        platform.run(5000);
        EXPECT_EQ(platform.sent.size(), 0U);
        EXPECT_TRUE(ThePanel().imgPortGreen) << "the tick itself goes on";
    }
    platform.answer("0CM1");
    platform.run(500);
    EXPECT_EQ(platform.sent, std::vector<std::string>{"0CM1"});
}

TEST_F(TickTest, AlarmThatTheControllerDroppedGoesOutByItself) {
    letAlarmStand();
    platform.answer("0%%013");
    platform.answer("0%%013");
    platform.answer("0CM1");
    platform.run(5000);
    EXPECT_EQ(platform.sentAt, (std::vector<std::int64_t>{500, 1000, 1500}));
    EXPECT_EQ(newEvents(), (std::vector<std::string>{"open 1",
                                                     "settings 9600,N,8,1",
                                                     "send 0CM1",
                                                     "receive 0%%013",
                                                     "alarm No. 3",
                                                     "alarm text Homing not completed",
                                                     "close",
                                                     "open 1",
                                                     "settings 9600,N,8,1",
                                                     "send 0CM1",
                                                     "receive 0%%013",
                                                     "close",
                                                     "open 1",
                                                     "settings 9600,N,8,1",
                                                     "send 0CM1",
                                                     "receive 0CM1",
                                                     "alarm lamp off",
                                                     "alarm text No Error",
                                                     "alarm No. ",
                                                     "close"}));
    EXPECT_EQ(state(), "OnLine ErrorFound");
}

TEST_F(TickTest, OccupiedPortStaysOpenUnderThePoll) {
    letAlarmStand();
    PortOccupyFlag = kSet;
    platform.answer("0%%013");
    platform.answer("0CM1");
    platform.run(2000);
    EXPECT_EQ(state(), "OnLine PortOpen ErrorFound");
}

TEST_F(TickTest, AlarmThatTurnsOutToLastIsPolledNoMore) {
    letAlarmStand();
    platform.answer("0%%134");
    platform.run(5000);
    EXPECT_EQ(platform.sent.size(), 1U);
    EXPECT_EQ(state(), "OnLine Alarm NotResettable ErrorFound") << "and the program stays on line";
}

TEST_F(TickTest, SilentControllerEndsThePollOffLine) {
    letAlarmStand();
    platform.run(5000);
    EXPECT_EQ(platform.sent.size(), 1U) << "never sent twice";
    EXPECT_EQ(state(), "OffLine CommError Alarm");
}

// A user may press a button while the poll waits: the command runs when the poll has ended, however
// it ends, and a second one meanwhile is dropped.
TEST_F(TickTest, CommandOutOfTheWaitOfThePollRunsBehindIt) {
    struct Row {
        const char* what;
        std::vector<std::string> replies; ///< to the poll; "" is silence
        int failingOpens;
        std::vector<std::string> sent;
        std::vector<std::int64_t> sentAt; ///< from the tick on
    };
    const std::vector<std::string> poll{"0CM1", "0AR", "0CM1"};
    for (const Row& row :
         {Row{"reply to come", {"0%%013"}, 0, poll, {0, 300, 310}},
          Row{"good reply to come", {"0CM1"}, 0, poll, {0, 300, 310}},
          Row{"no reply to come", {""}, 0, poll, {0, 1000, 1010}},
          Row{"port does not open", {"0%%013"}, 2, {"0CM1", "0AR", "0CM1"}, {200, 500, 510}},
          Row{"recovery that is given up",
              {"0ZZ1", ""},
              0,
              {"0CM1", "0CM0", "0AR", "0CM1"},
              {0, 300, 1300, 1310}}}) {
        SCOPED_TRACE(row.what);
        letAlarmStand();
        platform.sent.clear();
        platform.sentAt.clear();
        platform.failingOpens = row.failingOpens;
        for (const std::string& reply : row.replies) {
            reply.empty() ? platform.silence() : platform.answer(reply, 300);
        }
        platform.answer("0AR");
        platform.answer("0CM1");
        Screens().frmGiveUp = [] {
            if (TheGiveUpOffer().shown) {
                cmdGiveUp_Click();
            }
        };
        const std::int64_t tick = platform.now + 500;
        platform.after(550, [] { WhenLineIsFree(cmdReset_Click); });
        platform.after(560, [] { WhenLineIsFree([] { ADD_FAILURE() << "a second command"; }); });
        platform.run(5000);
        EXPECT_EQ(platform.sent, row.sent);
        for (std::int64_t& at : platform.sentAt) {
            at -= tick;
        }
        EXPECT_EQ(platform.sentAt, row.sentAt);
        EXPECT_TRUE(ThePanel().imgGreenLedOnline);
        EXPECT_EQ(ThePanel().lblErrorComment, "No Error");
        EXPECT_EQ(GrpMoveStopFlag, kClear);
        expectCommandsBack();
    }
}

// A tick that talks in full, as the windows for motion have them, keeps a command waiting too.
TEST_F(TickTest, CommandOutOfTheWaitOfATalkingTickRunsBehindIt) {
    platform.answer("0RI123456", 300);
    platform.answer("0AR");
    platform.answer("0CM1");
    platform.after(550, [] { WhenLineIsFree(cmdReset_Click); });
    platform.after(500, [] { EXPECT_TRUE(RunInBackground([] { EXPECT_EQ(ReadInputs(), 0); })); });
    platform.after(600, [] { EXPECT_FALSE(RunInBackground([] { ADD_FAILURE(); })); });
    platform.run(5000);
    EXPECT_EQ(platform.sent, (std::vector<std::string>{"0RI", "0AR", "0CM1"}));
    EXPECT_EQ(platform.sentAt[1] - platform.sentAt[0], 300);
}

// Whatever goes off line while the poll waits, a late answer doesn't bring the program back.
TEST_F(TickTest, ALateAnswerOfAPollDoesNotGoOnLineAgain) {
    letAlarmStand();
    platform.answer("0CM1", 100);
    platform.after(550, [] {
        OffLineFlag = kSet;
        SetPanel(&MainPanel::imgGreenLedOnline, false);
    });
    platform.run(5000);
    EXPECT_EQ(OffLineFlag, kSet);
    EXPECT_FALSE(ThePanel().imgGreenLedOnline);
    EXPECT_FALSE(platform.portOpen);
}

// A poll on top of a command's dialog could keep the command from ending.
TEST_F(TickTest, NothingIsPolledWhileACommandHasTheCommands) {
    letAlarmStand();
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
    platform.run(600);
    EXPECT_EQ(platform.sent, std::vector<std::string>{"0CM1"});
}

// ---- the reset ----

struct ResetRow {
    const char* name;
    bool lastingBefore;
    std::vector<std::string> replies; ///< nothing at the end of the list
    std::vector<std::string> boxes;
    std::vector<std::string> sent;
    std::string state;
    std::string comment;
};

const std::string kPowerBox =
    "The Alarm is not resettable.\r\n"
    "Please turn off a power supply,and then turn on a power supply again "
    "in order to reset the alarm.";
const std::vector<std::string> kBoth{"0AR", "0CM1"};

void PrintTo(const ResetRow& row, std::ostream* out) {
    *out << row.name;
}

class ResetTest : public SupervisionTest, public testing::WithParamInterface<ResetRow> {};

TEST_P(ResetTest, EveryOutcome) {
    const ResetRow& row = GetParam();
    letAlarmStand();
    AlarmNotResettableFlag = FlagOf(row.lastingBefore);
    SetOfflineState(); // the command goes on line by itself
    for (const std::string& reply : row.replies) {
        platform.answer(reply);
    }
    for (const std::string& box : row.boxes) {
        platform.expectBox(box);
    }
    cmdReset_Click();
    EXPECT_EQ(platform.sent, row.sent);
    EXPECT_EQ(state(), row.state);
    EXPECT_EQ(ThePanel().lblErrorComment, row.comment);
    // The lamp waits for a good reply: a resettable alarm alone leaves it dark.
    EXPECT_EQ(ThePanel().imgGreenLedOnline,
              row.state.starts_with("OnLine") && row.replies.front() == "0AR");
    expectCommandsBack();
}

INSTANTIATE_TEST_SUITE_P(
    Every, ResetTest,
    testing::Values(
        ResetRow{"Good", false, {"0AR", "0CM1"}, {}, kBoth, "OnLine", "No Error"},
        ResetRow{"GoodAfterLasting",
                 true,
                 {"0AR", "0CM1"},
                 {},
                 kBoth,
                 "OnLine NotResettable",
                 "No Error"},
        ResetRow{"Resettable",
                 false,
                 {"0%%013"},
                 {box::kHoming},
                 {"0AR"},
                 "OnLine Alarm ErrorFound",
                 "Homing not completed"},
        ResetRow{"Lasting",
                 false,
                 {"0%%134"},
                 {box::kSensor, kPowerBox},
                 {"0AR"},
                 "OffLine Alarm NotResettable ErrorFound",
                 "Home sensor not detected"},
        ResetRow{"NoReply",
                 false,
                 {},
                 {box::kTimeout},
                 std::vector<std::string>(6, "0AR"),
                 "OffLine CommError Alarm",
                 "Old alarm"},
        ResetRow{"AlarmComesBack",
                 false,
                 {"0AR", "0%%013"},
                 {box::kHoming},
                 kBoth,
                 "OffLine Alarm ErrorFound",
                 "Homing not completed"},
        ResetRow{"LastingAlarmComes",
                 false,
                 {"0AR", "0%%134"},
                 {box::kSensor},
                 kBoth,
                 "OffLine Alarm NotResettable ErrorFound",
                 "Home sensor not detected"},
        // The failed check must not block the next command: CommErrorFlag is clear again.
        ResetRow{"CheckUnanswered", false, {"0AR"}, {box::kTimeout}, kBoth, "OffLine", "No Error"}),
    [](const testing::TestParamInfo<ResetRow>& test) { return std::string(test.param.name); });

TEST_F(SupervisionTest, ResetWithoutAPort) {
    platform.failingOpens = -1;
    platform.expectBox(box::kPort);
    cmdReset_Click();
    EXPECT_EQ(state(), "OffLine");
    expectCommandsBack();
}

// ---- off line ----

TEST_F(SupervisionTest, OffLineIsAskedFirst) {
    const std::string question = "Do you change the software to Offline from Online?";
    PortOccupyFlag = kSet;
    OpenCtPort();
    newEvents();
    platform.expectBox(question, BoxButtons::OkCancel, BoxAnswer::Cancel);
    mnuSettingsOffline_Click();
    EXPECT_EQ(state(), "OnLine PortOpen");
    EXPECT_TRUE(IsEnabled(Command::mnuEditGyoInsert)) << "edit commands as before";

    platform.expectBox(question, BoxButtons::OkCancel, BoxAnswer::Ok);
    mnuSettingsOffline_Click();
    EXPECT_EQ(state(), "OffLine");
    EXPECT_EQ(newEvents(),
              (std::vector<std::string>{"box OkCancel: " + question, "box OkCancel: " + question,
                                        "close", "online lamp off"}));
    EXPECT_TRUE(IsEnabled(Command::mnuEditGyoInsert));
}

// ---- version and axes ----

TEST_F(SupervisionTest, VersionsOfMainUnitAndAxesInUse) {
    SetOfflineState();
    AxisOff[1] = kSet;
    AxisOff[2] = kSet;
    answerWith(
        {{"0CM1", "0CM1"}, {"0RV", "0RV123x4y"}, {"0RV1", "0RV1210K8R"}, {"0RV4", "0RV4211K8R"}});
    platform.expectBox("The version of this controller is as follows.\r\n\r\n<MAIN>  123\r\n\r\n"
                       "<AXIS1>  210\r\n\r\n<AXIS4>  211");
    mnuFuncCtversion_Click();
    EXPECT_EQ(platform.sent, (std::vector<std::string>{"0CM1", "0RV", "0RV1", "0RV4"}));
    EXPECT_EQ(state(), "OnLine");
    expectCommandsBack();
}

TEST_F(SupervisionTest, ForeignBoardShowsNoVersions) {
    answerWith({{"0CM1", "0CM1"}, {"0RV", "0RV123x4y"}, {"0RV1", "0RV1210K7R"}});
    mnuFuncCtversion_Click();
    EXPECT_EQ(platform.sent, (std::vector<std::string>{"0CM1", "0RV", "0RV1"}));
    EXPECT_EQ(state(), "OnLine");
    expectCommandsBack();
}

TEST_F(SupervisionTest, FailedVersionReadShowsItsOwnBoxOnly) {
    answerWith({{"0CM1", "0CM1"}});
    platform.expectBox(box::kTimeout);
    mnuFuncCtversion_Click();
    EXPECT_EQ(platform.sent.size(), 7U);
    EXPECT_EQ(state(), "OffLine CommError");
    expectCommandsBack();
}

TEST_F(SupervisionTest, AxesInUseAreTakenOverShownAndPainted) {
    SetOfflineState();
    knowDevices();
    std::vector<std::string> dialog;
    Screens().frmTrance = [&dialog] {
        const TransferDialog& now = TheTransferDialog();
        dialog.push_back(now.shown ? now.lblSetumei + " " + std::to_string(now.prgBar1) + "/" +
                                         std::to_string(now.prgBar1Max)
                                   : "gone");
        EXPECT_FALSE(now.cancelShown);
    };
    answerWith({{"0RD0", "0RD0" + std::string(12, '0') + "0B" + std::string(18, '0')}});
    platform.expectBox("Axis setting is 1,2,4.");
    mnuFuncGetAxis_Click();
    EXPECT_EQ(AxisOff, (std::array<Flag, kAxes>{kClear, kClear, kSet, kClear}));
    EXPECT_EQ(ThePanel().axisHeader[2], "AXIS 3:************");
    const std::string text = "Reading data from controller...";
    EXPECT_EQ(dialog,
              (std::vector<std::string>{text + " 0/2", text + " 1/2", text + " 2/2", "gone"}));
    EXPECT_EQ(state(), "OnLine");
    expectCommandsBack();
}

TEST_F(SupervisionTest, FailedAxisReadChangesNothing) {
    AxisOff[3] = kSet;
    knowDevices();
    answerWith({{"0RD0", "0%%013"}});
    platform.expectBox(box::kHoming);
    mnuFuncGetAxis_Click();
    EXPECT_EQ(AxisOff, (std::array<Flag, kAxes>{kClear, kClear, kClear, kSet}));
    EXPECT_FALSE(TheTransferDialog().shown);
    EXPECT_EQ(state(), "OnLine Alarm ErrorFound");
    expectCommandsBack();
}

// The tries to open the port are pauses in which the tick would find a free line.
TEST_F(SupervisionTest, BatchesHoldThePoll) {
    using Row = std::pair<void (*)(), std::string>;
    for (const auto& [click, first] :
         {Row{mnuFuncGetAxis_Click, "0RD0"}, Row{mnuFuncCtversion_Click, "0CM1"}}) {
        knowDevices();
        GoOnLine();
        EnableTimer(Timer1);
        platform.run(250);
        letAlarmStand();
        platform.sent.clear();
        platform.failingOpens = 5;
        platform.answer("0%%013", 400);
        platform.expectBox(box::kHoming);
        const std::int64_t begin = platform.now;
        click();
        platform.checkAllAsked();
        EXPECT_EQ(platform.sent, std::vector<std::string>{first});
        EXPECT_EQ(platform.now - begin, 900);
        OffLineFlag = kClear;
        platform.answer("0CM1");
        platform.run(500);
        EXPECT_EQ(platform.sent.size(), 2U) << "and goes on behind them";
    }
}

} // namespace
} // namespace qdw8::test
