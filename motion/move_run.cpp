#include "motion/move_run.h"

#include "app/boxes.h"
#include "app/number_forms.h"
#include "app/waits.h"
#include "link/ct_commands.h"
#include "link/exchange.h"
#include "link/line_state.h"
#include "link/port.h"
#include "link/receiver.h"
#include "motion/homing.h"
#include "motion/move_state.h"
#include "platform/timer.h"

#include <string_view>

namespace qdw8 {
namespace {

constexpr std::int16_t kStepMs = 100; ///< pause before each step of a run
constexpr std::int32_t kTimerUnitMs = 100;
constexpr int kSkipsMacro = 1; ///< kind of a move that runs no macro at its target

bool WindowIsGone() {
    return !TheMove().open;
}

void Enter(MovePhase phase, int target = 0) {
    TheMove().phase = phase;
    TheMove().target = target;
    TellMove();
}

void ShowLamps(bool out1, bool out2) {
    TheMove().out1 = out1;
    TheMove().out2 = out2;
    TellMove();
}

/// The axes have arrived: `0RO` tells with which outputs.
bool ShowArrival(int position) {
    Enter(MovePhase::Between, position);
    if (ReadOutputs() != 0) {
        return FailMove();
    }
    // A digit that is none is not guessed.
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    const std::size_t code = kDigits.find(Mid(ReplyText, 9, 1));
    if (code == std::string_view::npos) {
        ShowWrongData();
        return FailMove();
    }
    TheMove().lblkanryoNo = std::to_string(position);
    ShowLamps(code == 1 || code == 3, code == 2 || code == 3);
    return true;
}

/// What became of a motion.
bool Judge(MotionEnd end) {
    return end == MotionEnd::Arrived || (end == MotionEnd::Failed && FailMove());
}

bool MoveTo(int position, bool noSqMcr) {
    return RunMotion(MovePhase::Moves, position,
                     [&] { return MoveToPosition(position, noSqMcr ? kSkipsMacro : 0); }) &&
           ShowArrival(position);
}

/// The wait between two moves. A timer of 0 never ticks: Stop or Pause ends that wait.
void WaitForTimer(const MoveChoices& choices) {
    if (!choices.timerUse || choices.timer.empty()) {
        return;
    }
    Flag WaitDoneFlag = kClear;
    Timer Timer2{"Timer2", ToInt32(NumberFromText(choices.timer)) * kTimerUnitMs, false, {}};
    Timer2.routine = [&] {
        WaitDoneFlag = kSet;
        DisableTimer(Timer2);
    };
    EnableTimer(Timer2);
    Enter(MovePhase::Waits, TheMove().target);
    while (!IsSet(WaitDoneFlag) && !MoveMustEnd()) {
        MsecTimer(kStepMs);
    }
    DisableTimer(Timer2);
    Enter(MovePhase::Between, TheMove().target);
}

} // namespace

bool MoveMustEnd() {
    return IsSet(TheMove().MoveStopFlag) || TheMove().pauses || WindowIsGone() ||
           IsSet(ProgramEndFlag);
}

bool FailMove() {
    TheMove().outcome =
        TheMove().phase == MovePhase::Between ? MoveOutcome::Failed : MoveOutcome::FailedMoving;
    return false;
}

bool StandsStillForMove() {
    const std::int16_t arrived = ReadArrivalStatus();
    if (arrived == 0) {
        TheMove().outcome = MoveOutcome::StillMoving;
    }
    return arrived == 1 || (arrived < 0 && FailMove());
}

bool MakeReadyForMove() {
    if (!StandsStillForMove()) {
        return false;
    }
    if (ReadHomeStatus() != 0) {
        CommErrorFlag = kClear;
        return FailMove();
    }
    return IsSet(HomedFlag) || HomeForMove();
}

bool HomeForMove(const std::function<void()>& onFailure) {
    const auto dontStart = [] {
        if (!MoveMustEnd()) {
            Enter(MovePhase::Homes);
            ShowLamps(false, false);
        }
        return MoveMustEnd();
    };
    const MotionEnd end = HomeAllAxes(dontStart, WindowIsGone);
    const bool arrived = Judge(end);
    TellMove();
    if (end == MotionEnd::Failed && onFailure) {
        onFailure();
    }
    if (!arrived || !ShowArrival(0)) {
        return false;
    }
    if (!IsSet(HomedFlag)) {
        TheMove().outcome = MoveOutcome::NotHomed;
    }
    return IsSet(HomedFlag);
}

bool RunMotion(MovePhase phase, int target, const std::function<std::int16_t()>& start) {
    if (MoveMustEnd()) {
        return false;
    }
    if (TellLostLine()) {
        return FailMove();
    }
    ShowLamps(false, false);
    Enter(phase, target);
    return start() == 0 ? Judge(WaitForArrival(WindowIsGone)) : FailMove();
}

void RunWalk(const MoveWalk& walk) {
    do {
        MsecTimer(kStepMs);
        if (MoveMustEnd()) {
            return; // the place stays the one that a pause keeps
        }
        const std::optional<int> position = walk.next();
        if (!position) {
            return;
        }
        if (*position < 1 || *position > kHighestPosition) {
            CloseCtPort();
            ShowTexts({walk.wrongNumber});
            return;
        }
        if (!MoveTo(*position, walk.choices.noSqMcr)) {
            return;
        }
        walk.advance();
        if (!walk.step && !walk.choices.step) {
            WaitForTimer(walk.choices);
        }
    } while (!MoveMustEnd() && !walk.step && !walk.choices.step);
}

} // namespace qdw8
