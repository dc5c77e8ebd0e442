#include "windows/simulator/lamp.h"

#include "windows/simulator/texts.h"

#include <QPainter>

namespace qdk8 {
namespace {

constexpr int kSide = 14;
constexpr int kGap = 5;

} // namespace

Lamp::Lamp(const QString& text, bool isWarning, QWidget* parent)
    : QWidget(parent), caption(text), warns(isWarning) {
    name();
}

void Lamp::light(bool shallShine) {
    if (shines != shallShine) {
        shines = shallShine;
        update();
    }
    name();
}

void Lamp::setCaption(const QString& text) {
    if (caption != text) {
        caption = text;
        updateGeometry();
        update();
    }
}

/// A lamp tells its state in words, too.
void Lamp::name() {
    const QString now = caption + ": " + Text(shines ? "on" : "off-signal");
    if (accessibleName() != now) {
        setAccessibleName(now);
    }
}

QSize Lamp::sizeHint() const {
    return {kSide + kGap + fontMetrics().horizontalAdvance(caption) + 2,
            qMax(kSide, fontMetrics().height()) + 4};
}

void Lamp::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor line = palette().color(QPalette::WindowText);
    const QRectF disc(1, (height() - kSide) / 2.0 + 1, kSide - 2, kSide - 2);
    const QColor lit = warns ? QColor(0xC62828) : QColor(0x1E8537);
    painter.setPen(QPen(shines ? lit.darker(120) : line, 1.2));
    painter.setBrush(shines ? lit : palette().color(QPalette::Base));
    painter.drawEllipse(disc);
    if (shines) {
        painter.setPen(QPen(Qt::white, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        const QPointF c = disc.center();
        if (warns) {
            painter.drawLine(c + QPointF(0, -3.5), c + QPointF(0, 0.8));
            painter.drawPoint(c + QPointF(0, 3.6));
        } else {
            painter.drawPolyline(
                QPolygonF{c + QPointF(-3, 0), c + QPointF(-0.8, 2.5), c + QPointF(3.2, -2.5)});
        }
    }
    const QRect place = rect().adjusted(kSide + kGap, 0, 0, 0);
    painter.setPen(line);
    painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter,
                     fontMetrics().elidedText(caption, Qt::ElideRight, place.width()));
}

} // namespace qdk8
