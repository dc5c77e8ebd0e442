#include "windows/motion/lamp_button.h"

#include "windows/controls/icons.h"
#include "windows/controls/labels.h"

#include <QPainter>
#include <QStyleOptionFocusRect>

namespace qdw8 {
namespace {

constexpr int kInset = 3; ///< room for the mark of the focus

} // namespace

LampButton::LampButton(const QString& white, const QString& name, Drawing lit,
                       const QString& caption, QWidget* parent)
    : QCheckBox(caption, parent), coloured(new PictureLabel(IconOf(lit), kLampSide, this)) {
    setObjectName(white);
    coloured->setObjectName(name);
    coloured->hide();
}

void LampButton::light(bool on) {
    setChecked(on);
    coloured->setVisible(on);
}

QSize LampButton::sizeHint() const {
    return {kLampSide + kLampGap + fontMetrics().horizontalAdvance(text()) + 3 * kInset,
            qMax(kLampSide, fontMetrics().height()) + 2 * kInset};
}

QRect LampButton::lampPlace() const {
    return {kInset, (height() - kLampSide) / 2, kLampSide, kLampSide};
}

void LampButton::resizeEvent(QResizeEvent* event) {
    QCheckBox::resizeEvent(event);
    coloured->setGeometry(lampPlace());
}

void LampButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    IconOf(Drawing::LampWhite).paint(&painter, lampPlace());
    const QRect textPlace = rect().adjusted(kInset + kLampSide + kLampGap, 0, -kInset, 0);
    style()->drawItemText(&painter, textPlace, Qt::AlignLeft | Qt::AlignVCenter, palette(),
                          isEnabled(), text(), foregroundRole());
    if (hasFocus()) {
        QStyleOptionFocusRect option;
        option.initFrom(this);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }
}

} // namespace qdw8
