#include "platform/qt/dialog_parent.h"

#include "platform/qt/work_window.h"

#include <QApplication>
#include <QWidget>

namespace qdw8 {

QWidget* DialogParent() {
    if (QWidget* modal = QApplication::activeModalWidget()) {
        return modal;
    }
    if (QWidget* work = WorkWindow()) {
        return work;
    }
    for (QWidget* window : QApplication::topLevelWidgets()) {
        const Qt::WindowType type = window->windowType();
        if (window->isVisible() && (type == Qt::Window || type == Qt::Dialog)) {
            return window;
        }
    }
    return nullptr;
}

void GiveKeysBack(QWidget* parent) {
    if (parent != nullptr && parent->isVisible()) {
        parent->activateWindow();
    }
}

} // namespace qdw8
