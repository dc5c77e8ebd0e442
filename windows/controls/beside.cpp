#include "windows/controls/beside.h"

#include "platform/qt/kept_places.h"

#include <QEvent>
#include <QScreen>
#include <QWidget>
#include <algorithm>
#include <array>

namespace qdw8 {
namespace {

constexpr int kCornerOffset = 33; ///< 500 twips

/// It has no frame before it is on the screen; it will be as wide as the other one's.
QSize WithFrame(const QWidget& window, const QWidget& other) {
    const QSize size = window.testAttribute(Qt::WA_Resized) ? window.size() : window.sizeHint();
    return size + other.frameGeometry().size() - other.size();
}

int Within(int wanted, int first, int room) {
    return std::max(first, std::min(wanted, first + room));
}

/// How far a window manager's frame may shift a window from where it was put.
constexpr int kFrameShift = 40;

/// Its layout may give the window its size only when it comes up, or later still.
class BesideParent : public QObject {
public:
    explicit BesideParent(QWidget& of) : QObject(&of), window(of) {}

    bool eventFilter(QObject*, QEvent* event) override {
        if (HasKeptPlace(window)) {
            return false;
        }
        const bool comesUp = event->type() == QEvent::Show;
        const bool settles = event->type() == QEvent::Resize && window.isVisible() &&
                             (window.pos() - at).manhattanLength() <= kFrameShift;
        if (!event->spontaneous() && (comesUp || settles)) {
            put();
        }
        return false;
    }

private:
    void put() {
        const QWidget* const parent = window.parentWidget();
        if (parent == nullptr || !parent->isVisible()) {
            return;
        }
        const QRect other = parent->frameGeometry();
        const QRect screen = parent->screen()->availableGeometry();
        // It has no frame before it is on the screen; it will be as wide as the other one's.
        const QSize size = window.size() + other.size() - parent->size();
        const int roomAcross = screen.width() - size.width();
        const int roomDown = screen.height() - size.height();
        const int x = Within(other.x(), screen.x(), roomAcross);
        const int y = Within(other.y(), screen.y(), roomDown);
        const std::array places{
            QPoint(other.x() + other.width(), y), QPoint(other.x() - size.width(), y),
            QPoint(x, other.y() + other.height()), QPoint(x, other.y() - size.height())};
        const auto fits = [&](const QPoint& place) { return screen.contains(QRect(place, size)); };
        const auto* const best = std::find_if(places.begin(), places.end(), fits);
        at = best != places.end()
                 ? *best
                 : QPoint(screen.x() + std::max(0, roomAcross), screen.y() + std::max(0, roomDown));
        window.move(at);
    }

    QWidget& window;
    QPoint at;
};

} // namespace

void PutBesideParent(QWidget& window) {
    window.setAttribute(Qt::WA_Moved); // it has a place of its own
    window.installEventFilter(new BesideParent(window));
}

void PutOnCorner(QWidget& window) {
    if (const QWidget* const parent = window.parentWidget()) {
        const QSize size = WithFrame(window, *parent);
        const QRect screen = parent->screen()->availableGeometry();
        const QPoint corner = parent->frameGeometry().topLeft();
        window.move(
            Within(corner.x() + kCornerOffset, screen.x(), screen.width() - size.width()),
            Within(corner.y() + kCornerOffset, screen.y(), screen.height() - size.height()));
    }
}

} // namespace qdw8
