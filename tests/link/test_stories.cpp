// The line told in stories: port, receiver, waits, the poll, and commands out of its wait.

#include "app/command_states.h"
#include "app/main_panel.h"
#include "app/number_forms.h"
#include "app/transfer_dialog.h"
#include "link/alarm.h"
#include "link/axis_mask.h"
#include "link/background.h"
#include "link/batch.h"
#include "link/ct_commands.h"
#include "link/line_state.h"
#include "link/link_fixture.h"
#include "link/port.h"
#include "link/receiver.h"
#include "link/supervision.h"
#include "platform/fault.h"
#include "support/stories.h"

#include <functional>
#include <map>

namespace qdw8::test {
namespace {

/// A routine of the link as the tables call it, with a text or number behind its name or without.
struct Routine {
    template<typename Run>
    Routine(Run run) // NOLINT: the tables name the routines themselves
        : call([run](const std::string& text) -> int {
              if constexpr (std::is_invocable_v<Run, const std::string&>) {
                  return run(text);
              } else if constexpr (std::is_invocable_v<Run, std::int16_t>) {
                  return static_cast<int>(run(static_cast<std::int16_t>(std::stoi(text))));
              } else if constexpr (std::is_void_v<std::invoke_result_t<Run>>) {
                  return run(), 0;
              } else {
                  return static_cast<int>(run());
              }
          }) {}

