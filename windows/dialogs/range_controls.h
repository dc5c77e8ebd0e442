#pragma once

#include "position/range_dialogs.h"
#include "windows/controls/number_field.h"

class QDialog;
class QGridLayout;
class QLabel;
class QPushButton;

namespace qdw8 {

inline constexpr int kPosiNoDigits = 3;

/// What the range dialogs have in common: two labelled boxes, OK and Cancel.
struct RangeControls {
    QLabel* lblStartPosiMoji = nullptr;
    QLabel* lblEndPosiMoji = nullptr;
    NumberField* txtStartPosiNo = nullptr;
    NumberField* txtEndPosiNo = nullptr;
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
