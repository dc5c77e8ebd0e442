#include "windows/main/grid_view.h"

#include "position/grid_cursor.h"
#include "position/grid_editor.h"
#include "windows/controls/group_header.h"
#include "windows/controls/texts.h"
#include "windows/main/cell_editor.h"
#include "windows/main/grid_delegate.h"
#include "windows/main/grid_keys.h"
#include "windows/main/grid_model.h"

#include <QAbstractButton>
#include <QApplication>
#include <QHeaderView>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QItemSelection>
#include <QKeyEvent>
#include <QLabel>
#include <QPalette>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>

namespace qdw8 {
namespace {

constexpr int kBodyColumns = kGridColumns - 1;
constexpr int kLastColumn = kGridCommentColumn - 1; // the comment

GridSelection InUnit() {
    const FlexGrid& grid = flgdData();
    return {grid.row, grid.col, grid.rowSel, grid.colSel};
}

/// What the user has selected. The view's current cell is the end that moves; the unit's current
/// cell is where the selection began. A whole line counts from its first column.
GridSelection InView(const QItemSelectionModel& selection) {
    const QModelIndex moving = selection.currentIndex();
    const QItemSelection ranges = selection.selection();
    if (!moving.isValid() || ranges.isEmpty() || !ranges.contains(moving)) {
        return {};
    }
    const QItemSelectionRange& range = ranges.first();
    const bool wholeLine = range.left() == 0 && range.right() == kLastColumn;
    // A whole column counts from its first line, as a whole line does from its first column.
    const int lastRow = moving.model()->rowCount() - 1;
    const bool wholeColumn = range.top() == 0 && range.bottom() == lastRow && lastRow > 0;
    const bool upwards = !wholeColumn && moving.row() == range.top();
    const bool leftwards = !wholeLine && moving.column() == range.left();
    return {(upwards ? range.bottom() : range.top()) + kGridHeadRows,
            (leftwards ? range.right() : range.left()) + 1,
            (upwards ? range.top() : range.bottom()) + kGridHeadRows,
            (leftwards ? range.left() : range.right()) + 1};
}

} // namespace

GridView::GridView(Events handlers, QWidget* parent)
    : QTableView(parent), cells(new GridModel(this)), corner(new QLabel(this)),
      events(std::move(handlers)) {
    setObjectName(QStringLiteral("flgdData"));
    setModel(cells);
    setItemDelegate(new GridDelegate(this));
    setHorizontalHeader(new GroupHeader({{0, 3}, {4, 7}, {8, 11}, {12, 15}, {16, 19}}, this));
    setSelectionMode(QAbstractItemView::ContiguousSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setHighlightSections(true);

    // The head of the position numbers stands in the corner, which shows no text of its own.
    corner->setAlignment(Qt::AlignCenter);
    if (auto* button = findChild<QAbstractButton*>(QString(), Qt::FindDirectChildrenOnly)) {
        button->setAttribute(Qt::WA_TransparentForMouseEvents);
        auto* inside = new QVBoxLayout(button);
        inside->setContentsMargins(0, 0, 0, 0);
        inside->addWidget(corner);
    }

    editor = new CellEditor(
        {[this](QKeyEvent& key) { keyPressEvent(&key); }, [this] { moveInRow(-1); }}, viewport());

    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { selectionMoved(); });
    connect(selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this] { selectionMoved(); });
    moveSoon.setSingleShot(true);
    connect(&moveSoon, &QTimer::timeout, this, [this] { handBack(); });
    // A click on a head selects lines or columns, past the grid itself.
    verticalHeader()->viewport()->installEventFilter(this);
    horizontalHeader()->viewport()->installEventFilter(this);
    connect(qApp, &QApplication::focusChanged, &alive,
            [this](QWidget*, QWidget* now) { focusMoved(now); });
    widths.fit(*this);
}

void GridView::loadResources() {
    setAccessibleName(ResQText(202));
    corner->setText(ResQText(248));
    refresh();
}

