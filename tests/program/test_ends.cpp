// The end, at every moment of what may run, by the system's word and by the user, with the line in
// order and dead: it comes within a bound, by the system's word without a box, and no axis runs on.

#include "app/command_states.h"
#include "link/end_of_run.h"
#include "motion/io_check.h"
#include "motion/motion_window.h"
#include "motion/move_list_edit.h"
#include "motion/move_test.h"
#include "motion/teaching.h"
#include "position/grid_display.h"
#include "position/posi_table.h"
#include "program/commands.h"
#include "program/shutdown.h"
#include "program/told_to_end.h"
#include "support/every_step.h"

#include <algorithm>
#include <map>

namespace qdw8::test {
namespace {

constexpr std::int64_t kBound = 6000;
constexpr std::int64_t kBrakes = 200; ///< from a stop to the standstill
constexpr std::int64_t kFar = 30000;

/// The process is gone.
struct Gone {};

struct EndBench : LineBench {
    EndBench() {
        AnswerByItself(platform);
        platform.onOutput = [this, send = platform.onOutput](const std::string& text) {
            if (IsSet(ProgramEndFlag)) {
                EXPECT_FALSE(text.starts_with("0M") || text.starts_with("0J")) << text;
            }
            send(text);
        };
        ThePlatform().EndProgram = [] { throw Gone{}; };
        Screens().frmSelection = [](const SelectionQuestion&) { return std::int16_t{1}; };
        Screens().frmJOGShow = LoadJog;
        Screens().frmMoveShow = LoadMove;
        Screens().frmIOCheckShow = LoadIoCheck;
        Screens().frmMainClose = [] { frmMain_QueryUnload() ? frmMain_Unload() : void(); };
        RegisterCommands();
        { const CommandsAway start; }
        ObeyToldToEnd();
        line.controller.setTurnaround(12);
        line.controller.setHomed(8);
        line.controller.setAxisMask(8);
        AxisOff = {kSet, kSet, kSet, kClear};
        GridFirst = PosiFirst = 1;
        GridLast = PosiLast = GridRowCount = 3;
        ClearPosiTable();
        QdDataHyoji_3();
    }
    bool moves() {
        return line.controller.position(3, platform.now + kBrakes) !=
               line.controller.position(3, platform.now + kFar);
    }
};

void MoveTest(void (*start)()) {
    OpenMotionWindow(&ScreenFunctions::frmMoveShow);
    cmdInp1toF_Click();
    start();
}

void Teach(int way) {
    OpenMotionWindow(&ScreenFunctions::frmJOGShow);
    cmdJOGST_Click();
    optJOG_Click(way);
    JogPressed(6);
}

const std::map<std::string, std::function<void(EndBench&)>> kRuns{
    {"nothing", [](EndBench&) { RunCommand(Command::mnuFuncCtversion); }},
    {"a run of JOG", [](EndBench&) { Teach(0); }},
    {"a step", [](EndBench&) { Teach(3); }},
    {"the homing of teaching",
     [](EndBench& bench) {
         bench.line.controller.setHomed(0);
         Teach(0);
     }},
    {"a list", [](EndBench&) { MoveTest(cmdMove_Click); }},
    {"a group", [](EndBench&) { MoveTest(cmdGrpMove_Click); }},
    {"homing", [](EndBench&) { MoveTest(cmdHome_Click); }},
    {"a read and a write",
     [](EndBench& bench) {
         bench.platform.expectScreen("frmSelectPosiNo2");
         RunCommand(Command::cmdPosiRead);
         bench.platform.expectScreen("frmSelectPosiNo3");
         RunCommand(Command::cmdPosiLoad);
     }},
    {"monitoring", [](EndBench&) {
         OpenMotionWindow(&ScreenFunctions::frmIOCheckShow);
         cmdIoMonitor_Click();
     }}};

/// How the end comes.
struct End {
    std::string by;
    bool dead; ///< from then on nobody answers
};

/// Runs it, with the end at that moment; gives the moments at which frames went out, of equal ones
/// in a row the first.
std::vector<std::int64_t> Play(const std::string& name, const End& end, std::int64_t moment) {
    EndBench bench;
    ScriptedPlatform& platform = bench.platform;
    const bool told = end.by == "the system";
    bool open = true;
    platform.after(moment, [&] {
        platform.boxes.clear();
        open = !JogOpen();
        if (end.dead) {
            bench.addFault("*:1+:deaf");
        }
        told ? ThePlatform().OnToldToEnd() : RunCommand(Command::mnuFileExit);
    });
    try {
        kRuns.at(name)(bench);
        platform.run(moment + kBound);
        EXPECT_FALSE(told || open) << "it never ends";
    } catch (const Gone&) {
        EXPECT_LE(platform.now - moment, kBound);
        EXPECT_TRUE(!told || platform.boxes.empty()) << platform.boxes.front();
        const bool stops = platform.lastWord == "0SP\r\n";
        EXPECT_TRUE(stops ? told && end.dead : !told || !bench.moves()) << platform.lastWord;
        EXPECT_FALSE(platform.portOpen);
    }
    std::vector<std::int64_t> moments;
    for (std::size_t i = 0; i < platform.sent.size(); ++i) {
        if (moments.size() < 12 && (i == 0 || platform.sent[i] != platform.sent[i - 1])) {
            moments.push_back(platform.sentAt[i]);
        }
    }
    return moments;
}

TEST(End, ComesInEveryStateAndStopsWhatMoves) {
    for (const auto& [name, run] : kRuns) {
        const std::vector<std::int64_t> frames = Play(name, {"the system", false}, 4000);
        ASSERT_FALSE(frames.empty()) << name;
        for (const End& end : {End{"the system", false}, End{"the system", true},
                               End{"the user", false}, End{"the user", true}}) {
            for (const std::int64_t at : frames) {
                for (const std::int64_t behind : {-40, 2}) {
                    SCOPED_TRACE(name + ", " + end.by + (end.dead ? ", dead, " : ", ") +
                                 std::to_string(at + behind));
                    Play(name, end, at + behind);
                }
            }
        }
    }
}

} // namespace
} // namespace qdw8::test
