#include "hands.h"

#include "user.h"

#include <QApplication>
#include <QKeySequence>
#include <QProcess>
#include <QTest>
#include <QThread>
#include <QWindow>

namespace e2e {

namespace {

bool realHands() {
    static const bool real = qgetenv("QDW8_USER_HANDS") == "xdotool";
    return real;
}

void xdotool(const QStringList& words) {
    QProcess tool;
    tool.start(QStringLiteral("xdotool"), words);
    if (!tool.waitForFinished(kDeadline) || tool.exitCode() != 0) {
        fail(QStringLiteral("xdotool %1: %2")
                 .arg(words.join(u' '), QString::fromLocal8Bit(tool.readAllStandardError())));
    }
}

/// Where the spot is on the screen, once it stands still there with nothing over it.
QPoint placeOf(const QString& what, const FindSpot& find, Boxes boxes) {
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
    waitFor(what + QStringLiteral(", in reach of the pointer"), standsStill, boxes);
    return last;
}

} // namespace

void clickAt(const QString& what, const FindSpot& find, Boxes boxes, Held held) {
    if (realHands()) {
        const QPoint place = placeOf(what, find, boxes);
        QStringList words{QStringLiteral("mousemove"), QString::number(place.x()),
                          QString::number(place.y()), QStringLiteral("click"), QStringLiteral("1")};
        if (held == Held::Shift) {
            words = QStringList{QStringLiteral("keydown"), QStringLiteral("shift")} + words +
                    QStringList{QStringLiteral("keyup"), QStringLiteral("shift")};
        }
        xdotool(words);
        return;
    }
    waitFor(
        what, [&] { return find().widget != nullptr; }, boxes);
    const Qt::KeyboardModifiers keys = held == Held::Shift ? Qt::ShiftModifier : Qt::NoModifier;
    post([find, keys] {
        if (const Spot spot = find(); spot.widget != nullptr) {
            // A window manager gives the keys to the window that is clicked; here there is none.
            if (!spot.widget->window()->isActiveWindow()) {
                spot.widget->window()->activateWindow();
            }
            QTest::mouseClick(spot.widget, Qt::LeftButton, keys, spot.at);
        }
    });
}

void press(const QString& key) {
    if (realHands()) {
        xdotool({QStringLiteral("key"), key});
        return;
    }
    post([key] {
        const QKeyCombination keys = QKeySequence(key)[0];
        if (QWidget* widget = QApplication::focusWidget(); widget != nullptr) {
            QTest::keyClick(widget, keys.key(), keys.keyboardModifiers());
        }
    });
}

void keyIn(const QString& text) {
    if (realHands()) {
        xdotool({QStringLiteral("type"), QStringLiteral("--delay"), QStringLiteral("30"), text});
        return;
    }
    // The first character may bring up the box that takes the others.
    for (const QChar character : text) {
        post([character] {
            if (QWidget* widget = QApplication::focusWidget(); widget != nullptr) {
                QTest::keyClicks(widget, QString(character));
            }
        });
    }
}

void writeOver(const FindSpot& field, qsizetype length, const QString& text) {
    // Not every field takes the key that marks everything.
    if (realHands()) {
        const QStringList erase(length, QStringLiteral("BackSpace"));
        xdotool(QStringList{QStringLiteral("key"), QStringLiteral("End")} + erase);
        xdotool({QStringLiteral("type"), QStringLiteral("--delay"), QStringLiteral("30"), text});
        return;
    }
    post([field, length, text] {
        if (const Spot spot = field(); spot.widget != nullptr) {
            QTest::keyClick(spot.widget, Qt::Key_End);
            for (qsizetype i = 0; i < length; ++i) {
                QTest::keyClick(spot.widget, Qt::Key_Backspace);
            }
            QTest::keyClicks(spot.widget, text);
        }
    });
}

void closeWindow(QWidget* window) {
    if (realHands()) {
        xdotool({QStringLiteral("key"), QStringLiteral("alt+F4")});
        return;
    }
    post([window] { window->close(); });
}

} // namespace e2e
