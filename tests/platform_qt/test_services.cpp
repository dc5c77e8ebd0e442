#include "platform/fault.h"
#include "platform/platform.h"
#include "platform/qt/qt_platform.h"
#include "platform/timer.h"
#include "pump.h"

#include <QClipboard>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QLineEdit>
#include <QMimeData>
#include <gtest/gtest.h>

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

/// A clipboard of another program, which hands its text over anew each time.
struct CountedText : QMimeData {
    CountedText(QString held, int& count) : text(std::move(held)), asked(count) {}
    bool hasFormat(const QString& format) const override { return format == "text/plain"; }
    QStringList formats() const override { return {"text/plain"}; }
    QVariant retrieveData(const QString& /*format*/, QMetaType /*type*/) const override {
        ++asked;
        return text;
    }
    QString text;
    int& asked;
};

TEST(QtClipboard, IsAskedOnceForEachTextAndCutWhereNoNumberBecomesAnother) {
    InstallQtDesktop();
    const Clipboard& clipboard = ThePlatform().TheClipboard;
    const QString cells = QString("1\n2\t").repeated(1 << 18);
    const QString one(2 << 20, '1');
    int asked = 0;
    for (const auto& [text, size] : {std::pair(QString("7"), 1),
                                     {"12\n" + cells, (1 << 20) - 3},
                                     {"12\n" + QString("1\t").repeated(1 << 19), (1 << 20) - 1},
                                     {one, 1 << 20},
                                     {"1\n" + one, 1 << 20}}) {
        asked = 0;
        QGuiApplication::clipboard()->setMimeData(new CountedText(text, asked));
        EXPECT_EQ(clipboard.GetText(), text.first(size).toStdString());
        EXPECT_EQ(clipboard.GetText().size(), size);
        EXPECT_EQ(asked, 1);
    }
    clipboard.SetText("8");
    EXPECT_EQ(clipboard.GetText(), "8");
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
