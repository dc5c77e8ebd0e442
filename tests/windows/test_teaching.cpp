// The teaching window against the simulated controller on the clock of the tests: every way in
// which a button that is held can be let go or lost, and the way of taught positions into the
// table.

#include "app/string_table.h"
#include "motion/motion_window.h"
#include "motion/teach_chart.h"
#include "position/grid_display.h"
#include "program/shutdown.h"
#include "support/simulated_line.h"
#include "window_fixture.h"
#include "windows/motion/frmJOG.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <algorithm>

namespace qdw8::test {
namespace {

class TeachingWindow : public WindowTest {
protected:
    TeachingWindow() {
        for (AxisDevice& device : DevSetting) {
            device.DevLead = 2;
            device.DevPPR = 400;
        }
        DispMmFlag = kSet;
        ClearPosiTable();
        GridFirst = 11;
        GridLast = 20;
        QdDataHyoji_3();
        SelectCells(4, 1, 4, 1);
        line.controller.setHomed(0xF);
        Screens().frmJOGShow = [this] {
            form = form ? std::move(form) : std::make_unique<frmJOG>();
        };
        Screens().frmJOG = [this] { form ? form->showState() : void(); };
        OpenMotionWindow(&ScreenFunctions::frmJOGShow);
        comeBack();
        press("cmdJOGST");
        platform.run(500);
    }
    void comeBack() {
        form->showNormal();
        form->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(form.get()));
    }
    QPushButton& button(const char* name) { return Get<QPushButton>(*form, name); }
    void press(const char* name) { QTest::mouseClick(&button(name), Qt::LeftButton); }
    std::string moves() {
        std::string text;
        for (const std::string& frame : std::exchange(platform.sent, {})) {
            text += frame.starts_with("0JR") || frame == "0SP" ? frame + " " : "";
        }
        return text;
    }

