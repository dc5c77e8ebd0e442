// The line told in stories: port, receiver, waits, the poll, and commands out of its wait.

#include "app/main_panel.h"
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
#include "platform/whole_file.h"

#include <functional>
#include <map>
#include <memory>
#include <sstream>

namespace qdw8::test {
namespace {

template<typename Routine> std::function<int()> Void(Routine routine) {
    return [routine] { return routine(), 0; };
}

int InWritingMode(void (*end)(WritingMode&)) {
    WritingMode mode;
    if (!mode.begin()) {
        return 1;
    }
    ReadHomeStatus();
    end(mode);
    return 0;
}

const std::map<std::string, Flag*> kFlags{
    {"OffLineFlag", &OffLineFlag},       {"AlarmNotResettableFlag", &AlarmNotResettableFlag},
    {"CtBusyFlag", &CtBusyFlag},         {"ErrorListMissingFlag", &ErrorListMissingFlag},
    {"CommErrorFlag", &CommErrorFlag},   {"PortOccupyFlag", &PortOccupyFlag},
    {"ProgramEndFlag", &ProgramEndFlag}, {"GrpMoveStopFlag", &GrpMoveStopFlag}};

const std::map<std::string, std::function<int()>> kRoutines{
    {"OpenCtPort", OpenCtPort},
    {"OpenCtPortForBatch", OpenCtPortForBatch},
    {"CloseCtPort", Void(CloseCtPort)},
    {"CloseCtPortForce", Void(CloseCtPortForce)},
    {"SetOfflineState", Void(SetOfflineState)},
    {"GoOnLine", Void(GoOnLine)},
    {"CheckCtIdentity", CheckCtIdentity},
    {"CheckCtStatus", CheckCtStatus},
    {"ReadAxisMaskShown", ReadAxisMaskShown},
    {"ReadAxisMaskQuiet", ReadAxisMaskQuiet},
    {"ReadHomeStatus", ReadHomeStatus},
    {"RunGroup", [] { return RunGroup(1); }},
    {"JogRun", [] { return JogRun("1"); }},
    {"StopMotion", StopMotion},
    {"SetCtMode", [] { return SetCtMode(1); }},
    {"StandsStill", [] { return StandsStill(OnFailure::Silent) ? 1 : 0; }},
    {"StandsStillOrTell", [] { return StandsStill(OnFailure::Tell) ? 1 : 0; }},
    {"ReadInWritingMode", [] { return InWritingMode([](WritingMode&) {}); }},
    {"ReadAndEndInTwoTries", [] { return InWritingMode([](WritingMode& mode) { mode.end(2); }); }},
    {"ReadAndLeaveTheMode", [] { return InWritingMode([](WritingMode& mode) { mode.leave(); }); }},
    {"PollCtStatus", PollCtStatus},
    {"Timer1", Void([] { EnableTimer(Timer1); })},
    {"letAlarmStand", Void(LinkBench::letAlarmStand)},
    {"TalkInBackground", Void([] { RunInBackground(ReadInputs); })}};

std::string WithLineEnds(std::string text) {
    for (std::size_t at = text.find('^'); at != text.npos; at = text.find('^')) {
        text.replace(at, 1, "\r\n");
    }
    return text;
}

/// Plays a story on a bench of its own, and says what doesn't come out as told.
class Player {
public:
    void play(const std::string& line) {
        std::istringstream words(line);
        std::string verb;
        words >> verb;
        const auto step = kSteps.find(verb);
        std::string rest;
        std::getline(words >> std::ws, rest);
        step == kSteps.end() ? routine(verb, rest) : (this->*step->second)(rest);
    }

private:
    using Step = void (Player::*)(const std::string&);
    static const std::map<std::string, Step> kSteps;

    void routine(const std::string& name, const std::string& result) {
        const int got =
            name == "breakLine" ? (bench.platform.breakLine(), 0) : kRoutines.at(name)();
        EXPECT_TRUE(result.empty() || result == "= " + std::to_string(got)) << got;
    }
    void keep(const std::string& name) {
        WhenLineIsFree([name] {
            GoOnLine();
            kRoutines.at(name)();
        });
    }
    void at(const std::string& rest) {
        const std::size_t blank = rest.find(' ');
        bench.platform.after(std::stoi(rest),
                             [this, line = rest.substr(blank + 1)] { play(line); });
    }
    void comes(const std::string& text) {
        bench.platform.arrive(1, WithLineEnds(text));
        bench.platform.run(5);
    }
    void lamp(const std::string& word) { EXPECT_EQ(ThePanel().imgGreenLedOnline, word == "on"); }
    void givesUp(const std::string&) {
        Screens().frmGiveUp = [] { TheGiveUpOffer().shown ? cmdGiveUp_Click() : void(); };
    }
    void answer(const std::string& rest) { bench.answer(rest); }
    void run(const std::string& ms) { bench.platform.run(std::stoi(ms)); }
    void on(const std::string& flag) { *kFlags.at(flag) = kSet; }
    void off(const std::string& flag) { *kFlags.at(flag) = kClear; }
    void opens(const std::string& rest) { bench.platform.failingOpens = std::stoi(rest.substr(5)); }
    void faults(const std::string&) { bench.platform.inputFaults = true; }
    void happened(const std::string& story) { EXPECT_EQ(bench.story(), story); }
    void state(const std::string& words) { EXPECT_EQ(LinkBench::state(), words); }
    void reply(const std::string& text) { EXPECT_EQ(ReplyText, WithLineEnds(text)); }
    void buffer(const std::string& text) { EXPECT_EQ(ReplyBuffer, WithLineEnds(text)); }
    void boxes(const std::string& n) { EXPECT_EQ(std::to_string(bench.platform.boxes.size()), n); }

    LinkBench bench;
};

const std::map<std::string, Player::Step> Player::kSteps{
    {"keep", &Player::keep},   {"at", &Player::at},         {"comes", &Player::comes},
    {"lamp", &Player::lamp},   {"gives", &Player::givesUp}, {"answer", &Player::answer},
    {"run", &Player::run},     {"on", &Player::on},         {"off", &Player::off},
    {"opens", &Player::opens}, {"faults", &Player::faults}, {">", &Player::happened},
    {"state", &Player::state}, {"reply", &Player::reply},   {"buffer", &Player::buffer},
    {"boxes", &Player::boxes}};

TEST(LineStories, ComeOutAsTold) {
    std::istringstream stories(ReadWholeFile(QDW8_SOURCE_DIR "/tests/link/stories.txt"));
    std::unique_ptr<Player> player;
    std::string name;
    int told = 0;
    for (std::string line; std::getline(stories, line);) {
        if (line.empty() || line.starts_with('#')) {
            continue;
        }
        if (line.starts_with("= ")) {
            player.reset();
            player = std::make_unique<Player>();
            name = line;
            ++told;
            continue;
        }
        SCOPED_TRACE(name + ": " + line);
        player->play(line);
    }
    EXPECT_GT(told, 25);
}

} // namespace
} // namespace qdw8::test
