#pragma once

#include "motion/move_form.h"
#include "motion/start_request.h"

/// What the units of the move test share: the one state behind the window, and telling of it.
namespace qdw8 {

/// What a run does just now.
enum class MovePhase : std::uint8_t {
    Between, ///< nothing moves: before the first move, or behind that to `target`
    Waits,   ///< between two moves, for the timer
    Homes,
    Moves, ///< to `target`
    Group  ///< `target` is its number
};

/// How the last run ended, where the user is to hear of it.
enum class MoveOutcome : std::uint8_t {
    Good,
    NotBegun,    ///< the line wasn't free in time
    StillMoving, ///< nothing was started
    NotHomed,    ///< behind a homing
    Failed,
    FailedMoving ///< with axes on their way
};

/// The state of a fresh start.
struct MoveState {
    MoveFields fields;
    bool open = false;

    Flag MoveActive = kClear;
    std::int16_t MoveRequest = 0;
    StartRequest request;
    int group = 1; ///< that was asked for
    /// The run that goes on is to end behind the move under way, by a Stop, or by a Pause.
    Flag MoveStopFlag = kClear;
    bool pauses = false;
    /// The list, the range keeps its place for the next run.
    Flag MovePauseFlag = kClear;
    Flag RangePauseFlag = kClear;
    struct {
        int index = 1;    ///< into the list, 1 to 15; 16 behind its end
        int position = 1; ///< of the range
    } MoveStep;

    MovePhase phase = MovePhase::Between;
    int target = 0;
    MoveOutcome outcome = MoveOutcome::Good;

    bool out1 = false;
    bool out2 = false;
    std::string lblkanryoNo;
};
MoveState& TheMove();

/// A kind of run waits for its tick or goes on; `None` while there is none.
MoveRun RunOfMove();

/// Tells the window that something has changed.
void TellMove();

void ResetMoveState();

} // namespace qdw8
