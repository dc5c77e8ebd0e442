#pragma once

#include "position/range_dialogs.h"

#include <QLineEdit>

class QDialog;
class QGridLayout;
class QLabel;
class QPushButton;

namespace qdw8 {

/// A box for a position number: digits only, at most three, Enter moves on to the next control, the
/// whole text is selected when the box gets the focus.
class PosiNoBox : public QLineEdit {
public:
    PosiNoBox(const QString& objectName, QWidget* parent);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
};

/// What the range dialogs have in common: two labelled boxes, OK and Cancel.
struct RangeControls {
    QLabel* lblStartPosiMoji = nullptr;
    QLabel* lblEndPosiMoji = nullptr;
    PosiNoBox* txtStartPosiNo = nullptr;
    PosiNoBox* txtEndPosiNo = nullptr;
    QPushButton* cmdOk = nullptr;
    QPushButton* cmdCancel = nullptr;

    RangeTexts texts() const;
};

/// Builds them: the boxes in two rows of `boxes`, then the buttons.
RangeControls MakeRangeControls(QDialog& dialog, QGridLayout& boxes, const RangeTexts& preset);

/// Builds the buttons alone, in a row of their own at the end of the dialog's layout, which is a
/// box layout. Cancel and closing reject the dialog; OK is for the dialog to bind.
void MakeRangeButtons(QDialog& dialog, RangeControls& controls);

} // namespace qdw8
