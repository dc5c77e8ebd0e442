#pragma once

#include <QDialog>

namespace qdw8 {

/// The wait dialog: on the screen while `ProcessingShownFlag` is set, without blocking; it can't be
/// closed.
class frmProcessing : public QDialog {
public:
    explicit frmProcessing(QWidget* parent = nullptr);

    /// Looks at the flag again.
    void showState();

    void reject() override {}

private:
    QWidget* home;
};

} // namespace qdw8
