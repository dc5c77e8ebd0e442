#pragma once

#include "windows/dialogs/range_controls.h"

#include <QDialog>

namespace qdw8 {

/// Range of a verify with a file: what the file holds, what the grid shows, and the two boxes
/// within what both have in common. Without anything in common it says so, and OK only closes.
class frmSelectPosiNo4 : public QDialog {
public:
    frmSelectPosiNo4(bool overlap, QWidget* parent = nullptr);

    void accept() override;
    void reject() override;

private:
    bool overlap;
    RangeControls range;
};

/// Shows it over the middle of the parent and waits until it is left.
void ShowSelectPosiNo4(QWidget* parent, bool overlap);

} // namespace qdw8
