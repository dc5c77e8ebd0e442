#pragma once

#include "app/Module1.h"

#include <string>

namespace qdw8 {

/// The transfer dialog `frmTrance` and the wait dialog `frmProcessing`, as data. Both stand on the
/// screen without blocking and refuse a close from the window's menu.
struct TransferDialog {
    bool shown = false;
    bool cancelShown = false; ///< `cmdTranceCancel` is there: `TransferRunFlag` was set at opening
    std::string lblSetumei;
    int prgBar1Max = 0;
    int prgBar1 = 0;
};

/// What the transfer dialog shows now.
const TransferDialog& TheTransferDialog();

/// Shows `frmTrance` with the bar at 0; `maximum` is at least 0. If it is up already, it takes the
/// new text and maximum.
void ShowTrance(int maximum, const std::string& text);
/// Moves the bar; a value beyond the maximum stays at the maximum.
void SetTranceValue(int value);
/// Takes `frmTrance` away; nothing happens if it isn't up.
void UnloadTrance();
/// The cancel button: sets `TransferCancelFlag`.
void cmdTranceCancel_Click();

/// Shows or takes away the wait dialog and keeps `ProcessingShownFlag`.
void ShowProcessing();
void UnloadProcessing();

void ResetTransferDialog();

} // namespace qdw8
