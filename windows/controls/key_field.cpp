#include "windows/controls/key_field.h"

#include "platform/platform.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <utility>

namespace qdw8 {

KeyField::KeyField(const QString& name, int most, Takes taken, QWidget* parent)
    : QLineEdit(parent), length(most), takes(std::move(taken)) {
    setObjectName(name);
    setContextMenuPolicy(Qt::NoContextMenu);
    setDragEnabled(false);
    setAcceptDrops(false);
    setAttribute(Qt::WA_InputMethodEnabled, false);
    setAlignment(Qt::AlignRight);
    connect(this, &QLineEdit::textEdited, this, [this](const QString& now) {
        edited = true;
        spoiled = spoiled && !now.isEmpty();
    });
}

bool KeyField::settle() {
    const bool drops = std::exchange(spoiled, false) && edited;
    if (drops) {
        ThePlatform().Beep();
        if (onSpoiled) {
            onSpoiled();
        } else {
            selectAll();
            del();
        }
    }
    edited = false;
    return drops;
}

void KeyField::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        settle();
        if (onEnter) {
            onEnter();
        } else {
            focusNextChild();
        }
        return;
    case Qt::Key_Backspace:
    case Qt::Key_Delete:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Home:
    case Qt::Key_End: QLineEdit::keyPressEvent(event); return;
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Escape: event->ignore(); return;
    default: break;
    }
    if (event->matches(QKeySequence::SelectAll)) {
        selectAll();
        return;
    }
    const auto commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    if (!event->text().isEmpty() && event->text()[0].isPrint() &&
        !(event->modifiers() & commands)) {
        type(event);
    }
}

void KeyField::type(QKeyEvent* event) {
    const QString typed = event->text();
    if (typed.size() == 1 && text().size() - selectedText().size() < length &&
        takes(typed[0].toLatin1())) {
        spoiled = spoiled && (text().isEmpty() || selectedText() != text());
        QLineEdit::keyPressEvent(event);
        return;
    }
    ThePlatform().Beep();
    if (length > 1) {
        spoiled = true;
        deselect();
    }
}

void KeyField::mouseReleaseEvent(QMouseEvent* event) {
    // The middle button would paste.
    if (event->button() != Qt::MiddleButton) {
        QLineEdit::mouseReleaseEvent(event);
    }
    if (std::exchange(clickedWhole, false) && !hasSelectedText()) {
        selectAll(); // dragged over nothing
    }
}

void KeyField::focusOutEvent(QFocusEvent* event) {
    // Another window for a while is no leaving; the line edit sees it so, too.
    if (event->reason() != Qt::ActiveWindowFocusReason && event->reason() != Qt::PopupFocusReason) {
        settle();
    }
    QLineEdit::focusOutEvent(event);
}

void KeyField::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    selectAll();
    clickedIn = event->reason() == Qt::MouseFocusReason;
}

void KeyField::mousePressEvent(QMouseEvent* event) {
    QLineEdit::mousePressEvent(event);
    // The press that brings the focus would take the selection away again.
    clickedWhole = std::exchange(clickedIn, false) || length == 1;
    dragged = false;
    if (clickedWhole) {
        selectAll();
        clickedAt = event->position().toPoint();
    }
}

void KeyField::mouseMoveEvent(QMouseEvent* event) {
    if (clickedWhole && !dragged) {
        // A hand that isn't quite still selects nothing else.
        const QPoint way = event->position().toPoint() - clickedAt;
        if (length == 1 || way.manhattanLength() < QApplication::startDragDistance()) {
            return;
        }
        dragged = true;
        setCursorPosition(cursorPositionAt(clickedAt));
    }
    QLineEdit::mouseMoveEvent(event);
}

bool IsDigit(char character) {
    return character >= '0' && character <= '9';
}

} // namespace qdw8