    std::function<int(const std::string& text)> call;
};

int InWritingMode(void (*end)(WritingMode&)) {
    WritingMode mode;
    if (!mode.begin()) {
        return 1;
    }
    ReadHomeStatus();
    end(mode);
    return 0;
}

LineResult SendRows() {
    const auto write = [](const std::string& row, const std::string& echo) {
        return LineWrite{[row] { return WriteGroup(row); }, echo};
    };
    const LineBatch batch;
    return SendMany(
        {write("01001002", "0WG01"), {}, write("02001002", ""), write("03001002", "0WG03")},
        {4, 383, false, 1});
}

void ThrowInABatch() {
    try {
        const LineBatch batch;
        ReadHomeStatus();
        ShowTrance(1, "a");
        EXPECT_FALSE(RunInBackground([] {}));
        throw Fault("in the batch");
    } catch (const Fault&) {
        EXPECT_FALSE(TheTransferDialog().shown);
    }
}

std::int16_t ReadRow(int index) {
    return ReadGroup(index + 1);
}

const std::map<std::string, Flag*> kFlags{{"OffLineFlag", &OffLineFlag},
                                          {"AlarmNotResettableFlag", &AlarmNotResettableFlag},
                                          {"CtBusyFlag", &CtBusyFlag},
                                          {"ErrorListMissingFlag", &ErrorListMissingFlag},
                                          {"CommErrorFlag", &CommErrorFlag},
                                          {"PortOccupyFlag", &PortOccupyFlag},
                                          {"ProgramEndFlag", &ProgramEndFlag},
                                          {"GrpMoveStopFlag", &GrpMoveStopFlag},
                                          {"TransferCancelFlag", &TransferCancelFlag}};

const std::map<std::string, Routine> kRoutines{
    {"OpenCtPort", OpenCtPort},
    {"OpenCtPortForBatch", OpenCtPortForBatch},
    {"CloseCtPort", CloseCtPort},
    {"CloseCtPortForce", CloseCtPortForce},
    {"SetOfflineState", SetOfflineState},
    {"GoOnLine", GoOnLine},
    {"CheckCtIdentity", CheckCtIdentity},
    {"CheckCtStatus", CheckCtStatus},
    {"PollCtStatus", PollCtStatus},
    {"ReadAxisMask", ReadAxisMask},
    {"ReadAxisMaskShown", ReadAxisMaskShown},
    {"ReadAxisMaskQuiet", ReadAxisMaskQuiet},
    {"ReadHomeStatus", ReadHomeStatus},
    {"ReadArrivalStatus", ReadArrivalStatus},
    {"ReadAxisVersion", ReadAxisVersion},
    {"SendAlarmReset", SendAlarmReset},
    {"SetCtMode", SetCtMode},
    {"MoveRelative", [](std::int16_t position) { return MoveToPosition(position, 1); }},
    {"MoveAbsolute", [](std::int16_t position) { return MoveToPosition(position, 2); }},
    {"RunGroup", RunGroup},
    {"JogRun", JogRun},
    {"InchingMove", InchingMove},
    {"StopMotion", StopMotion},
    {"ReadPresentPosition", ReadPresentPosition},
    {"ReadParaBlock", ReadParaBlock},
    {"ReadParaBlock0Quiet", ReadParaBlock0Quiet},
    {"WriteParaBlock6", [](const std::string& data) { return WriteParaBlock(6, data); }},
    {"CommitParameters", CommitParameters},
    {"CommitGroups", CommitGroups},
    {"CommitMacros", CommitMacros},
    {"ReadPosiRow", ReadPosiRow},
    {"WritePosiRow", WritePosiRow},
    {"ReadGroup", ReadGroup},
    {"WriteGroup", WriteGroup},
    {"ReadMacro", ReadMacro},
    {"WriteMacro", WriteMacro},
    {"ReadInputs", ReadInputs},
    {"ReadOutputs", ReadOutputs},
    {"WriteOutputs", WriteOutputs},
    {"ReadRows",
     [](std::int16_t count) {
         return ReadMany(count, {2, 368, true, 0}, ReadRow);
     }},
    {"ReadRowsFixed",
     [](std::int16_t n) {
         return ReadMany(n, {3, 368, false, 1}, ReadRow);
     }},
    {"SendRows", SendRows},
    {"SendOnce", [] { return SendCtCommandOnce("0RH", 6); }},
    {"ThrowInABatch", ThrowInABatch},
    {"StandsStill", [] { return StandsStill(OnFailure::Silent); }},
    {"StandsStillOrTell", [] { return StandsStill(OnFailure::Tell); }},
    {"ReadInWritingMode", [] { return InWritingMode([](WritingMode&) {}); }},
    {"ReadAndEndInTwoTries", [] { return InWritingMode([](WritingMode& mode) { mode.end(2); }); }},
    {"ReadAndLeaveTheMode", [] { return InWritingMode([](WritingMode& mode) { mode.leave(); }); }},
    {"Timer1", [] { EnableTimer(Timer1); }},
    {"letAlarmStand", LinkBench::letAlarmStand},
    {"TalkInBackground", [] { RunInBackground(ReadInputs); }},
    {"FaultInBackground", [] {
         EXPECT_THROW(RunInBackground([] { return ReadInputs(), throw Fault("in the tick"); }),
                      Fault);
     }}};

std::string WithLineEnds(std::string text) {
    for (std::size_t at = text.find('^'); at != text.npos; at = text.find('^')) {
        text.replace(at, 1, "\r\n");
    }
    return text;
}

std::string Digits(const std::array<Flag, kAxes>& flags) {
    std::string digits;
    for (const Flag flag : flags) {
        digits += IsSet(flag) ? '1' : '0';
    }
    return digits;
}

/// Plays a story on a bench of its own, and says what doesn't come out as told.
class Player {
public:
    void play(const std::string& line) {
        const std::size_t blank = std::min(line.find(' '), line.size());
        const std::string verb = line.substr(0, blank);
        const std::string rest = Trim(line.substr(blank));
        const auto step = steps.find(verb);
        step == steps.end() ? routine(verb, rest) : step->second(rest);
    }

private:
    static void routine(const std::string& name, const std::string& rest) {
        const std::size_t mark = std::min(rest.find('='), rest.size());
        const int got = kRoutines.at(name).call(rest.substr(0, mark));
        EXPECT_TRUE(mark == rest.size() || rest.substr(mark) == "= " + std::to_string(got)) << got;
    }
    void comes(const std::string& text) {
        bench.platform.arrive(1, WithLineEnds(text));
        bench.platform.run(5);
    }
    void givesUp(int ms) {
        Screens().frmTrance = Screens().frmGiveUp = [this, ms] {
            const bool dialog = TheTransferDialog().cancelShown;
            if (dialog || TheGiveUpOffer().shown) {
                EXPECT_EQ(dialog ? TheTransferDialog().lblSetumei : TheGiveUpOffer().text,
                          "The controller does not answer. Cancel stops waiting.");
                bench.platform.after(ms, dialog ? cmdTranceCancel_Click : cmdGiveUp_Click);
            }
        };
    }
    void inTheBox(const std::string& line) {
        ThePlatform().ShowMessageBox = [this, line, old = ThePlatform().ShowMessageBox](auto& box) {
            const BoxAnswer answer = old(box);
            platform.boxes.size() < 5 ? play(line) : void();
            return answer;
        };
    }
    void hold(const std::string& what) {
        held.push_back(what == "PollHeld"       ? std::shared_ptr<void>(new PollHeld)
                       : what == "CommandsAway" ? std::shared_ptr<void>(new CommandsAway)
                                                : std::shared_ptr<void>(new EditCommandsAway));
    }
    static void alarm(const std::string& text) {
        EXPECT_EQ(
            Trim((IsSet(AlarmNotResettableFlag) ? "lasts " : "reset ") + ErrorNo + " " + ErrorText),
            text);
        EXPECT_EQ(ThePanel().lblAlarmNo, ErrorNo);
        EXPECT_EQ(ThePanel().lblErrorComment, ErrorText);
        EXPECT_EQ(IsSet(ErrorFoundFlag), text.find("No error info") == text.npos);
        EXPECT_TRUE(ThePanel().imgAlarmLed);
    }

