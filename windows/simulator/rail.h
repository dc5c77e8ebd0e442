#pragma once

#include "simulator/look.h"

#include <QWidget>

namespace qdk8 {

/// The stroke of one axis and the slide on it.
class Rail : public QWidget {
public:
    explicit Rail(QWidget* parent);

    /// `longest`: millimetres that the whole width stands for. `live`: power is on.
    void show(const AxisLook& axis, double longest, bool live);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

private:
    void paintEvent(QPaintEvent* event) override;
    /// Pixels from the left of a place in millimetres.
    double across(double mm) const;

    AxisLook look;
    double widest = 1;
    bool powered = true;
};

} // namespace qdk8
