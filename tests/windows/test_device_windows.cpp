#include "app/screens.h"
#include "app/string_table.h"
#include "device/Module2Calc.h"
#include "device/device_list.h"
#include "device/device_reset.h"
#include "link/link_reset.h"
#include "link/supervision.h"
#include "parameter/factory_lists.h"
#include "parameter/para_device.h"
#include "parameter/para_reset.h"
#include "setup/detail_edit.h"
#include "support/simulated_line.h"
#include "window_fixture.h"
#include "windows/device/frmDevice2.h"
#include "windows/device/frmDevice3.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimer>

namespace qdw8::test {
namespace {

/// AXIS 1 an old QD-44L of 100 mm, AXIS 2 a QD-J52L of 50 mm, AXIS 3 and 4 out of use.
class DeviceWindowTest : public WindowTest {
protected:
    DeviceWindowTest() {
        ThePlatform().programFolder = QDW8_DATA_DIR;
        ResetModule3Tusin();
        ResetSupervision();
        ResetParameters();
        ResetDetailEdit();
        FirstDeviceSetFlag = kSet;
        AxisOff = {kClear, kClear, kSet, kSet};
        DevSetting[0] = {" 44", "L", 100, kClear, kClear, kSet, kSet, 2, 400, 20000, 100};
        DevSetting[1] = {"J52", "L", 50, kSet, kClear, kSet, kSet, 2, 400, 10000, 50};
        DevSettei = DevSetting;
        DevSetting[2] = DevSetting[0];
    }

