#include "motion/move_test.h"

#include "app/boxes.h"
#include "app/command_states.h"
#include "app/number_forms.h"
#include "app/screens.h"
#include "app/string_table.h"
#include "link/batch.h"
#include "link/line_state.h"
#include "link/window_command.h"
#include "motion/motion_window.h"
#include "motion/move_group_run.h"
#include "motion/move_home_run.h"
#include "motion/move_list_edit.h"
#include "motion/move_list_run.h"
#include "motion/move_range_run.h"
#include "motion/move_run.h"
#include "motion/move_state.h"
#include "platform/platform.h"

#include <algorithm>
#include <exception>

namespace qdw8 {
namespace {

enum Text : std::int16_t {
    kCloseWhileMoving = 570,
    kHomingUnsure = 3200,
    kHomed = 3201,
    kStarting = 3202,
    kHoming = 3203,
    kMoving = 3204,
    kWaiting = 3205,
    kGroupRuns = 3206,
    kStopping = 3207,
    kFinishesHoming = 3208,
    kFinishesMove = 3209,
    kFinishesGroup = 3210,
    kListPaused = 3211,
    kRangePaused = 3212,
    kStillMoving = 3213,
    kNotHomed = 3214,
    kFailed = 3215,
    kFailedMoving = 3216,
    kNotBegun = 3219,
    kPausedAtEnd = 3225,
    kReached = 3226,
};

/// The tab of a run; homing leaves the one in front.
std::size_t TabOf(MoveRun run) {
    switch (run) {
    case MoveRun::List: return 0;
    case MoveRun::Range: return 1;
    case MoveRun::Group: return 2;
    default: return TheMove().fields.SSTab1;
    }
}

MoveEnabled EnabledNow() {
    const MoveRun run = RunOfMove();
    const bool homes = run == MoveRun::Home;
    MoveEnabled on;
    for (std::size_t tab = 0; tab < kMoveTabs; ++tab) {
        on.SSTab1[tab] = run == MoveRun::None || tab == TabOf(run);
    }
    on.start = run == MoveRun::None && !CommandsTaken();
    on.flgdProgram = on.chkTimerUse = run != MoveRun::List;
    on.txtTimer = on.chkTimerUse && TheMove().fields.list.timerUse;
    on.chkTimerUse2 = run != MoveRun::Range;
    on.txtTimer2 = on.chkTimerUse2 && TheMove().fields.range.timerUse;
    on.cmdTmpStop = run == MoveRun::List;
    on.cmdTempStop2 = run == MoveRun::Range;
    on.cmdStop = on.cmdTmpStop || homes;
    on.cmdStop2 = on.cmdTempStop2 || homes;
    on.cmdGrpMoveStop = run == MoveRun::Group || homes;
    return on;
}

MoveStatus StatusOfRun() {
    const MoveState& move = TheMove();
    const bool ends = IsSet(move.MoveStopFlag) || move.pauses;
    switch (move.phase) {
    case MovePhase::Homes: return {ends ? kFinishesHoming : kHoming, 0};
    case MovePhase::Moves: return {ends ? kFinishesMove : kMoving, move.target};
    case MovePhase::Group: return {ends ? kFinishesGroup : kGroupRuns, move.target};
    case MovePhase::Waits: return {ends ? kStopping : kWaiting, 0};
    default: break;
    }
    if (ends || move.target == 0) {
        return {ends ? kStopping : kStarting, 0};
    }
    return {kReached, move.target};
}

MoveStatus StatusNow() {
    const MoveState& move = TheMove();
    // How it has ended is said under the boxes that tell why, too.
    if (RunOfMove() != MoveRun::None && move.outcome == MoveOutcome::Good) {
        return StatusOfRun();
    }
    switch (move.outcome) {
    case MoveOutcome::NotBegun: return {kNotBegun, 0};
    case MoveOutcome::StillMoving: return {kStillMoving, 0};
    case MoveOutcome::NotHomed: return {kNotHomed, 0};
    case MoveOutcome::Failed: return {kFailed, 0};
    case MoveOutcome::FailedMoving: return {kFailedMoving, 0};
    default: return {};
    }
}

/// The entry with which the next run of the list begins; 0: behind the last one.
int NextEntry() {
    const MoveState& move = TheMove();
    const int index = move.MoveStep.index;
    if (index > static_cast<int>(kMoveCells) ||
        (!move.fields.list.step && !IsSet(move.MovePauseFlag))) {
        return 1;
    }
    if (!move.fields.flgdProgram[static_cast<std::size_t>(index - 1)].empty()) {
        return index;
    }
    return move.fields.list.repeat ? 1 : 0;
}

/// The position with which a paused range goes on; 0: behind the last one.
int NextPosition() {
    const MoveState& move = TheMove();
    const MoveFields& fields = move.fields;
    if (!fields.range.step && move.MoveStep.position <= fields.lblEndPosiNo) {
        return move.MoveStep.position;
    }
    return fields.range.step || fields.range.repeat ? fields.lblStartPosiNo : 0;
}

MoveStatus PlaceNow() {
    const MoveState& move = TheMove();
    const auto paused = [](std::int16_t text, int next) {
        return MoveStatus{next == 0 ? std::int16_t{kPausedAtEnd} : text, next};
    };
    if (RunOfMove() != MoveRun::None) {
        return {};
    }
    if (move.fields.SSTab1 == TabOf(MoveRun::List) && IsSet(move.MovePauseFlag)) {
        return paused(kListPaused, NextEntry());
    }
    if (move.fields.SSTab1 == TabOf(MoveRun::Range) && IsSet(move.RangePauseFlag)) {
        return paused(kRangePaused, NextPosition());
    }
    return {};
}

void ForgetRequest() {
    MoveState& move = TheMove();
    move.MoveRequest = 0;
    move.MoveStopFlag = kClear;
    move.pauses = false;
    move.phase = MovePhase::Between;
    move.target = 0;
}

/// What a Stop ended begins anew the next time.
void ForgetPlaceIfStopped(MoveRun run) {
    MoveState& move = TheMove();
    if (!IsSet(move.MoveStopFlag)) {
        return;
    }
    if (run == MoveRun::List) {
        move.MovePauseFlag = kClear;
    } else if (run == MoveRun::Range) {
        move.RangePauseFlag = kClear;
    }
}

/// A run is in the foreground for the life of the object.
class Running {
public:
    Running() { TheMove().MoveActive = kSet; }
    ~Running() {
        TheMove().MoveActive = kClear;
        ForgetPlaceIfStopped(RunOfMove());
        ForgetRequest();
        GrpMoveStopFlag = kClear;
    }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;
};

void Run(MoveRun run) {
    switch (run) {
    case MoveRun::List: RunMoveList(); break;
    case MoveRun::Range: RunMoveRange(); break;
    case MoveRun::Home: RunMoveHome(); break;
    default: RunMoveGroup(); break;
    }
}

void RunRequest() {
    const MoveRun run = RunOfMove();
    RunToItsEnd([run] {
        const CommandsAway away;
        const Running running;
        const LineBatch batch;
        TellMove();
        try {
            Run(run);
        } catch (const std::exception&) {
            FailMove();
            throw;
        }
    });
    TellMove();
    if (run == MoveRun::Group && Screens().cmdGrpMoveFocus) {
        Screens().cmdGrpMoveFocus();
    }
}

void timerEventCheck_Tick() {
    if (RunOfMove() == MoveRun::None) {
        return;
    }
    if (TheMove().request.isStale(timerEventCheck)) {
        ForgetRequest();
        TheMove().outcome = MoveOutcome::NotBegun;
        TellMove();
        return;
    }
    if (IsSet(CtBusyFlag)) {
        return;
    }
    DisableTimer(timerEventCheck);
    RunRequest();
    if (TheMove().open) {
        EnableTimer(timerEventCheck);
    }
}

void Request(MoveRun run) {
    if (!EnabledNow().start) {
        return;
    }
    if (!flgdProgram_GotFocus()) { // a half-typed entry counts
        ThePlatform().Beep();
        return;
    }
    MoveState& move = TheMove();
    move.outcome = MoveOutcome::Good;
    move.group = move.fields.lblGrpNo;
    move.request.begin();
    move.MoveRequest = static_cast<std::int16_t>(run);
    TellMove();
}

/// The run is to end, or, where the tick has not taken it yet, not to begin.
void Stop(bool counts) {
    if (!counts) {
        return;
    }
    TheMove().MoveStopFlag = kSet;
    if (!IsSet(TheMove().MoveActive)) {
        ForgetPlaceIfStopped(RunOfMove());
        ForgetRequest();
    }
    TellMove();
}

void Pause(bool counts, Flag& pauseFlag) {
    if (!counts) {
        return;
    }
    if (IsSet(TheMove().MoveActive)) {
        TheMove().pauses = true;
        pauseFlag = kSet;
    } else {
        ForgetRequest();
    }
    TellMove();
}

template<typename Value> void Put(Value& field, Value value) {
    field = value;
    TellMove();
}

void PutTimer(std::string& field, const std::string& typed) {
    constexpr int kLongest = 999;
    const std::string text = Trim(typed);
    const bool digits = text.find_first_not_of("0123456789") == std::string::npos;
    if (digits && NumberFromText(text) <= kLongest) {
        field = text;
    } else {
        ThePlatform().Beep();
    }
    TellMove();
}

/// A place outside the range isn't gone on with.
void ForgetPlaceOutside() {
    MoveState& move = TheMove();
    const int place = move.MoveStep.position;
    if (place < move.fields.lblStartPosiNo || place > move.fields.lblEndPosiNo) {
        move.RangePauseFlag = kClear;
    }
    TellMove();
}

} // namespace

Flag& MoveActive = TheMove().MoveActive;
std::int16_t& MoveRequest = TheMove().MoveRequest;
Timer timerEventCheck{"timerEventCheck", 100, false, {}};

MoveFormData MoveForm() {
    const MoveState& move = TheMove();
    MoveFormData form;
    form.fields = move.fields;
    form.enabled = EnabledNow();
    form.out1 = move.out1;
    form.out2 = move.out2;
    form.lblkanryoNo = move.lblkanryoNo;
    const int next = NextEntry();
    form.nextCell = static_cast<std::size_t>((next == 0 ? move.MoveStep.index : next) - 1);
    form.homing = {IsSet(HomedFlag) ? kHomed : kHomingUnsure, 0};
    form.status = StatusNow();
    form.place = PlaceNow();
    return form;
}

void LoadMove() {
    ResetMoveTest();
    TheMove().open = true;
    EnableTimer(timerEventCheck);
}

void UnloadMove() {
    TheMove().open = false;
    DisableTimer(timerEventCheck);
    if (!IsSet(TheMove().MoveActive)) {
        ForgetRequest();
    }
    MotionWindowClosed();
}

bool MoveMayClose(bool fromTitleBar) {
    return !fromTitleBar || !IsSet(TheMove().MoveActive) ||
           AskBox(ResText(kCloseWhileMoving), BoxButtons::OkCancel) == BoxAnswer::Ok;
}

void cmdMove_Click() {
    Request(MoveRun::List);
}
void cmdSelectMove_Click() {
    Request(MoveRun::Range);
}
void cmdGrpMove_Click() {
    Request(MoveRun::Group);
}
void cmdHome_Click() {
    Request(MoveRun::Home);
}

void cmdStop_Click() {
    Stop(EnabledNow().cmdStop);
}
void cmdStop2_Click() {
    Stop(EnabledNow().cmdStop2);
}
void cmdTmpStop_Click() {
    Pause(EnabledNow().cmdTmpStop, TheMove().MovePauseFlag);
}
void cmdTempStop2_Click() {
    Pause(EnabledNow().cmdTempStop2, TheMove().RangePauseFlag);
}
void cmdGrpMoveStop_Click() {
    if (RunOfMove() == MoveRun::Group && IsSet(TheMove().MoveActive)) {
        GrpMoveStopFlag = kSet;
    }
    Stop(EnabledNow().cmdGrpMoveStop);
}

void SSTab1_Click(std::size_t tab) {
    if (EnabledNow().SSTab1.at(tab)) {
        Put(TheMove().fields.SSTab1, tab);
    }
}
void optSelectMode_Click(std::size_t index) {
    Put(TheMove().fields.list.step, index == 1);
}
void optMoveWay_Click(std::size_t index) {
    Put(TheMove().fields.range.step, index == 1);
}
void chkRepeat_Click(bool ticked) {
    Put(TheMove().fields.list.repeat, ticked);
}
void chkRepeat2_Click(bool ticked) {
    Put(TheMove().fields.range.repeat, ticked);
}
void chkNoSqMcr1_Click(bool ticked) {
    Put(TheMove().fields.list.noSqMcr, ticked);
}
void chkNoSqMcr2_Click(bool ticked) {
    Put(TheMove().fields.range.noSqMcr, ticked);
}
void chkTimerUse_Click(bool ticked) {
    Put(TheMove().fields.list.timerUse, ticked);
}
void chkTimerUse2_Click(bool ticked) {
    Put(TheMove().fields.range.timerUse, ticked);
}
void txtTimer_Enter(const std::string& typed) {
    PutTimer(TheMove().fields.list.timer, typed);
}
void txtTimer2_Enter(const std::string& typed) {
    PutTimer(TheMove().fields.range.timer, typed);
}

void StartPosiNo_Change(int position) {
    MoveFields& fields = TheMove().fields;
    fields.lblStartPosiNo = position;
    fields.lblEndPosiNo = std::max(fields.lblEndPosiNo, position);
    ForgetPlaceOutside();
}
void EndPosiNo_Change(int position) {
    MoveFields& fields = TheMove().fields;
    fields.lblEndPosiNo = std::max(position, fields.lblStartPosiNo);
    ForgetPlaceOutside();
}
void GrpNo_Change(int group) {
    Put(TheMove().fields.lblGrpNo, group);
}

void ResetMoveTest() {
    DisableTimer(timerEventCheck);
    timerEventCheck = {"timerEventCheck", 100, false, timerEventCheck_Tick};
    ResetMoveState();
}

} // namespace qdw8
