#include "windows/motion/single_shortcuts.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWidget>

namespace qdw8 {

SingleShortcuts::SingleShortcuts(QWidget& of) : QObject(&of), window(of) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool SingleShortcuts::eventFilter(QObject*, QEvent* event) {
    if (event->type() != QEvent::ShortcutOverride || !window.isActiveWindow() ||
        !static_cast<QKeyEvent*>(event)->isAutoRepeat()) {
        return false;
    }
    event->accept(); // it is none, but goes on as a key to the control that has the focus
    return true;
}

} // namespace qdw8
