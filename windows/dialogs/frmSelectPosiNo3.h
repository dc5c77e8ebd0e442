#pragma once

#include "windows/dialogs/range_controls.h"

#include <QDialog>

namespace qdw8 {

/// Range within the grid's rows: save as, write to the controller and their kin.
class frmSelectPosiNo3 : public QDialog {
public:
    explicit frmSelectPosiNo3(QWidget* parent = nullptr);

    void accept() override;
    void reject() override;

private:
    RangeControls range;
};

/// Shows it over the middle of the parent and waits until it is left.
void ShowSelectPosiNo3(QWidget* parent);

} // namespace qdw8
