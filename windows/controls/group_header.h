#pragma once

#include <QHeaderView>
#include <utility>
#include <vector>

namespace qdw8 {

/// A horizontal head of two rows: above, one head over each group of neighbouring columns; below,
/// the label of each column. A column outside every group has one head over both rows.
///
/// The label comes from the model's `headerData` with the display role, the group's text with
/// `kGroupRole` of any column of the group.
class GroupHeader : public QHeaderView {
public:
    static constexpr int kGroupRole = 0x0100; // Qt::UserRole

    /// First and last column of each group.
    using Groups = std::vector<std::pair<int, int>>;

    explicit GroupHeader(Groups groups, QWidget* parent = nullptr);

protected:
    QSize sectionSizeFromContents(int section) const override;
    void paintSection(QPainter* painter, const QRect& rect, int section) const override;

private:
    void paintHead(QPainter& painter, const QRect& rect, const QString& text) const;
    QString textOf(int section, int role) const;

    Groups groups;
};

} // namespace qdw8
