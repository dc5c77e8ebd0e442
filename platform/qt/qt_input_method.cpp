#include "platform/platform.h"
#include "platform/qt/qt_platform.h"

#include <QApplication>
#include <QInputMethod>
#include <QPointer>
#include <QWidget>

#include <memory>

namespace qdw8 {
namespace {

struct InputMethodState {
    QObject lifetime;        ///< ends the watch on the focus when the platform is installed anew
    QPointer<QWidget> owner; ///< the control that the last switch was meant for
    bool open = true;
};

void Apply(QWidget& control, bool open) {
    if (control.testAttribute(Qt::WA_InputMethodEnabled) == open) {
        return;
    }
    // What was being composed must not be lost half-way, nor turn up in the next cell.
    QGuiApplication::inputMethod()->commit();
    control.setAttribute(Qt::WA_InputMethodEnabled, open);
    QGuiApplication::inputMethod()->update(Qt::ImEnabled);
}

} // namespace

void InstallQtInputMethod() {
    auto state = std::make_shared<InputMethodState>();
    ThePlatform().ImeSetOpenStatus = [state](bool open) {
        state->open = open;
        QWidget* control = QApplication::focusWidget();
        state->owner = control;
        if (control != nullptr) {
            Apply(*control, open);
        }
    };
    // A grid is switched when a cell is entered; the cell's editor is made later, inside the grid,
    // and has to follow suit.
    QObject::connect(qApp, &QApplication::focusChanged, &state->lifetime,
                     [s = state.get()](QWidget*, QWidget* now) {
                         const QWidget* owner = s->owner;
                         if (now != nullptr && owner != nullptr && owner->isAncestorOf(now)) {
                             Apply(*now, s->open);
                         }
                     });
}

} // namespace qdw8