void GridView::refresh() {
    if (flgdData().frozen > 0) {
        return;
    }
    showing = true;
    const bool otherRows = cells->refreshRows();
    if (otherRows) {
        executeDelayedItemsLayout(); // or a new line couldn't be scrolled to yet
    }
    const auto [first, last] = rowsOnScreen();
    cells->refreshCells(first, last);
    showing = false;
    refreshHeads();
    showLock();
    showSelection();
    if (knownHomes != flgdData().homes) {
        knownHomes = flgdData().homes;
        scrollToTop();
        horizontalScrollBar()->setValue(0);
    }
    if (knownShown != flgdData().shown) {
        knownShown = flgdData().shown;
        scrollTo(cells->index(known.row - kGridHeadRows, std::max(known.col, 1) - 1));
    }
    showEditor();
}

void GridView::refreshHeads() {
    if (cells->refreshHeads()) {
        widths.fit(*this);
    }
}

std::pair<int, int> GridView::rowsOnScreen() const {
    const int rows = cells->rowCount();
    const int first = std::max(rowAt(0), 0);
    const int bottom = rowAt(viewport()->height() - 1);
    return {first, bottom < 0 ? rows - 1 : bottom};
}

void GridView::showLock() {
    const bool locked = flgdData().locked > 0;
    const SelectionMode mode =
        locked ? QAbstractItemView::NoSelection : QAbstractItemView::ContiguousSelection;
    if (selectionMode() != mode) {
        setSelectionMode(mode);
        verticalHeader()->setSectionsClickable(!locked);
        horizontalHeader()->setSectionsClickable(!locked);
    }
}

void GridView::showSelection() {
    const GridSelection wanted = InUnit();
    if (moveSoon.isActive()) {
        if (wanted == known) {
            return; // what the user has selected a moment ago stands, and is handed back in its
                    // turn
        }
        moveSoon.stop();
    }
    if (wanted != known) {
        // The frame of the current cell moves, also inside a selection that stays as it is.
        const auto repaint = [this](const GridSelection& selection) {
            update(cells->index(selection.row - kGridHeadRows, selection.col - 1));
        };
        repaint(known);
        repaint(wanted);
        known = wanted;
    }
    const bool nothing = wanted.row < kGridHeadRows;
    const GridSelection shown = InView(*selectionModel());
    if (nothing ? !selectionModel()->hasSelection() : shown == wanted) {
        return;
    }
    showing = true;
    if (nothing) {
        selectionModel()->clear();
    } else {
        const QModelIndex from =
            cells->index(wanted.row - kGridHeadRows, std::max(wanted.col, 1) - 1);
        const QModelIndex to = cells->index(std::max(wanted.rowSel, kGridHeadRows) - kGridHeadRows,
                                            std::max(wanted.colSel, 1) - 1);
        selectionModel()->setCurrentIndex(to, QItemSelectionModel::NoUpdate);
        selectionModel()->select(QItemSelection(from, to), QItemSelectionModel::ClearAndSelect);
    }
    showing = false;
    followInputMethod();
}

void GridView::showEditor() {
    const FlexGrid& grid = flgdData();
    if (!grid.edit.open) {
        if (editor->isVisible()) {
            // A hidden control would hand the focus to whatever comes next in the window.
            if (editor->hasFocus()) {
                setFocus(Qt::OtherFocusReason);
            }
            editor->hide();
        }
        return;
    }
    if (editor->isVisible()) {
        editor->refresh();
        return;
    }
    scrollTo(cells->index(grid.row - kGridHeadRows, grid.col - 1));
    editor->setFont(font());
    const QVariant head = cells->headerData(grid.col - 1, Qt::Horizontal, Qt::AccessibleTextRole);
    editor->setAccessibleName(
        (head.toString() + QLatin1Char(' ') + QString::fromStdString(GridText(grid.row, 0)))
            .trimmed());
    editor->open();
    placeEditor();
    editor->show();
    if (!composing) {
        editor->setFocus(Qt::OtherFocusReason);
    }
}

void GridView::placeEditor() {
    const FlexGrid& grid = flgdData();
    if (editor != nullptr && grid.edit.open) {
        editor->setGeometry(visualRect(cells->index(grid.row - kGridHeadRows, grid.col - 1)));
    }
}

