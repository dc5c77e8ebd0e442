// The exchange: every fault of the line in each of its forms, and what the table doesn't reach.

#include "link/exchange.h"

#include "app/main_panel.h"
#include "app/number_forms.h"
#include "app/transfer_dialog.h"
#include "link/alarm.h"
#include "link/line_state.h"
#include "link/link_fixture.h"
#include "link/port.h"
#include "link/receiver.h"

#include <fstream>
#include <sstream>

namespace qdw8::test {
namespace {

std::vector<std::string> Split(const std::string& text, char mark) {
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, mark);) {
        parts.push_back(Trim(part));
    }
    return parts;
}

/// Queues what a row of the table answers; "closed" and "faults" are states of the port.
void Answer(ScriptedPlatform& platform, const std::string& answers) {
    if (answers == "closed" || answers == "faults") {
        platform.failingOpens = answers == "closed" ? 6 : 0;
        platform.outputFaults = answers == "faults";
        return;
    }
    for (const std::string& answer : Split(answers, ';')) {
        std::vector<std::pair<std::int64_t, std::string>> pieces;
        for (const std::string& piece : Split(answer, '~')) {
            const std::size_t at = piece.find('@');
            pieces.emplace_back(at == piece.npos ? 10 * (pieces.size() + 1)
                                                 : std::stoul(piece.substr(at + 1)),
                                piece.substr(0, at));
            if (const auto end = pieces.back().second.find('^'); end != piece.npos) {
                pieces.back().second.replace(end, 1, "\r\n");
            }
        }
        pieces.back().second += "\r\n";
        platform.answerBytes(pieces);
    }
}

void CheckFault(const std::vector<std::string>& row, char form, bool kept) {
    LinkBench bench;
    LinkBench::letAlarmStand();
    PortOccupyFlag = FlagOf(kept);
    ReplyTimeoutMs = 1000;
    Answer(bench.platform, row[1]);
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
    std::ifstream table(QDW8_SOURCE_DIR "/tests/link/faults.txt");
    int rows = 0;
    for (std::string line; std::getline(table, line);) {
        if (line.empty() || line[0] == '#') {
            continue;
        }
        const auto row = Split(line, '|');
        ASSERT_EQ(row.size(), 5U) << line;
        for (const char form : row[2]) {
            for (const bool kept : {false, true}) {
                SCOPED_TRACE(line + (kept ? ", port kept: " : ": ") + form);
                CheckFault(row, form, kept);
                ++rows;
            }
        }
    }
    EXPECT_GT(rows, 100);
}

using ExchangeTest = LinkTest;

// Remains of a reply that broke off stand in front of the next one: nothing is cleared before a
// send. So does the rest of a burst that happened to pause behind a line end.
TEST_F(ExchangeTest, RemainsStandInFrontOfTheNextReply) {
    ReplyTimeoutMs = 1000;
    platform.answerBytes({{10, "0R"}});
    platform.answer("0RH1");
    platform.answer("0CM0");
    EXPECT_EQ(SendCtCommand("0RH", 6), 1);
    EXPECT_EQ(story(), "0 send 1000 send 1010 again close off error, 1020");

    GoOnLine();
    platform.answerBytes({{10, "0RH1\r\n"}, {11, "0R"}});
    EXPECT_EQ(SendCtCommand("0RH", 6), 0);
    platform.run(10);
    platform.answer("H0");
    EXPECT_EQ(SendCtCommand("0RH", 6), 0);
    EXPECT_EQ(ReplyText, "0RH0\r\n");
}

TEST_F(ExchangeTest, FaultHasATextOfItsOwnInJapanese) {
    LanguageBase = 0;
    platform.answer("0ZZ1");
    platform.answer("0CM0");
    SendCtCommandOnce("0RH", 6);
    platform.outputFaults = true;
    SendCtCommandOnce("0RH", 6);
    ASSERT_EQ(platform.boxes.size(), 2U);
    EXPECT_NE(platform.boxes[0], platform.boxes[1]);
}

// A wait with a limit, one without, and the recovery.
TEST_F(ExchangeTest, PortThatIsGoneEndsEveryWaitAtOnce) {
    for (const auto& [limit, reply] : {std::pair{1000, ""}, {0, ""}, {0, "0ZZ1"}}) {
        GoOnLine();
        SetOnlineState();
        ReplyTimeoutMs = static_cast<std::int16_t>(limit);
        *reply == 0 ? platform.silence() : platform.answer(reply);
        platform.after(300, [this] { platform.breakLine(); });
        const std::int64_t begin = platform.now;
        EXPECT_EQ(SendCtCommand("0MG", 7, "01"), 1);
        EXPECT_EQ(platform.now - begin, 300);
        EXPECT_TRUE(story().find("breaks off port") != std::string::npos);
        EXPECT_EQ(state(), "OffLine CommError");
    }
}

// The same at the end of the program, without a word.
TEST_F(ExchangeTest, EndOfTheProgramEndsEveryWait) {
    for (const auto& [limit, reply, ms] :
         {std::tuple{1000, "", 1000}, {0, "", 300}, {1000, "0ZZ1", 300}}) {
        GoOnLine();
        ProgramEndFlag = kClear;
        ReplyTimeoutMs = static_cast<std::int16_t>(limit);
        *reply == 0 ? platform.silence() : platform.answer(reply);
        platform.after(300, [] { ProgramEndFlag = kSet; });
        const std::int64_t begin = platform.now;
        EXPECT_EQ(SendCtCommand("0MG", 7, "01"), 1);
        EXPECT_EQ(platform.now - begin, ms);
    }
    EXPECT_TRUE(platform.boxes.empty());
}

// The way out of the recovery is offered from one time limit on, by the transfer dialog where it is
// up.
TEST_F(ExchangeTest, RecoveryIsGivenUpFromOneLimitOn) {
    for (const auto& [limit, dialog, offered] :
         {std::tuple{500, true, 510}, {500, false, 510}, {0, false, 1010}}) {
        GoOnLine();
        ReplyTimeoutMs = static_cast<std::int16_t>(limit);
        platform.answer("0ZZ1");
        std::int64_t offeredAt = 0;
        const std::int64_t begin = platform.now;
        Screens().frmTrance = Screens().frmGiveUp = [&, inDialog = dialog] {
            const std::string text = "The controller does not answer. Do you stop waiting?";
            if (inDialog ? TheTransferDialog().cancelShown : TheGiveUpOffer().shown) {
                offeredAt = platform.now - begin;
                EXPECT_EQ(inDialog ? TheTransferDialog().lblSetumei : TheGiveUpOffer().text, text);
                platform.after(5000, inDialog ? cmdTranceCancel_Click : cmdGiveUp_Click);
            }
        };
        if (dialog) {
            ShowTrance(1, "a");
        }
        EXPECT_EQ(SendCtCommandOnce("0RH", 6), 1);
        EXPECT_EQ(offeredAt, offered);
        EXPECT_EQ(platform.now - begin, offered + 5000);
        EXPECT_EQ(GrpMoveStopFlag, kClear);
        EXPECT_FALSE(TheGiveUpOffer().shown || TheTransferDialog().cancelShown);
        EXPECT_EQ(TheTransferDialog().lblSetumei, "a");
        UnloadTrance();
    }
    EXPECT_TRUE(platform.boxes.empty());
}

} // namespace
} // namespace qdw8::test
