#include "windows/main/grid_model.h"

#include "windows/controls/group_header.h"
#include "windows/controls/texts.h"

#include <algorithm>
#include <utility>

namespace qdw8 {
namespace {

constexpr int kBodyColumns = kGridColumns - 1;
/// With more changed cells than this, one repaint of everything costs less than one for each.
constexpr int kManyCells = 100;

bool Exists(int gridRow) {
    return gridRow >= 0 && static_cast<std::size_t>(gridRow) < flgdData().rows.size();
}

QString CellText(int gridRow, int gridColumn) {
    // While the grid is frozen it may have fewer rows than the view knows of.
    return Exists(gridRow) ? QString::fromStdString(GridText(gridRow, gridColumn)) : QString();
}

bool IsBad(int gridRow, int gridColumn) {
    return Exists(gridRow) && flgdData().rows[static_cast<std::size_t>(gridRow)].bad.test(
                                  static_cast<std::size_t>(gridColumn));
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
    case Qt::AccessibleDescriptionRole: return IsBad(row, column) ? ResQText(3077) : QString();
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(Qt::AlignVCenter |
                                   (column == kGridCommentColumn ? Qt::AlignLeft : Qt::AlignRight));
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
    case Qt::AccessibleTextRole:
        return QString(groupHeads[section] + QLatin1Char(' ') + labels[section]);
    case GroupHeader::kGroupRole:
    case Qt::ToolTipRole: return groupHeads[section];
    default: return {};
    }
}

bool GridModel::refreshRows() {
    const int rows = static_cast<int>(flgdData().rows.size()) - kGridHeadRows;
    if (rows > shownRows) {
        beginInsertRows({}, shownRows, rows - 1);
        shownRows = rows;
        endInsertRows();
        return true;
    }
    if (rows < shownRows) {
        beginRemoveRows({}, rows, shownRows - 1);
        shownRows = rows;
        endRemoveRows();
        return true;
    }
    return false;
}

void GridModel::refreshCells(int first, int last) {
    std::vector<FlexGrid::Row> now;
    now.reserve(static_cast<std::size_t>(std::max(last - first + 1, 0)));
    std::vector<QModelIndex> changed;
    bool numbersChanged = false;
    static const FlexGrid::Row kNoRow;
    for (int row = first; row <= last; ++row) {
        const FlexGrid::Row& fresh = flgdData().rows[static_cast<std::size_t>(row) + kGridHeadRows];
        const int before = row - knownFirst;
        const bool isKnown = before >= 0 && before < static_cast<int>(known.size());
        const FlexGrid::Row& old = isKnown ? known[static_cast<std::size_t>(before)] : kNoRow;
        numbersChanged = numbersChanged || fresh.text[0] != old.text[0];
        for (int column = 0; column < kBodyColumns; ++column) {
            const auto at = static_cast<std::size_t>(column) + 1;
            if (!isKnown || fresh.text[at] != old.text[at] || fresh.colour[at] != old.colour[at] ||
                fresh.bad[at] != old.bad[at]) {
                changed.push_back(index(row, column));
            }
        }
        now.push_back(fresh);
    }
    known = std::move(now);
    knownFirst = first;
    if (static_cast<int>(changed.size()) > kManyCells) {
        emit dataChanged(index(first, 0), index(last, kBodyColumns - 1));
    } else {
        for (const QModelIndex& cell : changed) {
            emit dataChanged(cell, cell);
        }
    }
    if (numbersChanged) {
        emit headerDataChanged(Qt::Vertical, first, last);
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

} // namespace qdw8