void GridView::scrollContentsBy(int dx, int dy) {
    QTableView::scrollContentsBy(dx, dy);
    if (flgdData().frozen == 0) {
        const auto [first, last] = rowsOnScreen();
        cells->refreshCells(first, std::min(last, cells->rowCount() - 1));
    }
}

void GridView::updateGeometries() {
    QTableView::updateGeometries();
    placeEditor();
}

bool GridView::finishInput() {
    handBackNow();
    if (CommitEdit()) {
        return true;
    }
    editor->setFocus(Qt::OtherFocusReason);
    return false;
}

void GridView::focusMoved(QWidget* now) {
    if (now == this || now == editor) {
        flgdData_EnterCell(flgdData().col);
        followInputMethod();
    }
}

void GridView::followInputMethod() {
    // Figures are typed plainly; the comment leaves the input method to its user.
    QWidget* typing = editor->hasFocus() ? static_cast<QWidget*>(editor) : this;
    const bool wanted = flgdData().col == kGridCommentColumn;
    if (typing->hasFocus() && typing->testAttribute(Qt::WA_InputMethodEnabled) != wanted) {
        typing->setAttribute(Qt::WA_InputMethodEnabled, wanted);
        QGuiApplication::inputMethod()->update(Qt::ImEnabled);
    }
}

void GridView::selectionMoved() {
    // The view tells its current cell and its selection one after the other; both count only when
    // both have moved.
    if (!showing) {
        moveSoon.start();
    }
}

void GridView::handBack() {
    moveSoon.stop();
    const GridSelection selected = InView(*selectionModel());
    if (flgdData().locked > 0 || selected == GridSelection{} || selected == InUnit()) {
        return;
    }
    const QModelIndex before =
        cells->index(InUnit().row - kGridHeadRows, std::max(InUnit().col, 1) - 1);
    if (events.rowColChange) {
        events.rowColChange(selected.row, selected.col, selected.rowSel, selected.colSel);
    }
    known = InUnit();
    // The frame of the current cell moves, also inside the selection.
    update(before);
    update(cells->index(known.row - kGridHeadRows, std::max(known.col, 1) - 1));
    followInputMethod();
}

void GridView::handBackNow() {
    if (moveSoon.isActive()) {
        handBack();
    }
}

bool GridView::eventFilter(QObject* watched, QEvent* event) {
    const bool head =
        watched == verticalHeader()->viewport() || watched == horizontalHeader()->viewport();
    if (head && event->type() == QEvent::MouseButtonPress) {
        if (!finishInput()) {
            return true;
        }
        takeLineForMenu(*static_cast<QMouseEvent*>(event), watched);
    } else if (head && event->type() == QEvent::ContextMenu) {
        contextMenuEvent(static_cast<QContextMenuEvent*>(event));
        return true;
    }
    return QTableView::eventFilter(watched, event);
}

/// The other button on a position number is for its line, too, unless that is selected already.
void GridView::takeLineForMenu(const QMouseEvent& press, const QObject* head) {
    const int row = verticalHeader()->logicalIndexAt(press.pos());
    if (press.button() == Qt::RightButton && head == verticalHeader()->viewport() && row >= 0 &&
        flgdData().locked == 0 && !selectionModel()->isRowSelected(row)) {
        selectRow(row);
        handBackNow();
    }
}

void GridView::mousePressEvent(QMouseEvent* event) {
    if (flgdData().locked == 0 && finishInput() && indexAt(event->pos()).isValid()) {
        QTableView::mousePressEvent(event);
        handBackNow();
    }
}

void GridView::mouseMoveEvent(QMouseEvent* event) {
    // A drag that began on a cell whose text was rejected must not move the edit's cell.
    if (!flgdData().edit.open) {
        QTableView::mouseMoveEvent(event);
        handBackNow();
    }
}

void GridView::mouseReleaseEvent(QMouseEvent* event) {
    QTableView::mouseReleaseEvent(event);
    handBackNow();
}

