#include "motion/homing.h"

#include "app/Module1.h"
#include "app/boxes.h"
#include "app/waits.h"
#include "link/ct_commands.h"
#include "link/line_state.h"
#include "link/port.h"
#include "link/receiver.h"
#include "link/stop.h"

namespace qdw8 {
namespace {

/// The controller's word for a home sensor that was not found.
constexpr const char* kNoHomeSensor = "0%%134";

bool IsGivenUp(const GiveUpLook& look) {
    return IsSet(ProgramEndFlag) || (look && look());
}

} // namespace

bool TellLostLine() {
    if (!IsSet(OffLineFlag)) {
        return false;
    }
    // Nothing was on the line when it went, so no exchange has stopped the axes.
    if (!IsSet(AxisMayMove) || StopMotion() == 0) {
        ShowPortBox();
    }
    return true;
}

MotionEnd WaitForArrival(const GiveUpLook& giveUp) {
    for (;;) {
        MsecTimer(kArrivalPollMs);
        if (IsGivenUp(giveUp)) {
            return MotionEnd::GivenUp;
        }
        if (TellLostLine()) {
            return MotionEnd::Failed;
        }
        ReplyText.clear(); // whoever judges a failure by the reply finds none of before
        const std::int16_t arrived = ReadArrivalStatus();
        if (arrived != 0) {
            return arrived == 1 ? MotionEnd::Arrived : MotionEnd::Failed;
        }
    }
}

MotionEnd HomeAllAxes(const GiveUpLook& dontStart, const GiveUpLook& giveUp) {
    if (IsGivenUp(dontStart)) {
        return MotionEnd::GivenUp;
    }
    if (MoveToPosition(0, 1) != 0) {
        return MotionEnd::Failed;
    }
    const MotionEnd end = WaitForArrival(giveUp);
    if (end != MotionEnd::Arrived) {
        return end;
    }
    return ReadHomeStatus() == 0 ? MotionEnd::Arrived : MotionEnd::Failed;
}

void TellFailedHoming() {
    if (LastLoss == LineLoss::GivenUp) {
        return;
    }
    if (ReplyText.starts_with(kNoHomeSensor)) {
        BoxQuestion box;
        box.text = TextLines({562, 563, 564, 565, 566, 567, 568});
        box.icon = BoxIcon::Exclamation;
        AskBox(box);
    } else {
        ShowTexts({104});
    }
}

} // namespace qdw8
