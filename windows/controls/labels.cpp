#include "windows/controls/labels.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOption>

namespace qdw8 {
namespace {

constexpr int kFieldMargin = 4;

} // namespace

PictureLabel::PictureLabel(const QIcon& picture, int edge, QWidget* parent)
    : QLabel(parent), drawing(picture), side(edge) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void PictureLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    drawing.paint(&painter, rect(), Qt::AlignCenter);
}

FieldLabel::FieldLabel(const QString& name, int wanted, QWidget* parent)
    : QLabel(parent), characters(wanted) {
    setObjectName(name);
    setFrameStyle(QFrame::Panel | QFrame::Sunken);
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void FieldLabel::setValue(const QString& caption, const QString& value) {
    if (value != text()) {
        setText(value);
        setToolTip(value);
    }
    const QString name = QString(caption + QLatin1Char(' ') + value).trimmed();
    if (name != accessibleName()) {
        setAccessibleName(name);
    }
}

QSize FieldLabel::sizeHint() const {
    const int around = 2 * (frameWidth() + kFieldMargin);
    return {fontMetrics().horizontalAdvance(QLatin1Char('0')) * characters + around,
            fontMetrics().height() + around};
}

QSize FieldLabel::minimumSizeHint() const {
    const QSize wanted = sizeHint();
    return {wanted.width() / 2, wanted.height()};
}

void FieldLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    drawFrame(&painter);
    const QRect inner = contentsRect().adjusted(kFieldMargin, 0, -kFieldMargin, 0);
    // Where there is just the room for it, the toolkit would already shorten it by fractions.
    const bool fits = fontMetrics().horizontalAdvance(text()) <= inner.width();
    style()->drawItemText(&painter, inner, static_cast<int>(alignment()), palette(), isEnabled(),
                          fits ? text()
                               : fontMetrics().elidedText(text(), Qt::ElideMiddle, inner.width()),
                          foregroundRole());
}

} // namespace qdw8
