// The move test: stories/move.txt, every frame of every run with every fault of the line, and every
// way out of a run at every moment.

#include "app/boxes.h"
#include "app/transfer_dialog.h"
#include "link/background.h"
#include "link/ct_commands.h"
#include "link/line_state.h"
#include "motion/motion_story.h"
#include "motion/motion_window.h"
#include "motion/move_list_edit.h"
#include "motion/move_test.h"
#include "platform/fault.h"
#include "support/boxes.h"
#include "support/every_step.h"

#include <algorithm>
#include <map>

namespace qdw8::test {
namespace {

constexpr std::int64_t kLong = 30000; // ms: every run that ends by itself is over by then

template<typename TheBench> struct Opened : TheBench {
    Opened() {
        Screens().frmMoveShow = LoadMove;
        OpenMotionWindow(&ScreenFunctions::frmMoveShow);
    }
};
/// A short homing.
struct OneAxis : Opened<LineBench> {
    OneAxis() {
        SetAxisOffByMask(AxisOff, 8);
        line.controller.setAxisMask(8);
    }
};

template<typename Value> std::function<void(int)> Sets(void (*routine)(Value)) {
    return [routine](int value) { routine(static_cast<Value>(value)); };
}

const std::map<std::string, void (*)()> kClicks{
    NAMED(cmdMove_Click),    NAMED(cmdSelectMove_Click), NAMED(cmdGrpMove_Click),
    NAMED(cmdHome_Click),    NAMED(cmdStop_Click),       NAMED(cmdStop2_Click),
    NAMED(cmdTmpStop_Click), NAMED(cmdTempStop2_Click),  NAMED(cmdGrpMoveStop_Click),
    NAMED(cmdInp1toF_Click), NAMED(cmdDataClear_Click),  {"cmdMoveWinClose_Click", UnloadMove},
    NAMED(cmdGiveUp_Click)};
#define SETS(name)                                                                                 \
    { #name, Sets(name) }
const std::map<std::string, std::function<void(int)>> kSettings{
    SETS(SSTab1_Click),      SETS(optSelectMode_Click), SETS(optMoveWay_Click),
    SETS(chkRepeat_Click),   SETS(chkRepeat2_Click),    SETS(chkNoSqMcr1_Click),
    SETS(chkTimerUse_Click), SETS(chkNoSqMcr2_Click),   SETS(chkTimerUse2_Click),
    SETS(GrpNo_Change),      SETS(StartPosiNo_Change),  SETS(EndPosiNo_Change),
    SETS(flgdProgram_GoTo),  SETS(flgdProgramEdit2),    SETS(Edit2KeyCode)};
#define CONTROL(name)                                                                              \
    { #name, &MoveEnabled::name }
const std::map<std::string, bool MoveEnabled::*> kControls{
    CONTROL(start),    CONTROL(flgdProgram),  CONTROL(chkTimerUse),   CONTROL(txtTimer),
    CONTROL(cmdStop),  CONTROL(chkTimerUse2), CONTROL(txtTimer2),     CONTROL(cmdTmpStop),
    CONTROL(cmdStop2), CONTROL(cmdTempStop2), CONTROL(cmdGrpMoveStop)};

/// The positions stand in the list and the range.
void Fill(const std::string& positions) {
    cmdDataClear_Click();
    std::istringstream all(positions);
    std::string position;
    for (std::size_t cell = 0; all >> position; ++cell) {
        flgdProgram_GoTo(cell);
        flgdProgramEdit2(' ');
        txtEdit2_Change(position);
    }
    flgdProgram_GoTo(0);
}

class Story : public Opened<MotionStory> {
public:
    Story() {
        Screens().cmdGrpMoveFocus = Screens().frmIOCheckShow = [this] { ++told; };
        add({{"click", [](Args& a) { kClicks.at(Word(a) + "_Click")(); }},
             {"set",
              [](Args& a) {
                  const auto& routine = kSettings.at(Word(a));
                  routine(Number(a));
              }},
             {"list", [](Args& a) { Fill(Rest(a)); }},
             {"timer", [](Args& a) { txtTimer_Enter(Rest(a)); }},
             {"timer2", [](Args& a) { txtTimer2_Enter(Rest(a)); }},
             {"type", [](Args& a) { txtEdit2_Change(Plain(Rest(a))); }},
             {"open", [](Args&) { OpenMotionWindow(&ScreenFunctions::frmMoveShow); }},
             {"open-io", [](Args&) { OpenMotionWindow(&ScreenFunctions::frmIOCheckShow); }},
             {"give-up-left", [](Args&) { GrpMoveStopFlag = kSet; }},
             {"port-fails", [this](Args& a) { platform.failingOpens = Number(a); }},
             {"sim-alarm",
              [this](Args& a) {
                  line.controller.raiseAlarm({'0', '0', Word(a).back()}, platform.now);
              }},
             {"run", [this](Args&) { platform.run(kLong); }},
             {"mask",
              [this](Args& a) {
                  const int mask = Number(a);
                  SetAxisOffByMask(AxisOff, mask);
                  line.controller.setAxisMask(static_cast<unsigned>(mask));
              }},
             {"question",
              [this](Args& a) {
                  platform.expectBox(BoxText("close moving"), BoxButtons::OkCancel,
                                     Word(a) == "ok" ? BoxAnswer::Ok : BoxAnswer::Cancel);
              }},
             {"under-modal",
              [this](Args& a) { ShowModal([this, ms = Number(a)] { platform.run(ms); }); }},
             {"window-fails",
              [](Args&) {
                  Screens().frmMove = [] {
                      Screens().frmMove = {};
                      throw qdw8::Fault("not foreseen");
                  };
              }},
             {"poll",
              [this](Args&) {
                  platform.after(0, [] { RunInBackground([] { PollCtStatus(); }); });
              }},
             {"title-bar", [](Args&) { MoveMayClose(true) ? UnloadMove() : void(); }}},
            {{"says", [](Args&) { return TextOf(MoveForm().status, MoveForm().place); }},
             {"announced", [](Args&) { return TextOf(MoveForm().homing); }},
             {"arrival",
              [](Args&) {
                  const MoveFormData form = MoveForm();
                  return form.lblkanryoNo + (form.out1 ? " 1" : "") + (form.out2 ? " 2" : "");
              }},
             {"off", [](Args&) { return off(); }},
             {"fields", [](Args&) { return fields(); }},
             {"edit",
              [](Args&) {
                  const ListEdit edit = MoveForm().fields.txtEdit2;
                  return edit.shown ? "[" + edit.text + "]" : "";
              }},
             {"takes",
              [](Args& a) {
                  const int key = Number(a);
                  return Edit2Takes(key, static_cast<std::size_t>(Number(a))) ? "yes" : "no";
              }},
             {"offered", [](Args&) { return TheGiveUpOffer().shown ? "yes" : "no"; }},
             {"line-error", [](Args&) { return IsSet(CommErrorFlag) ? "yes" : "no"; }},
             {"event-before-last",
              [this](Args&) { return platform.events.at(platform.events.size() - 2); }},
             {"beeps", [this](Args&) { return std::to_string(platform.beeps); }},
             {"told", [this](Args&) { return std::to_string(told); }}});
    }

private:
    static std::string off() {
        const MoveEnabled on = MoveForm().enabled;
        std::string names;
        for (const auto& [name, control] : kControls) {
            names += on.*control ? "" : name + " ";
        }
        for (const bool tab : on.SSTab1) {
            names += tab ? "1" : "0";
        }
        return names;
    }
    static std::string fields() {
        const MoveFormData form = MoveForm();
        std::string text;
        for (const std::string& cell : form.fields.flgdProgram) {
            text += (cell.empty() ? "-" : cell) + " ";
        }
        for (const std::size_t column : {form.nextCell, form.fields.column}) {
            text += "(" + std::to_string(column) + ") ";
        }
        for (const int position : {form.fields.lblStartPosiNo, form.fields.lblEndPosiNo}) {
            text += std::to_string(position) + " ";
        }
        return text + form.fields.list.timer + "," + form.fields.range.timer;
    }
    int told = 0; ///< screens that were
};

TEST(MoveTest, GoesAsTold) {
    TellStories<Story>(QDW8_SOURCE_DIR "/tests/motion/stories/move.txt", 50);
}

/// The runs, each with its Stop and its Pause.
struct Kind {
    void (*start)();
    void (*stop)();
    void (*pause)();
};
const std::map<std::string, Kind> kRuns{
    {"list", {cmdMove_Click, cmdStop_Click, cmdTmpStop_Click}},
    {"range", {cmdSelectMove_Click, cmdStop2_Click, cmdTempStop2_Click}},
    {"group", {cmdGrpMove_Click, cmdGrpMoveStop_Click, cmdGrpMoveStop_Click}},
    {"home", {cmdHome_Click, cmdStop_Click, cmdStop2_Click}}};

void Begin(const Kind& run) {
    Fill("1 2");
    EndPosiNo_Change(2);
    chkTimerUse_Click(true);
    run.start();
}

TEST(MoveTest, BehindEveryWayOutNothingMovesAtWhateverMoment) {
    const auto play = [](const Kind& run, std::int64_t moment, void (*leave)()) {
        OneAxis bench;
        bench.line.controller.setTurnaround(4);
        std::ptrdiff_t before = -1;
        const std::vector<std::string>& sent = bench.platform.sent;
        const auto moves = [&] {
            return std::count_if(sent.begin(), sent.end(),
                                 [](const auto& frame) { return frame.starts_with("0M"); });
        };
        bench.platform.after(moment, [&] {
            before = moves();
            leave();
        });
        Begin(run);
        bench.platform.run(kLong);
        EXPECT_EQ(before, moves());
        ExpectAtRest(bench.platform);
        EXPECT_EQ(MoveRequest | MoveActive, 0);
        EXPECT_EQ(timerEventCheck.enabled, leave != UnloadMove);
        return std::pair(sent, bench.platform.sentAt);
    };
    void (*const kEnd)() = [] { ProgramEndFlag = kSet; };
    for (const auto& [name, run] : kRuns) {
        const auto [sent, sentAt] = play(run, kLong, [] {});
        for (std::size_t i = 0; i < sent.size(); ++i) {
            if (i > 0 && sent[i] == sent[i - 1]) {
                continue; // one poll is like the other
            }
            for (const std::int64_t behind : {-50, 2}) {
                SCOPED_TRACE(name + " " + std::to_string(behind) + " ms behind " + sent[i]);
                for (const auto leave : {run.stop, run.pause, UnloadMove, kEnd}) {
                    play(run, sentAt[i] + behind, leave);
                }
            }
        }
    }
}

TEST(MoveTest, AtEveryStepAFailureEndsTheRunAndNothingFollows) {
    for (const std::string name : {"list", "group", "home"}) {
        const Kind& run = kRuns.at(name);
        SCOPED_TRACE(name);
        EveryStep<OneAxis>(
            [&run](OneAxis& bench) {
                Begin(run);
                bench.platform.run(kLong);
            },
            [](OneAxis& bench, const Step& step) {
                const std::string& last = bench.platform.sent.back();
                if (MoveForm().status.text == 0) {
                    EXPECT_TRUE(step.boxes.empty());
                } else {
                    EXPECT_TRUE(step.fault == "stray" || last == step.frame || last == "0CM0")
                        << last;
                }
                EXPECT_EQ(MoveRequest | MoveActive, 0);
                EXPECT_TRUE(timerEventCheck.enabled);
            },
            {"dumb", "error=03", "error=14", "echo=0ZZ", "stray", "hangup"});
    }
}

} // namespace
} // namespace qdw8::test
