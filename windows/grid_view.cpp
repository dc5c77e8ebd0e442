#include "windows/grid_view.h"

#include "position/flex_grid.h"
#include "position/posi_table.h"
#include "windows/group_header.h"
#include "windows/texts.h"

#include <QAbstractButton>
#include <QColor>
#include <QHeaderView>
#include <QItemSelection>
#include <QKeyEvent>
#include <QLabel>
#include <QPalette>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>
#include <numeric>

namespace qdw8 {
namespace {

constexpr int kBodyColumns = kGridColumns - 1;
constexpr int kLastColumn = kGridCommentColumn - 1; // the comment

constexpr int kCellPadding = 6;
// Width of the comment, in digits.
constexpr int kLeastComment = 14;
constexpr int kFullComment = 60;
bool Exists(int gridRow) {
    return gridRow >= 0 && static_cast<std::size_t>(gridRow) < flgdData().rows.size();
}

QString CellText(int gridRow, int gridColumn) {
    // While the grid is frozen it may have fewer rows than the view knows of.
    return Exists(gridRow) ? QString::fromStdString(GridText(gridRow, gridColumn)) : QString();
}

CellColour ColourOf(int gridRow, int gridColumn) {
    return Exists(gridRow) ? flgdData()
                                 .rows[static_cast<std::size_t>(gridRow)]
                                 .colour[static_cast<std::size_t>(gridColumn)]
                           : CellColour::Window;
}

/// The four numbers that tell a selection: the current cell and the other end.
struct Selected {
    int row = 0;
    int col = 0;
    int rowSel = 0;
    int colSel = 0;
    bool operator==(const Selected&) const = default;
};

Selected InUnit() {
    const FlexGrid& grid = flgdData();
    return {grid.row, grid.col, grid.rowSel, grid.colSel};
}

/// What the user has selected. The view's current cell is the end that moves; the unit's current
/// cell is where the selection began. A whole line counts from its first column.
Selected InView(const QItemSelectionModel& selection) {
    const QModelIndex moving = selection.currentIndex();
    const QItemSelection ranges = selection.selection();
    if (!moving.isValid() || ranges.isEmpty() || !ranges.contains(moving)) {
        return {};
    }
    const QItemSelectionRange& range = ranges.first();
    const bool wholeLine = range.left() == 0 && range.right() == kLastColumn;
    const bool upwards = moving.row() == range.top();
    const bool leftwards = !wholeLine && moving.column() == range.left();
    return {(upwards ? range.bottom() : range.top()) + kGridHeadRows,
            (leftwards ? range.right() : range.left()) + 1,
            (upwards ? range.top() : range.bottom()) + kGridHeadRows,
            (leftwards ? range.left() : range.right()) + 1};
}

} // namespace

GridModel::GridModel(QObject* parent)
    : QAbstractTableModel(parent), groupHeads(kBodyColumns), labels(kBodyColumns) {}

int GridModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : shownRows;
}

int GridModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : kBodyColumns;
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    const int row = index.row() + kGridHeadRows;
    const int column = index.column() + 1;
    switch (role) {
    case Qt::DisplayRole: return CellText(row, column);
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(Qt::AlignVCenter |
                                   (column == kGridCommentColumn ? Qt::AlignLeft : Qt::AlignRight));
    case Qt::BackgroundRole:
    case Qt::ForegroundRole: {
        const CellColour colour = ColourOf(row, column);
        if (colour == CellColour::Window) {
            return {};
        }
        const Rgb rgb = RgbOf(colour);
        // The fixed colours are all light, so the text on them is dark on every palette.
        return role == Qt::BackgroundRole ? QColor(rgb.red, rgb.green, rgb.blue)
                                          : QColor(Qt::black);
    }
    default: return {};
    }
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Vertical) {
        switch (role) {
        case Qt::DisplayRole: return CellText(section + kGridHeadRows, 0);
        case Qt::TextAlignmentRole: return Qt::AlignCenter;
        default: return {};
        }
    }
    if (section < 0 || section >= kBodyColumns) {
        return {};
    }
    switch (role) {
    case Qt::DisplayRole: return labels[section];
    case GroupHeader::kGroupRole:
    case Qt::ToolTipRole: return groupHeads[section];
    default: return {};
    }
}

void GridModel::refresh() {
    const int rows = static_cast<int>(flgdData().rows.size()) - kGridHeadRows;
    if (rows > shownRows) {
        beginInsertRows({}, shownRows, rows - 1);
        shownRows = rows;
        endInsertRows();
    } else if (rows < shownRows) {
        beginRemoveRows({}, rows, shownRows - 1);
        shownRows = rows;
        endRemoveRows();
    }
    if (shownRows > 0) {
        emit dataChanged(index(0, 0), index(shownRows - 1, kBodyColumns - 1));
        emit headerDataChanged(Qt::Vertical, 0, shownRows - 1);
    }
}

