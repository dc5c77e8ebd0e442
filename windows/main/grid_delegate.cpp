#include "windows/main/grid_delegate.h"

#include "position/flex_grid.h"
#include "windows/controls/refused_field.h"

#include <QPainter>

namespace qdw8 {
namespace {

constexpr int kTextMargin = 3;
constexpr int kCorner = 7;

/// The cell that an edit would begin on: where the selection began.
bool IsCurrent(int gridRow, int gridColumn) {
    return gridRow == flgdData().row && gridColumn == flgdData().col;
}

} // namespace

void GridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
    const auto row = static_cast<std::size_t>(index.row()) + kGridHeadRows;
    const auto column = static_cast<std::size_t>(index.column()) + 1;
    // While the grid is frozen it may have fewer rows than the view knows of.
    static const FlexGrid::Row kNoRow;
    const FlexGrid::Row& cells = row < flgdData().rows.size() ? flgdData().rows[row] : kNoRow;
    const QPalette::ColorGroup group =
        (option.state & QStyle::State_Enabled) == 0  ? QPalette::Disabled
        : (option.state & QStyle::State_Active) == 0 ? QPalette::Inactive
                                                     : QPalette::Active;
    const bool selected = (option.state & QStyle::State_Selected) != 0;
    const CellColour colour = cells.colour[column];
    const bool bad = cells.bad.test(column) && colour != CellColour::Editing;
    QColor text = option.palette.color(group, QPalette::Text);
    if (selected) {
        painter->fillRect(option.rect, option.palette.color(group, QPalette::Highlight));
        text = option.palette.color(group, QPalette::HighlightedText);
    } else if (bad || colour != CellColour::Window) {
        const Rgb rgb = RgbOf(colour);
        painter->fillRect(option.rect,
                          bad ? QColor(kRefusedColour) : QColor(rgb.red, rgb.green, rgb.blue));
        // The fixed colours are all light, so the text on them is dark on every palette.
        text = Qt::black;
    }
    const std::string& content = cells.text[column];
    if (!content.empty()) {
        const bool comment = index.column() + 1 == kGridCommentColumn;
        const QRect inner = option.rect.adjusted(kTextMargin, 0, -kTextMargin, 0);
        const QString shown = QString::fromStdString(content);
        const bool fits = option.fontMetrics.horizontalAdvance(shown) <= inner.width();
        painter->setFont(option.font);
        painter->setPen(text);
        painter->drawText(
            inner,
            static_cast<int>(Qt::TextSingleLine | Qt::AlignVCenter |
                             Qt::Alignment(comment || !fits ? Qt::AlignLeft : Qt::AlignRight)),
            fits ? shown : option.fontMetrics.elidedText(shown, Qt::ElideRight, inner.width()));
    }
    if (bad) {
        // A corner tells it without the colour, and in a selected cell, which has another one.
        const QPoint at = option.rect.topRight();
        painter->setPen(Qt::NoPen);
        painter->setBrush(selected ? QColor(kRefusedColour) : text);
        painter->drawPolygon(QPolygon({at, at - QPoint(kCorner, 0), at + QPoint(0, kCorner)}));
        painter->setBrush(Qt::NoBrush);
    }
    if (IsCurrent(static_cast<int>(row), static_cast<int>(column))) {
        painter->setPen(option.palette.color(group, QPalette::Text));
        painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
    }
}

} // namespace qdw8
