#include "windows/main/frmMain.h"

#include "program/commands.h"
#include "window_fixture.h"

#include <QAbstractButton>
#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRegularExpression>
#include <QStatusBar>
#include <QTest>
#include <QToolBar>
#include <memory>
#include <vector>

namespace qdw8::test {
namespace {

using enum Command;

std::vector<Command> AllCommands() {
    std::vector<Command> all;
    for (std::size_t index = 0; index < kCommands; ++index) {
        all.push_back(static_cast<Command>(index));
    }
    return all;
}

QString Name(Command command) {
    return QString::fromStdString(std::string(NameOf(command)));
}

class MainWindowTest : public WindowTest {
protected:
    MainWindowTest() {
        for (const Command command : AllCommands()) {
            SetBuilt(command);
        }
    }

    /// Makes the window as the program does, bound to the units.
    frmMain& make() {
        window = std::make_unique<frmMain>(
            Commands(), MainWindowEvents{[this](Command command) { commands.push_back(command); },
                                         [this] {
                                             calls.emplace_back("query");
                                             return mayClose;
                                         },
                                         [this] { calls.emplace_back("unload"); },
                                         {}});
        Screens().frmMainPanel = [this] { window->showPanel(); };
        Screens().frmMainCommands = [this] { window->showCommands(); };
        Screens().flgdData = [this] { window->showGrid(); };
        window->loadResources();
        window->showSized(false);
        return *window;
    }

    void giveAllBack() {
        CMDBTN_Yuko();
        ToolBar_Yuko();
        Menyu_Yuko();
        CellPasteYuko();
    }

    /// The control of a command in the state that the user sees; menus count as their title.
    bool isEnabled(Command command) {
        if (const auto* button = window->findChild<QPushButton*>(Name(command))) {
            return button->isEnabled();
        }
        return Get<QAction>(*window, Name(command)).isEnabled();
    }

    void checkStates(const char* when) {
        for (const Command command : AllCommands()) {
            EXPECT_EQ(isEnabled(command), IsEnabled(command)) << NameOf(command) << " " << when;
        }
    }

    QString text(const char* label) { return Get<QLabel>(*window, label).text(); }

    bool isLit(const char* lamp) { return Get<QLabel>(*window, lamp).isVisible(); }

