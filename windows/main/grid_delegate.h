#pragma once

#include <QStyledItemDelegate>

namespace qdw8 {

/// Paints the cells of the grid straight from what they hold: a table of 20 columns is painted
/// several times faster this way than by the widget style, and a repaint is what the user waits for
/// after every key.
class GridDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
};

} // namespace qdw8
