#include "parameter/factory_lists.h"
#include "parameter/para_device.h"
#include "setup/detail_edit.h"
#include "support/boxes.h"
#include "support/simulated_line.h"
#include "window_fixture.h"
#include "windows/device/device_panels.h"
#include "windows/device/frmDevice2.h"
#include "windows/device/frmDevice3.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimer>
#include <functional>

namespace qdw8::test {
namespace {

/// AXIS 1 an old QD-44L of 100 mm, AXIS 2 a QD-J52L of 50 mm, AXIS 3 and 4 out of use.
class DeviceWindows : public WindowTest {
protected:
    DeviceWindows() {
        ThePlatform().programFolder = QDW8_DATA_DIR;
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
    static QCheckBox& tick(QWidget& window, const char* name, int axis) {
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
    static void typeInto(QComboBox& typed, const char* text, Qt::Key leave = Qt::Key_unknown) {
        typed.lineEdit()->setFocus();
        typed.lineEdit()->selectAll();
        QTest::keyClicks(typed.lineEdit(), text);
        if (leave != Qt::Key_unknown) {
            QTest::keyClick(typed.lineEdit(), leave);
        }
    }
    static QString rowsOf(const QComboBox& shown) {
        QStringList rows;
        for (int row = 0; row < shown.count(); ++row) {
            rows << shown.itemText(row);
        }
        return rows.join(QLatin1Char(' '));
    }
};

TEST_F(DeviceWindows, ListsAndBoxesFollowTheUser) {
    frmDevice2 window;
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    auto& size = list(window, "comboDeviceSize", 0);
    choose(size, " 61");
    EXPECT_EQ(rowsOf(list(window, "comboDeviceSpeed", 0)), "L H F");
    choose(list(window, "comboDeviceSpeed", 0), "F");
    EXPECT_TRUE(tick(window, "chkDevPgUse", 0).isChecked());
    EXPECT_FALSE(tick(window, "chkDevPgUse", 0).isEnabled());
    // A typed size counts when the box is left.
    typeInto(size, "5234", Qt::Key_Tab);
    EXPECT_EQ(size.currentText(), "523") << "three characters, and none like it in the list";
    EXPECT_EQ(list(window, "comboDeviceSpeed", 0).count(), 0);
    typeInto(size, "52", Qt::Key_Tab);
    EXPECT_EQ(size.currentText(), " 52");
    tick(window, "chkNewOrOld", 0).click();
    EXPECT_TRUE(tick(window, "chkDevVsiyou", 0).isEnabled());
    tick(window, "chkAxisEnable", 2).click();
    EXPECT_EQ(list(window, "comboDeviceStroke", 2).currentText(), "100");
    const QSize whole = window.size();
    tick(window, "chkAxisEnable", 0).click();
    EXPECT_FALSE(Get<QWidget>(window, "PictureAxis1").isVisible());
    EXPECT_EQ(window.size(), whole) << "nothing jumps";
    Get<QRadioButton>(window, "optQdSelect2(1)").click();
    EXPECT_EQ(FamilyText[1] + FamilyText[0], "HNQD");
    typeInto(list(window, "comboDeviceStroke", 1), "250");
    platform.expectBox("A setting of AXIS is changed.\r\nIs a setting of AXIS changed?",
                       BoxButtons::YesNo, BoxAnswer::No);
    QTest::keyClick(&window, Qt::Key_Return);
    EXPECT_EQ(DevSettei[1].DevStroke, 250) << "what was typed last";
}

TEST_F(DeviceWindows, AListThatHasTheFocusWhenTheWindowGoesChangesNothing) {
    DeviceForm form;
    OpenDevice2(form);
    {
        DevicePanels panels(form, nullptr);
        panels.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&panels));
        typeInto(list(panels, "comboDeviceSize", 0), "52");
    }
    EXPECT_EQ(form.axes[0].comboDeviceSize.text, " 44");
}

TEST_F(DeviceWindows, CancelInEveryWay) {
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
}

TEST_F(DeviceWindows, AtTheStartTheTitleBarAsksForTheEnd) {
    StartDeviceSelectFlag = kSet;
    frmDevice2 window;
    window.show();
    for (const BoxAnswer answer : {BoxAnswer::Cancel, BoxAnswer::Ok}) {
        platform.expectBox("Finish QD-W8.", BoxButtons::OkCancel, answer);
        window.close();
        EXPECT_EQ(window.isVisible(), answer == BoxAnswer::Cancel);
        EXPECT_EQ(IsSet(ProgramEndFlag), answer == BoxAnswer::Ok);
    }
}

TEST_F(DeviceWindows, TheKeyWalksDownEachAxisAndThenToTheButtons) {
    frmDevice2 window;
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QStringList walked;
    tick(window, "chkAxisEnable", 0).setFocus();
    QWidget* const first = window.focusWidget();
    do {
        walked << window.focusWidget()->objectName();
        QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    } while (window.focusWidget() != first && walked.size() < 40);
    EXPECT_EQ(walked.join(QLatin1Char(' ')),
              "chkAxisEnable(0) optQdSelect1(0) comboDeviceSize(0) comboDeviceSpeed(0) "
              "comboDeviceStroke(0) chkDevPgUse(0) chkDevVsiyou(0) chkNewOrOld(0) "
              "chkAxisEnable(1) optQdSelect2(0) comboDeviceSize(1) comboDeviceSpeed(1) "
              "comboDeviceStroke(1) chkNewOrOld(1) chkAxisEnable(2) chkAxisEnable(3) "
              "cmdDeviceSet cmdDeviceCancel");
}

TEST_F(DeviceWindows, OnlineWindowWritesIntoTheController) {
    SimulatedLine line(platform);
    ThePlatform().programFolder = QDW8_DATA_DIR;
    line.controller.setAxisMask(0b0011);
    line.controller.setTurnaround(50);
    frmDevice3 window;
    window.show();
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
    platform.expectBox(box::kWritten);
    click(window, "cmdPrmCtWrite");
    EXPECT_TRUE(seen);
    EXPECT_TRUE(Get<QPushButton>(window, "cmdPrmCtWrite").isEnabled());
    EXPECT_EQ(DevSetting[0].DevStroke, 300);
    window.close();
    EXPECT_FALSE(window.isVisible());
    EXPECT_EQ(DeviceCancelled, kClear);
}

TEST_F(DeviceWindows, OnlineWindowGoesOnToTheParametersAndForgetsItsMask) {
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

} // namespace
} // namespace qdw8::test