    SimulatedLine line{platform};
    std::unique_ptr<frmJOG> form;
};

/// What takes the hold away, and what is to be undone of it.
struct Loss {
    const char* name;
    std::function<void(QPushButton&)> comes;
    std::function<void(QPushButton&)> goes = {};
    bool closes = false; ///< the window would
    bool seen = false;   ///< and so the next press counts
};

TEST_F(TeachingWindow, EveryEndOfAHoldIsAStopAndOnlyOne) {
    const auto tell = [](QObject& to, QEvent&& event) { QApplication::sendEvent(&to, &event); };
    QMessageBox box(form.get());
    QWidget other;
    const std::array losses{
        Loss{"the focus goes elsewhere", [&](auto&) { button("cmdJOGend").setFocus(); }},
        Loss{"another window is worked in",
             [&](auto&) {
                 other.show();
                 other.activateWindow();
                 EXPECT_TRUE(QTest::qWaitForWindowActive(&other));
             }},
        Loss{"the window is hidden", [&](auto&) { form->hide(); }},
        Loss{"the window is minimised", [&](auto&) { form->showMinimized(); }},
        Loss{"the window is to close",
             [&](auto&) { QTest::keyClick(form.get(), Qt::Key_Escape); },
             {},
             true,
             true},
        Loss{"a box comes up", [&](auto&) { box.open(); }, [&](auto&) { box.hide(); }},
        Loss{"the button is switched off", [](auto& held) { held.setEnabled(false); },
             [](auto& held) { held.setEnabled(true); }},
        Loss{"the button is hidden", [](auto& held) { held.hide(); },
             [](auto& held) { held.show(); }},
        Loss{"the mouse is taken away",
             [&](auto& held) { tell(held, QEvent(QEvent::UngrabMouse)); }},
        Loss{"the screen is locked",
             [&](auto&) { tell(*qApp, QApplicationStateChangeEvent(Qt::ApplicationInactive)); }},
        Loss{"the program ends", [&](auto&) { tell(*qApp, QEvent(QEvent::Quit)); }, {}, true},
        Loss{"the mouse slips off, or Tab is pressed",
             [](auto& held) {
                 QTest::mouseMove(&held, {-1, 5});
                 QTest::keyClick(&held, Qt::Key_Tab);
             },
             {},
             false,
             true},
        Loss{"it is let go",
             [](auto& held) {
                 QTest::mouseRelease(&held, Qt::LeftButton);
                 QTest::keyRelease(&held, Qt::Key_Space);
             },
             {},
             false,
             true},
    };
    // The window would go, but for the question of the chart.
    TeachPosition({});
    QPushButton& held = button("cmdJOG(3)");
    std::string before;
    for (const Loss& loss : losses) {
        for (const bool mouse : {true, false}) {
            SCOPED_TRACE(std::string(mouse ? "mouse: " : "key: ") + loss.name);
            platform.run(400);
            EXPECT_EQ(moves(), before);
            before = "";
            held.setFocus();
            mouse ? QTest::mousePress(&held, Qt::LeftButton)
                  : QTest::keyPress(&held, Qt::Key_Space);
            platform.run(400);
            tell(held, QKeyEvent(QEvent::KeyRelease, Qt::Key_Space, {}, " ", true));
            tell(held, QKeyEvent(QEvent::KeyPress, Qt::Key_Space, {}, " ", true));
            platform.run(100);
            EXPECT_EQ(moves(), "0JR02002 ");
            if (loss.closes) {
                platform.expectBox(ResText(2224), BoxButtons::YesNoCancel, BoxAnswer::Cancel);
            }
            loss.comes(held);
            EXPECT_FALSE(held.isDown());
            platform.run(300);
            EXPECT_EQ(moves(), "0SP ");
            loss.goes ? loss.goes(held) : void();
            comeBack();
            held.setFocus();
            // The window system hands a key that still repeats itself over as one that goes down.
            mouse ? QTest::mouseMove(&held, {5, 5})
                  : tell(held, QKeyEvent(QEvent::KeyPress, Qt::Key_Space, {}, " "));
            EXPECT_EQ(held.isDown(), !mouse && loss.seen);
            QTest::mouseRelease(&held, Qt::LeftButton);
            QTest::keyRelease(&held, Qt::Key_Space);
            before = !mouse && loss.seen ? "0SP " : ""; // of a press that had no time to be sent
        }
    }
}

TEST_F(TeachingWindow, TaughtPositionsGoIntoTheRowsOfTheGridAndNothingElseChanges) {
    SetGridText(4, 1, "45"); // typed, and not checked yet
    SetGridBad(4, 4, true);
    EXPECT_TRUE(!frmMain_QueryUnload() && form->isVisible()) << "it is closed first";
    EXPECT_EQ(flgdData().locked, 1);
    const auto teach = [this](Qt::Key row, int pulses) {
        QTest::keyClick(&Get<QWidget>(*form, "UpDown1"), row);
        line.controller.place(0, pulses, platform.now);
        platform.run(400);
        press("cmdJOGWrite");
    };
    teach(Qt::Key_Shift, 1001);
    teach(Qt::Key_Up, 3);
    teach(Qt::Key_Up, 7);
    teach(Qt::Key_Shift, 15000);
    auto& chart = Get<QTableView>(*form, "flgdJOGPosi");
    EXPECT_EQ(chart.model()->index(3, 0).data(), "0.015");
    EXPECT_EQ(chart.currentIndex().row() + 11, 15) << "the row that is chosen";
    press("cmdJOGend");
    EXPECT_EQ(chart.model()->index(2, 0).data(), "5.005") << "kept for the question at the close";
    press("cmdJOGST");
    platform.run(500);
    AxisOff[1] = kSet;
    platform.expectBox(ResText(2224), BoxButtons::YesNoCancel, BoxAnswer::Yes);
    press("cmdJogExit");
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(flgdData().locked, 0);
    EXPECT_EQ(GridText(4, 1) + GridText(4, 4) + GridText(5, 4) + GridText(6, 4),
              "45  5.005  0.015 75.000");
    EXPECT_FALSE(flgdData().rows[4].bad.any());
    EXPECT_EQ(PosiUnitTable[15].pulse[0], 15000);
    EXPECT_EQ(PosiUnitTable[15].pulse[1], 0) << "out of use by now";
    EXPECT_EQ(PosiTable[14].number[3], 3);
    EXPECT_TRUE(IsSet(PosiDirtyFlag));
}

} // namespace
} // namespace qdw8::test
