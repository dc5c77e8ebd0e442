// The move test in its window, told in move_stories.txt, against the simulated controller on the
// clock of the tests.

#include "motion/move_test.h"
#include "support/simulated_line.h"
#include "support/story.h"
#include "window_fixture.h"
#include "windows/motion/frmMove.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeySequence>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>

namespace qdw8::test {
namespace {

class Story : public WindowTest {
public:
    Story() {
        Screens().frmMove = Screens().frmMainCommands = [this] { form.showState(); };
        Screens().cmdGrpMoveFocus = [this] { form.focusGroupMove(); };
        form.show();
        form.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
    }
    void tell(const std::string& statement) { TellStatement(words, values, statement); }
    void TestBody() override {}

private:
    QWidget& control(const std::string& name) {
        return Get<QWidget>(form, QString::fromStdString(name));
    }
    void click(const std::string& name) {
        QWidget& widget = control(name);
        const bool button = dynamic_cast<QPushButton*>(&widget) != nullptr;
        QTest::mouseClick(&widget, Qt::LeftButton, {},
                          button ? widget.rect().center() : QPoint(8, widget.height() / 2));
    }
    QPoint cellAt(int column) {
        auto& list = Get<QTableWidget>(form, QStringLiteral("flgdProgram"));
        return list.visualItemRect(list.item(0, column - 1)).center();
    }
    static std::string choices(const MoveChoices& of) {
        return std::string(of.step ? "step " : "") + (of.repeat ? "repeat " : "") +
               (of.noSqMcr ? "skip " : "") + (of.timerUse ? "timer " : "") + of.timer;
    }
    std::string cells() {
        const auto& list = Get<QTableWidget>(form, QStringLiteral("flgdProgram"));
        QString text;
        for (int column = 0; column < list.columnCount(); ++column) {
            text += list.item(0, column)->text() + QLatin1Char(' ');
        }
        return text.trimmed().toStdString();
    }
    /// What the user could press to end a run, or begin one.
    std::string open() {
        QStringList names;
        for (const auto* button : form.findChildren<QPushButton*>()) {
            if (button->isVisible() && button->isEnabled()) {
                names << button->objectName();
            }
        }
        names.sort();
        return names.join(QLatin1Char(' ')).toStdString();
    }

    SimulatedLine line{platform};
    frmMove form;
    QTabWidget& tabs = Get<QTabWidget>(form, QStringLiteral("SSTab1"));
    const StoryWords words{
        {"wait", [this](Args& a) { platform.run(Number(a)); }},
        {"after",
         [this](Args& a) {
             const int ms = Number(a);
             platform.after(ms, [this, what = Rest(a)] { tell(what); });
         }},
        {"keys",
         [](Args& a) {
             for (const char key : Word(a)) {
                 QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(), Qt::Key(key),
                                     QString(QLatin1Char(key)), {});
             }
         }},
        {"press",
         [](Args& a) {
             const auto key = QKeySequence::fromString(QString::fromStdString(Word(a)))[0];
             QTest::keyClick(QApplication::focusWidget(), key.key(), key.keyboardModifiers());
         }},
        {"repeat",
         [](Args& a) {
             const auto key = QKeySequence::fromString(QString::fromStdString(Word(a)))[0];
             QTest::simulateEvent(QApplication::focusWidget(), true, key.key(),
                                  key.keyboardModifiers(), {}, true);
         }},
        {"focus", [this](Args& a) { control(Word(a)).setFocus(); }},
        {"click", [this](Args& a) { click(Word(a)); }},
        // Without a focus that moves, as by its letter.
        {"trigger", [this](Args& a) { Get<QAbstractButton>(form, Word(a).c_str()).click(); }},
        {"cell",
         [this](Args& a) {
             QTest::mouseClick(control("flgdProgram").findChild<QWidget*>("qt_scrollarea_viewport"),
                               Qt::LeftButton, {}, cellAt(Number(a)));
         }},
        {"double-click",
         [this](Args& a) {
             QTest::mouseDClick(
                 control("flgdProgram").findChild<QWidget*>("qt_scrollarea_viewport"),
                 Qt::LeftButton, {}, cellAt(Number(a)));
         }},
        {"tab", [this](Args& a) { tabs.setCurrentIndex(Number(a)); }},
        {"close", [this](Args&) { form.close(); }},
        {"box",
         [this](Args& a) {
             const auto answer = Word(a) == "ok" ? BoxAnswer::Ok : BoxAnswer::Cancel;
             platform.expectBox(Rest(a), BoxButtons::OkCancel, answer);
         }},
    };
    const StoryValues values{
        {"cells", [this](Args&) { return cells(); }},
        {"list", [](Args&) { return choices(MoveForm().fields.list); }},
        {"range", [](Args&) { return choices(MoveForm().fields.range); }},
        {"text",
         [this](Args& a) { return control(Word(a)).property("text").toString().toStdString(); }},
        {"asked", [](Args&) { return std::to_string(MoveRequest); }},
        {"has-keys", [](Args&) { return QApplication::focusWidget()->objectName().toStdString(); }},
        {"open", [this](Args&) { return open(); }},
        {"goes-down",
         [this](Args& a) {
             return Get<QAbstractButton>(form, Word(a).c_str()).isDown() ? "yes" : "no";
         }},
        {"selected",
         [this](Args& a) {
             return Get<QLineEdit>(form, Word(a).c_str()).selectedText().toStdString();
         }},
        {"beeps", [this](Args&) { return std::to_string(std::exchange(platform.beeps, 0)); }},
        {"window", [this](Args&) { return form.isVisible() ? "there" : "gone"; }},
    };
};

TEST(MoveWindow, Stories) {
    TellStories<Story>(QDW8_SOURCE_DIR "/tests/windows/move_stories.txt", 7);
}

} // namespace
} // namespace qdw8::test
