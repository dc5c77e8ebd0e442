#pragma once

#include <QDialog>
#include <QElapsedTimer>
#include <QTimer>

class QLabel;
class QProgressBar;
class QPushButton;

namespace qdw8 {

/// The transfer dialog, in front of the window that started the work. It shows
/// `TheTransferDialog()`, stands on the screen without blocking, and only the end of the transfer
/// takes it away.
class frmTrance : public QDialog {
public:
    explicit frmTrance(QWidget* parent = nullptr);

    /// Looks at the data again: opens, closes, shows text and bar. May be called for every row of
    /// a transfer; the bar is painted at most every 40 ms and at its end.
    void showState();

    /// Escape is Cancel where there is one, in any window of the program.
    void reject() override;

protected:
    /// Refused: only the end of the transfer takes the dialog away.
    void closeEvent(QCloseEvent* event) override;

private:
    void showValue();

    QWidget* home;
    QLabel* text;
    QProgressBar* bar;
    QPushButton* cancel;
    QElapsedTimer sincePainted;
    QTimer later;
};

} // namespace qdw8
