#include "platform/platform.h"
#include "platform/qt/dialog_places.h"
#include "platform/qt/qt_platform.h"
#include "pump_until.h"

#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTest>

#include <gtest/gtest.h>

namespace qdw8 {
namespace {

class QtMessageBox : public ::testing::Test {
protected:
    QtMessageBox() {
        InstallQtMessageBox();
        InstallQtDialogPlaces();
        window->setGeometry(100, 80, 500, 400);
        window->show();
        EXPECT_TRUE(PumpUntil([&] { return window->isActiveWindow(); }));
    }
    ~QtMessageBox() override {
        SetStandardTexts({});
        delete window;
    }

    /// Shows a box, does that to it, and gives the answer.
    static BoxAnswer ask(BoxButtons buttons, const std::function<void(QMessageBox& box)>& act,
                         const BoxQuestion& like = {}) {
        WhenShown("MessageBox", [&](QWidget& box) { act(dynamic_cast<QMessageBox&>(box)); });
        BoxQuestion question = like;
        question.buttons = buttons;
        return ThePlatform().ShowMessageBox(question);
    }

    QPointer<QWidget> window = new QWidget;
};

void Click(QWidget& box, const char* button) {
    auto* found = box.findChild<QPushButton*>(QString::fromLatin1(button));
    ASSERT_NE(found, nullptr) << button;
    QTest::mouseClick(found, Qt::LeftButton);
}

TEST_F(QtMessageBox, EveryButtonAnswersForItselfAndClosingForTheMildest) {
    const struct {
        BoxButtons buttons;
        std::vector<std::pair<const char*, BoxAnswer>> answers;
        bool closes = true;
    } rows[] = {
        {BoxButtons::Ok, {{"Ok", BoxAnswer::Ok}}},
        {BoxButtons::OkCancel, {{"Ok", BoxAnswer::Ok}, {"Cancel", BoxAnswer::Cancel}}},
        {BoxButtons::YesNo, {{"Yes", BoxAnswer::Yes}, {"No", BoxAnswer::No}}, false},
        {BoxButtons::YesNoCancel,
         {{"Yes", BoxAnswer::Yes}, {"No", BoxAnswer::No}, {"Cancel", BoxAnswer::Cancel}}},
    };
    for (const auto& row : rows) {
        for (const auto& [name, answer] : row.answers) {
            EXPECT_EQ(ask(row.buttons, [&](QWidget& box) { Click(box, name); }), answer) << name;
        }
        for (const bool byKey : {false, true}) {
            const auto close = [&](QWidget& box) {
                byKey ? QTest::keyClick(&box, Qt::Key_Escape) : static_cast<void>(box.close());
                EXPECT_NE(box.isVisible(), row.closes);
                if (box.isVisible()) {
                    Click(box, "No");
                }
            };
            EXPECT_EQ(ask(row.buttons, close), row.answers.back().second);
        }
    }
}

TEST_F(QtMessageBox, ShowsTextTitleIconAndWordsAsGiven) {
    StandardTexts texts;
    texts.yes = "はい(&Y)";
    SetStandardTexts(texts);
    const BoxQuestion question{"<b>line\r\n\r\nline</b>", {}, "", BoxIcon::Question};
    const auto look = [&](QMessageBox& box) {
        EXPECT_EQ(box.text(), "<b>line\n\nline</b>");
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.windowTitle(), "QD-W8");
        EXPECT_EQ(box.icon(), QMessageBox::Question);
        EXPECT_EQ(box.parentWidget(), window);
        EXPECT_EQ(box.findChild<QPushButton*>("Yes")->text().toStdString(), "はい(&Y)");
        Click(box, "No");
    };
    ask(BoxButtons::YesNo, look, question);
    const auto lookAtTitle = [&](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), "Select");
        Click(box, "Ok");
    };
    ask(BoxButtons::Ok, lookAtTitle, {"text", {}, "Select", BoxIcon::Stop});
}

TEST_F(QtMessageBox, StandsOverItsWindowAndGoesAlongUntilTheUserMovesIt) {
    const auto isCentred = [&](const QWidget& box) {
        return (box.frameGeometry().center() - window->frameGeometry().center()).manhattanLength() <
               4;
    };
    for (int round = 0; round < 2; ++round) {
        ask(BoxButtons::Ok, [&](QMessageBox& box) {
            EXPECT_TRUE(isCentred(box));
            window->move(200 + round, 150);
            EXPECT_TRUE(PumpUntil([&] { return isCentred(box); }));
            box.move(3, 3);
            window->move(100, 80);
            QCoreApplication::processEvents();
            EXPECT_EQ(box.pos(), QPoint(3, 3));
            Click(box, "Ok");
        });
    }
    window->move(-450, -350);
    const QRect screen = window->screen()->availableGeometry();
    ask(BoxButtons::Ok, [&](QMessageBox& box) {
        EXPECT_TRUE(screen.contains(box.frameGeometry()));
        Click(box, "Ok");
    });
    QDialog large(window);
    large.resize(screen.size() * 2);
    large.show();
    EXPECT_TRUE(screen.contains(large.frameGeometry()));
    QDialog placed(window);
    placed.move(5, 6);
    placed.show();
    EXPECT_EQ(placed.pos(), QPoint(5, 6));
}

TEST_F(QtMessageBox, AWindowThatGoesTakesItsBoxAlong) {
    EXPECT_EQ(ask(BoxButtons::OkCancel, [&](QWidget&) { delete window; }), BoxAnswer::Cancel);
}

} // namespace
} // namespace qdw8
