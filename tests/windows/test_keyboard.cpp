// Every window in the hands of somebody who has a keyboard alone, or who hears what stands there:
// Tab reaches all that can be used, in the order of the eye, and shows where it is.

#include "each_window.h"
#include "windows/help/help_key.h"
#include "windows/simulator/texts.h"
#include "windows/simulator/window.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QRadioButton>
#include <QScrollBar>
#include <QSlider>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QTextEdit>
#include <QToolBar>
#include <map>
#include <set>

namespace qdw8::test {
namespace {

constexpr int kMostSteps = 120;

template<typename... Kind> bool IsOne(const QObject* of) {
    return ((qobject_cast<const Kind*>(of) != nullptr) || ...);
}
bool IsControl(const QObject* of) {
    return IsOne<QAbstractButton, QAbstractItemView, QAbstractSpinBox, QComboBox, QLineEdit,
                 QSlider, QTabBar, QTextEdit>(of);
}

/// What can be used now. The tool bar is left out: all of it stands in the menus.
QWidgetList Usable(const QWidget& form) {
    QWidgetList usable;
    for (QWidget* at : form.findChildren<QWidget*>()) {
        const QWidget* in = at->parentWidget();
        while (in != &form && !IsControl(in) && !IsOne<QScrollBar, QMenu, QToolBar>(in)) {
            in = in->parentWidget();
        }
        const auto* field = qobject_cast<const QLineEdit*>(at);
        if (in == &form && IsControl(at) && at->isVisible() && at->isEnabled() &&
            (field == nullptr || !field->isReadOnly())) {
            usable << at;
        }
    }
    return usable;
}

/// The arrow keys go from one to the other.
bool AreOneChoice(const QWidget* a, const QWidget* b) {
    const auto* one = qobject_cast<const QRadioButton*>(a);
    const auto* other = qobject_cast<const QRadioButton*>(b);
    return one != nullptr && other != nullptr && one->group() == other->group() &&
           (one->group() != nullptr || one->parent() == other->parent());
}

/// The eye goes on to the right or downwards, never back upwards to the left.
bool GoesOn(const QWidget& form, const QWidget& from, const QWidget& to) {
    const QPoint step =
        to.mapTo(&form, to.rect().center()) - from.mapTo(&form, from.rect().center());
    return step.x() > 0 || step.y() > 0;
}

/// Letters with Alt, each in one place of those that are seen together.
void ExpectNoClash(const QWidget& form, const std::string& where) {
    std::map<const QWidget*, std::set<QString>> places; // the window, and each menu
    const auto take = [&](const QString& text, const QWidget* in = nullptr) {
        const QString keys = QKeySequence::mnemonic(text).toString();
        EXPECT_TRUE(keys.isEmpty() || places[in].insert(keys).second)
            << where << ": " << text.toStdString();
    };
    for (const QWidget* at : form.findChildren<QWidget*>()) {
        const auto* label = qobject_cast<const QLabel*>(at);
        if (at->isVisible() && (label == nullptr || label->buddy() != nullptr)) {
            take(at->property(IsOne<QGroupBox>(at) ? "title" : "text").toString());
        }
        if (const auto* tabs = qobject_cast<const QTabBar*>(at)) {
            for (int tab = 0; tab < tabs->count(); ++tab) {
                take(tabs->tabText(tab));
            }
        }
        if (IsOne<QMenuBar, QMenu>(at)) {
            for (const QAction* entry : at->actions()) {
                take(entry->text(), IsOne<QMenu>(at) ? at : nullptr);
            }
        }
    }
}

class Keyboard : public EachWindow {
protected:
    Keyboard() {
        InstallHelpKey(came, [this](const HelpAsked&) { came.keys += "F1 "; });
        Screens().frmMainClose = [this] { window->close(); };
        QApplication::setCursorFlashTime(0);
    }

    static void press(Qt::Key key, Qt::KeyboardModifiers with = {}) {
        QWidget* at = QApplication::focusWidget();
        QTest::keyClick(at == nullptr ? QApplication::activeWindow() : at, key, with);
    }

    /// F1, Escape and Ctrl+Q are no control's own, wherever the focus is. A transfer is cancelled
    /// from any window, and in the list of the move test Escape only gives up an entry.
    void expectCommonKeys(QWidget& form, QWidget& at, const std::string& where) {
        const bool escapes = form.objectName() != "frmMain" &&
                             !form.windowFlags().testFlag(Qt::CustomizeWindowHint) &&
                             at.objectName() != "flgdProgram";
        came.keys.clear();
        closed.clear();
        if (escapes) {
            form.installEventFilter(&came);
        }
        press(Qt::Key_F1);
        press(Qt::Key_Escape);
        if (!form.isVisible()) {
            came.keys += "Escape ";
            form.show();
            form.activateWindow();
            EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
        }
        press(Qt::Key_Q, Qt::ControlModifier);
        form.removeEventFilter(&came);
        EXPECT_EQ(came.keys + closed, escapes ? "F1 Escape query " : "F1 query ") << where;
        at.setFocus();
    }

