#include "windows/motion/move_list.h"

#include "motion/move_list_edit.h"
#include "platform/platform.h"
#include "windows/controls/key_field.h"
#include "windows/controls/load_form_resources.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QSignalBlocker>

namespace qdw8 {
namespace {

constexpr std::int16_t kHead = 523;
constexpr std::int16_t kTip = 3224;

constexpr int kDigits = 3;
constexpr int kAround = 14; ///< of the digits in a cell, and of a text in a head
constexpr int kRowPadding = 8;
/// Keys as the rules of the list know them.
constexpr int kEnterKey = 13;
constexpr int kSpaceKey = 32;
constexpr int kBackspaceKey = 8;

/// The code that opens the editor; -1: the key is none of the editor's.
int OpeningKey(const QKeyEvent& event) {
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter: return kEnterKey;
    case Qt::Key_F2:
    case Qt::Key_Space: return kSpaceKey;
    case Qt::Key_Backspace:
    case Qt::Key_Delete: return kBackspaceKey;
    default: break;
    }
    const auto commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    const QString text = event.text();
    const bool types = !(event.modifiers() & commands) && !text.isEmpty() && text[0].isPrint();
    return types ? text[0].unicode() : -1;
}

} // namespace

MoveList::MoveList(QWidget* parent)
    : QTableWidget(1, static_cast<int>(kMoveCells), parent),
      editor(new KeyField(
          QStringLiteral("txtEdit2"), kDigits,
          [this](char key) {
              return Edit2Takes(key, static_cast<std::size_t>(editor->text().size() -
                                                              editor->selectedText().size()));
          },
          viewport())) {
    setObjectName(QStringLiteral("flgdProgram"));
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setTabKeyNavigation(false);
    setAutoScroll(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(false);
    horizontalHeader()->setDefaultSectionSize(
        fontMetrics().horizontalAdvance(QLatin1Char('0')) * kDigits + kAround);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setHighlightSections(false);
    verticalHeader()->setSectionsClickable(false);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRowPadding);
    for (int column = 0; column < columnCount(); ++column) {
        auto* number = new QTableWidgetItem(QString::number(column + 1));
        number->setData(Qt::AccessibleTextRole, number->text());
        setHorizontalHeaderItem(column, number);
        auto* cell = new QTableWidgetItem;
        cell->setTextAlignment(Qt::AlignCenter);
        setItem(0, column, cell);
    }
    auto* head = new QTableWidgetItem;
    head->setData(kTagRole, kHead);
    setVerticalHeaderItem(0, head);
    SetNumbers(*this, kHead, kTip);
    colour();
    editor->setFrame(false);
    editor->setAlignment(Qt::AlignCenter);
    SetNumbers(*editor, kHead);
    editor->onEnter = [] { Edit2KeyCode(Edit2Key::Enter); };
    editor->hide();
    editor->installEventFilter(this);
    connect(editor, &KeyField::textEdited, this,
            [](const QString& text) { txtEdit2_Change(text.toStdString()); });
    connect(this, &QTableWidget::currentCellChanged, this,
            [](int, int column) { flgdProgram_GoTo(static_cast<std::size_t>(column)); });
}

MoveList::~MoveList() {
    // An editor that has the focus tells when it loses it, and in a window that goes it does.
    editor->removeEventFilter(this);
    disconnect();
}

/// In a list that is locked no cell is chosen.
void MoveList::colour() {
    const QPalette now = palette();
    if (now.brush(QPalette::Disabled, QPalette::Highlight) !=
            now.brush(QPalette::Disabled, QPalette::Base) ||
        now.brush(QPalette::Disabled, QPalette::HighlightedText) !=
            now.brush(QPalette::Disabled, QPalette::Text)) {
        QPalette colours;
        colours.setBrush(QPalette::Disabled, QPalette::Highlight,
                         now.brush(QPalette::Disabled, QPalette::Base));
        colours.setBrush(QPalette::Disabled, QPalette::HighlightedText,
                         now.brush(QPalette::Disabled, QPalette::Text));
        setPalette(colours);
    }
}

void MoveList::changeEvent(QEvent* event) {
    QTableWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        colour();
    }
}

QSize MoveList::sizeHint() const {
    const int frame = 2 * frameWidth();
    return {verticalHeader()->sizeHint().width() + horizontalHeader()->length() + frame,
            horizontalHeader()->sizeHint().height() + verticalHeader()->length() + frame};
}

void MoveList::showState(const MoveFormData& form) {
    const QSignalBlocker cellIsTold(this);
    for (std::size_t column = 0; column < kMoveCells; ++column) {
        const int at = static_cast<int>(column);
        if (const QString text = QString::fromStdString(form.fields.flgdProgram[column]);
            item(0, at)->text() != text) {
            item(0, at)->setText(text);
        }
        QFont font = horizontalHeader()->font();
        font.setBold(column == form.nextCell);
        horizontalHeaderItem(at)->setFont(font);
    }
    if (const int column = static_cast<int>(form.fields.column); currentColumn() != column) {
        setCurrentCell(0, column);
    }
    showEditor(form.fields.txtEdit2);
}

void MoveList::showEditor(const ListEdit& edit) {
    const QString text = QString::fromStdString(edit.text);
    if (edit.shown) {
        editor->setGeometry(visualItemRect(currentItem()));
        if (!editor->isVisible() || editor->text() != text) {
            editor->setText(text);
        }
        if (!editor->isVisible()) {
            editor->show();
            editor->setFocus();
            editor->deselect();
            editor->end(false);
        }
    } else if (editor->isVisible()) {
        const bool hadFocus = editor->hasFocus();
        editor->hide();
        if (hadFocus) {
            setFocus();
        }
    }
}

bool MoveList::takeTyped() {
    if (!editor->isVisible()) {
        return true;
    }
    const bool spoiled = editor->settle();
    return flgdProgram_GotFocus() && !spoiled;
}

void MoveList::typeAgain() {
    ThePlatform().Beep();
    flgdProgramEdit2(kSpaceKey);
    editor->selectAll();
}

void MoveList::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Escape: return; // once more, behind the one that has hidden the editor
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Home:
    case Qt::Key_End: QTableWidget::keyPressEvent(event); return;
    default: break;
    }
    const int key = OpeningKey(*event);
    if (key < 0) {
        event->ignore();
        return;
    }
    flgdProgramEdit2(key);
    if (key > kSpaceKey && editor->isVisible()) {
        // Typed, so that it is dropped with whatever spoils it.
        editor->selectAll();
        editor->insert(QChar(key));
    }
}

void MoveList::focusInEvent(QFocusEvent* event) {
    QTableWidget::focusInEvent(event);
    takeTyped();
}

void MoveList::mouseDoubleClickEvent(QMouseEvent* event) {
    QTableWidgetItem* cell = itemAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && cell != nullptr) {
        setCurrentItem(cell); // the first click may have been beside it
        flgdProgramEdit2(kSpaceKey);
    }
}

bool MoveList::eventFilter(QObject* watched, QEvent* event) {
    if (watched != editor) {
        return QTableWidget::eventFilter(watched, event);
    }
    if (event->type() == QEvent::FocusOut) {
        const auto reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) {
            takeTyped();
        }
    }
    if (event->type() != QEvent::KeyPress) {
        return false;
    }
    switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Escape: Edit2KeyCode(Edit2Key::Escape); return true;
    case Qt::Key_Left:
        editor->settle();
        Edit2KeyCode(Edit2Key::Left);
        return true;
    case Qt::Key_Right:
        editor->settle();
        Edit2KeyCode(Edit2Key::Right);
        return true;
    default: return false;
    }
}

} // namespace qdw8
