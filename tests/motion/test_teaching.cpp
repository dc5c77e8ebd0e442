// Teaching: stories/teaching.txt, every frame with every fault of the line, and presses and
// releases at every moment.

#include "app/number_forms.h"
#include "app/string_table.h"
#include "device/Module2Calc.h"
#include "device/axis_device.h"
#include "link/stop.h"
#include "motion/jog_frames.h"
#include "motion/motion_story.h"
#include "motion/motion_window.h"
#include "motion/teach_chart.h"
#include "motion/teach_clicks.h"
#include "motion/teaching.h"
#include "position/grid_display.h"
#include "position/posi_check.h"
#include "position/posi_table.h"
#include "simulator/motion.h"
#include "support/every_step.h"

#include <regex>

namespace qdw8::test {
namespace {

/// The window just opened; every exchange takes 12 ms.
template<typename TheBench> struct Opened : TheBench {
    Opened() {
        Screens().frmJOGShow = LoadJog;
        OpenMotionWindow(&ScreenFunctions::frmJOGShow);
        this->line.controller.setTurnaround(12);
    }
};
using TeachBench = Opened<LineBench>;

const std::map<StopSign, std::string> kSigns{{StopSign::None, "none"},
                                             {StopSign::Stopping, "stopping"},
                                             {StopSign::NotConfirmed, "not confirmed"}};

class Story : public Opened<MotionStory> {
public:
    Story() {
        add({{"start", [](Args&) { cmdJOGST_Click(); }},
             {"started",
              [this](Args&) {
                  cmdJOGST_Click();
                  platform.sent.clear();
              }},
             {"complete", [](Args&) { cmdJOGend_Click(); }},
             {"close", [](Args&) { LetStopOut(UnloadJog); }},
             {"exit", [](Args&) { cmdJogExit_Click(); }},
             {"answer",
              [this](Args& a) {
                  const BoxAnswer answer = Word(a) == "yes" ? BoxAnswer::Yes : BoxAnswer::Cancel;
                  platform.expectBox(ResText(2224), BoxButtons::YesNoCancel, answer);
              }},
             {"open", [](Args&) { OpenMotionWindow(&ScreenFunctions::frmJOGShow); }},
             {"check", [](Args&) { PosiDataCheck3(); }},
             {"get", [](Args&) { cmdJOGWrite_Click(); }},
             {"grid",
              [](Args&) {
                  ClearPosiTable();
                  GridFirst = PosiFirst = 1;
                  GridLast = PosiLast = GridRowCount = 5;
                  QdDataHyoji_3();
                  LoadTeachChart();
              }},
             {"unused",
              [](Args& a) {
                  const auto axis = static_cast<std::size_t>(Number(a));
                  AxisOff.at(axis) = kSet;
                  DevSetting.at(axis).MaxPulse = 0;
              }},
             {"homed",
              [this](Args& a) { line.controller.setHomed(static_cast<unsigned>(Number(a))); }},
             {"press", [](Args& a) { JogPressed(Number(a)); }},
             {"let-go", [](Args&) { JogReleased(); }},
             {"opt", [](Args& a) { optJOG_Click(Number(a)); }},
             {"in-the-box", [this](Args& a) { inTheBox(Rest(a)); }},
             {"mm", [](Args&) { DispMmFlag = kSet; }},
             {"special", [](Args& a) { device(a).DevSize = " 61", device(a).DevSpeed = "F"; }},
             {"scale",
              [](Args& a) {
                  AxisDevice& its = device(a);
                  its.DevLead = static_cast<std::int16_t>(Number(a));
                  its.DevPPR = static_cast<std::int16_t>(Number(a));
                  its.MaxPulse = 20000;
                  its.MaxStrokeMm = PulseToMm(its.DevLead, its.DevPPR, its.MaxPulse);
              }},
             {"stored",
              [this](Args& a) {
                  const std::string key = Word(a);
                  platform.settings[key] = Rest(a);
                  LoadJog();
              }},
             {"axes",
              [this](Args& a) { line.controller.setAxisMask(static_cast<unsigned>(Number(a))); }},
             {"place",
              [this](Args& a) {
                  const int axis = Number(a);
                  line.controller.place(axis, Number(a), platform.now);
              }},
             {"block",
              [this](Args& a) {
                  const int block = Number(a);
                  line.controller.setBlock(block, Word(a));
              }}},
            {{"says", [](Args&) { return ResText(TheTeachingForm().stateText); }},
             {"stop",
              [](Args&) {
                  const TeachingForm form = TheTeachingForm();
                  EXPECT_EQ(form.stop == StopSign::None, form.stopText == 0);
                  return kSigns.at(form.stop);
              }},
             {"position",
              [](Args&) {
                  std::string text;
                  for (const std::string& its : TheTeachingForm().lblPosi) {
                      text += (text.empty() ? "" : " ") + (its.empty() ? "-" : its);
                  }
                  return text;
              }},
             {"enabled", [](Args&) { return enabled(TheTeachingForm()); }},
             {"head", [](Args&) { return ResText(TheTeachingForm().lblGenzaitiHyoji); }},
             {"table",
              [](Args& a) {
                  const auto row = static_cast<std::size_t>(Number(a));
                  const auto axis = static_cast<std::size_t>(Number(a));
                  return FixedDecimals(PosiUnitTable[row].pulse[axis], 0) + " " +
                         FixedDecimals(PosiUnitTable[row].mm[axis], 3);
              }},
             {"edited", [](Args&) { return std::string(IsSet(PosiDirtyFlag) ? "yes" : "no"); }},
             {"waiting", [](Args&) { return std::to_string(JogQueueCount()); }},
             {"target",
              [](Args& a) {
                  const auto button = static_cast<std::size_t>(Number(a));
                  const int step = Number(a);
                  const int position = Number(a);
                  const auto target = InchingTarget(button, step, position, Number(a));
                  return target ? std::to_string(*target) : "none";
              }},
             {"window", [](Args&) { return std::string(JogOpen() ? "open" : "gone"); }}});
    }

private:
    static AxisDevice& device(Args& a) {
        return DevSetting.at(static_cast<std::size_t>(Number(a)));
    }
    static std::string enabled(const TeachingForm& form) {
        std::string text;
        for (const auto& [on, name] : {std::pair{form.cmdJOGST, "start "},
                                       {form.cmdJOGend, "complete "},
                                       {form.flgdJOGPosi, "chart "},
                                       {form.cmdJOGWrite, "get "}}) {
            text += on ? name : "";
        }
        for (const bool on : form.cmdJOG) {
            text += on ? '+' : '-';
        }
        return text;
    }
    void inTheBox(const std::string& what) {
        ThePlatform().ShowMessageBox = [this, what, ask = ThePlatform().ShowMessageBox](auto& box) {
            platform.after(0, [this, what] { tell(what); });
            platform.run(400); // it stands so long
            return ask(box);
        };
    }
};

TEST(Teaching, GoesAsTold) {
    TellStories<Story>(QDW8_SOURCE_DIR "/tests/motion/stories/teaching.txt", 20);
}

/// What happened: frames, "<" a press, ">" its release, "!" a box.
std::string Told(const ScriptedPlatform& platform) {
    std::string text;
    for (const std::string& event : platform.events) {
        text += event.starts_with("send ") ? event.substr(5, 3) + " "
                : event.starts_with("box") ? "! "
                : event.size() == 1        ? event + " "
                                           : "";
    }
    return text;
}

/// Whatever becomes of a JOG: behind the release no move goes out, and before anything else one
/// stop; nothing is told before a stop while an axis may move; and no axis moves at the end unless
/// the window says so.
void ExpectSafe(TeachBench& bench) {
    const std::string told = Told(bench.platform);
    EXPECT_FALSE(std::regex_search(told, std::regex("> .*0(JR|MV)"))) << told;
    EXPECT_FALSE(std::regex_search(told, std::regex("> 0(?!SP)"))) << told;
    EXPECT_FALSE(std::regex_search(told, std::regex("0JR ((?!0SP).)*!|0MV !"))) << told;
    bench.line.controller.settle(bench.platform.now);
    EXPECT_TRUE(!qdk8::Moving(bench.line.controller.machine()) ||
                TheTeachingForm().stop == StopSign::NotConfirmed)
        << told;
}

void Jog(TeachBench& bench, int pressAt, int heldFor) {
    const auto mark = [&bench](int at, const char* what, auto act) {
        bench.platform.after(at, [&bench, what, act] {
            bench.platform.events.emplace_back(what);
            act();
        });
    };
    mark(pressAt, "<", [] { JogPressed(0); });
    mark(pressAt + heldFor, ">", JogReleased);
    bench.platform.run(pressAt + heldFor + 900);
}

TEST(Teaching, AtEveryMomentAReleaseStops) {
    for (const std::string fault : {"", "late=300", "late=1500", "silence", "deaf", "echo=0ZZ"}) {
        for (int pressAt = 0; pressAt < 210; pressAt += 27) {
            for (const int heldFor : {0, 2, 13, 30, 410}) {
                SCOPED_TRACE(fault + " " + std::to_string(pressAt) + " " + std::to_string(heldFor));
                TeachBench bench;
                AnswerByItself(bench.platform);
                cmdJOGST_Click();
                bench.platform.events.clear();
                if (!fault.empty()) {
                    bench.addFault("*:" + std::to_string(1 + pressAt / 50) + "+:" + fault);
                }
                Jog(bench, pressAt, heldFor);
                bench.platform.run(fault.empty() ? 0 : 6000);
                ExpectSafe(bench);
                if (fault.empty()) {
                    EXPECT_TRUE(
                        std::regex_search(Told(bench.platform), std::regex("> 0SP 0RC 0RC ")));
                    EXPECT_EQ(TheTeachingForm().stop, StopSign::None);
                }
            }
        }
    }
}

TEST(Teaching, AtEveryStepAFailureIsToldBehindAStop) {
    struct Bench : TeachBench {
        Bench() { // homed
            cmdJOGST_Click();
            LetStopOut(UnloadJog);
            OpenMotionWindow(&ScreenFunctions::frmJOGShow);
        }
        Teaching reached = Teaching::NotStarted;
    };
    EveryStep<Bench>(
        [](Bench& bench) {
            cmdJOGST_Click();
            Jog(bench, 20, 300);
            ExpectSafe(bench);
            bench.platform.events.clear();
            optJOG_Click(3);
            JogPressed(2);
            bench.platform.run(2000);
            JogReleased();
            ExpectSafe(bench);
            bench.reached = TheTeachingForm().state;
            cmdJOGend_Click();
            LetStopOut(UnloadJog);
        },
        [](Bench& bench, const Step& step) {
            const bool goesOn = bench.reached == Teaching::Started;
            EXPECT_TRUE(goesOn == step.boxes.empty() || step.fault == (goesOn ? "stray" : "dumb"));
        });
}

} // namespace
} // namespace qdw8::test
