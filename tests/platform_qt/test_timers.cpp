#include "platform/fault.h"
#include "platform/platform.h"
#include "platform/qt/qt_platform.h"
#include "platform/timer.h"
#include "pump_until.h"

#include <QAbstractEventDispatcher>
#include <QElapsedTimer>

#include <gtest/gtest.h>

namespace qdw8 {
namespace {

class QtTimers : public ::testing::Test {
protected:
    QtTimers() { InstallQtTimers(); }
    ~QtTimers() override {
        DisableTimer(timer);
        DisableTimer(other);
    }

    Timer timer{"timer", 0, false, {}};
    Timer other{"other", 0, false, {}};
};

TEST_F(QtTimers, RunsAfterEachWholeIntervalUntilDisabled) {
    int calls = 0;
    timer.routine = [&] {
        if (++calls == 3) {
            DisableTimer(timer);
        }
    };
    QElapsedTimer clock;
    clock.start();
    SetInterval(timer, 25);
    EnableTimer(timer);
    EXPECT_TRUE(PumpUntil([&] { return calls == 3; }));
    EXPECT_GE(clock.elapsed(), 75);
    PumpFor(80);
    EXPECT_EQ(calls, 3);
}

TEST_F(QtTimers, IntervalZeroNeverFiresAndSettingOneStartsIt) {
    int calls = 0;
    timer.routine = [&] { ++calls; };
    EnableTimer(timer);
    PumpFor(50);
    EXPECT_EQ(calls, 0);
    SetInterval(timer, 5);
    EXPECT_TRUE(PumpUntil([&] { return calls > 0; }));
    SetInterval(timer, 0);
    calls = 0;
    PumpFor(50);
    EXPECT_EQ(calls, 0);
}

TEST_F(QtTimers, EnablingAgainStartsAWholeIntervalAnew) {
    // The timer is due far later than the one that keeps putting it off.
    int fired = 0;
    int putOff = 0;
    timer.routine = [&] { ++fired; };
    other.routine = [&] {
        EnableTimer(timer);
        ++putOff;
    };
    SetInterval(timer, 20000);
    EnableTimer(timer);
    SetInterval(other, 1);
    EnableTimer(other);
    EXPECT_TRUE(PumpUntil([&] { return putOff == 5; }));
    DisableTimer(other);
    QElapsedTimer clock;
    SetInterval(timer, 40);
    clock.start();
    EnableTimer(timer);
    EXPECT_EQ(fired, 0);
    EXPECT_TRUE(PumpUntil([&] { return fired == 1; }));
    EXPECT_GE(clock.elapsed(), 40);
}

TEST_F(QtTimers, ARoutineThatWaitsIsCalledAgainFromWithin) {
    int depth = 0;
    int deepest = 0;
    timer.routine = [&] {
        deepest = std::max(deepest, ++depth);
        while (deepest < 2) {
            PumpEvents();
        }
        --depth;
    };
    SetInterval(timer, 1);
    EnableTimer(timer);
    EXPECT_TRUE(PumpUntil([&] { return deepest == 2 && depth == 0; }));
}

TEST_F(QtTimers, AThrowingRoutineEndsThereAndIsCalledAgain) {
    int calls = 0;
    timer.routine = [&] {
        ++calls;
        if (calls == 1) {
            throw Fault("one");
        }
        if (calls == 2) {
            throw 2; // NOLINT: whatever it is, it must not reach Qt
        }
    };
    SetInterval(timer, 1);
    EnableTimer(timer);
    EXPECT_NO_THROW(EXPECT_TRUE(PumpUntil([&] { return calls >= 3; })));
}

TEST_F(QtTimers, ThePumpSleepsBetweenTheTicks) {
    int calls = 0;
    timer.routine = [&] { ++calls; };
    SetInterval(timer, 30);
    EnableTimer(timer);
    int turns = 0;
    while (calls < 10) {
        PumpEvents();
        ++turns;
    }
    // A turn for each tick and a few that other parts of Qt need; a spinning pump takes thousands.
    EXPECT_LE(turns, 60);
}

} // namespace
} // namespace qdw8
