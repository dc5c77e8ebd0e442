#include "hands.h"

#include <QApplication>
#include <QKeySequence>
#include <QProcess>
#include <QTest>
#include <QThread>
#include <QWindow>

namespace e2e {

namespace {

bool RealHands() {
    static const bool real = qgetenv("QDW8_USER_HANDS") == "xdotool";
    return real;
}

void Xdotool(const QStringList& words) {
    QProcess tool;
    tool.start("xdotool", words);
    if (!tool.waitForFinished(kDeadline) || tool.exitCode() != 0) {
        Fail(QString("xdotool %1: %2")
                 .arg(words.join(u' '), QString::fromLocal8Bit(tool.readAllStandardError())));
    }
}

/// Where the spot is on the screen, once it stands still there with nothing over it.
QPoint PlaceOf(const FindSpot& find, Boxes boxes = Boxes::AreFailures) {
    QPoint last;
    int still = 0;
    const auto standsStill = [&] {
        const Spot spot = find();
        if (spot.widget == nullptr || spot.widget->window()->windowHandle() == nullptr ||
            !spot.widget->window()->windowHandle()->isExposed()) {
            return false;
        }
        const QPoint now = spot.widget->mapToGlobal(spot.at);
        const QWidget* there = QApplication::widgetAt(now);
        const bool free =
            there == spot.widget || (there != nullptr && spot.widget->isAncestorOf(there));
        still = free && now == last ? still + 1 : 0;
        last = now;
        constexpr int kLooks = 20; // the window manager places a new window a moment after it came
        return still >= kLooks;
    };
    WaitFor(standsStill, boxes);
    return last;
}

/// Where the button was pressed that is down, while hands are made in the program.
Spot held;

void ToFocus(const std::function<void(QWidget*)>& act) {
    Post([act] {
        if (QWidget* widget = QApplication::focusWidget(); widget != nullptr) {
            act(widget);
        }
    });
}

} // namespace

void ClickAt(const FindSpot& find, Boxes boxes, Held held) {
    if (RealHands()) {
        const QPoint place = PlaceOf(find, boxes);
        const QStringList words{"mousemove", QString::number(place.x()), QString::number(place.y()),
                                "click", "1"};
        const QStringList shift{"keydown", "shift"};
        Xdotool(held == Held::Shift ? shift + words + QStringList{"keyup", "shift"} : words);
        return;
    }
    WaitFor([&] { return find().widget != nullptr; }, boxes);
    const Qt::KeyboardModifiers keys = held == Held::Shift ? Qt::ShiftModifier : Qt::NoModifier;
    Post([find, keys] {
        if (const Spot spot = find(); spot.widget != nullptr) {
            // A window manager gives the keys to the window that is clicked; here there is none.
            if (!spot.widget->window()->isActiveWindow()) {
                spot.widget->window()->activateWindow();
            }
            QTest::mouseClick(spot.widget, Qt::LeftButton, keys, spot.at);
        }
    });
}

void HoldAt(const FindSpot& find) {
    if (RealHands()) {
        const QPoint place = PlaceOf(find);
        Xdotool({"mousemove", QString::number(place.x()), QString::number(place.y()), "mousedown",
                 "1"});
        return;
    }
    WaitFor([&] { return find().widget != nullptr; });
    Post([find] {
        held = find();
        QTest::mousePress(held.widget, Qt::LeftButton, {}, held.at);
    });
}

void LetGo() {
    if (RealHands()) {
        Xdotool({"mouseup", "1"});
        return;
    }
    Post([] { QTest::mouseRelease(held.widget, Qt::LeftButton, {}, held.at); });
}

void HoldKey(const QString& key, bool down) {
    if (RealHands()) {
        Xdotool({down ? "keydown" : "keyup", key});
        return;
    }
    ToFocus([code = QKeySequence(key)[0].key(), down](QWidget* widget) {
        QTest::sendKeyEvent(down ? QTest::Press : QTest::Release, widget, code, QString(), {});
    });
}

void Press(const QStringList& keys) {
    if (RealHands()) {
        Xdotool(QStringList{"key"} + keys);
        return;
    }
    for (const QString& key : keys) {
        ToFocus([pressed = QKeySequence(key)[0]](QWidget* widget) {
            QTest::keyClick(widget, pressed.key(), pressed.keyboardModifiers());
        });
    }
}

void KeyIn(const QString& text) {
    if (RealHands()) {
        Xdotool({"type", "--delay", "30", text});
        return;
    }
    // The first character may bring up the box that takes the others.
    for (const QChar character : text) {
        ToFocus([character](QWidget* widget) { QTest::keyClicks(widget, QString(character)); });
    }
}

void CloseWindow(QWidget* window) {
    if (RealHands()) {
        // Behind a dialog the window manager gives the keys back a moment later, and to nobody if
        // two windows went at once. So the user turns to the window first; what Alt+F4 closes is
        // the one that the window manager, too, knows to have the keys.
        const auto id = OnGui([window] { return window->winId(); });
        Xdotool({"windowactivate", "--sync", QString::number(id)});
        WaitFor([window] { return window->isActiveWindow(); });
        Xdotool({"key", "alt+F4"});
        return;
    }
    Post([window] { window->close(); });
}

} // namespace e2e
