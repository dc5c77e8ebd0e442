// Teaching against the simulated axes, by somebody who presses, lets go, turns away, closes and
// pulls plugs at random: no axis runs on unless the window says that its stop is not confirmed.

#include "app/Module1.h"
#include "app/command_states.h"
#include "app/main_panel.h"
#include "app/screens.h"
#include "app/transfer_dialog.h"
#include "device/device_reset.h"
#include "link/alarm.h"
#include "link/link_reset.h"
#include "motion/motion_reset.h"
#include "motion/motion_window.h"
#include "motion/teach_clicks.h"
#include "motion/teaching.h"
#include "support/every_step.h"

#include <array>
#include <cstdlib>
#include <random>
#include <utility>

namespace qdw8::test {
namespace {

/// The tests play so many, a run by hand as many as `QDW8_SEQUENCES` says.
constexpr std::uint32_t kSequences = 1000;
constexpr std::int64_t kSettles = 3000; ///< ms, far beyond any time limit but the homing's
constexpr std::int64_t kHomes = 30000;
constexpr std::int64_t kLook = 20;
constexpr std::int64_t kBrakes = 120;      ///< from the stop to the standstill
constexpr std::int64_t kLate = 200;        ///< from then on a stop counts as not confirmed
constexpr std::int64_t kLongestOut = 1100; ///< a whole time limit may stand before a stop

constexpr std::array kFaults{"deaf",  "silence",  "late=250", "late=1300", "part=2",   "echo=0ZZ",
                             "short", "previous", "stray",    "error=03",  "error=14", "hangup"};
constexpr std::array kFrames{"*", "0SP", "0JR", "0RA", "0RC", "0MV"};

/// The rooms below teaching as after a fresh start; the tables of the others are not touched.
void Reset() {
    ResetMotion();
    ResetModule1();
    ResetCommandStates();
    ResetMainPanel();
    ResetTransferDialog();
    ResetModule3Tusin();
    ResetDevices();
    LoadErrorList();
}

/// The window, its user and whoever stands at the machine.
class Play {
public:
    explicit Play(std::uint32_t number) : dice(number) {
        Reset();
        AnswerByItself(platform);
        ThePlatform().ShowMessageBox = [this, shown = ThePlatform().ShowMessageBox](const auto& q) {
            EXPECT_FALSE(jogs() && stopAt < runAt) << "a box in front of the stop: " << q.text;
            release(); // the button loses the mouse
            return shown(q);
        };
        Screens().frmJOGShow = LoadJog;
        Screens().frmJOG = [this] { look(); };
        platform.onOutput = [this, send = platform.onOutput](const std::string& text) {
            if (text.starts_with("0JR")) {
                EXPECT_TRUE(held) << "a run behind its release";
                runAt = ++frames;
            } else if (text.starts_with("0SP")) {
                stopAt = ++frames;
                sentAt = platform.now;
            } else if (text.starts_with("0M")) {
                moveAt = ++frames;
            }
            send(text);
        };
        line.controller.setTurnaround(15 * (1 + draw(3))); // the pace of a real line
        line.controller.setHomed(draw(8) == 0 ? 0 : 15);
        for (int axis = 0; axis < kAxes; ++axis) {
            EXPECT_TRUE(line.controller.place(axis, draw(4) == 0 ? 0 : draw(4800), 0));
        }
        watch();
        OpenMotionWindow(&ScreenFunctions::frmJOGShow);
        cmdJOGST_Click();
    }

    void go() {
        int at = 0;
        for (int steps = 3 + draw(20); steps > 0; --steps) {
            at += 1 + draw(draw(3) == 0 ? 700 : 120);
            platform.after(at, [this] { act(); });
        }
        platform.run(at);
        release();
        platform.run(kSettles);
        if (const Teaching state = TheTeachingForm().state;
            JogOpen() && (state == Teaching::Starting || state == Teaching::Homing)) {
            platform.run(kHomes);
        }
        EXPECT_TRUE(sign == StopSign::NotConfirmed || !moves()) << "an axis runs on, unnoticed";
    }

private:
    int draw(int below) { return static_cast<int>(dice() % static_cast<std::uint32_t>(below)); }

