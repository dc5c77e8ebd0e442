#pragma once

#include <array>

class QTableView;

namespace qdw8 {

/// Widths of the grid's columns: what the heads and the longest figures need; room to spare goes to
/// the comment first.
class GridColumns {
public:
    /// After a change of the heads or the font.
    void fit(QTableView& view);
    /// After a change of the view's width.
    void spread(QTableView& view) const;

private:
    std::array<int, 19> leastWidths{}; ///< of all columns but the comment
};

} // namespace qdw8
