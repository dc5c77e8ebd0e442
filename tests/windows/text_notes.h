#pragma once

#include <QColor>
#include <QRectF>
#include <QString>
#include <QWidget>
#include <vector>

namespace qdw8::test {

/// A text as a control draws it, in the control's coordinates.
struct DrawnText {
    QString text;
    QRectF place; ///< what its letters take, from their ascent to their descent
    QRectF room;  ///< what of that can be seen: the control, or the part that it clips to
    QColor ink;
};

/// What this control itself, without the ones on it, writes when it paints itself.
std::vector<DrawnText> TextsOf(QWidget& control);

} // namespace qdw8::test
