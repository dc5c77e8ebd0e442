// Every command of the controller's language under every fault of the line: one table of commands,
// one of faults, and each pair is tried in two states of port and alarm.

#include "link/Module3Tusin.h"
#include "link/axis_mask.h"
#include "link/ct_commands.h"
#include "link/link_fixture.h"

#include <cstdint>
#include <map>
#include <ostream>
#include <sstream>
#include <string_view>
#include <utility>

namespace qdw8::test {
namespace {

enum class Manner { Resend, Once, Quiet };

struct CommandRow {
    const char* name;
    Manner manner;
    std::int16_t (*call)();
    std::string frame;
    std::string reply; ///< the good one
    std::int16_t limit = 1000;
    std::int16_t good = 0;
    std::int16_t failed = 1;
    bool checksStatus = false; ///< 0CM1 goes before the frame; a failure of either goes off line
    bool isStatusCheck = false;
};

/// The limit that the command before the three queued ones left.
constexpr std::int16_t kLeftLimit = 700;

const std::string kBlock(32, 'A');
const std::string kZeros(43, '0');
const std::string kAxesBlock = "0RD0" + std::string(12, '0') + "05" + std::string(18, '0');

std::vector<CommandRow> Commands() {
    using enum Manner;
    return {
        {"CheckCtStatus", Once, [] { return CheckCtStatus(); }, "0CM1", "0CM1", 1000, 0, 1, false,
         true},
        {"PollCtStatus", Quiet, [] { return PollCtStatus(); }, "0CM1", "0CM1"},
        {"SetCtMode", Once, [] { return SetCtMode(2); }, "0CM02", "0CM02"},
        {"SetCtModeBeyond", Once, [] { return SetCtMode(3); }, "0CM00", "0CM00"},
        {"SendAlarmReset", Resend, [] { return SendAlarmReset(); }, "0AR", "0AR"},
        {"ReadHomeStatus", Resend, [] { return ReadHomeStatus(); }, "0RH", "0RH1"},
        {"ReadArrivalEnded", Resend, [] { return ReadArrivalStatus(); }, "0RA", "0RA1", 1000, 1,
         -1},
        {"ReadArrivalMoving", Resend, [] { return ReadArrivalStatus(); }, "0RA", "0RA2", 1000, 0,
         -1},
        {"CheckCtIdentity", Resend, [] { return CheckCtIdentity(); }, "0RV", "0RV123x4y", 1000, 0,
         1, true},
        {"ReadAxisVersion", Resend, [] { return ReadAxisVersion(3); }, "0RV4", "0RV4210K8R"},
        {"MoveHome", Once, [] { return MoveToPosition(0, 1); }, "0MM000F", "0MM000F"},
        {"MoveToPosition", Once, [] { return MoveToPosition(999, 2); }, "0MP3E7F", "0MP3E7F"},
        {"RunGroup", Once, [] { return RunGroup(99); }, "0MG63", "0MG63", 0},
        {"JogRun", Once, [] { return JogRun("01234"); }, "0JR01234", "0JR", kLeftLimit},
        {"InchingMove", Once, [] { return InchingMove("56789"); }, "0MV56789", "0MV", kLeftLimit},
        {"StopMotion", Once, [] { return StopMotion(); }, "0SP", "0SP", kLeftLimit},
        {"ReadPresentPosition", Once, [] { return ReadPresentPosition(); }, "0RCF",
         "0RCF" + kZeros.substr(0, 20)},
        {"ReadParaBlock", Resend, [] { return ReadParaBlock(12); }, "0RDC", "0RDC" + kBlock},
        {"ReadParaBlock0Quiet", Quiet, [] { return ReadParaBlock0Quiet(); }, "0RD0",
         "0RD0" + kBlock},
        {"ReadAxisMask", Resend, [] { return ReadAxisMask(); }, "0RD0", kAxesBlock},
        {"WriteParaBlock", Resend, [] { return WriteParaBlock(6, kBlock); }, "0WD6" + kBlock,
         "0WD6"},
        {"CommitParameters", Resend, [] { return CommitParameters(); }, "0WE2", "0WE2", 2000},
        {"CommitGroups", Resend, [] { return CommitGroups(); }, "0WE3", "0WE3", 2000},
        {"CommitMacros", Resend, [] { return CommitMacros(); }, "0WE1", "0WE1", 2000},
        {"ReadPosiRow", Resend, [] { return ReadPosiRow(999); }, "0RP3E7",
         "0RP3E7" + kZeros.substr(0, 40)},
        {"WritePosiRow", Resend, [] { return WritePosiRow(kZeros); }, "0WP" + kZeros, "0WP000"},
        {"ReadGroup", Resend, [] { return ReadGroup(99); }, "0RG63", "0RG63001002"},
        {"WriteGroup", Resend, [] { return WriteGroup("63001002"); }, "0WG63001002", "0WG63"},
        {"ReadMacro", Resend, [] { return ReadMacro(20); }, "0RS14", "0RS14" + kBlock},
        {"WriteMacro", Resend, [] { return WriteMacro("14" + kBlock); }, "0WS14" + kBlock, "0WS14"},
        {"ReadInputs", Once, [] { return ReadInputs(); }, "0RI", "0RI012345"},
        {"ReadOutputs", Once, [] { return ReadOutputs(); }, "0RO", "0ROABCDEF"},
        {"WriteOutputs", Once, [] { return WriteOutputs("800001"); }, "0WO800001", "0WO800001"},
    };
}

/// A fault: what the controller answers to each text in turn (nothing at the end of the list), and
/// what must happen in each manner, word for word in this order:
///   send, again 0CM0      a text goes out
///   wait                  the whole time limit passes
///   good echo long twice pieces late, or an error reply: what comes in
///   out, off              the alarm display goes out; the on-line lamp goes out, off line
///   err                   CommErrorFlag
///   close, close!         the port closes unless it is to stay open; closes in any case
///   box:...               a box
///   stop                  the group stop button, five seconds after the start
struct FaultRow {
    const char* name;
    std::vector<std::string> line;
    std::string resend;
    std::string once;
    std::string quiet;
};

const std::string kSix = "send wait send wait send wait send wait send wait send wait ";
const std::string kDead = "err close! box:timeout off";
const std::string kQuietDead = "send wait err close! off";

FaultRow Same(const char* name, std::vector<std::string> line, const std::string& told,
              const std::string& quiet) {
    return {name, std::move(line), told, told, quiet};
}

std::vector<FaultRow> Faults() {
    return {
        Same("Good", {"good"}, "send good out", "send good out"),
        Same("Pieces", {"pieces"}, "send pieces out", "send pieces out"),
        {"NoReply", {}, kSix + kDead, "send wait " + kDead, kQuietDead},
        {"LateReply",
         {"late", "good"},
         "send wait send late out",
         "send wait " + kDead,
         kQuietDead},
        Same("Resettable", {"0%%013"}, "send 0%%013 box:homing", "send 0%%013 close"),
        Same("ResettableUnlisted", {"0%%01Z"}, "send 0%%01Z box:unlisted", "send 0%%01Z close"),
        Same("Lasting", {"0%%134"}, "send 0%%134 box:sensor close! off", "send 0%%134 close"),
        Same("LastingUnlisted", {"0%%133"}, "send 0%%133 box:unlisted close! off",
             "send 0%%133 close"),
        Same("WrongEcho", {"echo", "0CM0"}, "send echo again 0CM0 close err off box:error",
             "send echo again 0CM0 close err off"),
        Same("WrongEchoResettable", {"echo", "0%%013"}, "send echo again 0%%013 box:homing",
             "send echo again 0%%013"),
        Same("WrongEchoLasting", {"echo", "0%%134"}, "send echo again 0%%134 close! off box:sensor",
             "send echo again 0%%134"),
        Same("WrongEchoUnanswered", {"echo"}, "send echo again stop off",
             "send echo again stop off"),
        Same("WrongLength", {"long", "0CM0"}, "send long again 0CM0 close err off box:length",
             "send long again 0CM0 close err off"),
        Same("WrongLengthResettable", {"long", "0%%013"}, "send long again 0%%013 box:homing",
             "send long again 0%%013 close err off"),
        Same("WrongLengthLasting", {"long", "0%%134"},
             "send long again 0%%134 close! off box:sensor",
             "send long again 0%%134 close err off"),
        Same("WrongLengthUnanswered", {"long"}, "send long again stop off",
             "send long again stop off"),
        Same("TwoReplies", {"twice", "0CM0"}, "send twice again 0CM0 close err off box:length",
             "send twice again 0CM0 close err off"),
    };
}

const std::map<std::string, std::string> kBoxes{
    {"box:timeout", box::kTimeout},   {"box:homing", box::kHoming}, {"box:sensor", box::kSensor},
    {"box:unlisted", box::kUnlisted}, {"box:error", box::kError},   {"box:length", box::kLength}};

/// What must have happened, worked out from the words of the fault.
struct Outcome {
    std::vector<std::string> events;
    std::vector<std::int64_t> sentAt;
    std::vector<std::string> boxes;
    std::int64_t now = 0;
    bool stops = false;
    bool good = false;
    bool offLine = false;
    bool portOpen = true;
    bool commError = false;
    bool alarm = false;
    bool lasting = false;
    bool found = false;
    std::string number;
    std::string text = "No Error";

