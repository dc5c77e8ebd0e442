#include "platform/platform.h"
#include "platform/qt/qt_platform.h"
#include "pump_until.h"

#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace qdw8 {
namespace {

class QtMessageBox : public ::testing::Test {
protected:
    QtMessageBox() { InstallQtMessageBox(); }
    ~QtMessageBox() override { SetStandardTexts({}); }
};

void Click(QWidget& box, const char* button) {
    auto* found = box.findChild<QPushButton*>(QString::fromLatin1(button));
    ASSERT_NE(found, nullptr) << button;
    QTest::mouseClick(found, Qt::LeftButton);
}

TEST_F(QtMessageBox, EveryButtonAnswersForItself) {
    const struct {
        const char* click;
        BoxButtons buttons;
        BoxAnswer answer;
    } rows[] = {
        {"Ok", BoxButtons::Ok, BoxAnswer::Ok},
        {"Ok", BoxButtons::OkCancel, BoxAnswer::Ok},
        {"Cancel", BoxButtons::OkCancel, BoxAnswer::Cancel},
        {"Yes", BoxButtons::YesNo, BoxAnswer::Yes},
        {"No", BoxButtons::YesNo, BoxAnswer::No},
        {"Yes", BoxButtons::YesNoCancel, BoxAnswer::Yes},
        {"No", BoxButtons::YesNoCancel, BoxAnswer::No},
        {"Cancel", BoxButtons::YesNoCancel, BoxAnswer::Cancel},
    };
    for (const auto& row : rows) {
        WhenShown("MessageBox", [&](QWidget& box) { Click(box, row.click); });
        EXPECT_EQ(ThePlatform().ShowMessageBox({"text", row.buttons, "", BoxIcon::None}),
                  row.answer)
            << row.click;
    }
}

TEST_F(QtMessageBox, ClosingAnswersTheMildestChoice) {
    const auto escape = [](QWidget& box) { QTest::keyClick(&box, Qt::Key_Escape); };
    const auto close = [](QWidget& box) { box.close(); };
    const struct {
        BoxButtons buttons;
        BoxAnswer answer;
    } rows[] = {{BoxButtons::Ok, BoxAnswer::Ok},
                {BoxButtons::OkCancel, BoxAnswer::Cancel},
                {BoxButtons::YesNoCancel, BoxAnswer::Cancel}};
    for (const auto& row : rows) {
        WhenShown("MessageBox", escape);
        EXPECT_EQ(ThePlatform().ShowMessageBox({"text", row.buttons, "", {}}), row.answer);
        WhenShown("MessageBox", close);
        EXPECT_EQ(ThePlatform().ShowMessageBox({"text", row.buttons, "", {}}), row.answer);
    }

    WhenShown("MessageBox", [&](QWidget& box) {
        escape(box);
        EXPECT_TRUE(box.isVisible());
        close(box);
        EXPECT_TRUE(box.isVisible());
        Click(box, "Yes");
    });
    EXPECT_EQ(ThePlatform().ShowMessageBox({"text", BoxButtons::YesNo, "", {}}), BoxAnswer::Yes);
}

TEST_F(QtMessageBox, ShowsTextTitleIconAndWordsAsGiven) {
    StandardTexts texts;
    texts.yes = "はい(&Y)";
    SetStandardTexts(texts);
    QWidget window;
    window.show();
    EXPECT_TRUE(PumpUntil([&] { return window.isActiveWindow(); }));

    WhenShown("MessageBox", [&](QWidget& widget) {
        auto& box = dynamic_cast<QMessageBox&>(widget);
        EXPECT_EQ(box.text().toStdString(), "<b>line\n\nline</b>");
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.windowTitle().toStdString(), "QD-W8");
        EXPECT_EQ(box.icon(), QMessageBox::Question);
        EXPECT_EQ(box.parentWidget(), &window);
        EXPECT_EQ(box.findChild<QPushButton*>("Yes")->text().toStdString(), "はい(&Y)");
        Click(box, "No");
    });
    ThePlatform().ShowMessageBox(
        {"<b>line\r\n\r\nline</b>", BoxButtons::YesNo, "", BoxIcon::Question});

    WhenShown("MessageBox", [&](QWidget& box) {
        EXPECT_EQ(box.windowTitle().toStdString(), "Select");
        Click(box, "Ok");
    });
    ThePlatform().ShowMessageBox({"text", BoxButtons::Ok, "Select", BoxIcon::Stop});
}

TEST_F(QtMessageBox, AWindowThatGoesTakesItsBoxAlong) {
    auto* window = new QWidget;
    window->show();
    EXPECT_TRUE(PumpUntil([&] { return window->isActiveWindow(); }));
    WhenShown("MessageBox", [&](QWidget&) { delete window; });
    EXPECT_EQ(ThePlatform().ShowMessageBox({"text", BoxButtons::OkCancel, "", {}}),
              BoxAnswer::Cancel);
}

} // namespace
} // namespace qdw8
