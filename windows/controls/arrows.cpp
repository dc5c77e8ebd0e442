#include "windows/controls/arrows.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QStyle>
#include <QStyleOptionSpinBox>

namespace qdw8 {
namespace {

constexpr int kArrowFrame = 3; ///< around the arrows beside the number

} // namespace

Arrows::Arrows(const QString& name, int lowest, int highest, QWidget* parent) : QSpinBox(parent) {
    setObjectName(name);
    lineEdit()->hide();
    setRange(lowest, highest);
    setKeyboardTracking(false);
}

QSize Arrows::minimumSizeHint() const {
    QStyleOptionSpinBox option;
    initStyleOption(&option);
    const int arrows =
        style()->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxUp, this).width();
    return {arrows + 2 * kArrowFrame, QSpinBox::minimumSizeHint().height()};
}

void Arrows::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down) {
        QSpinBox::keyPressEvent(event);
    } else {
        event->ignore();
    }
}

} // namespace qdw8
