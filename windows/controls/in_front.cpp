#include "windows/controls/in_front.h"

#include <QApplication>
#include <QDialog>

namespace qdw8 {

void PutInFront(QDialog& dialog, QWidget* home) {
    QWidget* modal = QApplication::activeModalWidget();
    QWidget* over = modal != nullptr && modal != &dialog ? modal : home;
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
