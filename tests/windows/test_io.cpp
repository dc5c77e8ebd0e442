// The I/O window: lamps, mouse and keys, against the simulated controller on the clock of the
// tests.

#include "motion/motion_window.h"
#include "support/simulated_line.h"
#include "window_fixture.h"
#include "windows/motion/frmIOCheck.h"
#include "windows/tables/frmGrp.h"

#include <QApplication>
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
    void press(Qt::Key key) {
        QTest::keyClick(QApplication::focusWidget(), key);
        EXPECT_FALSE(lit("imgOutputP1")) << "a press only asks";
    }
    bool lit(const char* lamp) { return Get<QWidget>(form, lamp).isVisible(); }

    SimulatedLine line{platform};
    frmIOCheck form;
};

TEST_F(IoWindow, KeysStartSwitchAndStop) {
    press(Qt::Key_Space);
    press(Qt::Key_Space);
    EXPECT_EQ(QApplication::focusWidget(), &form) << "no other control gets the locked one's keys";
    platform.run(600);
    QTest::simulateEvent(&form, true, Qt::Key_M, Qt::AltModifier, {}, true);
    EXPECT_FALSE(Get<QPushButton>(form, "cmdIoMonitor").isDown()) << "a key held down is one click";
    EXPECT_EQ(QApplication::focusWidget()->property("text"), "Stop &Monitor");
    EXPECT_TRUE(lit("imgOutputRdy") && !lit("imgInputStb"));
    EXPECT_EQ(Get<QWidget>(form, "imgInputStb").accessibleName(), "Inputs Stb: OFF");
    Get<QWidget>(form, "imgWhiteIcon(44)").setFocus();
    press(Qt::Key_Space);
    QTest::mouseClick(&Get<QWidget>(form, "imgOutputRdy"), Qt::LeftButton);
    QTest::mouseClick(&Get<QWidget>(form, "imgWhiteIcon(33)"), Qt::LeftButton, {}, {40, 10});
    platform.run(300);
    EXPECT_EQ(line.controller.machine().outputs, 0x108010U);
    EXPECT_TRUE(lit("imgOutputP1") && lit("imgOutputP800") && !lit("imgOutputRdy"));
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_TRUE(form.isVisible()) << "it stops first";
    platform.run(300);
    EXPECT_FALSE(form.isVisible());
}

TEST_F(IoWindow, KeepsTheLineForItself) {
    frmGrp groups;
    Screens().frmIOCheckShow = [] {};
    Screens().frmMainCommands = [&groups] { groups.showState(); };
    OpenMotionWindow(&ScreenFunctions::frmIOCheckShow);
    const auto& read = Get<QWidget>(groups, "cmdReadGrp");
    EXPECT_TRUE(!read.isEnabled() && Get<QWidget>(groups, "cmdGrpFileOpen").isEnabled());
    form.close();
    EXPECT_TRUE(read.isEnabled());
}

} // namespace
} // namespace qdw8::test
