#include "support/every_step.h"

#include "app/screens.h"
#include "app/transfer_dialog.h"

namespace qdw8::test {

void AddStepFault(LineBench& bench, const std::string& fault, int number) {
    const auto add = [&bench](const std::string& occurrence, const std::string& what) {
        bench.addFault("*:" + occurrence + ":" + what);
    };
    const std::string at = std::to_string(number);
    if (fault == "dead") {
        add(at + "+", "deaf");
    } else if (fault == "dumb") {
        add(at, "echo=0ZZ");
        add(std::to_string(number + 1) + "+", "deaf");
    } else {
        add(at, fault);
    }
}

void AnswerByItself(ScriptedPlatform& platform) {
    platform.recordsBoxes = true;
    Screens().frmTrance = [&platform, offered = false]() mutable {
        const TransferDialog& dialog = TheTransferDialog();
        const bool offers = dialog.shown && dialog.lblSetumei == OfferText();
        if (offers && !offered) {
            platform.after(100, cmdTranceCancel_Click);
        }
        offered = offers;
    };
    Screens().frmGiveUp = [&platform] {
        if (TheGiveUpOffer().shown) {
            platform.after(100, cmdGiveUp_Click);
        }
    };
}

} // namespace qdw8::test
