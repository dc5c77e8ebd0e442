// The I/O window: lamps, mouse and keys, against the simulated controller on the clock of the
// tests.

#include "motion/io_check.h"
#include "support/simulated_line.h"
#include "window_fixture.h"
#include "windows/motion/frmIOCheck.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

namespace qdw8::test {
namespace {

class IoWindow : public WindowTest {
protected:
    IoWindow() {
        Screens().frmIOCheck = Screens().frmMainCommands = [this] { form.showState(); };
        form.show();
        form.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
    }
    void tick() { platform.run(600); }
    static void key(Qt::Key pressed) { QTest::keyClick(QApplication::focusWidget(), pressed); }
    static std::string focus() {
        const QWidget* at = QApplication::focusWidget();
        return at == nullptr ? "" : at->objectName().toStdString();
    }
    std::string outputs() {
        std::string names;
        for (const IoLamp& lamp : kOutputLamps) {
            const auto name = QString("imgOutput") + lamp.name;
            names += Get<QWidget>(form, name).isVisible() ? std::string(" ") + lamp.name : "";
        }
        return names;
    }

    SimulatedLine line{platform};
    frmIOCheck form;
};

TEST_F(IoWindow, KeysStartSwitchAndStop) {
    EXPECT_EQ(focus(), "cmdIoMonitor");
    key(Qt::Key_Space);
    key(Qt::Key_Space);
    EXPECT_EQ(focus(), "frmIOCheck") << "the button is locked, and no other gets its keys";
    tick();
    EXPECT_EQ(focus(), "cmdIoMonitor");
    EXPECT_EQ(outputs(), " Rdy Inp");
    EXPECT_EQ(Get<QWidget>(form, "imgInputStb").accessibleName(), "Inputs Stb: OFF");
    Get<QWidget>(form, "imgWhiteIcon(33)").setFocus();
    for (const bool repeated : {false, true, true}) { // held down
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Space, {}, " ", repeated);
        QApplication::sendEvent(QApplication::focusWidget(), &press);
    }
    QTest::keyRelease(QApplication::focusWidget(), Qt::Key_Space);
    EXPECT_EQ(outputs(), " Rdy Inp") << "a press only asks";
    tick();
    EXPECT_EQ(outputs(), " Rdy Inp P800");
    EXPECT_EQ(line.controller.machine().outputs, 0x308000U);
    QTest::mouseClick(&Get<QWidget>(form, "imgOutputP800"), Qt::LeftButton);
    QTest::mouseClick(&Get<QWidget>(form, "imgWhiteIcon(44)"), Qt::LeftButton, {}, {40, 10});
    tick();
    EXPECT_EQ(outputs(), " Rdy Inp P1");
    key(Qt::Key_Escape);
    EXPECT_TRUE(form.isVisible()) << "it stops first";
    tick();
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(platform.sent.back(), "0CM00");
}

} // namespace
} // namespace qdw8::test
