#include "motion/teach_start.h"

#include "app/Module1.h"
#include "app/boxes.h"
#include "app/number_forms.h"
#include "app/string_table.h"
#include "link/axis_mask.h"
#include "link/ct_commands.h"
#include "link/line_state.h"
#include "link/receiver.h"
#include "motion/jog_position.h"
#include "motion/stop_sign.h"
#include "parameter/para_blocks.h"
#include "platform/fault.h"

#include <cstdint>

namespace qdw8 {
namespace {

constexpr std::int16_t kTeaching = 2; ///< the controller's mode
constexpr std::int16_t kFailed = 377;
constexpr std::int16_t kNoStrokeEnd = 3194;
constexpr std::int16_t kNotHomed = 3236;
constexpr std::int16_t kAxisName = 1405; ///< of AXIS 1

bool SetMode() {
    if (SetCtMode(kTeaching) == 0) {
        return true;
    }
    if (LastLoss != LineLoss::Overtaken) {
        ShowTexts({kFailed});
    }
    return false;
}

bool Home(const std::function<void(bool)>& homing, const GiveUpLook& giveUp) {
    if (IsSet(HomedFlag)) {
        return true;
    }
    homing(true);
    SeeMove(true);
    const MotionEnd end = HomeAllAxes(giveUp, giveUp);
    if (end == MotionEnd::Arrived) {
        NothingMoves();
    } else if (end == MotionEnd::Failed && !StopIsDue()) {
        SeeFailure(true);
    }
    homing(false);
    if (end == MotionEnd::Arrived && !IsSet(HomedFlag)) {
        ShowTexts({kNotHomed}); // no position that is shown could be believed
    }
    return end == MotionEnd::Arrived && IsSet(HomedFlag);
}

/// Three bytes of the axis' device block, the most significant first.
bool ReadStrokeEnd(std::size_t axis) {
    if (ReadParaBlock(DeviceBlockOf(axis)) != 0) {
        return false;
    }
    try {
        JogMaxPulse[axis] = HexValue(Mid(ReplyText, 15, 6));
    } catch (const Fault&) {
        ShowWrongData();
        return false;
    }
    if (JogMaxPulse[axis] == 0) {
        ShowBox(Lines({ResText(kNoStrokeEnd),
                       ResText(static_cast<std::int16_t>(kAxisName + static_cast<int>(axis)))}));
        return false;
    }
    return true;
}

bool ReadStrokeEnds(const GiveUpLook& giveUp) {
    JogMaxPulse = {};
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        if (!IsSet(AxisOff[axis]) && (giveUp() || !ReadStrokeEnd(axis))) {
            return false;
        }
    }
    return true;
}

} // namespace

bool StartTeaching(const std::function<void(bool)>& homing, const GiveUpLook& giveUp) {
    return SetMode() && !giveUp() && ReadAxisMask() == 0 && !giveUp() && ReadHomeStatus() == 0 &&
           !giveUp() && Home(homing, giveUp) && ReadStrokeEnds(giveUp) && !giveUp();
}

} // namespace qdw8
