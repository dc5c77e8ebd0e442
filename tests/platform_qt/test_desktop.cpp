#include "platform/platform.h"
#include "platform/qt/qt_platform.h"
#include "pump_until.h"

#include <QCoreApplication>
#include <QLineEdit>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace qdw8 {
namespace {

TEST(QtDesktop, TheClipboardHoldsTextAndTheScreenHasASize) {
    InstallQtDesktop();
    Clipboard& clipboard = ThePlatform().TheClipboard;
    clipboard.SetText("1\t位置\r\n2\t");
    EXPECT_EQ(clipboard.GetText(), "1\t位置\r\n2\t");
    clipboard.Clear();
    EXPECT_EQ(clipboard.GetText(), "");
    EXPECT_GE(ThePlatform().GetScreenSize().width, 320);
    EXPECT_EQ(BesideProgram("x"), QCoreApplication::applicationDirPath().toStdString() + "/x");
}

TEST(QtDesktop, OfAHugeClipboardTheFirstWholeRowsOrCellsAreTaken) {
    InstallQtDesktop();
    for (const char* end : {"\n", "\t"}) {
        QString text;
        for (int i = 0; i < 300'000; ++i) {
            text += "1234567" + QString(end);
        }
        ThePlatform().TheClipboard.SetText(text.toStdString());
        const std::string taken = ThePlatform().TheClipboard.GetText();
        EXPECT_LE(taken.size(), 1U << 20U);
        EXPECT_TRUE(taken.ends_with("1234567" + std::string(end)));
    }
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
