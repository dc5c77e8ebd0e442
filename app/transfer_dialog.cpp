#include "app/transfer_dialog.h"

#include "app/screens.h"
#include "app/string_table.h"

#include <algorithm>
#include <optional>

namespace qdw8 {
namespace {

TransferDialog dialog;
GiveUpOffer offer;
/// What the transfer dialog was before it made the offer.
std::optional<TransferDialog> beforeOffer;

void Tell() {
    if (Screens().frmTrance) {
        Screens().frmTrance();
    }
}

void TellOffer() {
    if (Screens().frmGiveUp) {
        Screens().frmGiveUp();
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
    dialog = {.shown = true,
              .titleId = dialog.titleId,
              .cancelShown = IsSet(TransferRunFlag),
              .lblSetumei = text,
              .prgBar1Max = maximum};
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
        dialog.titleId = TransferDialog().titleId;
    }
}

void cmdTranceCancel_Click() {
    TransferCancelFlag = kSet;
    if (beforeOffer) {
        GrpMoveStopFlag = kSet;
    }
}

TransferShown::TransferShown(int maximum, std::int16_t textId, Cancel cancel,
                             std::int16_t titleId) {
    if (cancel == Cancel::Yes) {
        TransferCancelFlag = kClear;
    }
    TransferRunFlag = FlagOf(cancel == Cancel::Yes);
    dialog.titleId = titleId;
    ShowTrance(maximum, ResText(textId));
}

TransferShown::~TransferShown() {
    UnloadTrance();
    TransferRunFlag = kClear;
}

void TransferShown::moveTo(int value) const {
    SetTranceValue(value);
}

const GiveUpOffer& TheGiveUpOffer() {
    return offer;
}

std::string OfferText() {
    return ResText(3000);
}

void OfferGiveUp() {
    if (offer.shown || beforeOffer) {
        return;
    }
    if (dialog.shown && dialog.cancelShown && IsSet(TransferCancelFlag)) {
        GrpMoveStopFlag = kSet; // the user has said so before he was asked
        return;
    }
    const std::string text = OfferText();
    if (dialog.shown) {
        beforeOffer = dialog;
        dialog.cancelShown = true;
        dialog.lblSetumei = text;
        Tell();
    } else {
        offer = {true, text};
        TellOffer();
    }
}

void WithdrawGiveUp() {
    if (beforeOffer) {
        dialog.cancelShown = beforeOffer->cancelShown;
        dialog.lblSetumei = beforeOffer->lblSetumei;
        beforeOffer.reset();
        Tell();
    }
    if (offer.shown) {
        offer = {};
        TellOffer();
    }
}

void cmdGiveUp_Click() {
    GrpMoveStopFlag = kSet;
}

void ShowProcessing() {
    SetProcessing(kSet);
}
void UnloadProcessing() {
    SetProcessing(kClear);
}

void ResetTransferDialog() {
    dialog = {};
    offer = {};
    beforeOffer.reset();
}

} // namespace qdw8
