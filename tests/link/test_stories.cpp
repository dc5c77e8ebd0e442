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
#include "support/story.h"

#include <functional>
#include <map>

namespace qdw8::test {
namespace {

/// A routine of the link as the tables call it, with a text or number behind its name or without.
struct Routine {
    template<typename Run> Routine(Run run) { // NOLINT: the tables name the routines themselves
        if constexpr (std::is_invocable_v<Run, const std::string&>) {
            call = run;
        } else if constexpr (std::is_invocable_v<Run, std::int16_t>) {
            call = [run](auto& n) {
                return static_cast<int>(run(static_cast<std::int16_t>(std::stoi(n))));
            };
        } else if constexpr (std::is_void_v<std::invoke_result_t<Run>>) {
            call = [run](auto&) { return run(), 0; };
        } else {
            call = [run](auto&) { return static_cast<int>(run()); };
        }
    }

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
    EXPECT_THROW(
        {
            const LineBatch batch;
            ReadHomeStatus();
            ShowTrance(1, "a");
            EXPECT_FALSE(RunInBackground([] {}));
            throw Fault("in the batch");
        },
        Fault);
}

LineResult ReadRows(std::int16_t count, bool withCancel) {
    return ReadMany(count, {withCancel ? 2 : 3, 368, withCancel, withCancel ? 0 : 1},
                    [](int index) { return ReadGroup(index + 1); });
}

std::int16_t ReadAndFail() {
    ReadInputs();
    throw Fault("in the tick");
}

const std::map<std::string, std::reference_wrapper<Flag>> kFlags{
    NAMED(OffLineFlag),          NAMED(AlarmNotResettableFlag), NAMED(CtBusyFlag),
    NAMED(ErrorListMissingFlag), NAMED(CommErrorFlag),          NAMED(PortOccupyFlag),
    NAMED(ProgramEndFlag),       NAMED(GrpMoveStopFlag),        NAMED(TransferCancelFlag)};

const std::map<std::string, Routine> kRoutines{NAMED(OpenCtPort),
                                               NAMED(OpenCtPortForBatch),
                                               NAMED(CloseCtPort),
                                               NAMED(CloseCtPortForce),
                                               NAMED(SetOfflineState),
                                               NAMED(GoOnLine),
                                               NAMED(CheckCtIdentity),
                                               NAMED(CheckCtStatus),
                                               NAMED(PollCtStatus),
                                               NAMED(ReadAxisMask),
                                               NAMED(ReadAxisMaskShown),
                                               NAMED(ReadAxisMaskQuiet),
                                               NAMED(ReadHomeStatus),
                                               NAMED(ReadArrivalStatus),
                                               NAMED(ReadAxisVersion),
                                               NAMED(SendAlarmReset),
                                               NAMED(SetCtMode),
                                               NAMED(RunGroup),
                                               NAMED(JogRun),
                                               NAMED(InchingMove),
                                               NAMED(StopMotion),
                                               NAMED(ReadPresentPosition),
                                               NAMED(ReadParaBlock),
                                               NAMED(ReadParaBlock0Quiet),
                                               NAMED(CommitParameters),
                                               NAMED(CommitGroups),
                                               NAMED(CommitMacros),
                                               NAMED(ReadPosiRow),
                                               NAMED(WritePosiRow),
                                               NAMED(ReadGroup),
                                               NAMED(WriteGroup),
                                               NAMED(ReadMacro),
                                               NAMED(WriteMacro),
                                               NAMED(ReadInputs),
                                               NAMED(ReadOutputs),
                                               NAMED(WriteOutputs),
                                               NAMED(SendRows),
                                               NAMED(ThrowInABatch)};

const std::map<std::string, Routine> kArranged{
    {"MoveRelative", [](std::int16_t position) { return MoveToPosition(position, 1); }},
    {"MoveAbsolute", [](std::int16_t position) { return MoveToPosition(position, 2); }},
    {"WriteParaBlock6", [](const std::string& data) { return WriteParaBlock(6, data); }},
    {"ReadRows", [](std::int16_t n) { return ReadRows(n, true); }},
    {"ReadRowsFixed", [](std::int16_t n) { return ReadRows(n, false); }},
    {"SendOnce", [] { return SendCtCommandOnce("0RH", 6); }},
    {"StandsStill", [] { return StandsStill(OnFailure::Silent); }},
    {"StandsStillOrTell", [] { return StandsStill(OnFailure::Tell); }},
    {"ReadInWritingMode", [] { return InWritingMode([](WritingMode&) {}); }},
    {"ReadAndEndInTwoTries", [] { return InWritingMode([](WritingMode& mode) { mode.end(2); }); }},
    {"ReadAndLeaveTheMode", [] { return InWritingMode([](WritingMode& mode) { mode.leave(); }); }},
    {"Timer1", [] { EnableTimer(Timer1); }},
    {"letAlarmStand", LinkBench::letAlarmStand},
    {"TalkInBackground", [] { RunInBackground(ReadInputs); }},
    {"FaultInBackground", [] { EXPECT_THROW(RunInBackground(ReadAndFail), Fault); }}};

int Call(const std::string& name, const std::string& text) {
    return (kRoutines.contains(name) ? kRoutines : kArranged).at(name).call(text);
}

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
    void tell(const std::string& line) {
        const std::size_t blank = std::min(line.find(' '), line.size());
        const std::string verb = line.substr(0, blank);
        const std::string rest = Trim(line.substr(blank));
        if (const auto asked = shown.find(verb); asked != shown.end()) {
            EXPECT_EQ(asked->second(), WithLineEnds(rest));
        } else {
            const auto step = steps.find(verb);
            step == steps.end() ? routine(verb, rest) : step->second(rest);
        }
    }

private:
    static void routine(const std::string& name, const std::string& rest) {
        const std::size_t mark = std::min(rest.find('='), rest.size());
        const int got = Call(name, rest.substr(0, mark));
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
            platform.boxes.size() < 5 ? tell(line) : void();
            return answer;
        };
    }
    void hold(const std::string& what) {
        held.push_back(what == "PollHeld"       ? std::shared_ptr<void>(new PollHeld)
                       : what == "CommandsAway" ? std::shared_ptr<void>(new CommandsAway)
                                                : std::shared_ptr<void>(new EditCommandsAway));
    }
    static std::string On(bool lit) { return lit ? "on" : "off"; }
    static std::string alarm() {
        EXPECT_EQ(ThePanel().lblAlarmNo + ThePanel().lblErrorComment, ErrorNo + ErrorText);
        EXPECT_EQ(IsSet(ErrorFoundFlag), ErrorText.find("No error info") == ErrorText.npos);
        EXPECT_TRUE(ThePanel().imgAlarmLed);
        return Trim((IsSet(AlarmNotResettableFlag) ? "lasts " : "reset ") + ErrorNo + " " +
                    ErrorText);
    }

