#include "windows/controls/in_front.h"

#include <QApplication>
#include <QDialog>

namespace qdw8 {
namespace {

QPointer<QWidget>& Starter() {
    static QPointer<QWidget> window;
    return window;
}

} // namespace

StartedFrom::StartedFrom(QWidget& window) : before(Starter()) {
    Starter() = &window;
}

StartedFrom::~StartedFrom() {
    Starter() = before;
}

void PutInFront(QDialog& dialog, QWidget* home) {
    QWidget* modal = QApplication::activeModalWidget();
    QWidget* over = home;
    if (modal != nullptr && modal != &dialog) {
        over = modal;
    } else if (Starter() && Starter()->isVisible()) {
        over = Starter();
    }
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
