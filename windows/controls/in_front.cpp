#include "windows/controls/in_front.h"

#include "platform/qt/work_window.h"

#include <QApplication>
#include <QDialog>

namespace qdw8 {
QWidget* WindowOfWork(QWidget* home) {
    if (QWidget* modal = QApplication::activeModalWidget()) {
        return modal;
    }
    QWidget* const work = WorkWindow();
    return work != nullptr ? work : home;
}

void PutInFront(QDialog& dialog, QWidget* home) {
    QWidget* over = WindowOfWork(home);
    if (dialog.parentWidget() != over) {
        dialog.setParent(over, dialog.windowFlags());
    }
}

void TakeAway(QDialog& dialog, QWidget* home) {
    dialog.hide();
    if (dialog.parentWidget() != home) {
        dialog.setParent(home, dialog.windowFlags());
    }
}

} // namespace qdw8
