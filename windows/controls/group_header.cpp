#include "windows/controls/group_header.h"

#include <QAbstractItemModel>
#include <QPainter>
#include <QStyleOptionHeader>
#include <algorithm>

namespace qdw8 {
namespace {

constexpr int kRowPadding = 7;
constexpr int kTextMargin = 2;

} // namespace

GroupHeader::GroupHeader(Groups columnGroups, QWidget* parent)
    : QHeaderView(Qt::Horizontal, parent), groups(std::move(columnGroups)) {
    setSectionResizeMode(QHeaderView::Fixed);
    setSectionsClickable(true);
    setHighlightSections(false);
}

QSize GroupHeader::sectionSizeFromContents(int section) const {
    const int text = fontMetrics().horizontalAdvance(textOf(section, Qt::DisplayRole));
    return {text + 2 * kTextMargin + 4, 2 * (fontMetrics().height() + kRowPadding)};
}

QString GroupHeader::textOf(int section, int role) const {
    return model()->headerData(section, Qt::Horizontal, role).toString();
}

void GroupHeader::paintSection(QPainter* painter, const QRect& rect, int section) const {
    const auto group = std::find_if(groups.begin(), groups.end(), [section](const auto& span) {
        return span.first <= section && section <= span.second;
    });
    if (group == groups.end()) {
        paintHead(*painter, rect, textOf(section, Qt::DisplayRole));
        return;
    }
    const int middle = rect.height() / 2;
    int width = 0;
    for (int column = group->first; column <= group->second; ++column) {
        width += sectionSize(column);
    }
    // Each column paints its own part of the head that it shares with its neighbours.
    painter->save();
    painter->setClipRect(QRect(rect.left(), rect.top(), rect.width(), middle), Qt::IntersectClip);
    paintHead(*painter, QRect(sectionViewportPosition(group->first), rect.top(), width, middle),
              textOf(group->first, kGroupRole));
    painter->restore();
    paintHead(*painter, rect.adjusted(0, middle, 0, 0), textOf(section, Qt::DisplayRole));
}

void GroupHeader::paintHead(QPainter& painter, const QRect& rect, const QString& text) const {
    QStyleOptionHeader option;
    initStyleOption(&option);
    option.rect = rect;
    option.position = QStyleOptionHeader::Middle;
    style()->drawControl(QStyle::CE_HeaderSection, &option, &painter, this);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawLine(rect.topRight(), rect.bottomRight());
    painter.drawLine(rect.bottomLeft(), rect.bottomRight());
    const QRect inner = rect.adjusted(kTextMargin, 0, -kTextMargin, 0);
    style()->drawItemText(&painter, inner, Qt::AlignCenter, palette(), isEnabled(),
                          fontMetrics().elidedText(text, Qt::ElideRight, inner.width()),
                          QPalette::ButtonText);
}

} // namespace qdw8
