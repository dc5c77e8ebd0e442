#include "windows/controls/in_front.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QPointer>

namespace qdw8 {
namespace {

QPointer<QWidget>& WorkWindow() {
    static QPointer<QWidget> window;
    return window;
}

class ActivationWatch : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::WindowActivate) {
            WorkWindow() = qobject_cast<QWidget*>(watched);
        }
        return false;
    }
};

} // namespace

void CountAsWorkWindow(QWidget& window) {
    window.installEventFilter(new ActivationWatch(&window));
}

QWidget* WindowOfWork(QWidget* home) {
    if (QWidget* modal = QApplication::activeModalWidget()) {
        return modal;
    }
    QWidget* const work = WorkWindow();
    return work != nullptr && work->isVisible() ? work : home;
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
