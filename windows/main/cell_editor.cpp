#include "windows/main/cell_editor.h"

#include "platform/platform.h"
#include "position/flex_grid.h"
#include "position/grid_editor.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <algorithm>

namespace qdw8 {
namespace {

constexpr int kTextMargin = 1; // beside the two pixels that the control keeps itself

bool IsComment() {
    return flgdData().col == kGridCommentColumn;
}

/// The control itself would count units of 16 bits, of which some characters take two.
int CharactersIn(const QString& text) {
    return static_cast<int>(
        std::count_if(text.begin(), text.end(), [](QChar c) { return !c.isLowSurrogate(); }));
}

/// A figure without the blanks that pad it in its cell: they would use up the box's length.
QString Shown(const std::string& text) {
    QString shown = QString::fromStdString(text);
    if (!IsComment()) {
        shown.remove(0, static_cast<int>(std::min(text.find_first_not_of(' '), text.size())));
    }
    return shown;
}

/// The second key of the grid's redo is the edit's own as well, also where the desktop has none but
/// Ctrl+Shift+Z.
bool IsRedo(const QKeyEvent& event) {
    return event.key() == Qt::Key_Y && event.modifiers() == Qt::ControlModifier;
}

/// What a line edit inserts for a key: what the key writes, also with Alt or AltGr held down.
QString InsertedText(const QKeyEvent& event) {
    const Qt::KeyboardModifiers others = event.modifiers() & ~Qt::ShiftModifier;
    const QString text = event.text();
    const bool inserts = others != Qt::ControlModifier && !text.isEmpty() && text[0].isPrint();
    return inserts ? text : QString();
}

} // namespace

int EditKeyOf(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab: return kKeyTab;
    case Qt::Key_Return:
    case Qt::Key_Enter: return kKeyEnter;
    case Qt::Key_Escape: return kKeyEscape;
    default: return event.key();
    }
}

QString TypedText(const QKeyEvent& event) {
    const Qt::KeyboardModifiers others =
        event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    const QString text = event.text();
    return others == Qt::NoModifier && !text.isEmpty() && text[0].isPrint() ? text : QString();
}

CellEditor::CellEditor(Keys handlers, QWidget* parent)
    : QLineEdit(parent), keys(std::move(handlers)) {
    setObjectName(QStringLiteral("flgdDataEdit"));
    setFrame(false);
    setTextMargins(kTextMargin, 0, kTextMargin, 0);
    // Every other way of a text into the box would get round the key filter.
    setContextMenuPolicy(Qt::PreventContextMenu);
    setDragEnabled(false);
    setAcceptDrops(false);
    const Rgb rgb = RgbOf(CellColour::Editing);
    QPalette colours;
    colours.setColor(QPalette::Base, QColor(rgb.red, rgb.green, rgb.blue));
    colours.setColor(QPalette::Text, Qt::black);
    setPalette(colours);
    hide();
    connect(this, &QLineEdit::textEdited, this, [this] { take(); });
}

void CellEditor::open() {
    setAlignment(Qt::AlignVCenter | (IsComment() ? Qt::AlignLeft : Qt::AlignRight));
    taken = flgdData().edit.text;
    spoiled = flgdData().edit.spoiled;
    setText(Shown(taken));
    selectAll();
}

void CellEditor::refresh() {
    if (flgdData().edit.text != taken) {
        open();
    }
}

void CellEditor::beginWith(const QString& typed) {
    selectAll();
    insert(typed);
}

void CellEditor::take() {
    SetEditText(text().toStdString());
    taken = flgdData().edit.text;
    const QString held = QString::fromStdString(taken);
    const int at = cursorPosition();
    // Undoing must not bring back what a dropped key has spoiled: a new text has no past.
    const bool wholeAgain = spoiled && !flgdData().edit.spoiled;
    spoiled = flgdData().edit.spoiled;
    if (held != text() || wholeAgain) { // the rules may have changed a character
        setText(held);
        setCursorPosition(at);
    }
}

int CellEditor::room() const {
    // What stands in the cell may be longer, when it was pasted; it can only get shorter then.
    const int free = std::max(flgdData().edit.maxLength - CharactersIn(text()), 0);
    return free + CharactersIn(selectedText());
}

void CellEditor::paste() {
    const auto whole = TextToPaste(ThePlatform().TheClipboard.GetText(), room());
    if (whole && goesIn(QString::fromStdString(*whole))) {
        insert(QString::fromStdString(*whole));
    }
}

bool CellEditor::goesIn(const QString& typed) {
    QString becomes = text();
    becomes.replace(hasSelectedText() ? selectionStart() : cursorPosition(), selectedText().size(),
                    typed);
    if (TypeIntoEdit(typed.toStdString(), becomes.toStdString())) {
        return true;
    }
    spoiled = flgdData().edit.spoiled;
    if (spoiled) {
        // What comes next would take the place of the selection, as if nothing had been typed
        // before.
        deselect();
    }
    return false;
}

bool CellEditor::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && IsRedo(*static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    return QLineEdit::event(event);
}

void CellEditor::keyPressEvent(QKeyEvent* event) {
    flgdData_KeyDownEdit(EditKeyOf(*event));
    if (IsRedo(*event)) {
        redo();
        return;
    }
    if (event->matches(QKeySequence::Paste)) {
        paste();
        return;
    }
    switch (event->key()) {
    case Qt::Key_Escape: CancelEdit(); return;
    case Qt::Key_Return:
    case Qt::Key_Enter: CommitEdit(); return;
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        if (CommitEdit()) {
            keys.move(*event);
        }
        return;
    default: break;
    }
    if (goesIn(InsertedText(*event))) {
        QLineEdit::keyPressEvent(event);
    }
    // A key that does nothing here must not be taken for one that the grid got.
    event->accept();
}

void CellEditor::inputMethodEvent(QInputMethodEvent* event) {
    QString committed = event->commitString();
    while (IsComment() && CharactersIn(committed) > room()) {
        committed.chop(committed.back().isLowSurrogate() ? 2 : 1);
    }
    if (goesIn(committed)) {
        event->setCommitString(committed, event->replacementStart(), event->replacementLength());
        QLineEdit::inputMethodEvent(event);
    }
}

void CellEditor::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::MiddleButton) {
        QLineEdit::mouseReleaseEvent(event);
    }
}

bool CellEditor::focusNextPrevChild(bool next) {
    flgdData_KeyDownEdit(next ? kKeyTab : 0);
    if (CommitEdit() && !next) {
        keys.back();
    }
    return true;
}

} // namespace qdw8
