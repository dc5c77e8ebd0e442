#include "platform/qt/work_window.h"

#include <QEvent>
#include <QPointer>
#include <QWidget>

#include <algorithm>
#include <vector>

namespace qdw8 {
namespace {

/// Those that were worked in, the last one at the end.
std::vector<QPointer<QWidget>>& Worked() {
    static std::vector<QPointer<QWidget>> windows;
    return windows;
}

void NoteWork(QWidget& window) {
    std::erase_if(Worked(), [&window](const auto& one) { return !one || one == &window; });
    Worked().emplace_back(&window);
}

class ActivationWatch : public QObject {
public:
    explicit ActivationWatch(QWidget& of) : QObject(&of), window(of) {}

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::WindowActivate) {
            NoteWork(window);
        }
        return false;
    }

private:
    QWidget& window;
};

} // namespace

void CountAsWorkWindow(QWidget& window) {
    window.installEventFilter(new ActivationWatch(window));
}

void WorkIn(QWidget& window) {
    NoteWork(window);
    window.raise();
    window.activateWindow();
}

QWidget* WorkWindow() {
    const auto last = std::find_if(Worked().rbegin(), Worked().rend(), [](const auto& one) {
        const QWidget* const window = one.data();
        return window != nullptr && window->isVisible();
    });
    return last == Worked().rend() ? nullptr : last->data();
}

} // namespace qdw8