bool GridModel::refreshHeads() {
    bool headsChanged = false;
    const auto take = [&headsChanged](QString& held, const std::string& head) {
        const QString text = QString::fromStdString(head);
        if (held != text) {
            held = text;
            headsChanged = true;
        }
    };
    for (int column = 0; column < kBodyColumns; ++column) {
        take(groupHeads[column], GridHead(0, column + 1));
        take(labels[column], GridHead(1, column + 1));
    }
    if (headsChanged) {
        emit headerDataChanged(Qt::Horizontal, 0, kBodyColumns - 1);
    }
    return headsChanged;
}

GridView::GridView(RowColChange rowColChange, QWidget* parent)
    : QTableView(parent), cells(new GridModel(this)), corner(new QLabel(this)),
      moved(std::move(rowColChange)) {
    setObjectName(QStringLiteral("flgdData"));
    setModel(cells);
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

    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { selectionMoved(); });
    connect(selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this] { selectionMoved(); });
    moveSoon.setSingleShot(true);
    connect(&moveSoon, &QTimer::timeout, this, [this] { handBack(); });
    fitColumns();
}

void GridView::loadResources() {
    setAccessibleName(TextOf(202));
    corner->setText(TextOf(248));
    refresh();
}

void GridView::refresh() {
    if (flgdData().frozen > 0) {
        return;
    }
    if (moveSoon.isActive()) {
        handBack();
    }
    showing = true;
    cells->refresh();
    showing = false;
    refreshHeads();
    const SelectionMode mode = flgdData().locked > 0 ? QAbstractItemView::NoSelection
                                                     : QAbstractItemView::ContiguousSelection;
    if (selectionMode() != mode) {
        setSelectionMode(mode);
        verticalHeader()->setSectionsClickable(flgdData().locked == 0);
        horizontalHeader()->setSectionsClickable(flgdData().locked == 0);
    }
    showSelection();
}

void GridView::refreshHeads() {
    if (cells->refreshHeads()) {
        fitColumns();
    }
}

void GridView::showSelection() {
    const Selected wanted = InUnit();
    const bool nothing = wanted.row < kGridHeadRows;
    const Selected shown = InView(*selectionModel());
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
    const Selected selected = InView(*selectionModel());
    if (flgdData().locked > 0 || selected == Selected{} || selected == InUnit()) {
        return;
    }
    if (moved) {
        moved(selected.row, selected.col, selected.rowSel, selected.colSel);
    }
}

void GridView::mousePressEvent(QMouseEvent* event) {
    if (flgdData().locked == 0) {
        QTableView::mousePressEvent(event);
    }
}

void GridView::keyPressEvent(QKeyEvent* event) {
    if (flgdData().locked == 0) {
        QTableView::keyPressEvent(event);
    }
}

void GridView::fitColumns() {
    const QFontMetrics font = fontMetrics();
    const auto wide = [&font](const QString& text) { return font.horizontalAdvance(text); };
    verticalHeader()->setMinimumSectionSize(font.height());
    verticalHeader()->setDefaultSectionSize(font.height() + kCellPadding);
    verticalHeader()->setFixedWidth(wide(QStringLiteral("0000")) + 2 * kCellPadding);
    horizontalHeader()->setMinimumSectionSize(wide(QStringLiteral("00")));
    const int digits = wide(QStringLiteral("00")) + 2 * kCellPadding;
    const int position = wide(QStringLiteral("000.000")) + 2 * kCellPadding;
    int heads = 0;
    for (int column = 0; column < kLastColumn; ++column) {
        const bool isPosition = column < kItpl && column % kAxisColumns == kPosi;
        const QString label = cells->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
        int width = std::max(isPosition ? position : digits, wide(label) + kCellPadding);
        if (isPosition) {
            // The head over the axis names its actuator; its last column makes the room for it.
            const QString head =
                cells->headerData(column, Qt::Horizontal, GroupHeader::kGroupRole).toString();
            width = std::max(width, wide(head) + kCellPadding - heads);
        }
        heads = column % kAxisColumns == kPosi ? 0 : heads + width;
        leastWidths[static_cast<std::size_t>(column)] = width;
    }
    spreadColumns();
}

void GridView::spreadColumns() {
    const int digit = fontMetrics().horizontalAdvance(QLatin1Char('0'));
    const int taken = std::accumulate(leastWidths.begin(), leastWidths.end(), 0);
    const int left = viewport()->width() - taken;
    // Once the comment is as long as it can get, the other columns have a share in the room.
    const int spare = (left - digit * kFullComment) / kLastColumn;
    const int more = std::clamp(spare, 0, digit * 2);
    for (int column = 0; column < kLastColumn; ++column) {
        setColumnWidth(column, leastWidths[static_cast<std::size_t>(column)] + more);
    }
    setColumnWidth(kLastColumn, std::max(digit * kLeastComment, left - more * kLastColumn));
}

void GridView::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    spreadColumns();
}

void GridView::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        fitColumns();
    }
}

} // namespace qdw8
