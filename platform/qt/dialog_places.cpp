#include "platform/qt/dialog_places.h"

#include <QApplication>
#include <QEvent>
#include <QPointer>
#include <QScreen>
#include <QWidget>

#include <algorithm>
#include <vector>

namespace qdw8 {
namespace {

/// How far a window manager's frame may shift a dialog from where it was put.
constexpr int kFrameShift = 40;

struct PlacedDialog {
    QPointer<QWidget> dialog;
    QPoint at;
};

QPoint PlaceOver(const QWidget& window, QWidget& dialog) {
    const QRect over = window.frameGeometry();
    // The dialog has no frame before it is on the screen; it will be as wide as the window's.
    const QSize frame = over.size() - window.size();
    const QRect screen = window.screen()->availableGeometry();
    dialog.resize(dialog.size().boundedTo(screen.size() - frame));
    QRect place(QPoint(), dialog.size() + frame);
    place.moveCenter(over.center());
    place.moveLeft(std::max(screen.left(), std::min(place.left(), screen.right() - place.width())));
    place.moveTop(std::max(screen.top(), std::min(place.top(), screen.bottom() - place.height())));
    dialog.move(place.topLeft());
    return place.topLeft();
}

class DialogPlaces : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* object, QEvent* event) override {
        if (object->isWidgetType() && !event->spontaneous() && event->type() == QEvent::Show) {
            comesUp(*qobject_cast<QWidget*>(object));
        } else if (event->type() == QEvent::Hide && !event->spontaneous()) {
            goes(object);
        } else if (event->type() == QEvent::Move || event->type() == QEvent::Resize) {
            windowMoved(object);
            if (event->type() == QEvent::Resize && !event->spontaneous()) {
                sizeSettled(object);
            }
        }
        return false;
    }

private:
    void comesUp(QWidget& dialog) {
        const QWidget* parent = dialog.parentWidget();
        if (dialog.windowType() == Qt::Dialog && !dialog.testAttribute(Qt::WA_Moved) &&
            parent != nullptr && parent->window()->isVisible()) {
            placed.push_back({&dialog, PlaceOver(*parent->window(), dialog)});
        }
    }

    void goes(QObject* object) {
        std::erase_if(placed, [object](const PlacedDialog& one) {
            if (QWidget* dialog = one.dialog; dialog != nullptr && dialog == object) {
                dialog->setAttribute(Qt::WA_Moved, false); // the next time over the window again
                return true;
            }
            return one.dialog.isNull();
        });
    }

    void windowMoved(const QObject* object) {
        for (PlacedDialog& one : placed) {
            QWidget* dialog = one.dialog;
            const QWidget* parent = dialog == nullptr ? nullptr : dialog->parentWidget();
            if (parent != nullptr && parent->window() == object && dialog->isModal() &&
                isWherePut(one)) {
                one.at = PlaceOver(*parent->window(), *dialog);
            }
        }
    }

    /// A layout may give the dialog its size only when it is up.
    void sizeSettled(const QObject* object) {
        for (PlacedDialog& one : placed) {
            QWidget* dialog = one.dialog;
            const QWidget* parent =
                dialog == nullptr || dialog != object ? nullptr : dialog->parentWidget();
            if (parent != nullptr && isWherePut(one)) {
                one.at = PlaceOver(*parent->window(), *dialog);
            }
        }
    }

    static bool isWherePut(const PlacedDialog& one) {
        return (one.dialog->pos() - one.at).manhattanLength() <= kFrameShift;
    }

    std::vector<PlacedDialog> placed;
};

} // namespace

void InstallQtDialogPlaces() {
    static QPointer<DialogPlaces> places;
    if (!places) {
        places = new DialogPlaces(qApp);
        qApp->installEventFilter(places);
    }
}

} // namespace qdw8
