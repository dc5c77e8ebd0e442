// The line told in stories: port, receiver, waits, the poll, and commands out of its wait.

#include "app/command_states.h"
#include "app/main_panel.h"
#include "app/number_forms.h"
#include "app/transfer_dialog.h"
#include "app/waits.h"
#include "link/alarm.h"
#include "link/axis_mask.h"
#include "link/background.h"
#include "link/batch.h"
#include "link/ct_commands.h"
#include "link/line_state.h"
#include "link/line_status.h"
#include "link/link_fixture.h"
#include "link/port.h"
#include "link/receiver.h"
#include "link/stop.h"
#include "link/supervision.h"
#include "platform/fault.h"
#include "platform/whole_file.h"
#include "support/story.h"

#include <filesystem>

namespace qdw8::test {
namespace {

std::int16_t Short(const std::string& number) {
    return static_cast<std::int16_t>(std::stoi(number));
}

/// A routine of the link as the tables call it, with a text or number behind its name or without.
struct Routine : Verb {
    template<typename Run>
    Routine(Run run) // NOLINT: the tables name the routines themselves
        : Verb([run](const std::string& text) {
              if constexpr (std::is_invocable_v<Run, const std::string&>) {
                  return std::to_string(run(text));
              } else if constexpr (std::is_invocable_v<Run, std::int16_t>) {
                  return std::to_string(static_cast<int>(run(Short(text))));
              } else if constexpr (std::is_void_v<std::invoke_result_t<Run>>) {
                  return run(), std::string();
              } else {
                  return std::to_string(static_cast<int>(run()));
              }
          }) {}
};
using Routines = std::map<std::string, Routine>;

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
    NAMED(ProgramEndFlag),       NAMED(GrpMoveStopFlag),        NAMED(TransferCancelFlag),
    NAMED(AxisMayMove)};

const Routines kRoutines{NAMED(OpenCtPort),
                         NAMED(OpenCtPortForBatch),
                         NAMED(CloseCtPort),
                         NAMED(CloseCtPortForce),
                         NAMED(SetOfflineState),
                         NAMED(GoOnLine),
                         NAMED(GoOffLine),
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

const Routines kArranged{
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

std::string Call(const std::string& name, const std::string& text) {
    return (kRoutines.contains(name) ? kRoutines : kArranged).at(name)(text);
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
    Player() {
        verbs.insert(kRoutines.begin(), kRoutines.end());
        verbs.insert(kArranged.begin(), kArranged.end());
    }
    void tell(const std::string& line) { PlayVerb(verbs, line); }

private:
    void comes(const std::string& text) {
        bench.platform.arrive(1, text);
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
    /// Reads one of lists/ as the error list; how many rows came of it.
    std::string list(const std::string& name) {
        bench.leaveListsBehind();
        bench.writeFile(LanguageBase == 0 ? "errorjpn.lst" : "erroreng.lst",
                        ReadWholeFile(QDW8_SOURCE_DIR "/tests/link/lists/" + name + ".lst"));
        LoadErrorList();
        std::size_t rows = 0;
        while (rows < kErrorListRows && !ErrorList[rows + 1].message.empty()) {
            ++rows;
        }
        return std::to_string(rows);
    }
    /// Makes it the device of the port.
    void plug(const std::string& device) {
        ThePlatform().settingsFolder = bench.folder;
        const std::string link = bench.pathOf("ports/com") + std::to_string(PortNo);
        std::filesystem::create_directory(bench.pathOf("ports"));
        std::filesystem::remove(link);
        std::filesystem::create_symlink(device, link);
    }
    static std::string Line(int looks) {
        while (looks-- > 0) {
            WatchLine();
        }
        const LinePanel& line = ThePanel().line;
        EXPECT_EQ(line.open, MSComm1().PortOpen());
        return std::string(1, "-+!"[static_cast<int>(line.sign)]) + " " + line.state;
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
    std::string noted;
    Verbs verbs{
        {"at", Does([this](auto& rest) {
             platform.after(std::stoi(rest),
                            [this, line = rest.substr(rest.find(' ') + 1)] { tell(line); });
         })},
        {"keep", Does([](auto& name) {
             WhenLineIsFree([name] { return GoOnLine(), void(Call(name, "")); });
         })},
        {"in", Does([this](auto& rest) { inTheBox(rest); })},
        {"breakLine", Does([this](auto&) { platform.breakLine(); })},
        {"comes", Does([this](auto& text) { comes(text); })},
        {"flow", Does([this](auto& n) { comes(std::string(std::stoul(n), 'x')); })},
        {"answer", Does([this](auto& rest) { bench.answer(rest); })},
        {"run", Does([this](auto& ms) { platform.run(std::stoi(ms)); })},
        {"wait", Does([this](auto& ms) {
             MsecTimer(Short(ms));
             platform.events.push_back("bar " + std::to_string(platform.now));
         })},
        {"on", Does([](auto& flag) { kFlags.at(flag).get() = kSet; })},
        {"off", Does([](auto& flag) { kFlags.at(flag).get() = kClear; })},
        {"opens", Does([this](auto& n) { platform.failingOpens = std::stoi(n); })},
        {"faults", Does([this](auto& way) {
             (way == "input" ? platform.inputFaults : platform.outputFaults) = true;
         })},
        {"gives", Does([this](auto& ms) { givesUp(std::stoi(ms)); })},
        {"limit", Does([](auto& ms) { ReplyTimeoutMs = Short(ms); })},
        {"dialog", Does([](auto& text) { ShowTrance(1, text); })},
        {"watch", Does([this](auto&) {
             const auto note = [this](const std::string& text) {
                 platform.events.push_back(platform.portOpen ? "bar " + text : "");
             };
             MSComm1().SetSettings = note;
             MSComm1().SetCDTimeout =
                 MSComm1().SetHandshaking = [note](int number) { note(std::to_string(number)); };
         })},
        {"refuse",
         Does([](auto&) { MSComm1().SetHandshaking = [](int) { throw Fault("refused"); }; })},
        {"plug", Does([this](auto& device) { plug(device); })},
        {"hold", Does([this](auto& what) { hold(what); })},
        {"free", Does([this](auto&) { held.clear(); })},
        {"stored", Does([this](auto& port) { platform.settings["PortNo"] = port; })},
        {"nothing", Does([this](auto&) { platform.settings.clear(); })},
        {"PortNo", Does([](auto& port) { PortNo = Short(port); })},
        {"errors", Does([](auto& count) { ErrorList[0].code = count; })},
        {"decode",
         Does([](auto& reply) { return ErrorReplyText = reply + "\r\n", DecodeCtError(); })},
        {"axes", Does([](auto&) { AxisOff.fill(kSet); })},
        {"rest", Does([this](auto&) { ExpectAtRest(platform); })},
        {"stands", Does([](auto& words) { EXPECT_EQ(LinkBench::state(), words); })},
        {"language", Does([](auto& base) { LanguageBase = Short(base); })},
        {"list", [this](auto& name) { return list(name); }},
        {"message",
         [](auto& row) {
             const ErrorListRow& its = ErrorList.at(std::stoul(row));
             return its.code + " " + its.message;
         }},
        {">", [this](auto&) { return bench.story(); }},
        {"frames", [this](auto&) { return Joined(platform.sent); }},
        {"stopped", [](auto&) { return On(LastStop == Stop::Answered); }},
        {"state", [](auto&) { return LinkBench::state(); }},
        {"reply", [](auto&) { return ReplyText; }},
        {"buffer", [](auto&) { return ReplyBuffer; }},
        {"buffered", [](auto&) { return std::to_string(ReplyBuffer.size()); }},
        {"boxes", [this](auto&) { return std::to_string(platform.boxes.size()); }},
        {"differ", [this](auto&) { return On(platform.boxes.at(0) != platform.boxes.at(1)); }},
        {"lamp", [](auto&) { return On(ThePanel().imgGreenLedOnline); }},
        {"alarmlamp", [](auto&) { return On(ThePanel().imgAlarmLed); }},
        {"line", [](auto&) { return Line(10); }},
        {"glance", [this](auto&) { return noted = Line(1); }},
        {"noted", [this](auto&) { return noted; }},
        {"portlamp", [](auto&) { return On(ThePanel().imgPortGreen); }},
        {"homed", [](auto&) { return On(ThePanel().imgHomeGreen) + " " + On(IsSet(HomedFlag)); }},
        {"port", [](auto&) { return std::to_string(PortNo); }},
        {"opened", [this](auto&) { return std::to_string(platform.openedPort); }},
        {"alarm", [](auto&) { return alarm(); }},
        {"versions", [](auto&) { return CtVersion + " " + CtAxisVersion[1] + CtAxisVersion[2]; }},
        {"count", [](auto&) { return std::to_string(CtAxisCount); }},
        {"mask", [](auto&) { return Digits(AxisOff) + " " + Digits(CtAxisOff); }},
        {"says", [](auto&) { return TheTransferDialog().lblSetumei; }},
        {"cancel", [](auto&) { return On(TheTransferDialog().cancelShown); }}};
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
    const auto rows = RowsOf("link/commands.txt");
    EXPECT_EQ(rows.size(), 33U);
    for (const auto& row : rows) {
        SCOPED_TRACE(row[0]);
        const auto call = [told = row[0] + " "] {
            const std::size_t blank = told.find(' ');
            return Call(told.substr(0, blank), Trim(told.substr(blank)));
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
            EXPECT_EQ(bench.platform.boxes, row[1] == "Q" ? std::vector<std::string>{}
                                                          : std::vector{BoxText("wrong data")});
            EXPECT_TRUE(IsSet(AlarmFlag)) << "it tells nothing of the alarm";
        }
    }
}

} // namespace
} // namespace qdw8::test
