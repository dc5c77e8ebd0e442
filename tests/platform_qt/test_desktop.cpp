#include "platform/platform.h"
#include "platform/qt/qt_platform.h"
#include "pump_until.h"

#include <QCoreApplication>
#include <QLineEdit>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace qdw8 {
namespace {

TEST(QtDesktop, TheClipboardHoldsText) {
    InstallQtDesktop();
    Clipboard& clipboard = ThePlatform().TheClipboard;
    clipboard.SetText("1\t位置\r\n2\t");
    EXPECT_EQ(clipboard.GetText(), "1\t位置\r\n2\t");
    clipboard.Clear();
    EXPECT_EQ(clipboard.GetText(), "");
}

TEST(QtDesktop, KnowsScreenAndProgramFolder) {
    InstallQtDesktop();
    const ScreenSize screen = ThePlatform().GetScreenSize();
    EXPECT_GE(screen.width, 320);
    EXPECT_GE(screen.height, 200);
    EXPECT_EQ(BesideProgram("x"), QCoreApplication::applicationDirPath().toStdString() + "/x");
}

TEST(QtDesktopDeathTest, TheEndComesAtOnceAndClosesThePort) {
    ::testing::GTEST_FLAG(death_test_style) = "threadsafe";
    EXPECT_EXIT(
        {
            InstallQtPlatform();
            MSComm1().SetPortOpen = [](bool open) {
                if (!open) {
                    std::fputs("port closed", stderr);
                }
                throw 1; // NOLINT: not even this may hold up the end
            };
            ThePlatform().EndProgram();
        },
        ::testing::ExitedWithCode(0), "port closed");
}

TEST(QtInputMethod, TheSwitchHoldsForTheControlAndTheEditorsInIt) {
    InstallQtInputMethod();
    ThePlatform().ImeSetOpenStatus(false); // nothing has the focus

    QWidget window;
    QVBoxLayout layout(&window);
    QWidget grid;
    grid.setFocusPolicy(Qt::StrongFocus);
    grid.setAttribute(Qt::WA_InputMethodEnabled);
    QLineEdit outside;
    layout.addWidget(&grid);
    layout.addWidget(&outside);
    window.show();
    grid.setFocus();
    ASSERT_TRUE(PumpUntil([&] { return grid.hasFocus(); }));
    const auto enabled = [](QWidget& control) {
        return control.testAttribute(Qt::WA_InputMethodEnabled);
    };

    ThePlatform().ImeSetOpenStatus(false);
    EXPECT_FALSE(enabled(grid));
    QLineEdit editor(&grid);
    editor.show();
    editor.setFocus();
    EXPECT_FALSE(enabled(editor));
    outside.setFocus();
    EXPECT_TRUE(enabled(outside));

    grid.setFocus();
    ThePlatform().ImeSetOpenStatus(true);
    EXPECT_TRUE(enabled(grid));
    editor.setFocus();
    EXPECT_TRUE(enabled(editor));
}

} // namespace
} // namespace qdw8
