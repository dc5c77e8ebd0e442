// The receiver: what becomes of characters that come, wanted or not.

#include "link/Module3Tusin.h"
#include "link/link_fixture.h"

namespace qdw8::test {
namespace {

class ReceiverTest : public LinkTest {
protected:
    ReceiverTest() {
        OpenCtPort();
        newEvents();
    }
};

TEST_F(ReceiverTest, LineIsWholeWhenTheBufferEndsInTheLineEnd) {
    struct Row {
        std::string comes;
        std::string reply;
        std::string rest;
    };
    for (const Row& row : {Row{"0RH", "", "0RH"}, Row{"1\r", "", "0RH1\r"},
                           Row{"\n", "0RH1\r\n", ""}, Row{"0RA1\r\n0R", "", "0RA1\r\n0R"},
                           Row{"V\r\n", "0RA1\r\n0RV\r\n", ""}, Row{"\r\n", "\r\n", ""}}) {
        ReplyText.clear();
        ReplyDoneFlag = kClear;
        platform.arrive(1, row.comes);
        platform.run(5);
        EXPECT_EQ(ReplyText, row.reply);
        EXPECT_EQ(ReplyBuffer, row.rest);
        EXPECT_EQ(IsSet(ReplyDoneFlag), !row.reply.empty());
    }
}

// What came while the program was deaf belongs to an exchange that is over, and so does the
// beginning of a line; a whole error line that came on line is the controller's own word.
TEST_F(ReceiverTest, GoingOnLineLeavesNothingOfAnOlderExchange) {
    SetOfflineState();
    platform.arrive(10, "0RH1\r\n0R");
    platform.run(100);
    GoOnLine();
    platform.arrive(10, "0RA");
    platform.run(100);
    EXPECT_EQ(ReplyText, "");
    EXPECT_EQ(ReplyBuffer, "0RA");
    GoOnLine();
    EXPECT_EQ(ReplyBuffer, "");

    // But nothing is taken away from an exchange that waits.
    platform.after(15, GoOnLine);
    platform.answerBytes({{10, "0RH"}, {20, "1\r\n"}});
    ReplyTimeoutMs = 1000;
    EXPECT_EQ(SendCtCommandOnce("0RH", 6), 0);
}

TEST_F(ReceiverTest, FlowWithoutALineEndIsBounded) {
    platform.arrive(1, std::string(5000, 'x'));
    platform.arrive(2, "0RH1");
    platform.run(5);
    EXPECT_EQ(ReplyBuffer, std::string(4092, 'x') + "0RH1");
}

TEST_F(ReceiverTest, ErrorLineThatComesByItselfLightsTheAlarmAtOnce) {
    platform.arrive(10, "0%%134\r\n");
    platform.run(10);
    EXPECT_EQ(newEvents(),
              (std::vector<std::string>{"receive 0%%134", "alarm No. 4", "alarm lamp on",
                                        "alarm text Home sensor not detected"}));
    EXPECT_EQ(state(), "OnLine PortOpen Alarm NotResettable ErrorFound");
    EXPECT_EQ(ErrorReplyText, "0%%134\r\n");
}

TEST_F(ReceiverTest, FaultWhileReceivingGivesTheLineUp) {
    PortOccupyFlag = kSet;
    platform.inputFaults = true;
    platform.arrive(10, "0RH1\r\n");
    platform.run(10);
    EXPECT_EQ(state(), "OffLine OnLine") << "the one place where both flags stand";
    EXPECT_TRUE(ThePanel().imgGreenLedOnline);
    EXPECT_EQ(newEvents(), (std::vector<std::string>{"receive 0RH1", "close"}));
}

TEST_F(ReceiverTest, IdlePortThatReportsAnErrorPutsTheProgramOffLineInSight) {
    platform.breakLine();
    EXPECT_EQ(state(), "OffLine");
    EXPECT_EQ(newEvents(), (std::vector<std::string>{"line breaks", "online lamp off"}));
}

TEST_F(ReceiverTest, LimitFiresOnce) {
    SetInterval(timerTimeout, 50);
    EnableTimer(timerTimeout);
    platform.run(50);
    EXPECT_TRUE(IsSet(TimeoutFlag));
    TimeoutFlag = kClear;
    platform.run(500);
    EXPECT_FALSE(IsSet(TimeoutFlag));
}

TEST_F(ReceiverTest, AWholeLineStopsTheLimit) {
    SetInterval(timerTimeout, 50);
    EnableTimer(timerTimeout);
    platform.arrive(20, "x\r\n");
    platform.run(500);
    EXPECT_FALSE(IsSet(TimeoutFlag));
}

} // namespace
} // namespace qdw8::test
