#pragma once

#include <QDialog>

class QLabel;

namespace qdw8 {

/// The small window in which a wait that has no end of its own can be given up, where no transfer
/// dialog is up. It shows `TheGiveUpOffer()`, stands on the screen without blocking, and only the
/// end of the wait takes it away; Escape in any window of the program is its button.
class frmGiveUp : public QDialog {
public:
    explicit frmGiveUp(QWidget* parent = nullptr);

    /// Looks at the offer again.
    void showState();

    void reject() override;

private:
    QWidget* home;
    QLabel* text;
};

} // namespace qdw8
