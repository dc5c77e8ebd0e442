// The exchange itself: what the table of commands and faults doesn't reach.

#include "app/Module1.h"
#include "app/transfer_dialog.h"
#include "link/Module3Tusin.h"
#include "link/link_fixture.h"

namespace qdw8::test {
namespace {

using Transaction = std::int16_t (*)(const std::string&, std::int16_t, const std::string&);

using TransactionTest = LinkTest;

TEST_F(TransactionTest, TalkingFormsTellOfAPortThatDoesNotOpen) {
    for (const Transaction send : {SendCtCommand, SendCtCommandOnce}) {
        GoOnLine();
        SetOnlineState();
        newEvents();
        platform.failingOpens = 6;
        platform.expectBox(box::kPort);
        const std::int64_t begin = platform.now;
        EXPECT_EQ(send("0RH", 6, ""), 1);
        EXPECT_EQ(platform.now - begin, 500) << "six tries, 100 ms apart";
        EXPECT_EQ(newEvents(),
                  (std::vector<std::string>{"open fails", "open fails", "open fails", "open fails",
                                            "open fails", "open fails", "box Ok: " + box::kPort,
                                            "online lamp off"}));
        EXPECT_EQ(state(), "OffLine");
    }
}

TEST_F(TransactionTest, QuietFormTellsNothingOfAPortThatDoesNotOpen) {
    platform.failingOpens = 6;
    EXPECT_EQ(SendCtCommandQuiet("0CM", 6, "1"), 1);
    EXPECT_EQ(platform.now, 500);
    EXPECT_EQ(newEvents(),
              (std::vector<std::string>{"open fails", "open fails", "open fails", "open fails",
                                        "open fails", "open fails", "online lamp off"}));
    EXPECT_EQ(state(), "OffLine");
}

TEST_F(TransactionTest, FaultInAnExchangeGoesOffLineInEveryForm) {
    for (const Transaction send : {SendCtCommand, SendCtCommandOnce, SendCtCommandQuiet}) {
        const bool talks = send != SendCtCommandQuiet;
        GoOnLine();
        SetOnlineState();
        newEvents();
        PortOccupyFlag = kSet;
        platform.outputFaults = true;
        std::vector<std::string> events{"open 1", "settings 9600,N,8,1"};
        if (talks) {
            platform.expectBox(box::kError);
            events.push_back("box Ok: " + box::kError);
        }
        events.insert(events.end(), {"close", "online lamp off"});
        EXPECT_EQ(send("0RH", 6, ""), 1);
        EXPECT_EQ(newEvents(), events);
        EXPECT_EQ(state(), "OffLine");
    }
}

TEST_F(TransactionTest, FaultHasATextOfItsOwnInJapanese) {
    LanguageBase = 0;
    const auto boxText = [this](bool fault) {
        std::string text;
        ThePlatform().ShowMessageBox = [&text](const BoxQuestion& question) {
            text = question.text;
            return BoxAnswer::Ok;
        };
        GoOnLine();
        platform.outputFaults = fault;
        platform.answer("0ZZ1");
        platform.answer("0CM0");
        SendCtCommandOnce("0RH", 6);
        return text;
    };
    const std::string wrongEcho = boxText(false);
    const std::string fault = boxText(true);
    EXPECT_NE(fault, wrongEcho);
    EXPECT_NE(fault, box::kError);
}

TEST_F(TransactionTest, LastMomentOfTheLimitCounts) {
    ReplyTimeoutMs = 1000;
    platform.answer("0RH1", 999);
    EXPECT_EQ(SendCtCommandOnce("0RH", 6), 0);
    EXPECT_EQ(state(), "OnLine PortOpen");
}

TEST_F(TransactionTest, PiecesDoNotProlongTheLimit) {
    ReplyTimeoutMs = 1000;
    platform.answerBytes({{400, "0R"}, {800, "H1"}, {1200, "\r\n"}});
    platform.expectBox(box::kTimeout);
    EXPECT_EQ(SendCtCommandOnce("0RH", 6), 1);
    EXPECT_EQ(platform.now, 1000);
}

TEST_F(TransactionTest, TooShortAReplyIsALengthErrorToo) {
    ReplyTimeoutMs = 1000;
    platform.answer("0RH");
    platform.answer("0CM0");
    platform.expectBox(box::kLength);
    EXPECT_EQ(SendCtCommand("0RH", 6), 1);
    EXPECT_EQ(platform.sent, (std::vector<std::string>{"0RH", "0CM0"}));
}

// The remains of a reply that broke off stand in front of the next one: the buffer is not cleared
// before a send.
TEST_F(TransactionTest, RemainsOfABrokenReplySpoilTheNext) {
    ReplyTimeoutMs = 1000;
    platform.answerBytes({{10, "0R"}});
    platform.answer("0RH1");
    platform.answer("0CM0");
    platform.expectBox(box::kError);
    EXPECT_EQ(SendCtCommand("0RH", 6), 1);
    EXPECT_EQ(ReplyText, "0CM0\r\n");
    EXPECT_EQ(platform.sent, (std::vector<std::string>{"0RH", "0RH", "0CM0"}));
}

// A burst that happens to pause behind a line end is taken there, and the rest begins the next.
TEST_F(TransactionTest, RestOfABurstBeginsTheNextReply) {
    ReplyTimeoutMs = 1000;
    platform.answerBytes({{10, "0RH1\r\n"}, {11, "0R"}});
    EXPECT_EQ(SendCtCommand("0RH", 6), 0);
    platform.run(10);
    EXPECT_EQ(ReplyBuffer, "0R");
    platform.answerBytes({{10, "H0\r\n"}});
    EXPECT_EQ(SendCtCommand("0RH", 6), 0);
    EXPECT_EQ(ReplyText, "0RH0\r\n");
}

TEST_F(TransactionTest, OffLineInTheMiddleEndsByTheLimit) {
    ReplyTimeoutMs = 1000;
    platform.answer("0RH1", 500);
    platform.after(300, [] { OffLineFlag = kSet; });
    platform.expectBox(box::kTimeout);
    EXPECT_EQ(SendCtCommandOnce("0RH", 6), 1);
    EXPECT_EQ(platform.now, 1000);
    EXPECT_EQ(ReplyBuffer, "") << "the characters went with the port";
}

// A wait with a limit, one without and the recovery end at once when the port is gone.
TEST_F(TransactionTest, PortThatIsGoneEndsEveryWaitAtOnce) {
    struct Row {
        std::int16_t limit;
        const char* reply;
    };
    for (const Row& row : {Row{1000, ""}, Row{0, ""}, Row{0, "0ZZ1"}}) {
        GoOnLine();
        SetOnlineState();
        ReplyTimeoutMs = row.limit;
        *row.reply == 0 ? platform.silence() : platform.answer(row.reply);
        platform.after(300, [this] { platform.breakLine(); });
        platform.expectBox(box::kPort);
        const std::int64_t begin = platform.now;
        EXPECT_EQ(SendCtCommand("0MG", 7, "01"), 1);
        platform.checkAllAsked();
        EXPECT_EQ(platform.now - begin, 300);
        EXPECT_EQ(state(), "OffLine CommError");
        EXPECT_FALSE(ThePanel().imgGreenLedOnline);
    }
}

TEST_F(TransactionTest, RecoveryOutlivesItsLimit) {
    ReplyTimeoutMs = 1000;
    platform.answer("0ZZ1");
    platform.answer("0CM0", 600'000);
    platform.expectBox(box::kError);
    EXPECT_EQ(SendCtCommandOnce("0RH", 6), 1);
    EXPECT_EQ(platform.now, 600'010);
    EXPECT_EQ(platform.sent.size(), 2U) << "the recovery frame goes out once";
}

// The way out of it is offered from one time limit on, by the transfer dialog where it is up.
TEST_F(TransactionTest, RecoveryIsGivenUpFromOneLimitOn) {
    struct Row {
        std::int16_t limit;
        bool dialog;
        std::int64_t offeredAfter;
    };
    for (const Row& row : {Row{500, true, 510}, Row{500, false, 510}, Row{0, false, 1010}}) {
        GoOnLine();
        ReplyTimeoutMs = row.limit;
        platform.answer("0ZZ1");
        std::int64_t offeredAt = 0;
        const std::int64_t begin = platform.now;
        const auto look = [&] {
            const bool inDialog = TheTransferDialog().shown && TheTransferDialog().cancelShown;
            if (!inDialog && !TheGiveUpOffer().shown) {
                return;
            }
            offeredAt = platform.now - begin;
            const std::string text = "The controller does not answer. Do you stop waiting?";
            EXPECT_EQ(inDialog ? TheTransferDialog().lblSetumei : TheGiveUpOffer().text, text);
            platform.after(5000, inDialog ? cmdTranceCancel_Click : cmdGiveUp_Click);
        };
        Screens().frmTrance = Screens().frmGiveUp = look;
        if (row.dialog) {
            ShowTrance(1, "a");
        }
        EXPECT_EQ(SendCtCommandOnce("0RH", 6), 1);
        EXPECT_EQ(offeredAt, row.offeredAfter);
        EXPECT_EQ(platform.now - begin, row.offeredAfter + 5000);
        EXPECT_EQ(GrpMoveStopFlag, kClear);
        EXPECT_TRUE(IsSet(OffLineFlag));
        EXPECT_FALSE(TheGiveUpOffer().shown);
        EXPECT_EQ(TheTransferDialog().lblSetumei, "a");
        EXPECT_FALSE(TheTransferDialog().cancelShown);
        UnloadTrance();
    }
}

} // namespace
} // namespace qdw8::test
