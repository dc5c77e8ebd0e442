// What may befall the program at every moment of whatever runs: its end, by the system's word and
// by the user, with the line in order and dead, a cable that is pulled, an hour that the machine
// slept.

#include "app/Module1.h"
#include "app/command_states.h"
#include "link/end_of_run.h"
#include "link/port.h"
#include "link/supervision.h"
#include "motion/io_check.h"
#include "motion/motion_window.h"
#include "motion/move_list_edit.h"
#include "motion/move_test.h"
#include "motion/teaching.h"
#include "platform/whole_file.h"
#include "position/flex_grid.h"
#include "position/grid_display.h"
#include "position/posi_file.h"
#include "position/posi_table.h"
#include "print/posi_print_data.h"
#include "program/commands.h"
#include "program/shutdown.h"
#include "program/told_to_end.h"
#include "support/boxes.h"
#include "support/every_step.h"

#include <QLocale>
#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <map>

namespace qdw8::test {
namespace {

constexpr std::int64_t kBound = 6000;
constexpr std::int64_t kNever = 100'000;
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
        Screens().frmSelection = [](const SelectionQuestion&) { return std::int16_t{0}; };
        Screens().frmSyogoKekka = [] {};
        Screens().frmJOGShow = LoadJog;
        Screens().frmMoveShow = LoadMove;
        Screens().frmIOCheckShow = LoadIoCheck;
        Screens().frmMainClose = [] { frmMain_QueryUnload() ? frmMain_Unload() : void(); };
        RegisterCommands();
        { const CommandsAway start; }
        EnableTimer(Timer1);
        PortOccupyFlag = kSet;
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
    std::int64_t happenedAt = 0;

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
    {"an alarm that stands",
     [](EndBench& bench) {
         bench.line.controller.raiseAlarm({'0', '0', '6'}, bench.platform.now);
         RunCommand(Command::mnuFuncCtversion);
     }},
    {"monitoring", [](EndBench&) {
         OpenMotionWindow(&ScreenFunctions::frmIOCheckShow);
         cmdIoMonitor_Click();
     }}};

/// Lets it happen in each run, in front of each of its first frames and in the wait behind it, one
/// moment in a run; then a minute passes.
void InEachRun(const std::function<void(EndBench&)>& happens,
               const std::function<void(EndBench&, const std::string& name, bool gone)>& check) {
    for (const auto& [name, run] : kRuns) {
        const auto play = [&](std::int64_t moment) {
            EndBench bench;
            bench.platform.after(moment, [&] {
                bench.happenedAt = bench.platform.now;
                bench.platform.boxes.clear();
                happens(bench);
            });
            bool gone = false;
            try {
                run(bench);
                bench.platform.run(kBound);
            } catch (const Gone&) {
                gone = true;
            }
            if (moment < kNever) {
                check(bench, name, gone);
            }
            return std::pair(bench.platform.sent, bench.platform.sentAt);
        };
        const auto [sent, sentAt] = play(kNever);
        ASSERT_FALSE(sent.empty()) << name;
        int frames = 0;
        for (std::size_t i = 0; i < sent.size() && frames < 12; ++i) {
            if (i > 0 && sent[i] == sent[i - 1]) {
                continue; // one poll is like the other
            }
            ++frames;
            for (const std::int64_t behind : {-40, 2}) {
                SCOPED_TRACE(name + ", " + std::to_string(sentAt[i] + behind));
                play(sentAt[i] + behind);
            }
        }
    }
}

/// From then on nobody answers.
void FallSilent(EndBench& bench) {
    bench.addFault("*:1+:deaf");
}

void TellToEnd(bool silent) {
    InEachRun(
        [silent](EndBench& bench) {
            silent ? FallSilent(bench) : void();
            ThePlatform().OnToldToEnd();
        },
        [silent](EndBench& bench, const std::string&, bool gone) {
            EXPECT_TRUE(gone) << "it never ends";
            EXPECT_TRUE(bench.platform.boxes.empty()) << bench.platform.boxes.front();
            EXPECT_FALSE(bench.platform.portOpen);
            const bool stops = bench.platform.lastWord == "0SP\r\n";
            EXPECT_TRUE(stops ? silent : !bench.moves()) << "it runs on";
        });
}
TEST(End, ByTheSystemComesInEveryStateAndStopsWhatMoves) {
    TellToEnd(false);
}
TEST(End, ByTheSystemLeavesTheStopToTheLastWordWhereNobodyAnswers) {
    TellToEnd(true);
}

TEST(End, ByTheUserComesInEveryStateWhereNobodyAnswers) {
    InEachRun(
        [](EndBench& bench) {
            FallSilent(bench);
            RunCommand(Command::mnuFileExit);
            EXPECT_TRUE(JogOpen() || !frmMain_QueryUnload());
        },
        [](EndBench& bench, const std::string& name, bool gone) {
            EXPECT_TRUE(gone || JogOpen()) << name;
            EXPECT_TRUE(!gone || bench.platform.boxes == std::vector{BoxText("finish")})
                << name << ": behind the answer nobody is asked or told anything";
            EXPECT_EQ(bench.platform.lastWord, gone ? "" : bench.platform.lastWord);
        });
}

/// What a command tells besides the line's own box has another text, but for a homing. A read and a
/// write are two commands.
void ExpectNothingTwice(const EndBench& bench, const std::string& name) {
    const std::vector<std::string>& told = bench.platform.boxes;
    for (const std::string& text : told) {
        EXPECT_LE(std::count(told.begin(), told.end(), text),
                  name == "homing" || name == "a read and a write" ? 2 : 1)
            << text;
    }
}

TEST(Mishap, ACableThatIsPulledIsToldOnce) {
    InEachRun(
        [](EndBench& bench) {
            bench.platform.failingOpens = -1;
            bench.platform.breakLine();
        },
        [](EndBench& bench, const std::string& name, bool) { ExpectNothingTwice(bench, name); });
}

/// The grid, and what a print of it says.
std::string Shown() {
    std::string all;
    for (int row = 0; row < kGridHeadRows + GridRowCount; ++row) {
        for (int column = 0; column < kGridColumns; ++column) {
            all += GridText(row, column) + '\t';
        }
    }
    for (const PosiPrintRow& row : StageShownPositions().rows) {
        for (const std::string& cell : row.cells) {
            all += cell + '\t';
        }
    }
    return all;
}

TEST(Mishap, AnHourThatIsLostHarmsNothing) {
    const std::string transfer = "a read and a write";
    std::string before;
    std::string read;
    {
        EndBench bench;
        before = Shown();
        kRuns.at(transfer)(bench);
        read = Shown();
    }
    InEachRun([](EndBench& bench) { bench.platform.now += 3'600'000; },
              [&](EndBench& bench, const std::string& name, bool) {
                  if (name == transfer && Shown() != read) {
                      EXPECT_EQ(Shown(), before) << "half of a read";
                      EXPECT_FALSE(bench.platform.boxes.empty()) << "nobody is told";
                  }
                  const auto& at = bench.platform.sentAt;
                  ExpectNothingTwice(bench, name);
                  EXPECT_LE(std::count_if(at.begin(), at.end(),
                                          [&bench](std::int64_t sent) {
                                              return sent >= bench.happenedAt + 3'600'000 &&
                                                     sent <= bench.happenedAt + 3'601'000;
                                          }),
                            100)
                      << "what was missed is caught up with";
              });
}

/// What a read, a write and a save leave on the screen, on paper, on the line and in the file.
std::string Written() {
    EndBench bench;
    DispMmFlag = kSet;
    kRuns.at("a read and a write")(bench);
    bench.platform.expectScreen("frmSelectPosiNo3");
    const std::string path = bench.pathOf("a.qdd");
    ThePlatform().CommonDialog1.ShowFile = [&path](const FileQuestion&) {
        return std::optional(FileAnswer{path, "a.qdd"});
    };
    SavePosiFileAs();
    std::string all = Shown() + ReadWholeFile(path);
    for (const std::string& frame : bench.platform.sent) {
        all += frame + "\n";
    }
    return all;
}

TEST(Mishap, TheLocaleOfTheDesktopLeavesFilesAndTheLineAsTheyAre) {
    const std::string plain = Written();
    const std::string folder = testing::TempDir() + "/qdw8-locales";
    ::setenv("LOCPATH", folder.c_str(), 1);
    // Between them they have a decimal comma, an i of their own and digits of their own.
    for (const std::string name : {"tr_TR", "ar_SA"}) {
        const std::string made = folder + "/" + name + ".UTF-8";
        const std::string make =
            "mkdir -p " + made + " && localedef -i " + name + " -f UTF-8 " + made + " 2>/dev/null";
        if (std::system(make.c_str()) != 0 ||
            std::setlocale(LC_ALL, (name + ".UTF-8").c_str()) == nullptr) {
            GTEST_SKIP() << "this machine can't make the locale " << name;
        }
        QLocale::setDefault(QLocale(QString::fromStdString(name)));
        EXPECT_EQ(Written(), plain) << name;
        std::setlocale(LC_ALL, "C");
        QLocale::setDefault(QLocale::c());
    }
    ::unsetenv("LOCPATH");
}

} // namespace
} // namespace qdw8::test
