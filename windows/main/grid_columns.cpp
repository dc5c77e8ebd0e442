#include "windows/main/grid_columns.h"

#include "position/flex_grid.h"
#include "position/posi_columns.h"
#include "windows/controls/group_header.h"

#include <QHeaderView>
#include <QTableView>
#include <algorithm>
#include <numeric>

namespace qdw8 {
namespace {

constexpr int kLastColumn = kGridCommentColumn - 1; // the comment
constexpr int kCellPadding = 6;
// Width of the comment, in digits.
constexpr int kLeastComment = 14;
constexpr int kFullComment = 60;

} // namespace

void GridColumns::fit(QTableView& view) {
    const QFontMetrics font = view.fontMetrics();
    const auto wide = [&font](const QString& text) { return font.horizontalAdvance(text); };
    view.verticalHeader()->setMinimumSectionSize(font.height());
    view.verticalHeader()->setDefaultSectionSize(font.height() + kCellPadding);
    view.verticalHeader()->setFixedWidth(wide(QStringLiteral("0000")) + 2 * kCellPadding);
    view.horizontalHeader()->setMinimumSectionSize(wide(QStringLiteral("00")));
    const int digits = wide(QStringLiteral("00")) + 2 * kCellPadding;
    const int position = wide(QStringLiteral("000.000")) + 2 * kCellPadding;
    int heads = 0;
    for (int column = 0; column < kLastColumn; ++column) {
        const bool isPosition = column < kItpl && column % kAxisColumns == kPosi;
        const QString label =
            view.model()->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
        int width = std::max(isPosition ? position : digits, wide(label) + kCellPadding);
        if (isPosition) {
            // The head over the axis names its actuator; its last column makes the room for it.
            const QString head = view.model()
                                     ->headerData(column, Qt::Horizontal, GroupHeader::kGroupRole)
                                     .toString();
            width = std::max(width, wide(head) + kCellPadding - heads);
        }
        heads = column % kAxisColumns == kPosi ? 0 : heads + width;
        leastWidths[static_cast<std::size_t>(column)] = width;
    }
    spread(view);
}

void GridColumns::spread(QTableView& view) const {
    const int digit = view.fontMetrics().horizontalAdvance(QLatin1Char('0'));
    const int taken = std::accumulate(leastWidths.begin(), leastWidths.end(), 0);
    const int left = view.viewport()->width() - taken;
    // Once the comment is as long as it can get, the other columns have a share in the room.
    const int spare = (left - digit * kFullComment) / kLastColumn;
    const int more = std::clamp(spare, 0, digit * 2);
    for (int column = 0; column < kLastColumn; ++column) {
        view.setColumnWidth(column, leastWidths[static_cast<std::size_t>(column)] + more);
    }
    view.setColumnWidth(kLastColumn, std::max(digit * kLeastComment, left - more * kLastColumn));
}

} // namespace qdw8