    void happens(const std::string& event) { events.push_back(event); }
    void sends(const std::string& text_) {
        happens("send " + text_);
        sentAt.push_back(now);
    }
    void closes() {
        if (portOpen) {
            happens("close");
        }
        portOpen = false;
    }
    void shows(bool lamp, const std::string& newNumber, const std::string& newText);
    void hears(const std::string& reply);
    void goesOff() {
        if (!offLine) {
            happens("online lamp off");
        }
        offLine = true;
    }
    std::string state() const;
};

/// The alarm display is written in one order when it lights and in another when it goes out.
void Outcome::shows(bool lamp, const std::string& newNumber, const std::string& newText) {
    const auto lampChanges = [&] {
        if (lamp != alarm) {
            happens(lamp ? "alarm lamp on" : "alarm lamp off");
        }
    };
    const auto numberChanges = [&] {
        if (newNumber != number) {
            happens("alarm No. " + newNumber);
        }
    };
    lamp ? numberChanges() : lampChanges();
    if (lamp) {
        lampChanges();
    }
    if (newText != text) {
        happens("alarm text " + newText);
    }
    if (!lamp) {
        numberChanges();
    }
    alarm = lamp;
    number = newNumber;
    text = newText;
}

void Outcome::hears(const std::string& reply) {
    happens("receive " + reply);
    now += 10;
    if (reply.starts_with("0%%")) {
        lasting = reply[3] != '0';
        found = reply == "0%%013" || reply == "0%%134";
        shows(true, reply.substr(5),
              !found    ? "No error information in the error List"
              : lasting ? "Home sensor not detected"
                        : "Homing not completed");
    }
}

std::string Outcome::state() const {
    std::string words = offLine ? "OffLine" : "OnLine";
    words += portOpen ? " PortOpen" : "";
    words += commError ? " CommError" : "";
    words += alarm ? " Alarm" : "";
    words += lasting ? " NotResettable" : "";
    words += found ? " ErrorFound" : "";
    return words;
}

Outcome WorkOut(const CommandRow& command, const std::string& words, bool stays, bool alarmStands) {
    Outcome out;
    out.alarm = alarmStands;
    if (alarmStands) {
        out.number = "9";
        out.text = "Old alarm";
    }
    out.happens("open 1");
    out.happens("settings 9600,N,8,1");
    if (command.checksStatus) {
        out.sends("0CM1");
        out.hears("0CM1");
        out.shows(false, "", "No Error");
    }
    std::istringstream steps(words);
    std::string step;
    while (steps >> step) {
        if (step == "send") {
            out.sends(command.frame);
        } else if (step == "again") {
            out.sends("0CM0");
        } else if (step == "wait") {
            out.now += command.limit;
        } else if (step == "good") {
            out.hears(command.reply);
        } else if (step == "late") {
            out.happens("receive " + command.reply);
            out.now += 5;
        } else if (step == "echo") {
            out.hears("0ZZ" + command.reply.substr(3));
        } else if (step == "long") {
            out.hears(command.reply + "0");
        } else if (step == "twice") {
            out.hears(command.reply + "\r\n" + command.reply);
        } else if (step == "pieces") {
            out.hears(command.reply.substr(0, 2));
            out.hears(command.reply.substr(2) + "\r");
            out.hears("\n");
        } else if (step == "out") {
            out.shows(false, "", "No Error");
            out.good = true;
        } else if (step == "off") {
            out.goesOff();
        } else if (step == "err") {
            out.commError = true;
        } else if (step == "close!" || step == "close") {
            if (step == "close!" || !stays) {
                out.closes();
            }
        } else if (step == "stop") {
            out.now = 5000;
            out.stops = true;
        } else if (step.starts_with("box:")) {
            out.boxes.push_back(kBoxes.at(step));
            out.happens("box Ok: " + out.boxes.back());
        } else {
            out.hears(step);
        }
    }
    if (command.isStatusCheck && !out.good) {
        out.goesOff();
    }
    return out;
}

std::vector<std::pair<std::int64_t, std::string>> Answer(const CommandRow& command,
                                                         const std::string& word) {
    if (word == "good") {
        return {{10, command.reply + "\r\n"}};
    }
    if (word == "late") {
        return {{command.limit + 5, command.reply + "\r\n"}};
    }
    if (word == "echo") {
        return {{10, "0ZZ" + command.reply.substr(3) + "\r\n"}};
    }
    if (word == "long") {
        return {{10, command.reply + "0\r\n"}};
    }
    if (word == "twice") {
        return {{10, command.reply + "\r\n" + command.reply + "\r\n"}};
    }
    if (word == "pieces") {
        return {{10, command.reply.substr(0, 2)}, {20, command.reply.substr(2) + "\r"}, {30, "\n"}};
    }
    return {{10, word + "\r\n"}};
}

void PrintTo(const FaultRow& fault, std::ostream* out) {
    *out << fault.name;
}

/// One command under one fault, on a bench of its own.
void Check(const CommandRow& command, const FaultRow& fault, bool stays, bool alarmStands) {
    LinkBench bench;
    ScriptedPlatform& platform = bench.platform;
    if (alarmStands) {
        bench.letAlarmStand();
    }
    PortOccupyFlag = FlagOf(stays);
    ReplyTimeoutMs = kLeftLimit;
    const std::string& words = command.manner == Manner::Resend ? fault.resend
                               : command.manner == Manner::Once ? fault.once
                                                                : fault.quiet;
    const Outcome expected = WorkOut(command, words, stays, alarmStands);
    if (command.checksStatus) {
        platform.answer("0CM1");
    }
    for (const std::string& word : fault.line) {
        platform.answerBytes(Answer(command, word));
    }
    for (const std::string& box : expected.boxes) {
        platform.expectBox(box);
    }
    if (expected.stops) {
        platform.after(5000, [] { GrpMoveStopFlag = kSet; });
    }

    EXPECT_EQ(command.call(), expected.good ? command.good : command.failed);
    EXPECT_EQ(bench.newEvents(), expected.events);
    EXPECT_EQ(platform.sentAt, expected.sentAt);
    EXPECT_EQ(platform.now, expected.now);
    EXPECT_EQ(LinkBench::state(), expected.state());
    EXPECT_EQ(ThePanel().imgAlarmLed, expected.alarm);
    EXPECT_EQ(ThePanel().imgGreenLedOnline, !expected.offLine);
    if (expected.good) {
        EXPECT_EQ(ReplyText, command.reply + "\r\n");
    }

    // What is still on its way finds a program that is not waiting any more, and changes nothing.
    platform.run(10'000);
    const bool answerToResend = std::string_view(fault.name) == "LateReply" && expected.good;
    EXPECT_EQ(bench.newEvents(), answerToResend ? std::vector{"receive " + command.reply}
                                                : std::vector<std::string>{});
    EXPECT_EQ(LinkBench::state(), expected.state());
}

class CommandFaultTest : public testing::TestWithParam<FaultRow> {};

TEST_P(CommandFaultTest, EveryCommand) {
    const FaultRow& fault = GetParam();
    for (const CommandRow& command : Commands()) {
        // Without a time limit a missing reply is waited for as long as it takes.
        if (command.limit == 0 && fault.once.find("wait") != std::string::npos) {
            continue;
        }
        {
            SCOPED_TRACE(std::string(command.name) + ", port closes between batches, alarm stands");
            Check(command, fault, false, true);
        }
        SCOPED_TRACE(std::string(command.name) + ", port stays open, no alarm");
        Check(command, fault, true, false);
    }
}

INSTANTIATE_TEST_SUITE_P(Every, CommandFaultTest, testing::ValuesIn(Faults()),
                         [](const auto& test) { return std::string(test.param.name); });

} // namespace
} // namespace qdw8::test
