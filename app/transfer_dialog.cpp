#include "app/transfer_dialog.h"

#include "app/screens.h"

#include <algorithm>

namespace qdw8 {
namespace {

TransferDialog dialog;

void Tell() {
    if (Screens().frmTrance) {
        Screens().frmTrance();
    }
}

void SetProcessing(Flag shown) {
    if (ProcessingShownFlag != shown) {
        ProcessingShownFlag = shown;
        if (Screens().frmProcessing) {
            Screens().frmProcessing();
        }
    }
}

} // namespace

const TransferDialog& TheTransferDialog() {
    return dialog;
}

void ShowTrance(int maximum, const std::string& text) {
    dialog = {true, IsSet(TransferRunFlag), text, maximum, 0};
    Tell();
}

void SetTranceValue(int value) {
    dialog.prgBar1 = std::clamp(value, 0, dialog.prgBar1Max);
    Tell();
}

void UnloadTrance() {
    if (dialog.shown) {
        dialog.shown = false;
        Tell();
    }
}

void cmdTranceCancel_Click() {
    TransferCancelFlag = kSet;
}

void ShowProcessing() {
    SetProcessing(kSet);
}
void UnloadProcessing() {
    SetProcessing(kClear);
}

void ResetTransferDialog() {
    dialog = TransferDialog{};
}

} // namespace qdw8
