#include "windows/simulator/rail.h"

#include <QPainter>
#include <algorithm>
#include <array>

namespace qdk8 {
namespace {

constexpr double kSlide = 20; ///< width of the slide, pixels
constexpr double kSlideHigh = 14;
constexpr double kBed = 6; ///< height of what it runs on
constexpr double kTick = 5;
constexpr double kClosestTicks = 8;
constexpr int kHigh = 25;

/// Millimetres between two ticks: as fine as can be told apart.
double TickStep(double pixelsPerMm) {
    constexpr std::array kSteps{1.0, 5.0, 10.0, 50.0, 100.0, 500.0};
    const auto* const fits = std::find_if(kSteps.begin(), kSteps.end(), [&](double step) {
        return step * pixelsPerMm >= kClosestTicks;
    });
    return fits != kSteps.end() ? *fits : 1000.0;
}

} // namespace

Rail::Rail(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void Rail::show(const AxisLook& axis, double longest, bool live) {
    if (look == axis && widest == longest && powered == live) {
        return;
    }
    look = axis;
    widest = longest;
    powered = live;
    update();
}

QSize Rail::sizeHint() const {
    return {300, kHigh};
}

QSize Rail::minimumSizeHint() const {
    return {200, kHigh};
}

double Rail::across(double mm) const {
    return kSlide / 2 + 1 + mm / widest * (width() - kSlide - 2);
}

void Rail::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool live = powered && look.used;
    const auto group = live ? QPalette::Active : QPalette::Disabled;
    const QColor line = palette().color(group, QPalette::WindowText);
    const double stroke = look.stroke / look.pulsesPerMm;
    const double middle = kSlideHigh / 2 + 1;

    const QRectF bed(across(0) - kSlide / 2, middle - kBed / 2, across(stroke) - across(0) + kSlide,
                     kBed);
    painter.setPen(QPen(line, 1));
    painter.setBrush(palette().color(group, QPalette::Button));
    painter.drawRoundedRect(bed, 2, 2);

    const double step = TickStep((across(widest) - across(0)) / widest);
    for (int tick = 0; tick * step <= stroke; ++tick) {
        const double x = across(tick * step);
        const double length = tick % 10 == 0 ? 2 * kTick : tick % 5 == 0 ? 1.5 * kTick : kTick;
        const double top = kHigh - 2 * kTick - 1;
        painter.drawLine(QPointF(x, top), QPointF(x, top + length));
    }
    if (!look.used) {
        return;
    }
    // A slide whose place the controller doesn't know is an empty frame.
    const double x = across(look.slide / look.pulsesPerMm);
    const QColor accent = palette().color(group, QPalette::Highlight);
    painter.setPen(QPen(look.homed ? accent.darker(130) : line, 1.5,
                        look.homed ? Qt::SolidLine : Qt::DashLine));
    painter.setBrush(look.homed ? accent : palette().color(group, QPalette::Base));
    painter.drawRoundedRect(QRectF(x - kSlide / 2, middle - kSlideHigh / 2, kSlide, kSlideHigh), 3,
                            3);
    painter.setPen(
        QPen(look.homed ? palette().color(group, QPalette::HighlightedText) : line, 1.5));
    painter.drawLine(QPointF(x, middle - kSlideHigh / 4), QPointF(x, middle + kSlideHigh / 4));
}

} // namespace qdk8