    LinkBench bench;
    ScriptedPlatform& platform = bench.platform;
    std::vector<std::shared_ptr<void>> held;
    const std::map<std::string, std::function<void(const std::string&)>> steps{
        {"at",
         [this](auto& rest) {
             platform.after(std::stoi(rest),
                            [this, line = rest.substr(rest.find(' ') + 1)] { play(line); });
         }},
        {"keep",
         [](auto& name) {
             WhenLineIsFree([name] {
                 GoOnLine();
                 kRoutines.at(name).call("");
             });
         }},
        {"in", [this](auto& rest) { inTheBox(rest); }},
        {"breakLine", [this](auto&) { platform.breakLine(); }},
        {"comes", [this](auto& text) { comes(text); }},
        {"flow", [this](auto& n) { comes(std::string(std::stoul(n), 'x')); }},
        {"answer", [this](auto& rest) { bench.answer(rest); }},
        {"run", [this](auto& ms) { platform.run(std::stoi(ms)); }},
        {"on", [](auto& flag) { *kFlags.at(flag) = kSet; }},
        {"off", [](auto& flag) { *kFlags.at(flag) = kClear; }},
        {"opens", [this](auto& n) { platform.failingOpens = std::stoi(n); }},
        {"faults", [this](auto&) { platform.inputFaults = true; }},
        {"gives", [this](auto& ms) { givesUp(std::stoi(ms)); }},
        {"limit", [](auto& ms) { ReplyTimeoutMs = static_cast<std::int16_t>(std::stoi(ms)); }},
        {"dialog", [](auto& text) { text.empty() ? UnloadTrance() : ShowTrance(1, text); }},
        {"says",
         [](auto& text) {
             EXPECT_EQ(TheTransferDialog().lblSetumei, text);
             EXPECT_FALSE(TheTransferDialog().cancelShown);
         }},
        {"watch",
         [this](auto&) {
             MSComm1().SetSettings = [this](auto& text) {
                 platform.events.push_back(platform.portOpen ? "bar " + text : "");
             };
             MSComm1().SetCDTimeout = MSComm1().SetHandshaking = [this](int number) {
                 platform.events.push_back("bar " + std::to_string(number));
             };
         }},
        {"refuse", [](auto&) { MSComm1().SetHandshaking = [](int) { throw Fault("refused"); }; }},
        {"hold", [this](auto& what) { hold(what); }},
        {"free", [this](auto&) { held.clear(); }},
        {"stored",
         [this](auto& port) {
             platform.settings = {{"PortNo", port}};
         }},
        {"nothing", [this](auto&) { platform.settings.clear(); }},
        {"PortNo", [](auto& port) { PortNo = static_cast<std::int16_t>(std::stoi(port)); }},
        {"errors", [](auto& count) { ErrorList[0].code = count; }},
        {"decode",
         [](auto& reply) {
             ErrorReplyText = reply + "\r\n";
             DecodeCtError();
         }},
        {"axes",
         [](auto& digits) {
             for (std::size_t axis = 0; axis < kAxes; ++axis) {
                 AxisOff[axis] = FlagOf(digits[axis] == '1');
             }
         }},
        // What must be so now.
        {">", [this](auto& story) { EXPECT_EQ(bench.story(), story); }},
        {"state", [](auto& words) { EXPECT_EQ(LinkBench::state(), words); }},
        {"reply", [](auto& text) { EXPECT_EQ(ReplyText, WithLineEnds(text)); }},
        {"buffer", [](auto& text) { EXPECT_EQ(ReplyBuffer, WithLineEnds(text)); }},
        {"buffered", [](auto& n) { EXPECT_EQ(std::to_string(ReplyBuffer.size()), n); }},
        {"boxes", [this](auto& n) { EXPECT_EQ(std::to_string(platform.boxes.size()), n); }},
        {"lamp", [](auto& word) { EXPECT_EQ(ThePanel().imgGreenLedOnline, word == "on"); }},
        {"alarmlamp", [](auto& word) { EXPECT_EQ(ThePanel().imgAlarmLed, word == "on"); }},
        {"portlamp", [](auto& word) { EXPECT_EQ(ThePanel().imgPortGreen, word == "on"); }},
        {"homed",
         [](auto& word) {
             EXPECT_EQ(ThePanel().imgHomeGreen, word == "yes");
             EXPECT_EQ(IsSet(HomedFlag), word == "yes");
         }},
        {"port",
         [this](auto& number) {
             EXPECT_EQ(std::to_string(PortNo), number);
             EXPECT_TRUE(PortNo > 9 || platform.openedPort == PortNo);
         }},
        {"alarm", [](auto& text) { alarm(text); }},
        {"versions",
         [](auto& text) {
             EXPECT_EQ(CtVersion + " " + std::to_string(CtAxisCount) + " " + CtAxisVersion[1] +
                           CtAxisVersion[2],
                       text);
         }},
        {"mask", [](auto& text) { EXPECT_EQ(Digits(AxisOff) + " " + Digits(CtAxisOff), text); }},
        {"rest", [this](auto&) { ExpectAtRest(platform); }}};
};

TEST(LineStories, ComeOutAsTold) {
    EXPECT_GT(PlayStories<Player>("link/stories.txt"), 50);
}

struct CommandBench : LinkBench {
    CommandBench() {
        AxisOff = {kClear, kSet, kClear, kSet};
        ReplyTimeoutMs = 700;
        letAlarmStand();
    }
};

/// Every command: its frame and reply; what it does when nothing comes; and that what comes back of
/// the request is compared, as a late reply would otherwise pass for the answer to another one.
TEST(Commands, FrameReplyLimitAndEcho) {
    std::ifstream table(QDW8_SOURCE_DIR "/tests/link/commands.txt");
    int rows = 0;
    for (std::string line; std::getline(table, line);) {
        if (line.starts_with('#')) {
            continue;
        }
        SCOPED_TRACE(line);
        ++rows;
        const auto row = Split(line, '|');
        const std::size_t blank = std::min(row[0].find(' '), row[0].size());
        const auto call = [&] {
            return std::to_string(
                kRoutines.at(row[0].substr(0, blank)).call(Trim(row[0].substr(blank))));
        };
        {
            CommandBench bench;
            bench.platform.answer(row[3]);
            EXPECT_EQ(call(), row[6]);
            EXPECT_EQ(bench.platform.sent, std::vector{row[2]});
            EXPECT_EQ(LinkBench::state(), "OnLine");
        }
        if (const int limit = std::stoi(row[5]); limit > 0) {
            CommandBench bench;
            EXPECT_EQ(call(), row[7]);
            const std::size_t sends = row[1] == "R" ? 6 : 1;
            EXPECT_EQ(bench.platform.sent, std::vector(sends, row[2]));
            EXPECT_EQ(bench.platform.now, static_cast<int>(sends) * limit);
            EXPECT_EQ(bench.platform.boxes.empty(), row[1] == "Q");
            EXPECT_EQ(CtBusyFlag, kClear);
        }
        for (std::size_t at = 3; at < 3 + std::stoul(row[4]); ++at) {
            CommandBench bench;
            std::string reply = row[3];
            reply[at] = reply[at] == '7' ? '8' : '7';
            bench.platform.answer(reply);
            EXPECT_EQ(call(), row[7]) << at;
            EXPECT_EQ(bench.platform.boxes,
                      row[1] == "Q" ? std::vector<std::string>{} : std::vector{box::kWrongData});
            EXPECT_TRUE(IsSet(AlarmFlag)) << "it tells nothing of the alarm";
        }
    }
    EXPECT_EQ(rows, 33);
}

} // namespace
} // namespace qdw8::test