    static QComboBox& list(QWidget& window, const char* name, int axis) {
        return Get<QComboBox>(window, QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(axis));
    }
    static QCheckBox& box(QWidget& window, const char* name, int axis) {
        return Get<QCheckBox>(window, QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(axis));
    }
    static void click(QWidget& window, const QString& name) {
        QTest::mouseClick(&Get<QAbstractButton>(window, name), Qt::LeftButton);
    }
    /// As a user does it: by the keys, in the list.
    static void choose(QComboBox& chosen, const QString& row) {
        const int wanted = chosen.findText(row);
        ASSERT_GE(wanted, 0) << row.toStdString();
        chosen.setFocus();
        while (chosen.currentIndex() != wanted) {
            QTest::keyClick(&chosen, chosen.currentIndex() < wanted ? Qt::Key_Down : Qt::Key_Up);
        }
    }
    static QStringList rowsOf(const QComboBox& shown) {
        QStringList rows;
        for (int row = 0; row < shown.count(); ++row) {
            rows << shown.itemText(row);
        }
        return rows;
    }
};

TEST_F(DeviceWindowTest, ShowsTheAxesInBothLanguages) {
    for (const std::int16_t base : {std::int16_t{10000}, std::int16_t{0}}) {
        speak(base);
        frmDevice2 window;
        window.show();
        EXPECT_EQ(window.windowTitle().toStdString(), ResText(1401));
        EXPECT_EQ(box(window, "chkNewOrOld", 0).text().toStdString(), ResText(1417));
        EXPECT_EQ(Get<QPushButton>(window, "cmdDeviceSet").text().toStdString(), ResText(1403));
        EXPECT_EQ(box(window, "chkDevPgUse", 1).accessibleName().toStdString(),
                  ResText(1406) + " " + ResText(1413));
        EXPECT_EQ(list(window, "comboDeviceSpeed", 1).accessibleName().toStdString(),
                  ResText(1406) + " " + ResText(1411));
        EXPECT_EQ(list(window, "comboDeviceSize", 0).currentText(), " 44");
        EXPECT_EQ(list(window, "comboDeviceStroke", 0).currentText(), "100");
        EXPECT_TRUE(Get<QRadioButton>(window, "optQdSelect1(0)").isChecked());
        EXPECT_TRUE(Get<QWidget>(window, "PictureAxis2").isVisible());
        EXPECT_FALSE(Get<QWidget>(window, "PictureAxis3").isVisible());
        EXPECT_TRUE(box(window, "chkNewOrOld", 0).isChecked());
        EXPECT_FALSE(box(window, "chkDevPgUse", 1).isEnabled()) << "a J52 has none";
        EXPECT_EQ(window.findChild<QLabel*>("lblCaution(0)"), nullptr);
    }
}

TEST_F(DeviceWindowTest, TheCautionStandsOnlyBesideMillimetres) {
    frmDevice2 small;
    DispMmFlag = kSet;
    frmDevice2 large;
    EXPECT_EQ(Get<QLabel>(large, "lblCaution(1)").text().toStdString(), ResText(1505));
    EXPECT_GT(large.sizeHint().height(), small.sizeHint().height());
    EXPECT_LT(large.sizeHint().width(), small.sizeHint().width() + 20);
}

TEST_F(DeviceWindowTest, ListsAndBoxesFollowTheUser) {
    frmDevice2 window;
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    auto& size = list(window, "comboDeviceSize", 0);
    choose(size, " 61");
    EXPECT_EQ(rowsOf(list(window, "comboDeviceSpeed", 0)), (QStringList{"L", "H", "F"}));
    choose(list(window, "comboDeviceSpeed", 0), "F");
    EXPECT_TRUE(box(window, "chkDevPgUse", 0).isChecked());
    EXPECT_FALSE(box(window, "chkDevPgUse", 0).isEnabled());

    // A typed size counts when the box is left.
    size.lineEdit()->setFocus();
    size.lineEdit()->selectAll();
    QTest::keyClicks(size.lineEdit(), "5234");
    QTest::keyClick(size.lineEdit(), Qt::Key_Tab);
    EXPECT_EQ(size.currentText(), "523") << "three characters, and none like it in the list";
    EXPECT_EQ(list(window, "comboDeviceSpeed", 0).count(), 0);
    size.lineEdit()->setFocus();
    size.lineEdit()->selectAll();
    QTest::keyClicks(size.lineEdit(), "52");
    QTest::keyClick(size.lineEdit(), Qt::Key_Tab);
    EXPECT_EQ(size.currentText(), " 52");
    EXPECT_EQ(rowsOf(list(window, "comboDeviceSpeed", 0)), (QStringList{"L", "H"}));

    box(window, "chkNewOrOld", 0).click();
    EXPECT_TRUE(box(window, "chkDevVsiyou", 0).isEnabled());
    box(window, "chkAxisEnable", 2).click();
    EXPECT_TRUE(Get<QWidget>(window, "PictureAxis3").isVisible());
    EXPECT_EQ(list(window, "comboDeviceStroke", 2).currentText(), "100");
    const QSize whole = window.size();
    box(window, "chkAxisEnable", 0).click();
    EXPECT_FALSE(Get<QWidget>(window, "PictureAxis1").isVisible());
    EXPECT_EQ(window.size(), whole) << "nothing jumps";
    Get<QRadioButton>(window, "optQdSelect2(1)").click();
    EXPECT_EQ(FamilyText[1], "HN");
    EXPECT_TRUE(Get<QRadioButton>(window, "optQdSelect3(0)").isChecked());
}

TEST_F(DeviceWindowTest, OkStoresWhatWasTypedLast) {
    frmDevice2 window;
    window.show();
    auto& stroke = list(window, "comboDeviceStroke", 0);
    stroke.lineEdit()->setFocus();
    stroke.lineEdit()->selectAll();
    QTest::keyClicks(stroke.lineEdit(), "250");
    QTest::keyClick(&window, Qt::Key_Return);
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(DevSettei[0].DevStroke, 250);
    EXPECT_EQ(DeviceCancelled, kClear);
}

TEST_F(DeviceWindowTest, CancelInEveryWayAndAtStartUpInNone) {
    const std::vector<std::function<void(QWidget&)>> ways{
        [](QWidget& window) { click(window, "cmdDeviceCancel"); },
        [](QWidget& window) { QTest::keyClick(&window, Qt::Key_Escape); },
        [](QWidget& window) { window.close(); }};
    for (const auto& way : ways) {
        DeviceCancelled = kClear;
        frmDevice2 window;
        window.show();
        way(window);
        EXPECT_FALSE(window.isVisible());
        EXPECT_EQ(DeviceCancelled, kSet);
    }
    DeviceCancelled = kClear;
    StartDeviceSelectFlag = kSet;
    frmDevice2 window;
    window.show();
    EXPECT_FALSE(Get<QPushButton>(window, "cmdDeviceCancel").isVisible());
    EXPECT_FALSE(Get<QPushButton>(window, "cmdDeviceCancel").isEnabled());
    for (const auto& way : {ways[1], ways[2]}) {
        platform.expectBox("Finish QD-W8.", BoxButtons::OkCancel, BoxAnswer::Cancel);
        way(window);
        EXPECT_TRUE(window.isVisible());
    }
    EXPECT_EQ(DeviceCancelled, kClear);
    click(window, "cmdDeviceSet");
    EXPECT_FALSE(window.isVisible());
}

TEST_F(DeviceWindowTest, TheKeyWalksDownEachAxisAndThenToTheButtons) {
    frmDevice2 window;
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QStringList walked;
    box(window, "chkAxisEnable", 0).setFocus();
    QWidget* const first = window.focusWidget();
    do {
        const QWidget* at = window.focusWidget();
        walked << at->objectName();
        QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    } while (window.focusWidget() != first && walked.size() < 40);
    EXPECT_EQ(walked, (QStringList{"chkAxisEnable(0)", "optQdSelect1(0)", "comboDeviceSize(0)",
                                   "comboDeviceSpeed(0)", "comboDeviceStroke(0)", "chkDevPgUse(0)",
                                   "chkDevVsiyou(0)", "chkNewOrOld(0)", "chkAxisEnable(1)",
                                   "optQdSelect2(0)", "comboDeviceSize(1)", "comboDeviceSpeed(1)",
                                   "comboDeviceStroke(1)", "chkNewOrOld(1)", "chkAxisEnable(2)",
                                   "chkAxisEnable(3)", "cmdDeviceSet", "cmdDeviceCancel"}));
}

TEST_F(DeviceWindowTest, OnlineWindowWritesIntoTheController) {
    SimulatedLine line(platform);
    ThePlatform().programFolder = QDW8_DATA_DIR;
    line.controller.setAxisMask(0b0011);
    frmDevice3 window;
    window.show();
    EXPECT_FALSE(Get<QPushButton>(window, "cmdSyosai").isEnabled()) << "no parameter window yet";
    choose(list(window, "comboDeviceStroke", 0), "300");
    bool seen = false;
    platform.after(100, [&] {
        seen = true;
        for (const char* name : {"cmdPrmCtWrite", "cmdDeviceSet", "cmdDeviceCancel"}) {
            EXPECT_FALSE(Get<QPushButton>(window, name).isEnabled()) << name;
        }
        EXPECT_FALSE(list(window, "comboDeviceStroke", 0).isEnabled());
        window.close();
        EXPECT_TRUE(window.isVisible());
    });
    line.controller.setTurnaround(50);
    platform.expectBox("Completed writing parameters.");
    click(window, "cmdPrmCtWrite");
    EXPECT_TRUE(seen);
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(Get<QPushButton>(window, "cmdPrmCtWrite").isEnabled());
    EXPECT_EQ(DevSetting[0].DevStroke, 300);
    EXPECT_EQ(qdk8::StrokeEnd(line.controller.machine().lasting, 0), 60000);
    window.close();
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(DeviceCancelled, kClear);
}

TEST_F(DeviceWindowTest, OnlineWindowForgetsItsMaskWhenItCloses) {
    int details = 0;
    Screens().frmParameta2Show = [&details] { ++details; };
    QTimer::singleShot(0, qApp, [] {
        QWidget* window = QApplication::activeModalWidget();
        ASSERT_NE(window, nullptr);
        EXPECT_EQ(KeepAxisFlag, kSet);
        choose(list(*window, "comboDeviceStroke", 0), "50");
        click(*window, "cmdSyosai");
    });
    ShowDevice3(nullptr);
    EXPECT_EQ(KeepAxisFlag, kClear);
    EXPECT_EQ(DevSettei[0].DevStroke, 50);
    platform.run(2000);
    EXPECT_EQ(details, 1);
}

TEST_F(DeviceWindowTest, WithoutAListItOpensEmpty) {
    ThePlatform().programFolder = "/nowhere";
    AxisOff.fill(kSet);
    StartDeviceSelectFlag = kSet;
    platform.expectBox(
        "No device list file.\r\nPut device list file in the folder in which the program is saved "
        "in order to indicate device information correctly.");
    QTimer::singleShot(0, qApp, [] {
        QWidget* window = QApplication::activeModalWidget();
        ASSERT_NE(window, nullptr);
        box(*window, "chkAxisEnable", 0).click();
        EXPECT_EQ(list(*window, "comboDeviceSize", 0).count(), 0);
        box(*window, "chkAxisEnable", 0).click();
        click(*window, "cmdDeviceSet");
    });
    ShowDevice2(nullptr);
}

} // namespace
} // namespace qdw8::test
