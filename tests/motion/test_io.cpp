// The I/O monitor: stories/io.txt, and every frame of a monitoring with every fault of the line.

#include "app/string_table.h"
#include "link/ct_commands.h"
#include "motion/io_check.h"
#include "motion/motion_story.h"
#include "motion/motion_window.h"
#include "support/every_step.h"

namespace qdw8::test {
namespace {

constexpr std::int64_t kTick = 300; // ms

/// The window just opened.
template<typename TheBench> struct Opened : TheBench {
    Opened() {
        Screens().frmIOCheckShow = [this] { IoCheckOpen() ? void(++shown) : LoadIoCheck(); };
        OpenMotionWindow(&ScreenFunctions::frmIOCheckShow);
    }
    int shown = 0; ///< how often it was brought to the front
};
using IoBench = Opened<LineBench>;

class Story : public Opened<MotionStory> {
public:
    Story() {
        add(
            {
                {"tick", [this](Args&) { platform.run(kTick); }},
                {"click", [](Args&) { cmdIoMonitor_Click(); }},
                {"ignore", [](Args&) { chkIgnore_Click(!IsSet(chkIgnore)); }},
                {"lamp",
                 [](Args& a) {
                     for (const std::string name = Word(a); const IoLamp& lamp : kOutputLamps) {
                         lamp.name == name ? OutputLamp_Click(lamp.slot) : void();
                     }
                 }},
                {"mode", [](Args& a) { SetCtMode(static_cast<std::int16_t>(Number(a))); }},
                {"close", [](Args&) { CloseIoCheck(); }},
                {"open", [](Args&) { OpenMotionWindow(&ScreenFunctions::frmIOCheckShow); }},
                {"open-another", [](Args&) { OpenMotionWindow(&ScreenFunctions::frmGrpShow); }},
            },
            {
                {"in", [](Args&) { return lit(kInputLamps, IoInputState); }},
                {"out", [](Args&) { return lit(kOutputLamps, IoOutputState); }},
                {"says", [](Args&) { return IoStateText() == 0 ? "" : ResText(IoStateText()); }},
                {"button", [](Args&) { return IoMonitorEnabled() ? "on" : "off"; }},
                {"ticked",
                 [](Args&) {
                     return std::string(IsSet(chkIgnore) ? "yes" : "no") +
                            (IgnoreEnabled() ? "" : ", off");
                 }},
                {"window",
                 [this](Args&) { return IoCheckOpen() ? std::to_string(shown) : "gone"; }},
            });
    }

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
