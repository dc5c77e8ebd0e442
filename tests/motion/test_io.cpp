// The I/O monitor: stories/io.txt, and every frame of a monitoring with every fault of the line.

#include "app/command_states.h"
#include "app/string_table.h"
#include "link/background.h"
#include "link/line_state.h"
#include "link/supervision.h"
#include "motion/io_check.h"
#include "motion/motion_window.h"
#include "support/boxes.h"
#include "support/every_step.h"
#include "support/story.h"

#include <memory>
#include <set>
#include <utility>

namespace qdw8::test {
namespace {

constexpr std::int64_t kTick = 300; // ms

/// The window just opened.
struct IoBench : LineBench {
    IoBench() {
        Screens().frmIOCheckShow = [this] { IoCheckOpen() ? void(++shown) : LoadIoCheck(); };
        OpenMotionWindow(&ScreenFunctions::frmIOCheckShow);
    }
    int shown = 0; ///< how often it was brought to the front
};

std::uint32_t Hex(Args& args) {
    return static_cast<std::uint32_t>(std::stoul(Word(args), nullptr, 16));
}

class Story : public IoBench {
public:
    void tell(const std::string& statement) { TellStatement(words, values, statement); }

private:
    template<std::size_t count>
    static std::string lit(const std::array<IoLamp, count>& lamps, const IoSlots& slots) {
        std::string text;
        for (const IoLamp& lamp : lamps) {
            if (IsSet(IoLampsShown) && IsSet(slots[lamp.slot])) {
                text += (text.empty() ? "" : " ") + std::string(lamp.name);
            }
        }
        return text;
    }
    std::string frames() {
        std::string text;
        for (const std::string& frame : std::exchange(platform.sent, {})) {
            text += (text.empty() ? "" : " ") + frame;
        }
        return text;
    }
    /// Something happens while the program waits for the answer to a frame, once.
    void during(Args& args) {
        platform.onOutput = [this, frame = Word(args), what = Rest(args),
                             send = platform.onOutput](const std::string& text) {
            if (text.starts_with(frame) && done.insert(frame + what).second) {
                platform.after(0, [this, what] { tell(what); });
            }
            send(text);
        };
    }

    std::set<std::string> done;
    std::unique_ptr<PollHeld> held;
    std::unique_ptr<CommandsAway> command;
    const StoryWords words{
        {"tick", [this](Args&) { platform.run(kTick); }},
        {"wait", [this](Args& a) { platform.run(Number(a)); }},
        {"click", [](Args&) { cmdIoMonitor_Click(); }},
        {"ignore", [](Args&) { chkIgnore_Click(!IsSet(chkIgnore)); }},
        {"lamp",
         [](Args& a) {
             for (const std::string name = Word(a); const IoLamp& lamp : kOutputLamps) {
                 lamp.name == name ? OutputLamp_Click(lamp.slot) : void();
             }
         }},
        {"close", [](Args&) { CloseIoCheck(); }},
        {"open", [](Args&) { OpenMotionWindow(&ScreenFunctions::frmIOCheckShow); }},
        {"open-another", [](Args&) { OpenMotionWindow(&ScreenFunctions::frmGrpShow); }},
        {"confirm-end", [](Args&) { ProgramEndFlag = kSet; }},
        {"give-up", [this](Args&) { AnswerByItself(platform); }},
        {"offline", [](Args&) { SetOfflineState(); }},
        {"during", [this](Args& a) { during(a); }},
        {"box", [this](Args& a) { platform.expectBox(BoxText(Rest(a))); }},
        {"fault", [this](Args& a) { addFault(Word(a)); }},
        {"mend", [this](Args&) { line.controller.clearFaults(); }},
        {"cable", [this](Args&) { platform.breakLine(); }},
        {"alarm",
         [this](Args&) {
             EnableTimer(Timer1);
             platform.arrive(0, "0%%006\r\n");
         }},
        {"inputs", [this](Args& a) { line.controller.setInputs(Hex(a), platform.now); }},
        {"outputs", [this](Args& a) { line.controller.setOutputs(Hex(a)); }},
        {"hold", [this](Args&) { held = std::make_unique<PollHeld>(); }},
        {"release", [this](Args&) { held.reset(); }},
        {"command", [this](Args&) { command = std::make_unique<CommandsAway>(); }},
        {"command-ends", [this](Args&) { command.reset(); }},
        {"at-rest", [this](Args&) { ExpectAtRest(platform); }},
    };
    const StoryValues values{
        {"sent", [this](Args&) { return frames(); }},
        {"in", [](Args&) { return lit(kInputLamps, IoInputState); }},
        {"out", [](Args&) { return lit(kOutputLamps, IoOutputState); }},
        {"says", [](Args&) { return IoStateText() == 0 ? "" : ResText(IoStateText()); }},
        {"button", [](Args&) { return IoMonitorEnabled() ? "on" : "off"; }},
        {"ticked",
         [](Args&) {
             return std::string(IsSet(chkIgnore) ? "yes" : "no") + (IgnoreEnabled() ? "" : ", off");
         }},
        {"commands", [](Args&) { return CommandsTaken() ? "away" : "there"; }},
        {"window", [this](Args&) { return IoCheckOpen() ? std::to_string(shown) : "gone"; }},
        {"program", [this](Args&) { return platform.ended ? "ended" : "runs"; }},
    };
};

TEST(IoMonitor, GoesAsTold) {
    TellStories<Story>(QDW8_SOURCE_DIR "/tests/motion/stories/io.txt", 20);
}

TEST(IoMonitor, AtEveryStepAFailureEndsItAndNothingFollows) {
    EveryStep<IoBench>(
        [](IoBench& bench) {
            chkIgnore_Click(true);
            cmdIoMonitor_Click();
            bench.platform.run(2 * kTick);
            OutputLamp_Click(2);
            bench.platform.run(kTick);
            IoStopRequest = IoMonitoring;
            bench.platform.run(kTick);
        },
        [](IoBench& bench, const Step& step) {
            EXPECT_EQ(IoMonitoring | IoStopRequest | IoStartRequest | IoLampsShown, kClear);
            const bool good = IoStateText() == 0;
            const bool stray = step.fault == "stray"; // fails the exchange behind it, if any
            EXPECT_TRUE(stray || good == step.fault.empty());
            EXPECT_NE(good || step.fault == "dumb", !step.boxes.empty());
            EXPECT_TRUE(good || IoStateText() == 3176);
            const std::string& last = bench.platform.sent.back();
            EXPECT_TRUE(good    ? last == "0CM00"
                        : stray ? last != "0CM00" || step.number == 12
                                : last == step.frame || last == "0CM0")
                << last;
        });
}

} // namespace
} // namespace qdw8::test
