#include "windows/controls/placing.h"

#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QPointer>
#include <QScreen>
#include <algorithm>

namespace qdw8 {
namespace {

class Centring : public QObject {
public:
    explicit Centring(QDialog& centred) : QObject(&centred), dialog(centred) {
        dialog.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        switch (event->type()) {
        case QEvent::Show:
            if (watched == &dialog && !event->spontaneous()) {
                follow();
            }
            break;
        case QEvent::Move:
        case QEvent::Resize:
            if (watched == window && dialog.isVisible()) {
                centre();
            }
            break;
        case QEvent::Hide:
        case QEvent::KeyPress:
        case QEvent::MouseButtonPress:
            if (watched == &dialog) {
                leave();
            }
            break;
        default: break;
        }
        return false;
    }

private:
    void follow() {
        leave();
        window = dialog.parentWidget() != nullptr ? dialog.parentWidget()->window() : nullptr;
        if (window != nullptr) {
            window->installEventFilter(this);
            centre();
        }
    }
    void leave() {
        if (window != nullptr) {
            window->removeEventFilter(this);
            window = nullptr;
        }
    }
    void centre() {
        const QRect over = window->frameGeometry();
        // The dialog's own frame isn't known before it stands on the screen; the window's is.
        const QSize size = dialog.size() + over.size() - window->size();
        QRect place(QPoint(), size);
        place.moveCenter(over.center());
        if (const QScreen* on = window->screen()) {
            const QRect free = on->availableGeometry();
            place.moveLeft(
                std::max(std::min(place.left(), free.right() + 1 - place.width()), free.left()));
            place.moveTop(
                std::max(std::min(place.top(), free.bottom() + 1 - place.height()), free.top()));
        }
        dialog.move(place.topLeft());
    }

    QDialog& dialog;
    QPointer<QWidget> window;
};

} // namespace

void KeepCentred(QDialog& dialog) {
    new Centring(dialog);
}

void PutInFront(QDialog& dialog, QWidget* home) {
    QWidget* modal = QApplication::activeModalWidget();
    QWidget* over = modal != nullptr && modal != &dialog ? modal : home;
    if (dialog.parentWidget() != over) {
        dialog.setParent(over, dialog.windowFlags());
    }
}

} // namespace qdw8
