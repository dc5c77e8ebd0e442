// The window of qd-k8-sim: what it switches in the machine, and how it shows it.

#include "motion/io_lamps.h"
#include "simulator/motion.h"
#include "windows/simulator/lamp.h"
#include "windows/simulator/texts.h"
#include "windows/simulator/trouble_panel.h"
#include "windows/simulator/window.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

namespace qdk8 {
namespace {

class SimulatorWindow : public testing::Test {
protected:
    SimulatorWindow() {
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    ~SimulatorWindow() override { ChooseLanguage(Language::English); }

    template<typename T = QAbstractButton> T& get(const QString& name) {
        return *window.findChild<T*>(name);
    }
    const Machine& machine() { return front.controller.machine(); }
    QString text(const QString& name) { return get<QLabel>(name).text(); }
    void look() { window.lookAgain(); }

    Front front;
    Window window{front};
};

/// The bit that the program takes for that lamp.
std::uint32_t BitOf(const qdw8::IoLamp& lamp) {
    qdw8::IoSlots bits{};
    bits[lamp.slot] = qdw8::kSet;
    return static_cast<std::uint32_t>(std::stoul(qdw8::DigitsOf(bits), nullptr, 16));
}

TEST_F(SimulatorWindow, KnowsTheSignalsByTheNamesOfTheProgram) {
    for (const qdw8::IoLamp& lamp : qdw8::kInputLamps) {
        get(QString("input") + lamp.name).click();
        EXPECT_EQ(machine().inputs, BitOf(lamp)) << lamp.name;
        get(QString("input") + lamp.name).click();
    }
    EXPECT_EQ(machine().inputs, 0U);
    for (const qdw8::IoLamp& lamp : qdw8::kOutputLamps) {
        front.controller.setOutputs(BitOf(lamp));
        look();
        EXPECT_TRUE(get<Lamp>(QString("output") + lamp.name).lit()) << lamp.name;
    }
}

TEST_F(SimulatorWindow, FollowsTheAxes) {
    EXPECT_EQ(text("place2"), "0 pulses, 0.000 mm of 100 mm");
    front.controller.receive("0MM000F\r\n", Milliseconds());
    look();
    EXPECT_EQ(text("state1") + '/' + text("state2"), "not homed, moving/not homed, at rest");
    get("power").click();
    EXPECT_EQ(text("state1") + text("place1"), "power is off");
    get("power").click();
    front.controller.setHomed(2);
    front.controller.place(1, 201, Milliseconds());
    front.controller.setAxisMask(3);
    look();
    EXPECT_EQ(text("state2") + text("place2"), "homed, at rest201 pulses, 1.005 mm of 100 mm");
    EXPECT_EQ(text("state3") + text("place3"), "not in use");
}

TEST_F(SimulatorWindow, FollowsTheSlidesBeyondWhatIsCounted) {
    const auto slide = [this](std::size_t axis) { return LookAt(front).axes.at(axis).slide; };
    EXPECT_EQ(slide(1), 10000) << "half-way, before anybody knows";
    front.controller.setHomed(1);
    EXPECT_EQ(slide(0), 0);
    front.controller.place(1, 201, Milliseconds());
    get("power").click();
    get("power").click();
    EXPECT_EQ(slide(1), 201) << "it stands where it stood";
    EXPECT_EQ(LookAt(front).axes[1].position, 0);
    front.controller.receive("0MM0002\r\n", Milliseconds());
    const Millis later = Milliseconds() + 60000;
    front.controller.settle(later);
    EXPECT_EQ(SlidePosition(machine(), 1, later), 0);
}

TEST_F(SimulatorWindow, RaisesAndClearsEveryAlarmItOffers) {
    auto& alarms = get<QComboBox>("alarm");
    for (int i = 0; i < alarms.count(); ++i) {
        alarms.setCurrentIndex(i);
        get("raise").click();
        EXPECT_TRUE(get<Lamp>("alarmLamp").text().startsWith(alarms.currentText()));
        EXPECT_TRUE(machine().alarm);
        get("clear").click();
    }
    EXPECT_FALSE(machine().alarm || get<Lamp>("alarmLamp").lit());
    get("homingFails").click();
    EXPECT_TRUE(machine().homeSensorFails);
}

TEST_F(SimulatorWindow, SwitchesEveryFaultThatItOffers) {
    auto& faults = get<QComboBox>("fault");
    auto& requests = get<QComboBox>("request");
    auto& list = get<QListWidget>("faults");
    QTest::keyClick(&window, Qt::Key_A, Qt::AltModifier);
    for (int i = 0; i < faults.count() * requests.count(); ++i) {
        faults.setCurrentIndex(i % faults.count());
        requests.setCurrentIndex(i / faults.count());
        get(i % 2 == 0 ? "once" : "always").click();
        ASSERT_EQ(front.controller.faults().size(), 1U);
        EXPECT_EQ(list.item(0)->text(), requests.currentText() + ": " + faults.currentText() +
                                            (i % 2 == 0 ? ", once" : ", from now on"));
        list.setFocus();
        QTest::keyClick(&list, Qt::Key_Delete);
    }
    get("always").click();
    get("removeAll").click();
    EXPECT_TRUE(front.controller.faults().empty());
}

TEST_F(SimulatorWindow, SpeaksBothLanguages) {
    get<QComboBox>("language").setCurrentIndex(1);
    EXPECT_EQ(window.windowTitle(), "QD-K8シミュレータ");
    for (const QWidget* control : window.findChildren<QWidget*>()) {
        for (const char* key : {"text-key", "tip-key", "name-key"}) {
            const QString text = control->property(key).toString();
            EXPECT_TRUE(text.isEmpty() || (HasText(text) && !Text(text).isEmpty())) << key;
        }
    }
    EXPECT_EQ(get<QListWidget>("faults").item(0)->text(), Text("no-faults"));
    EXPECT_EQ(text("state4"), Text("not-homed") + ", " + Text("stands"));
}

TEST_F(SimulatorWindow, AsksBeforeItTakesTheControllerAwayFromAProgram) {
    front.controller.receive("0RH\r\n", Milliseconds());
    look();
    const auto answer = [](const char* key) {
        for (QAbstractButton* button :
             QApplication::activeModalWidget()->findChildren<QAbstractButton*>()) {
            if (button->text() == Text(key)) {
                button->click();
            }
        }
    };
    QTimer::singleShot(0, [&] { answer("keep"); });
    EXPECT_FALSE(window.close());
    QTimer::singleShot(0, [&] { answer("end"); });
    EXPECT_TRUE(window.close());
    window.show();
    QTimer::singleShot(0, [&] { window.leave(); });
    EXPECT_TRUE(window.close()) << "behind the end of the service nobody is asked";
}

} // namespace
} // namespace qdk8
