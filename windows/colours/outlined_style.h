#pragma once

#include <QProxyStyle>

namespace qdw8 {

/// The look of all windows: the toolkit's own, with outlines that can be seen in dark schemes too.
/// The toolkit makes them a shade darker than the window, which on a black one is nothing: an empty
/// field, a box without its tick, and a lamp's frame would be just ground.
class OutlinedStyle : public QProxyStyle {
public:
    OutlinedStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* answer) const override;
};

} // namespace qdw8
