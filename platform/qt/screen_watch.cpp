#include "platform/qt/screen_watch.h"

#include <QApplication>
#include <QPointer>
#include <QRect>
#include <QRegion>
#include <QScreen>
#include <QTimer>
#include <QWidget>

#include <algorithm>

namespace qdw8 {
namespace {

/// The one that shows most of it, or else that with the least way to it.
QRect NearestScreen(const QRect& frame) {
    QRect nearest;
    qint64 least = 0;
    for (const QScreen* screen : QGuiApplication::screens()) {
        const QRect room = screen->availableGeometry();
        const QSize shown = room.intersected(frame).size();
        const qint64 way = shown.isEmpty() ? (room.center() - frame.center()).manhattanLength()
                                           : -qint64{shown.width()} * shown.height();
        if (nearest.isNull() || way < least) {
            nearest = room;
            least = way;
        }
    }
    return nearest;
}

void BringBack(QWidget& window) {
    const QRect room = NearestScreen(window.frameGeometry());
    const QSize around = window.frameGeometry().size() - window.size();
    window.resize(window.size().boundedTo(room.size() - around));
    // Its head stays in view where it can't be made small enough.
    const QRect frame = window.frameGeometry();
    window.move(std::max(room.left(), std::min(frame.left(), room.right() + 1 - frame.width())),
                std::max(room.top(), std::min(frame.top(), room.bottom() + 1 - frame.height())));
}

void BringAllBack() {
    QRegion rooms;
    for (const QScreen* screen : QGuiApplication::screens()) {
        rooms += screen->availableGeometry();
    }
    for (QWidget* window : QApplication::topLevelWidgets()) {
        const Qt::WindowType type = window->windowType();
        if (window->isVisible() && (type == Qt::Window || type == Qt::Dialog) &&
            !window->isMaximized() && !window->isFullScreen() &&
            !(QRegion(window->frameGeometry()) - rooms).isEmpty()) {
            BringBack(*window);
        }
    }
}

} // namespace

void InstallQtScreenWatch() {
    static QPointer<QTimer> settled;
    if (settled) {
        return;
    }
    // Once for all that comes together, and when the toolkit has dealt with it.
    settled = new QTimer(qApp);
    settled->setSingleShot(true);
    settled->callOnTimeout(BringAllBack);
    const auto settle = qOverload<>(&QTimer::start);
    const auto watch = [settle](const QScreen* screen) {
        QObject::connect(screen, &QScreen::availableGeometryChanged, settled, settle);
    };
    for (const QScreen* screen : QGuiApplication::screens()) {
        watch(screen);
    }
    QObject::connect(qApp, &QGuiApplication::screenAdded, settled, watch);
    QObject::connect(qApp, &QGuiApplication::screenRemoved, settled, settle);
}

} // namespace qdw8