    LinkBench bench;
    ScriptedPlatform& platform = bench.platform;
    std::vector<std::shared_ptr<void>> held;
    const std::map<std::string, std::function<void(const std::string&)>> steps{
        {"at",
         [this](auto& rest) {
             platform.after(std::stoi(rest),
                            [this, line = rest.substr(rest.find(' ') + 1)] { tell(line); });
         }},
        {"keep",
         [](auto& name) { WhenLineIsFree([name] { return GoOnLine(), void(Call(name, "")); }); }},
        {"in", [this](auto& rest) { inTheBox(rest); }},
        {"breakLine", [this](auto&) { platform.breakLine(); }},
        {"comes", [this](auto& text) { comes(text); }},
        {"flow", [this](auto& n) { comes(std::string(std::stoul(n), 'x')); }},
        {"answer", [this](auto& rest) { bench.answer(rest); }},
        {"run", [this](auto& ms) { platform.run(std::stoi(ms)); }},
        {"on", [](auto& flag) { kFlags.at(flag).get() = kSet; }},
        {"off", [](auto& flag) { kFlags.at(flag).get() = kClear; }},
        {"opens", [this](auto& n) { platform.failingOpens = std::stoi(n); }},
        {"faults", [this](auto&) { platform.inputFaults = true; }},
        {"gives", [this](auto& ms) { givesUp(std::stoi(ms)); }},
        {"limit", [](auto& ms) { ReplyTimeoutMs = static_cast<std::int16_t>(std::stoi(ms)); }},
        {"dialog", [](auto& text) { text.empty() ? UnloadTrance() : ShowTrance(1, text); }},
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
        {"stored", [this](auto& port) { platform.settings["PortNo"] = port; }},
        {"nothing", [this](auto&) { platform.settings.clear(); }},
        {"PortNo", [](auto& port) { PortNo = static_cast<std::int16_t>(std::stoi(port)); }},
        {"errors", [](auto& count) { ErrorList[0].code = count; }},
        {"decode", [](auto& reply) { return ErrorReplyText = reply + "\r\n", DecodeCtError(); }},
        {"axes", [](auto&) { AxisOff.fill(kSet); }},
        {"rest", [this](auto&) { ExpectAtRest(platform); }}};
    /// What must be so now.
    const std::map<std::string, std::function<std::string()>> shown{
        {">", [this] { return bench.story(); }},
        {"state", LinkBench::state},
        {"reply", [] { return ReplyText; }},
        {"buffer", [] { return ReplyBuffer; }},
        {"buffered", [] { return std::to_string(ReplyBuffer.size()); }},
        {"boxes", [this] { return std::to_string(platform.boxes.size()); }},
        {"lamp", [] { return On(ThePanel().imgGreenLedOnline); }},
        {"alarmlamp", [] { return On(ThePanel().imgAlarmLed); }},
        {"portlamp", [] { return On(ThePanel().imgPortGreen); }},
        {"homed", [] { return On(ThePanel().imgHomeGreen) + " " + On(IsSet(HomedFlag)); }},
        {"port", [] { return std::to_string(PortNo); }},
        {"opened", [this] { return std::to_string(platform.openedPort); }},
        {"alarm", alarm},
        {"versions", [] { return CtVersion + " " + CtAxisVersion[1] + CtAxisVersion[2]; }},
        {"count", [] { return std::to_string(CtAxisCount); }},
        {"mask", [] { return Digits(AxisOff) + " " + Digits(CtAxisOff); }},
        {"says", [] { return TheTransferDialog().lblSetumei; }},
        {"cancel", [] { return On(TheTransferDialog().cancelShown); }}};
};

TEST(LineStories, ComeOutAsTold) {
    TellStories<Player>(QDW8_SOURCE_DIR "/tests/link/stories.txt", 50);
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
    const auto rows = RowsOf("commands.txt");
    EXPECT_EQ(rows.size(), 33U);
    for (const auto& row : rows) {
        SCOPED_TRACE(row[0]);
        const std::size_t blank = std::min(row[0].find(' '), row[0].size());
        const auto call = [&] {
            return std::to_string(Call(row[0].substr(0, blank), Trim(row[0].substr(blank))));
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
}

} // namespace
} // namespace qdw8::test
