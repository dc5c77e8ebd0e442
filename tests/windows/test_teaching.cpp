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
#include "windows/motion/held_button.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <tuple>

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

TEST_F(TeachingWindow, EveryEndOfAHoldIsAStopAndOnlyOne) {
    QPushButton& held = button("cmdJOG(3)");
    QMessageBox box(form.get());
    QWidget other;
    const auto tell = [](QObject& to, QEvent&& event) { QApplication::sendEvent(&to, &event); };
    quint64 now = 0; // in the time of the events
    const auto space = [&](QEvent::Type type, bool repeats) {
        QKeyEvent event(type, Qt::Key_Space, {}, " ", repeats);
        event.setTimestamp(now);
        tell(held, std::move(event));
    };
    const auto press = [&](bool repeats) { now += 50, space(QEvent::KeyPress, repeats); };
    // A repeat that isn't told as one.
    const auto pair = [&](int late) {
        now += 50, space(QEvent::KeyRelease, false);
        platform.run(late);
        space(QEvent::KeyPress, false);
    };
    const auto slip = [&] {
        QTest::mouseMove(&held, {-1, 5}), QTest::keyClick(&held, Qt::Key_Tab);
    };
    const auto letGo = [&] {
        QTest::mouseRelease(&held, Qt::LeftButton);
        now += 50, space(QEvent::KeyRelease, false);
        platform.run(HeldButton::kUpDelay);
    };
    // The window would go, but for the question of the chart.
    TeachPosition({});
    const auto asks = [&] {
        platform.expectBox(ResText(2224), BoxButtons::YesNoCancel, BoxAnswer::Cancel);
    };
    struct Loss {
        const char* name;
        std::function<void()> comes;
        bool seen = false; ///< and so the next press counts
    };
    const std::array losses{
        Loss{"the focus goes elsewhere", [&] { button("cmdJOGend").setFocus(); }},
        Loss{"another window is worked in",
             [&] {
                 other.show(), other.activateWindow(),
                     std::ignore = QTest::qWaitForWindowActive(&other);
             }},
        Loss{"the window is hidden", [&] { form->hide(); }},
        Loss{"the window is minimised", [&] { form->showMinimized(); }},
        Loss{"Escape", [&] { asks(), QTest::keyClick(form.get(), Qt::Key_Escape); }, true},
        Loss{"the program ends", [&] { asks(), tell(*qApp, QEvent(QEvent::Quit)); }},
        Loss{"a box comes up", [&] { box.open(); }},
        Loss{"the button is switched off", [&] { held.setEnabled(false); }},
        Loss{"the button is hidden", [&] { held.hide(); }},
        Loss{"the mouse is taken away", [&] { tell(held, QEvent(QEvent::UngrabMouse)); }},
        Loss{"the screen is locked",
             [&] { tell(*qApp, QApplicationStateChangeEvent(Qt::ApplicationInactive)); }},
        Loss{"the mouse slips off, or Tab is pressed", slip, true},
        Loss{"it is let go", letGo, true},
        Loss{"a repeat comes late",
             [&] { QTest::mouseRelease(&held, Qt::LeftButton), pair(HeldButton::kUpDelay); }},
    };
    std::string before;
    for (const Loss& loss : losses) {
        for (const bool mouse : {true, false}) {
            SCOPED_TRACE(std::string(mouse ? "mouse: " : "key: ") + loss.name);
            platform.run(400);
            EXPECT_EQ(moves(), before);
            held.setFocus();
            mouse ? QTest::mousePress(&held, Qt::LeftButton) : press(false);
            platform.run(400);
            space(QEvent::KeyRelease, true);
            press(true);
            pair(HeldButton::kUpDelay - 1);
            EXPECT_TRUE(held.isDown());
            platform.run(100);
            EXPECT_EQ(moves(), "0JR02002 ");
            loss.comes();
            EXPECT_FALSE(held.isDown());
            platform.run(300);
            EXPECT_EQ(moves(), "0SP ");
            box.hide(), other.hide(), held.show(), held.setEnabled(true);
            comeBack();
            held.setFocus();
            // The window system hands a key that still repeats itself over as one that goes down.
            mouse ? QTest::mouseMove(&held, {5, 5}) : press(false);
            EXPECT_EQ(held.isDown(), !mouse && loss.seen);
            pair(0);
            EXPECT_EQ(held.isDown(), !mouse && loss.seen);
            pair(HeldButton::kUpDelay);
            EXPECT_FALSE(held.isDown());
            letGo();
            before = !mouse && loss.seen ? "0JR02002 0SP " : "";
        }
    }
    // A tool that types may give no times.
    now = 0;
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease, QEvent::KeyPress}) {
        platform.run(400);
        space(type, false);
    }
    EXPECT_TRUE(held.isDown());
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
    platform.expectBox(ResText(3234));
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
