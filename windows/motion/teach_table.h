#pragma once

#include <QTableView>
#include <functional>

namespace qdw8 {

class TeachTableModel;

/// The chart of taught positions on the screen, `flgdJOGPosi`: a row for each row of the position
/// table that the main window shows, a column for each axis. The selected row is the chosen one.
class TeachTable : public QTableView {
public:
    /// `choose` is told the position number of a row that the user selects.
    TeachTable(const std::function<void(int)>& choose, QWidget* parent);

    /// Shows what the chart holds now, with the chosen row in sight.
    void refresh();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    TeachTableModel* cells;
};

} // namespace qdw8