    /// The controls that Tab comes to, in its order, from where the focus is until it is there
    /// again.
    QWidgetList tabThrough(const std::string& name, QWidget& form, bool ofProgram) {
        QWidgetList way;
        jumps.clear();
        // In a page of text Tab goes from link to link.
        for (int steps = 0;
             steps < kMostSteps && (way.size() < 2 || QApplication::focusWidget() != way.front());
             ++steps) {
            QWidget* at = QApplication::focusWidget();
            if (at == nullptr || at->window() != &form) {
                ADD_FAILURE()
                    << name << ": no way on from "
                    << (way.isEmpty() ? QString() : way.back()->objectName()).toStdString();
                break;
            }
            const std::string where = name + ", " + at->objectName().toStdString();
            if (at != &form && (way.isEmpty() || way.back() != at)) {
                way << at;
                if (ofProgram) {
                    expectCommonKeys(form, *at, where);
                }
            }
            const QImage with = at->grab().toImage();
            press(Qt::Key_Tab);
            const QWidget* now = QApplication::focusWidget();
            if (now != nullptr && now != at && at != &form && now != &form &&
                !GoesOn(form, *at, *now)) {
                jumps += " to " + now->objectName().toStdString();
            }
            EXPECT_TRUE(now == at || at == &form || with != at->grab().toImage())
                << where << " doesn't show the focus";
        }
        return way;
    }

    void walkPage(const std::string& name, QWidget& form, bool ofProgram) {
        const QWidgetList usable = Usable(form);
        const QWidgetList way = tabThrough(name, form, ofProgram);
        if (way.isEmpty()) {
            return;
        }
        std::set<std::string> names;
        for (QWidget* at : way) {
            auto* heard = QAccessible::queryAccessibleInterface(at);
            std::string says = heard->text(QAccessible::Name).toStdString();
            for (const auto& [label, how] : heard->relations(QAccessible::Label)) {
                says += '<' + label->text(QAccessible::Name).toStdString();
            }
            EXPECT_TRUE(!says.empty() &&
                        names.insert(says + '#' + std::to_string(heard->role())).second)
                << name << ", " << at->objectName().toStdString() << " says " << says;
        }
        EXPECT_EQ(jumps.find("to", 4), std::string::npos)
            << name << ": not only back to the first," << jumps;
        for (const QWidget* one : usable) {
            EXPECT_TRUE(std::any_of(
                way.begin(), way.end(),
                [one](const QWidget* seen) { return seen == one || AreOneChoice(seen, one); }))
                << name << ": Tab never comes to " << one->objectName().toStdString();
        }
        QWidgetList back;
        for (int steps = 0; steps < kMostSteps && back.size() < way.size(); ++steps) {
            press(Qt::Key_Backtab, Qt::ShiftModifier);
            QWidget* now = QApplication::focusWidget();
            if (now != &form && (way.size() == 1 || now != (back.isEmpty() ? way : back).front())) {
                back.prepend(now);
            }
        }
        EXPECT_TRUE(back == way) << name << ", with Shift";
    }

    void walk(const std::string& name, QWidget& form, bool ofProgram = true) {
        form.show();
        form.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
        auto* tabs = form.findChild<QTabWidget*>();
        for (int page = 0; page < (tabs == nullptr ? 1 : tabs->count()); ++page) {
            ExpectNoClash(form, name);
            if (!Usable(form).isEmpty()) {
                walkPage(name + " " + std::to_string(page), form, ofProgram);
            }
            if (tabs != nullptr) {
                EXPECT_EQ(tabs->currentIndex(), page) << name;
                press(Qt::Key_PageDown, Qt::ControlModifier);
            }
        }
    }

    std::string jumps; ///< of the eye against its way; one leads from the last control to the first

    struct Came : QObject {
        bool eventFilter(QObject*, QEvent* event) override {
            const bool escape = event->type() == QEvent::KeyPress &&
                                static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
            keys += escape ? "Escape " : "";
            return escape;
        }
        std::string keys;
    } came;
};

TEST_F(Keyboard, ReachesUsesAndLeavesEverything) {
    show(1, 15);
    for (const std::int16_t base : {std::int16_t{10000}, std::int16_t{0}}) {
        speak(base);
        visitAll([this](const char* name, QWidget& form) {
            walk(name, *name == 'f' && form.objectName() == "frmMain" ? *window : form);
        });
    }
    window.reset();
    qdk8::Front front;
    qdk8::Window simulator(front);
    for (const auto language : {qdk8::Language::Japanese, qdk8::Language::English}) {
        qdk8::ChooseLanguage(language);
        qdk8::ShowTexts(simulator);
        walk("simulator", simulator, false);
    }
    press(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_FALSE(simulator.isVisible());
}

} // namespace
} // namespace qdw8::test
