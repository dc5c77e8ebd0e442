#pragma once

#include "windows/dialogs/range_controls.h"

#include <QDialog>

class QRadioButton;

namespace qdw8 {

/// Range of a read from the controller: all data, or the positions of two boxes.
class frmSelectPosiNo2 : public QDialog {
public:
    explicit frmSelectPosiNo2(QWidget* parent = nullptr);

    void accept() override;
    void reject() override;

protected:
    void changeEvent(QEvent* event) override;

private:
    void showOptions();

    QRadioButton* allData = nullptr;
    QRadioButton* selectedRange = nullptr;
    RangeControls range;
};

/// Shows it over the middle of the parent and waits until it is left.
void ShowSelectPosiNo2(QWidget* parent);

} // namespace qdw8
