#pragma once

#include "app/Module1.h"

#include <string>

namespace qdw8 {

/// The transfer dialog `frmTrance` and the wait dialog `frmProcessing`, as data. Both stand on the
/// screen without blocking and refuse a close from the window's menu.
struct TransferDialog {
    bool shown = false;
    std::int16_t titleId = 2401; ///< says of a transfer that it communicates
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
/// The cancel button, or Escape where there is one: sets `TransferCancelFlag`, and ends a wait that
/// is offered to be given up.
void cmdTranceCancel_Click();

/// The transfer dialog for the life of the object; it goes on every way out.
class TransferShown {
public:
    enum class Cancel { No, Yes };
    /// `maximum` is at least 0. With `Cancel::Yes` the dialog has its button, and an earlier press
    /// is forgotten. `titleId` is the title of work that isn't a transfer.
    TransferShown(int maximum, std::int16_t textId, Cancel cancel = Cancel::No,
                  std::int16_t titleId = TransferDialog().titleId);
    ~TransferShown();
    TransferShown(const TransferShown&) = delete;
    TransferShown& operator=(const TransferShown&) = delete;

    /// Moves the bar; a value beyond the maximum stays at the maximum.
    void moveTo(int value) const;
};

/// The offer to give up a wait that has no end of its own. Where the transfer dialog is up, the
/// dialog makes the offer: its text is the offer's and it has its cancel button meanwhile. Where
/// there is none, a small window stands on the screen without blocking: `shown` is set, and
/// `Screens().frmGiveUp` is told.
struct GiveUpOffer {
    bool shown = false;
    std::string text;
};
const GiveUpOffer& TheGiveUpOffer();
/// What the offer says, in the dialog as in the window.
std::string OfferText();
/// Makes the offer until `WithdrawGiveUp`; a second call changes nothing. Where the transfer
/// dialog's own cancel button was pressed before, that gives the wait up at once.
void OfferGiveUp();
void WithdrawGiveUp();
/// The button of the small window, Escape included: sets `GrpMoveStopFlag`.
void cmdGiveUp_Click();

/// Shows or takes away the wait dialog and keeps `ProcessingShownFlag`.
void ShowProcessing();
void UnloadProcessing();

void ResetTransferDialog();

} // namespace qdw8
