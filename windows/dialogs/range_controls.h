#pragma once

#include "position/range_dialogs.h"
#include "windows/controls/number_field.h"

class QDialog;
class QLabel;
class QMargins;
class QPushButton;
class QVBoxLayout;

namespace qdw8 {

inline constexpr int kPosiNoDigits = 3;
inline constexpr int kRangeSpacing = 8;

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

/// What stands above the boxes: title, margins and the line that says what to do.
QVBoxLayout* BeginRangeDialog(QDialog& dialog, const char* name);

/// Builds them at the end of the dialog's layout: the boxes in two rows with these margins, then
/// the buttons.
RangeControls MakeRangeControls(QDialog& dialog, const QMargins& margins, const RangeTexts& preset);
/// Texts and accessible names of the whole dialog in the language of the run.
void LoadRangeResources(QDialog& dialog, const RangeControls& controls);

/// Builds the buttons alone, in a row of their own at the end of the dialog's layout, which is a
/// box layout. Cancel and closing reject the dialog; OK is for the dialog to bind.
void MakeRangeButtons(QDialog& dialog, RangeControls& controls);

} // namespace qdw8