void GridView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (flgdData().locked > 0 || !finishInput()) {
        return;
    }
    QTableView::mouseDoubleClickEvent(event);
    handBackNow();
    if (event->button() == Qt::LeftButton && indexAt(event->pos()).isValid()) {
        flgdData_DblClick();
    }
}

void GridView::keyboardSearch(const QString&) {
    // Typing edits the cell; it looks for none.
}

// The focus goes to the edit box and back with every edit. The base class repaints everything for
// it and makes the first cell the current one; here only the frame and the colour of the selection
// can change, and the current cell is the unit's affair.
void GridView::focusInEvent(QFocusEvent*) {
    focusChanged();
}

void GridView::focusOutEvent(QFocusEvent*) {
    ForgetDroppedKeys();
    focusChanged();
}

void GridView::focusChanged() {
    QWidget::update();
    viewport()->update(visualRegionForSelection(selectionModel()->selection()));
}

bool GridView::event(QEvent* event) {
    // Without this the menus' keys would take copy and paste for the cell commands alone.
    if (event->type() == QEvent::ShortcutOverride) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->matches(QKeySequence::Copy) || key->matches(QKeySequence::Paste)) {
            event->accept();
            return true;
        }
    }
    return QTableView::event(event);
}

void GridView::keyPressEvent(QKeyEvent* event) {
    if (flgdData().locked > 0) {
        return;
    }
    handBackNow();
    if (flgdData().edit.open) {
        editor->setFocus(Qt::OtherFocusReason);
        QCoreApplication::sendEvent(editor, event);
        return;
    }
    if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier) {
        openMenuOnCell(); // as the menu key, which not every keyboard has
        return;
    }
    const GridKeys keys{
        events.command, [this](const QString& text) { editor->beginWith(text); },
        [this] { return cells->rowCount() > 0 ? rowsOnScreen().first + kGridHeadRows : 0; }};
    if (!RunGridKey(*event, keys)) {
        QTableView::keyPressEvent(event);
        handBackNow();
    }
}

void GridView::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() == QContextMenuEvent::Mouse) {
        openMenu(event->globalPos());
    } else {
        openMenuOnCell();
    }
}

void GridView::openMenu(QPoint at) {
    if (flgdData().locked == 0 && !flgdData().edit.open && events.menu) {
        events.menu(at);
    }
}

void GridView::openMenuOnCell() {
    const QModelIndex current = cells->index(flgdData().row - kGridHeadRows, flgdData().col - 1);
    scrollTo(current);
    openMenu(viewport()->mapToGlobal(visualRect(current).center()));
}

bool GridView::focusNextPrevChild(bool next) {
    handBackNow();
    return (hasFocus() && moveInRow(next ? 1 : -1)) || QTableView::focusNextPrevChild(next);
}

/// False: no cell is current, or there is none on that side.
bool GridView::moveInRow(int columns) {
    const FlexGrid& grid = flgdData();
    const int column = grid.col + columns;
    if (grid.locked > 0 || grid.row < kGridHeadRows || column < 1 || column > kGridCommentColumn) {
        return false;
    }
    GoToCell(grid.row, column);
    return true;
}

void GridView::inputMethodEvent(QInputMethodEvent* event) {
    const bool begins = !event->preeditString().isEmpty() || !event->commitString().isEmpty();
    if (!flgdData().edit.open) {
        // The composition goes on here until it ends: a change of the focus would break it off.
        composing = true;
        if (!begins || flgdData().col != kGridCommentColumn || !StartEdit()) {
            composing = false;
            event->ignore();
            return;
        }
        editor->beginWith(QString());
    }
    QCoreApplication::sendEvent(editor, event);
    if (event->preeditString().isEmpty()) {
        composing = false;
        editor->setFocus(Qt::OtherFocusReason);
    }
}

QVariant GridView::inputMethodQuery(Qt::InputMethodQuery query) const {
    return flgdData().edit.open ? editor->inputMethodQuery(query)
                                : QTableView::inputMethodQuery(query);
}

void GridView::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    widths.spread(*this);
}

void GridView::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        widths.fit(*this);
    }
}

} // namespace qdw8
