#include "platform/fault.h"
#include "platform/platform.h"
#include "platform/qt/qt_platform.h"
#include "platform/timer.h"
#include "verbs.h"

#include <QElapsedTimer>
#include <QLineEdit>

namespace qdw8::test {
namespace {

class QtTimers : public ::testing::Test {
protected:
    QtTimers() { InstallQtTimers(); }
    ~QtTimers() override { DisableTimer(timer); }

    int calls = 0;
    Timer timer{"timer", 0, false, {}};
};

TEST_F(QtTimers, RunsAfterEachWholeIntervalUntilDisabledWhateverItThrows) {
    timer.routine = [&] {
        switch (++calls) {
        case 1: throw Fault("one");
        case 2: throw 2; // NOLINT: whatever it is, it must not reach Qt
        default: DisableTimer(timer);
        }
    };
    EnableTimer(timer); // no interval yet: it never fires
    QTest::qWait(30);
    EXPECT_EQ(calls, 0);
    QElapsedTimer clock;
    clock.start();
    SetInterval(timer, 25);
    EnableTimer(timer); // the interval begins anew
    EXPECT_TRUE(PumpUntil([&] { return calls == 3; }));
    EXPECT_GE(clock.elapsed(), 75);
    QTest::qWait(80);
    EXPECT_EQ(calls, 3);
}

TEST_F(QtTimers, ThePumpSleepsBetweenTheTicksAndServesOneThatWaits) {
    timer.routine = [&] { ++calls; };
    SetInterval(timer, 30);
    EnableTimer(timer);
    int turns = 0;
    for (; calls < 10; ++turns) {
        PumpEvents();
    }
    EXPECT_LE(turns, 60) << "a turn for each tick, and a few that Qt needs";
    int depth = 0;
    timer.routine = [&] {
        calls = ++depth;
        EXPECT_TRUE(PumpUntil([&] { return calls == 2; }));
    };
    EXPECT_TRUE(PumpUntil([&] { return calls == 2; }));
}

TEST(QtDesktopDeathTest, TheEndComesAtOnceAndClosesThePort) {
    ::testing::GTEST_FLAG(death_test_style) = "threadsafe";
    const auto end = [] {
        InstallQtPlatform();
        MSComm1().SetPortOpen = [](bool open) {
            std::fputs(open ? "" : "port closed", stderr);
            throw 1; // NOLINT: not even this may hold up the end
        };
        ThePlatform().EndProgram();
    };
    EXPECT_EXIT(end(), ::testing::ExitedWithCode(0), "port closed");
}

TEST(QtInputMethod, TheSwitchHoldsForTheControlAndTheEditorsInIt) {
    InstallQtInputMethod();
    ThePlatform().ImeSetOpenStatus(false); // nothing has the focus
    QWidget window;
    QLineEdit grid(&window);
    QLineEdit outside(&window);
    QLineEdit editor(&grid);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    for (const bool open : {false, true}) {
        grid.setFocus();
        ThePlatform().ImeSetOpenStatus(open);
        editor.setFocus();
        outside.setFocus();
        EXPECT_EQ(grid.testAttribute(Qt::WA_InputMethodEnabled), open);
        EXPECT_EQ(editor.testAttribute(Qt::WA_InputMethodEnabled), open);
        EXPECT_TRUE(outside.testAttribute(Qt::WA_InputMethodEnabled));
    }
}

} // namespace
} // namespace qdw8::test