    bool moves() {
        bool any = false;
        for (int axis = 0; axis < kAxes; ++axis) {
            // Within the last pulse of its way it stands for whoever reads it.
            any = any || line.controller.position(axis, platform.now) !=
                             line.controller.position(axis, platform.now + kHomes);
        }
        return any;
    }

    /// An axis moves, and by a run of JOG.
    bool jogs() { return moves() && runAt > moveAt; }

    /// What must hold at any moment behind a release.
    void watch() {
        if (!held && JogOpen() && jogs()) {
            const std::int64_t since = platform.now - releasedAt;
            // After a failure the answer to the stop is all there is to go by.
            const bool brakes = TheTeachingForm().state != Teaching::Started && stopAt > runAt &&
                                platform.now - sentAt < kBrakes;
            EXPECT_TRUE(brakes || sign != StopSign::None) << "it moves, and nobody says so";
            EXPECT_TRUE(brakes || since <= kLate || sign == StopSign::NotConfirmed) << "told late";
            EXPECT_TRUE(since <= kLongestOut || stopAt > runAt) << "the stop hangs";
        }
        platform.after(kLook, [this] { watch(); });
    }

    /// As the window does: a button that is switched off is let go.
    void look() {
        if (JogOpen()) {
            sign = TheTeachingForm().stop;
        }
        if (held && (!JogOpen() || !TheTeachingForm().cmdJOG.at(button))) {
            release();
        }
    }
    void press() {
        button = static_cast<std::size_t>(draw(kJogButtons));
        if (!held && JogOpen() && TheTeachingForm().cmdJOG.at(button)) {
            held = true;
            JogPressed(static_cast<int>(button));
        }
    }
    void release() {
        if (std::exchange(held, false)) {
            releasedAt = sign == StopSign::Stopping ? releasedAt : platform.now;
            JogReleased();
        }
    }
    void spoil() {
        std::string problem;
        EXPECT_TRUE(line.controller.addFault(
            kFrames.at(static_cast<std::size_t>(draw(kFrames.size()))) + std::string(":") +
                (draw(4) == 0 ? "*" : std::to_string(1 + draw(3))) + ":" +
                kFaults.at(static_cast<std::size_t>(draw(kFaults.size()))),
            problem))
            << problem;
    }
    void act() {
        if (!JogOpen()) {
            return;
        }
        const int what = draw(100);
        if (what < 38) {
            press();
        } else if (what < 66) {
            release();
        } else if (what < 74) {
            optJOG_Click(draw(2) == 0 ? 0 : draw(4));
        } else if (what < 84) {
            spoil();
        } else if (what < 87) {
            line.controller.clearFaults();
        } else if (what < 90) {
            release();
            cmdJOGST_Click();
        } else if (what < 92) {
            release();
            cmdJOGend_Click();
        } else if (what < 94) {
            release();
            cmdJogExit_Click();
        } else if (what < 95) {
            ProgramEndFlag = kSet;
            release();
        } else if (what < 97) {
            line.controller.raiseAlarm({'0', '0', '6'}, platform.now, 500, draw(2) == 0);
        } else if (what < 98) {
            platform.breakLine();
        } else {
            line.controller.powered() ? line.controller.powerOff(platform.now)
                                      : line.controller.powerOn(platform.now);
        }
    }

    ScriptedPlatform platform;
    SimulatedLine line{platform};
    std::mt19937 dice;
    std::size_t button = 0;
    bool held = false;
    std::int64_t releasedAt = 0; ///< the first release whose stop is not confirmed
    int frames = 0;              ///< that move or stop
    int runAt = 0; ///< the number of the last 0JR, of any other that moves, of the last 0SP
    int moveAt = 0;
    int stopAt = 0;
    std::int64_t sentAt = 0;        ///< when the last 0SP went out
    StopSign sign = StopSign::None; ///< the last one that the window showed
};

TEST(RandomTeaching, NoAxisRunsOnUnnoticed) {
    const Bench tables; // once: to empty them takes longer than a sequence
    const char* const wanted = std::getenv("QDW8_SEQUENCES");
    const std::uint32_t sequences =
        wanted == nullptr ? kSequences : static_cast<std::uint32_t>(std::atoi(wanted));
    for (std::uint32_t number = 1; number <= sequences && !HasFailure(); ++number) {
        SCOPED_TRACE("sequence " + std::to_string(number));
        Play(number).go();
    }
}

} // namespace
} // namespace qdw8::test