    std::unique_ptr<frmMain> window;
    std::vector<Command> commands;
    std::vector<std::string> calls;
    bool mayClose = true;
};

TEST_F(MainWindowTest, EveryControlHasItsTextInBothLanguages) {
    const QRegularExpression number(QStringLiteral("^[0-9]*$"));
    for (const std::int16_t base : {std::int16_t{10000}, std::int16_t{0}}) {
        speak(base);
        make();
        EXPECT_EQ(window->windowTitle(), "QD-W8");
        int entries = 0;
        for (const QMenu* menu : window->findChildren<QMenu*>(QRegularExpression("^mnu"))) {
            EXPECT_FALSE(number.match(menu->title()).hasMatch())
                << menu->objectName().toStdString();
            for (const QAction* entry : menu->actions()) {
                ++entries;
                EXPECT_TRUE(entry->isSeparator() || !number.match(entry->text()).hasMatch())
                    << entry->objectName().toStdString();
            }
        }
        EXPECT_GT(entries, 30);
        for (const QAction* action : Get<QToolBar>(*window, "tbToolBar").actions()) {
            EXPECT_EQ(action->toolTip().isEmpty(), action->isSeparator())
                << action->objectName().toStdString();
        }
        for (const QPushButton* button : window->findChildren<QPushButton*>()) {
            EXPECT_FALSE(number.match(button->text()).hasMatch())
                << button->objectName().toStdString();
            EXPECT_EQ(button->accessibleName(), button->text());
        }
        for (const QGroupBox* frame : window->findChildren<QGroupBox*>()) {
            EXPECT_FALSE(frame->title().isEmpty()) << frame->objectName().toStdString();
        }
        EXPECT_EQ(text("lblFileNameMoji"),
                  QString::fromUtf8(base == 0 ? "ファイル名" : "File Name"));
        EXPECT_EQ(Get<QPushButton>(*window, "cmdReset").text(),
                  QString::fromUtf8(base == 0 ? "リセット" : "Reset"));
    }
}

TEST_F(MainWindowTest, MenusInTheirOrder) {
    make();
    const std::vector<std::pair<const char*, std::vector<const char*>>> menus{
        {"mnuFile",
         {"New Data(&N)", "File Open(&O)", "Read from C/T(&R)", "-", "Save(&S)", "Save As...(&A)",
          "Write to C/T(&L)", "-", "Verify Position", "-", "Printer", "Print(&P)", "-",
          "Exit(&X)"}},
        {"mnuFileShogo", {"File", "C/T"}},
        {"mnuEdit",
         {"Insert Line", "Delete Line", "-", "Line Copy", "Line Paste", "-", "Cell Copy",
          "Cell Paste"}},
        {"mnuView",
         {"ToolBar(&T)", "StatusBar(&B)", "-", "Input/Output(&I )", "Move test(&M)", "Group(&G)",
          "SM(&S)", "Teaching(&J)", "-", "Option(&O)"}},
        {"mnuSettings",
         {"Online Device Setting", "Offline Device Setting", "Detail edit", "-", "Offline"}},
        {"mnuFunctionCt",
         {"Alarm Reset", "-", "Version Of C/T(&V)", "Check of AXIS Setting", "-",
          "External Start Mode"}},
        {"mnuHelp", {"Contents(&C)", "Version(&A)..."}},
    };
    for (const auto& [name, entries] : menus) {
        QStringList expected;
        for (const char* entry : entries) {
            expected << QString::fromUtf8(entry);
        }
        QStringList shown;
        for (const QAction* action : Get<QMenu>(*window, name).actions()) {
            shown << (action->isSeparator() ? QStringLiteral("-") : action->text());
        }
        EXPECT_EQ(shown, expected) << name;
    }
}

TEST_F(MainWindowTest, ToolBarButtonsAndSeparatorsByTheirPlaces) {
    make();
    const QList<QAction*> actions = Get<QToolBar>(*window, "tbToolBar").actions();
    ASSERT_EQ(actions.size(), 22);
    for (const int separator : {4, 6, 10, 15, 17, 19, 21}) {
        EXPECT_TRUE(actions[separator - 1]->isSeparator()) << separator;
    }
    const std::vector<std::tuple<int, const char*, const char*>> buttons{
        {1, "New", "All clear and New data"},
        {9, "Shogo", "Verify Position Data"},
        {13, "CellCopy", "Copy Position Data　by Cell"},
        {22, "SqMacro", "Edit Sequence Macro"},
    };
    for (const auto& [place, key, tip] : buttons) {
        EXPECT_EQ(actions[place - 1]->objectName(), key);
        EXPECT_EQ(actions[place - 1]->toolTip(), QString::fromUtf8(tip));
        EXPECT_FALSE(actions[place - 1]->icon().pixmap(24).isNull());
    }
}

TEST_F(MainWindowTest, ShowsTheCommandStates) {
    make();
    checkStates("at load");
    giveAllBack();
    checkStates("with everything given back");
    EXPECT_TRUE(isEnabled(cmdPosiRead));
    EXPECT_TRUE(isEnabled(tbCellPaste));
    EditCMD_Muko();
    checkStates("without a selection");
    EXPECT_FALSE(isEnabled(tbLineCopy));
    {
        const CommandsAway away;
        checkStates("in a batch");
        EXPECT_FALSE(isEnabled(mnuFileNew));
        EXPECT_FALSE(isEnabled(mnuView));
    }
    checkStates("after the batch");
}

TEST_F(MainWindowTest, ACommandThatNothingStandsBehindIsOff) {
    ResetCommandStates();
    RegisterCommands();
    make();
    giveAllBack();
    EXPECT_FALSE(isEnabled(cmdOpenIoWin));
    EXPECT_TRUE(isEnabled(mnuViewToolBar)); // the window's own
}

TEST_F(MainWindowTest, EveryControlHandsItsCommandOut) {
    make();
    giveAllBack();
    for (const Command command : AllCommands()) {
        if (command == mnuViewToolBar || command == mnuViewStatusBar) {
            continue;
        }
        commands.clear();
        if (auto* button = window->findChild<QAbstractButton*>(Name(command))) {
            QTest::mouseClick(button, Qt::LeftButton);
        } else {
            auto& action = Get<QAction>(*window, Name(command));
            if (action.menu() != nullptr) {
                continue; // opens its menu
            }
            action.trigger();
        }
        EXPECT_EQ(commands, std::vector{command}) << NameOf(command);
    }
}

TEST_F(MainWindowTest, ACommandThatIsOffDoesNothing) {
    make();
    giveAllBack();
    auto& read = Get<QPushButton>(*window, "cmdPosiRead");
    CMDBTN_Muko();
    QTest::mouseClick(&read, Qt::LeftButton);
    EXPECT_TRUE(commands.empty());
    // A click that comes in before the window has looked at the states again.
    CMDBTN_Yuko();
    Screens().frmMainCommands = {};
    CMDBTN_Muko();
    EXPECT_TRUE(read.isEnabled());
    QTest::mouseClick(&read, Qt::LeftButton);
    EXPECT_TRUE(commands.empty());
}

TEST_F(MainWindowTest, ToolBarAndStatusBarComeAndGo) {
    make();
    giveAllBack();
    const std::vector<std::pair<const char*, QWidget*>> bars{
        {"mnuViewToolBar", &Get<QToolBar>(*window, "tbToolBar")},
        {"mnuViewStatusBar", &Get<QStatusBar>(*window, "sbStatusBar")}};
    for (const auto& [entry, bar] : bars) {
        auto& action = Get<QAction>(*window, entry);
        EXPECT_TRUE(action.isChecked());
        action.trigger();
        EXPECT_FALSE(bar->isVisible()) << entry;
        action.trigger();
        EXPECT_TRUE(bar->isVisible()) << entry;
    }
    EXPECT_TRUE(commands.empty());
}

TEST_F(MainWindowTest, ShowsThePanel) {
    make();
    const std::vector<std::tuple<bool MainPanel::*, const char*, const char*, QString>> lamps{
        {&MainPanel::imgPortGreen, "imgPortGreen", "imgPortLed", "RS-232C"},
        {&MainPanel::imgGreenLedOnline, "imgGreenLedOnline", "imgWhiteOnline", "ONLINE"},
        {&MainPanel::imgHomeGreen, "imgHomeGreen", "imgHomeWhite", "Home"},
        {&MainPanel::imgAlarmLed, "imgAlarmLed", "imgAlarmWhite", "ALARM"}};
    for (const auto& [field, coloured, white, caption] : lamps) {
        EXPECT_FALSE(isLit(coloured)) << coloured;
        EXPECT_TRUE(isLit(white));
        const bool isLine = field == &MainPanel::imgGreenLedOnline;
        EXPECT_EQ(Get<QLabel>(*window, white).accessibleName(),
                  caption + (isLine ? ": Offline" : ": OFF"));
        SetPanel(field, true);
        EXPECT_TRUE(isLit(coloured)) << coloured;
        EXPECT_EQ(Get<QLabel>(*window, coloured).accessibleName(),
                  caption + (isLine ? ": Online" : ": ON"));
        EXPECT_EQ(Get<QLabel>(*window, white).geometry(),
                  Get<QLabel>(*window, coloured).geometry());
    }
    EXPECT_EQ(text("sbStatusBar(1)"), "Online");
    SetPanel(&MainPanel::imgGreenLedOnline, false);
    EXPECT_FALSE(isLit("imgGreenLedOnline"));
    EXPECT_EQ(text("sbStatusBar(1)"), "Offline");

    SetPanel(&MainPanel::lblAlarmNo, "14");
    SetPanel(&MainPanel::lblErrorComment, "No Error");
    SetPanel(&MainPanel::lblFileName, "Inside of C/T");
    SetPanelText(&MainPanel::lblDeviceType, 3, "QD- 44L-100E_");
    SetPanelScale("<1>1mm = 200Pulse", "<1>1Pulse= 0.005mm");
    EXPECT_EQ(text("lblAlarmNo"), "14");
    EXPECT_EQ(text("lblErrorComment"), "No Error");
    EXPECT_EQ(text("lblFileName"), "Inside of C/T");
    EXPECT_EQ(Get<QLabel>(*window, "lblFileName").accessibleName(), "File Name Inside of C/T");
    EXPECT_EQ(text("lblDeviceType(0)"), "");
    EXPECT_EQ(text("lblDeviceType(3)"), "QD- 44L-100E_");
    EXPECT_EQ(text("sbStatusBar(2)"), "<1>1mm = 200Pulse");
    EXPECT_EQ(text("sbStatusBar(3)"), "<1>1Pulse= 0.005mm");
}

TEST_F(MainWindowTest, LampsDifferInShapeAsWellAsInColour) {
    make();
    const auto grey = [this](const char* lamp) {
        return Get<QLabel>(*window, lamp)
            .grab()
            .toImage()
            .convertToFormat(QImage::Format_Grayscale8);
    };
    SetPanel(&MainPanel::imgPortGreen, true);
    SetPanel(&MainPanel::imgAlarmLed, true);
    // What a user who doesn't see colours has to go by: clearly different pictures in grey.
    const auto differing = [](const QImage& one, const QImage& other) {
        int pixels = 0;
        for (int y = 0; y < one.height(); ++y) {
            for (int x = 0; x < one.width(); ++x) {
                const int step = qGray(one.pixel(x, y)) - qGray(other.pixel(x, y));
                pixels += std::abs(step) > 64 ? 1 : 0;
            }
        }
        return pixels;
    };
    EXPECT_GT(differing(grey("imgPortGreen"), grey("imgPortLed")), 50);
    EXPECT_GT(differing(grey("imgPortGreen"), grey("imgAlarmLed")), 15);
}

TEST_F(MainWindowTest, ClosingAsksFirst) {
    make();
    mayClose = false;
    EXPECT_FALSE(window->close());
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(calls, std::vector<std::string>{"query"});
    mayClose = true;
    EXPECT_TRUE(window->close());
    EXPECT_EQ(calls, (std::vector<std::string>{"query", "query", "unload"}));
}

TEST_F(MainWindowTest, TabGoesThroughTheButtonsAndOnToTheGrid) {
    make();
    giveAllBack();
    QStringList order;
    QWidget* at = &Get<QPushButton>(*window, "cmdPosiFileOpen");
    for (int steps = 0; steps < 200 && at->objectName() != "flgdData"; ++steps) {
        if ((at->focusPolicy() & Qt::TabFocus) != 0 && at->isEnabled()) {
            order << at->objectName();
        }
        at = at->nextInFocusChain();
    }
    EXPECT_EQ(order,
              QStringList({"cmdPosiFileOpen", "cmdPosiSaveFile", "cmdPosiVerify", "cmdPosiRead",
                           "cmdPosiLoad", "cmdJogTeach", "cmdInsertLine", "cmdDeleteLine",
                           "cmdOpenIoWin", "cmdOpenMoveWin", "cmdParaHyoji", "cmdOpenGrpWindow",
                           "cmdSqMcrWinOpen", "cmdChangeDev", "cmdReset"}));
}

} // namespace
} // namespace qdw8::test
