#include "platform/qt/kept_places.h"

#include <QApplication>
#include <QByteArray>
#include <QEvent>
#include <QScreen>
#include <QWidget>

#include <algorithm>
#include <functional>
#include <map>
#include <utility>

namespace qdw8 {
namespace {

/// A title bar, and enough of it to be taken hold of.
constexpr int kStep = 32;

struct Kept {
    QByteArray geometry;
    QSize size;
    bool maximised = false;
};

std::map<QString, Kept>& Places() {
    static std::map<QString, Kept> places;
    return places;
}

/// What the program itself does with a window, not what a window manager does.
class ShowAndHide : public QObject {
public:
    ShowAndHide(QWidget& of, std::function<void()> comes) : QObject(&of), window(of) {
        comesUp = std::move(comes);
    }

    bool eventFilter(QObject*, QEvent* event) override {
        if (!event->spontaneous() && event->type() == QEvent::Show && comesUp) {
            comesUp();
        } else if (!event->spontaneous() && event->type() == QEvent::Hide) {
            Places()[window.objectName()] = {window.saveGeometry(), window.normalGeometry().size(),
                                             window.isMaximized()};
        }
        return false;
    }

private:
    QWidget& window;
    std::function<void()> comesUp;
};

/// With the frame that it will have: that of the window which it belongs to.
QRect FrameOf(const QWidget& window) {
    QRect frame = window.frameGeometry();
    if (const QWidget* const parent = window.parentWidget()) {
        const QSize around = parent->frameGeometry().size() - parent->size();
        frame.setSize(window.size() + around);
    }
    return frame;
}

void StepAside(QWidget& window) {
    const QRect screen = window.screen()->availableGeometry();
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto covered = [&](const QRect& frame) {
        return std::any_of(windows.begin(), windows.end(), [&](const QWidget* other) {
            const QRect corner(other->frameGeometry().topLeft(), QSize(kStep, kStep));
            return other != &window && other->isVisible() && frame.contains(corner);
        });
    };
    for (QRect frame = FrameOf(window); screen.contains(frame); frame.translate(kStep, kStep)) {
        if (!covered(frame)) {
            if (frame.topLeft() != window.pos()) {
                window.move(frame.topLeft());
            }
            return;
        }
    }
}

} // namespace

void KeepPlace(QWidget& window) {
    window.installEventFilter(new ShowAndHide(window, [&window] {
        if (HasKeptPlace(window)) {
            window.restoreGeometry(Places()[window.objectName()].geometry);
        } else {
            StepAside(window);
        }
    }));
}

bool HasKeptPlace(const QWidget& window) {
    return Places().contains(window.objectName());
}

QSize KeepSize(QWidget& window, QSize fresh) {
    window.installEventFilter(new ShowAndHide(window, {}));
    const auto kept = Places().find(window.objectName());
    if (kept == Places().end()) {
        return fresh;
    }
    if (kept->second.maximised) {
        window.setWindowState(Qt::WindowMaximized);
    }
    return kept->second.size;
}

void ForgetPlaces() {
    Places().clear();
}

} // namespace qdw8
