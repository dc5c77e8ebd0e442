#include "windows/controls/beside.h"

#include <QScreen>
#include <QWidget>
#include <algorithm>
#include <array>

namespace qdw8 {

void PutBesideParent(QWidget& window) {
    const QWidget* const parent = window.parentWidget();
    if (parent == nullptr || !parent->isVisible()) {
        return;
    }
    const QRect other = parent->frameGeometry();
    const QRect screen = parent->screen()->availableGeometry();
    // It has no frame before it is on the screen; it will be as wide as the other one's.
    const QSize size = window.sizeHint() + other.size() - parent->size();
    const auto within = [](int wanted, int first, int room) {
        return std::max(first, std::min(wanted, first + room));
    };
    const int roomAcross = screen.width() - size.width();
    const int roomDown = screen.height() - size.height();
    const int x = within(other.x(), screen.x(), roomAcross);
    const int y = within(other.y(), screen.y(), roomDown);
    const std::array places{
        QPoint(other.x() + other.width(), y), QPoint(other.x() - size.width(), y),
        QPoint(x, other.y() + other.height()), QPoint(x, other.y() - size.height())};
    const auto fits = [&](const QPoint& place) { return screen.contains(QRect(place, size)); };
    const auto* const best = std::find_if(places.begin(), places.end(), fits);
    window.move(best != places.end() ? *best
                                     : QPoint(screen.x() + std::max(0, roomAcross),
                                              screen.y() + std::max(0, roomDown)));
}

} // namespace qdw8
