#include "platform/fault.h"
#include "platform/platform.h"
#include "platform/qt/qt_platform.h"
#include "platform/timer.h"
#include "pump_until.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QVBoxLayout>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace qdw8 {
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
    PumpFor(30);
    EXPECT_EQ(calls, 0);
    QElapsedTimer clock;
    clock.start();
    SetInterval(timer, 25);
    EnableTimer(timer); // the interval begins anew
    EXPECT_TRUE(PumpUntil([&] { return calls == 3; }));
    EXPECT_GE(clock.elapsed(), 75);
    PumpFor(80);
    EXPECT_EQ(calls, 3);
}

TEST_F(QtTimers, ThePumpSleepsBetweenTheTicks) {
    timer.routine = [&] { ++calls; };
    SetInterval(timer, 30);
    EnableTimer(timer);
    int turns = 0;
    for (; calls < 10; ++turns) {
        PumpEvents();
    }
    EXPECT_LE(turns, 60) << "a turn for each tick, and a few that Qt needs";
}

TEST_F(QtTimers, ARoutineThatWaitsIsCalledAgainFromWithin) {
    int depth = 0;
    timer.routine = [&] {
        calls = std::max(calls, ++depth);
        while (calls < 2) {
            PumpEvents();
        }
        --depth;
    };
    SetInterval(timer, 1);
    EnableTimer(timer);
    EXPECT_TRUE(PumpUntil([&] { return calls == 2 && depth == 0; }));
}

class QtSettings : public ::testing::Test {
protected:
    QtSettings() {
        qputenv("XDG_CONFIG_HOME", folder.path().toUtf8());
        InstallQtSettings();
    }
    ~QtSettings() override {
        before.isNull() ? qunsetenv("XDG_CONFIG_HOME") : qputenv("XDG_CONFIG_HOME", before);
    }

    static std::string get(const std::string& key) {
        return ThePlatform().Settings.GetSetting("Settings", key, " -");
    }
    static void save(const std::string& key, const std::string& value) {
        ThePlatform().Settings.SaveSetting("Settings", key, value);
    }
    /// A start with this file there.
    void startWith(const QByteArray& text) const {
        QFile file(ini);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
        file.close();
        InstallQtSettings();
    }

    QByteArray before = qgetenv("XDG_CONFIG_HOME");
    QTemporaryDir folder;
    QString ini = folder.filePath("QD-W8/settings.ini");
};

TEST_F(QtSettings, EveryTextSurvivesTheNextStartInAFileThatAPersonCanRead) {
    EXPECT_EQ(ThePlatform().settingsFolder, folder.filePath("QD-W8").toStdString());
    EXPECT_EQ(get("PortNo"), " -");
    save("PortNo", "2");
    save("PortNo", "3");
    QFile file(ini);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "[Settings]\nPortNo=3\n") << "it has to be there at once";
    for (const char* text :
         {"", " 44 ", "a,b;c=d\"x\"", "@Day", "100%", "C:\\a", "位置", "a\r\n[b]"}) {
        save("Key", text);
        InstallQtSettings();
        EXPECT_EQ(get("Key"), text);
    }
}

TEST_F(QtSettings, AFileThatIsNoStoreNeverFailsAndAHugeOneIsSetAsideWhole) {
    const QByteArray huge = "[Settings]\nPortNo=4\nNote=" + QByteArray(70'000, 'x');
    const QByteArray files[] = {QByteArray(300, '\xFF'), QByteArray(300, '\0'),
                                "[Settings\nno sense\nPortNo=4\n", huge};
    for (const QByteArray& text : files) {
        startWith(text);
        EXPECT_EQ(get("Language"), " -");
        save("Language", "1");
        InstallQtSettings();
        EXPECT_EQ(get("Language"), "1") << text.left(20).toHex().toStdString();
        QFile::remove(ini);
    }
    ASSERT_EQ(::mkfifo(ini.toUtf8().constData(), 0600), 0);
    InstallQtSettings();
    EXPECT_EQ(get("PortNo"), " -");
    EXPECT_EQ(QFile(ini + ".aside").size(), huge.size());
    // A folder stands where the file should be: that stops the administrator, too.
    ASSERT_TRUE(QDir().mkpath(ini));
    InstallQtSettings();
    save("Language", "1");
    EXPECT_EQ(get("Language"), "1") << "for the run at least";
}

TEST(QtDesktop, TheClipboardHoldsTextOfAHugeOneTheFirstWholeRowsOrCells) {
    InstallQtDesktop();
    EXPECT_EQ(BesideProgram("x"), QCoreApplication::applicationDirPath().toStdString() + "/x");
    EXPECT_GE(ThePlatform().GetScreenSize().width, 320);
    Clipboard& clipboard = ThePlatform().TheClipboard;
    clipboard.SetText("1\t位置\r\n2\t");
    EXPECT_EQ(clipboard.GetText(), "1\t位置\r\n2\t");
    for (const char* end : {"\n", "\t"}) {
        clipboard.SetText(("1234567" + QString(end)).repeated(300'000).toStdString());
        const std::string taken = clipboard.GetText();
        EXPECT_LE(taken.size(), 1U << 20U);
        EXPECT_TRUE(taken.ends_with("1234567" + std::string(end)));
    }
    clipboard.Clear();
    EXPECT_EQ(clipboard.GetText(), "");
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
    QWidget grid(&window);
    grid.setFocusPolicy(Qt::StrongFocus);
    grid.setAttribute(Qt::WA_InputMethodEnabled);
    QLineEdit outside(&window);
    window.show();
    grid.setFocus();
    ASSERT_TRUE(PumpUntil([&] { return grid.hasFocus(); }));
    QLineEdit editor(&grid);
    editor.show();
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
} // namespace qdw8
