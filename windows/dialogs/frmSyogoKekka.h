#pragma once

#include <QDialog>

class QTableView;

namespace qdw8 {

/// The result of a check or of a verify, by `SyogoMode`: one row for each position with a mark,
/// "O" or "X" under each item. Columns of axes out of use are not shown.
class frmSyogoKekka : public QDialog {
public:
    explicit frmSyogoKekka(QWidget* parent = nullptr);

    /// Keeps the columns as wide as the table.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void fitColumns();

    QTableView* table = nullptr;
};

/// Shows it right of and below the parent's corner and waits until it is closed.
void ShowSyogoKekka(QWidget* parent);

} // namespace qdw8
