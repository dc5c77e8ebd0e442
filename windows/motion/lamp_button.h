#pragma once

#include "windows/controls/drawings.h"

#include <QCheckBox>

namespace qdw8 {

class PictureLabel;

/// Side of a lamp's drawing, and what lies between it and its caption.
inline constexpr int kLampSide = 18;
inline constexpr int kLampGap = 6;

/// A lamp that can be clicked, and pressed with Space: a white one, over which a coloured one lies
/// while it is lit. A press only asks: what the lamp shows is set by `light` alone.
class LampButton : public QCheckBox {
public:
    LampButton(const QString& white, const QString& coloured, Drawing lit, const QString& caption,
               QWidget* parent);

    void light(bool on);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool hitButton(const QPoint& at) const override { return rect().contains(at); }
    void nextCheckState() override {}

private:
    QRect lampPlace() const;

    PictureLabel* coloured;
};

} // namespace qdw8
