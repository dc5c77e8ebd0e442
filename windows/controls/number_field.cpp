#include "windows/controls/number_field.h"

#include <QKeyEvent>
#include <QRegularExpressionValidator>

namespace qdw8 {
namespace {

constexpr int kSpareDigits = 5; ///< wider than its digits by so many

} // namespace

NumberField::NumberField(const QString& name, int digits, QWidget* parent) : QLineEdit(parent) {
    setObjectName(name);
    setMaxLength(digits);
    setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]*")), this));
    setContextMenuPolicy(Qt::NoContextMenu);
    setDragEnabled(false);
    setAcceptDrops(false);
    setAttribute(Qt::WA_InputMethodEnabled, false);
    setAlignment(Qt::AlignRight);
    setFixedWidth(fontMetrics().horizontalAdvance(QLatin1Char('0')) * (digits + kSpareDigits));
}

void NumberField::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter: focusNextChild(); return;
    case Qt::Key_Backspace:
    case Qt::Key_Delete:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Home:
    case Qt::Key_End: QLineEdit::keyPressEvent(event); return;
    case Qt::Key_Escape:
        event->ignore(); // the dialog's
        return;
    default: break;
    }
    const QString text = event->text();
    const bool digit =
        text.size() == 1 && text[0] >= QLatin1Char('0') && text[0] <= QLatin1Char('9');
    if (digit && (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier) {
        QLineEdit::keyPressEvent(event);
    }
}

void NumberField::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    selectAll();
}

} // namespace qdw8
