#include "motion/teaching.h"

#include "app/boxes.h"
#include "app/command_states.h"
#include "app/move_defaults.h"
#include "app/screens.h"
#include "link/background.h"
#include "link/ct_commands.h"
#include "link/end_of_run.h"
#include "link/line_state.h"
#include "link/port.h"
#include "link/stop.h"
#include "motion/homing.h"
#include "motion/jog_frames.h"
#include "motion/motion_window.h"
#include "motion/teach_start.h"
#include "setup/controller_devices.h"
#include "setup/repaint_axes.h"

#include <exception>
#include <memory>
#include <utility>

namespace qdw8 {
namespace {

constexpr std::int32_t kTickMs = 50;
constexpr std::int32_t kAtOnceMs = 1;
constexpr int kTicks = 4;                ///< counted 0 to 3
constexpr std::int16_t kReadingTick = 3; ///< the one that reads the position
/// Readings, one behind the other, in which a stop is confirmed before the window goes.
constexpr int kLastReadings = 10;

constexpr std::array<int, 4> kSteps{0, 1, 10, 100}; ///< pulses; 0: JOG

enum Text : std::int16_t {
    kPositionPls = 2212,
    kPositionMm = 2223,
    kWillHome = 3185,
    kStarting = 3186,
    kHoming = 3187,
    kHold = 3188,
    kPress = 3189,
    kFailed = 3190,
    kCompleted = 3191,
    kStopping = 3192,
    kNotConfirmed = 3193,
    kBeyond = 3195,
    kMayHome = 3235,
};

/// The state of a fresh start.
struct TeachingState {
    Teaching state = Teaching::NotStarted;
    Flag JogTimerStop = kClear;
    std::int16_t JogTickCount = kReadingTick;
    Flag JogHeld = kClear;
    int optJOG = 0;
    bool open = false;
    bool beyond = false;    ///< the last step was sent beyond the stroke end
    bool pressed = false;   ///< a button is down, whatever came of the press
    bool breakOff = false;  ///< the start is to end
    bool otherAxes = false; ///< than before are in use since a start
    StopSign shown = StopSign::None;
    bool maybeMoving = false;               ///< the window went with a stop that was not confirmed
    std::unique_ptr<CommandsAway> commands; ///< away while this lives
};
TeachingState state;

void Tell() {
    state.shown = TheStopSign();
    if (Screens().frmJOG) {
        Screens().frmJOG();
    }
}

bool IsStarting() {
    return state.state == Teaching::Starting || state.state == Teaching::Homing;
}

bool IsJog() {
    return state.optJOG == 0;
}

void GoTo(Teaching next) {
    state.state = next;
    Tell();
}

void MakeTickDue() {
    if (timerTusin.enabled) {
        SetInterval(timerTusin, kAtOnceMs);
    }
}

/// What was not sent never is.
void DropMoves() {
    DropJogs();
    state.JogHeld = kClear;
}

/// A stop goes in front of all.
void QueueStop() {
    DropMoves();
    if (!StopIsDue()) {
        EnableTimer(TimerBosoKansi); // the sign counts from here
    }
    LetStopBeDue();
    MakeTickDue();
}

/// Nothing goes out any more, and nobody knows where the axes stand.
void Fail(bool answerDecides = false) {
    DisableTimer(timerTusin);
    DropMoves();
    SeeFailure(answerDecides);
    JogPresentPos = {};
    GoTo(Teaching::Failed);
}

/// Judges an exchange of the tick. False: the tick ends here, and teaching too where it failed.
bool GoesOn(bool good, bool answerDecides = false) {
    const bool overtaken = !good && LastLoss == LineLoss::Overtaken;
    if ((!good && !overtaken) || LastStop == Stop::Failed) {
        Fail(answerDecides);
        return false;
    }
    return good;
}

bool ReadPosition() {
    const Stop before = LastStop;
    const bool good = ReadnDisp_PresentPos() == 0;
    // A stop that followed the reading is not confirmed by it.
    if (good && LastStop == before) {
        SeeReading();
    }
    const bool goesOn = GoesOn(good);
    Tell();
    return goesOn;
}

/// What the entry has the axis do; false where that is nothing. `beyond`: it ends beyond the stroke
/// end.
bool MakeData(JogEntry& entry, bool& beyond) {
    if (entry.step == 0) {
        return true;
    }
    const std::size_t axis = entry.button / 2;
    const std::int32_t end = JogMaxPulse[axis];
    const auto from = JogPresentPos[axis];
    const auto target = from ? InchingTarget(entry.button, entry.step, *from, end) : from;
    if (!target) {
        return false;
    }
    beyond = *target > end;
    entry.data = InchingData(entry.button, *target);
    return entry.data.size() == kInchingData;
}

/// None while a stop is not confirmed, nor behind the end of the program.
bool MoveWaits() {
    return IsSet(JogSendPending) && !StopIsDue() && !IsSet(ProgramEndFlag);
}

/// The head of the queue. A release or an end drops it out of every wait, and it is gone then.
void SendHead() {
    const std::int16_t arrived = ReadArrivalStatus();
    // A move is never sent on top of one in progress.
    if (!GoesOn(arrived >= 0) || arrived == 0 || !MoveWaits()) {
        return;
    }
    if (JogHead().step != 0 && (!ReadPosition() || !MoveWaits())) {
        return;
    }
    JogEntry entry = JogHead();
    PopJog();
    bool beyond = false;
    if (!MakeData(entry, beyond)) {
        return;
    }
    SeeMove(entry.step != 0);
    Tell();
    const bool good = (entry.step != 0 ? InchingMove(entry.data) : JogRun(entry.data)) == 0;
    state.beyond = good && beyond;
    GoesOn(good, true);
    Tell();
}

/// A stop that is wished goes out. False: the tick ends here.
bool ServeStop() {
    if (TellLostLine()) {
        Fail();
        return false;
    }
    return !StopIsWished() || GoesOn(StopMotion() == 0);
}

/// Where another command holds the line: the stop and what confirms it, and nothing else.
void TalkOfStop() {
    if (ServeStop() && StopIsDue()) {
        ReadPosition();
    }
}

void Talk() {
    if (!ServeStop()) {
        return;
    }
    state.JogTickCount = static_cast<std::int16_t>((state.JogTickCount + 1) % kTicks);
    // While a stop is watched each tick reads.
    if ((state.JogTickCount == kReadingTick || StopIsDue()) && !ReadPosition()) {
        return;
    }
    if (MoveWaits()) {
        SendHead();
    }
}

void TalkOrFail(void (*talk)()) {
    try {
        talk();
    } catch (const std::exception&) {
        TellBehindStop([] { ShowTexts({397}); });
        Fail();
    }
}

/// Lets a stop that is due out, and reads until it is confirmed or nothing more can be known.
void FinishStop() {
    if (StopIsWished() && StopMotion() != 0) {
        SeeFailure(false);
    }
    for (int n = 0; n < kLastReadings && StopIsDue() && LastStop == Stop::Answered; ++n) {
        if (ReadnDisp_PresentPos() != 0) {
            SeeFailure(false);
        } else {
            SeeReading();
        }
    }
    if (state.state != Teaching::Started) {
        JogPresentPos = {}; // nothing reads on, and what is shown would not stay true
    }
    Tell();
}

void Start() {
    state.breakOff = false;
    GoTo(Teaching::Starting);
    const auto brokenOff = [] { return state.breakOff || IsSet(ProgramEndFlag); };
    const auto homing = [](bool moves) { GoTo(moves ? Teaching::Homing : Teaching::Starting); };
    const std::array<Flag, kAxes> axesBefore = AxisOff;
    bool good = false;
    try {
        if (StopIsDue()) { // of before: it was not confirmed
            WishStop();
            FinishStop();
        }
        good = !StopIsDue() && StartTeaching(homing, brokenOff);
    } catch (const std::exception&) {
        TellBehindStop([] { ShowTexts({397}); });
    }
    if (AxisOff != axesBefore) {
        state.otherAxes = true;
        RepaintAxes();
    }
    // Before any position is shown: in millimetres that of another device would be another place.
    if (good && state.otherAxes) {
        state.otherAxes = TakeOverLackingDevices() != 0;
        good = !IsSet(OffLineFlag) && !brokenOff();
    }
    if (!good) {
        if (IsSet(AxisMayMove) && LastStop != Stop::Failed) {
            if (!StopIsDue()) {
                LetStopBeDue();
            }
            FinishStop();
        }
        CloseCtPort();
        GoTo(Teaching::NotStarted);
        return;
    }
    ResetJogQueue();
    state.JogHeld = kClear;
    state.beyond = false;
    state.JogTimerStop = kClear;
    state.JogTickCount = kReadingTick;
    SetInterval(timerTusin, kTickMs);
    EnableTimer(timerTusin);
    GoTo(Teaching::Started);
}

/// The end of teaching, by `cmdJOGend` and by the window's close.
void End() {
    state.JogTimerStop = kSet;
    DisableTimer(timerTusin);
    ResetJogQueue();
    state.JogHeld = kClear;
    JogPresentPos = {};
    CloseCtPort();
}

std::int16_t StateText() {
    switch (state.state) {
    case Teaching::NotStarted: return kWillHome;
    case Teaching::Starting: return kStarting;
    case Teaching::Homing: return kHoming;
    case Teaching::Started: return state.beyond ? kBeyond : IsJog() ? kHold : kPress;
    case Teaching::Failed: return kFailed;
    case Teaching::Completed: return kCompleted;
    }
    return 0;
}

std::int16_t StopText() {
    switch (TheStopSign()) {
    case StopSign::Stopping: return kStopping;
    case StopSign::NotConfirmed: return kNotConfirmed;
    case StopSign::None: break;
    }
    return 0;
}

/// After a failure the buttons stay: a press waits in the queue, which the next start empties.
bool ButtonsStay() {
    return state.state == Teaching::Started || state.state == Teaching::Failed;
}

bool PositionStands() {
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        if (JogPresentPos[axis].has_value() == IsSet(AxisOff[axis])) {
            return false;
        }
    }
    return JogPresentPos != AxisPulses{};
}

void TakeRange(std::int16_t& figure, std::int16_t last, std::int16_t fallback) {
    if (figure < 1 || figure > last) {
        figure = fallback;
    }
}

void Forget() {
    ResetJogQueue();
    ResetJogPosition();
    NothingMoves();
    state = {};
}

void TimerBosoKansi_Tick() {
    StopSignTick();
    if (TheStopSign() != state.shown) {
        if (TheStopSign() == StopSign::NotConfirmed) {
            // What waits would begin whenever the stop is confirmed at last.
            DropMoves();
        }
        Tell();
    }
    if (IsSet(ProgramEndFlag) && !IsStarting()) {
        JogReleased();
        // Out of the wait of a stop each tick would wish one more, without end.
        if (!IsSet(CtBusyFlag)) {
            LetStopOut(UnloadJog);
        }
    }
}

} // namespace

Timer timerTusin{"timerTusin", kTickMs, false, {}};
Timer TimerBosoKansi{"TimerBosoKansi", 100, false, {}};

TeachingForm TheTeachingForm() {
    TeachingForm form;
    form.state = state.state;
    form.stop = TheStopSign();
    form.stateText = StateText();
    form.stopText = StopText();
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        form.lblPosi[axis] = JogPresentPos[axis] ? JogPosText(axis, *JogPresentPos[axis]) : "";
    }
    form.lblGenzaitiHyoji = TeachesInMm() ? kPositionMm : kPositionPls;
    form.lblJogVEL = std::to_string(VelOf100Pls);
    form.optJOG = state.optJOG;
    form.cmdJOGST = state.open && !IsStarting() && state.state != Teaching::Started;
    form.homeText = form.cmdJOGST && form.stop == StopSign::NotConfirmed ? kMayHome : 0;
    form.cmdJOGend = IsStarting() || ButtonsStay();
    form.flgdJOGPosi = ButtonsStay();
    form.cmdJOGWrite = ButtonsStay() && PositionStands() && !IsSet(AxisMayMove);
    for (std::size_t button = 0; button < kJogButtons; ++button) {
        form.cmdJOG[button] =
            ButtonsStay() && !IsSet(AxisOff[button / 2]) && form.stop != StopSign::NotConfirmed;
    }
    return form;
}

void LoadJog() {
    const bool maybeMoving = state.maybeMoving;
    ResetTeaching();
    if (maybeMoving) {
        SeeMove(false);
        SeeFailure(false);
    }
    ReadMoveDefaults();
    // A frame takes no other figures.
    TakeRange(VelOf100Pls, 60, kVelOf100Pls);
    TakeRange(AccOf100Pls, 3, kAccOf100Pls);
    TakeRange(AccOf100Pls2, 3, kAccOf100Pls);
    state.open = true;
    state.commands = std::make_unique<CommandsAway>();
    EnableTimer(TimerBosoKansi);
    Tell();
}

void EndTeaching() {
    End();
    if (std::exchange(state.otherAxes, false) && !IsSet(ProgramEndFlag)) {
        CompleteAxes();
    }
}

void UnloadJog() {
    if (!state.open) {
        return;
    }
    EndTeaching();
    if (!state.open) { // closed out of the wait of an exchange
        return;
    }
    DisableTimer(TimerBosoKansi);
    const bool maybeMoving = TheStopSign() == StopSign::NotConfirmed;
    Forget();
    state.maybeMoving = maybeMoving;
    MotionWindowClosed();
    Tell();
    EndIfConfirmed();
}

bool JogOpen() {
    return state.open;
}

void cmdJOGST_Click() {
    WhenLineIsFree([] {
        if (TheTeachingForm().cmdJOGST) {
            RunWatched(Start);
        }
    });
}

void cmdJOGend_Click() {
    if (!TheTeachingForm().cmdJOGend) {
        return;
    }
    const bool wasStarted = !IsStarting();
    LetStopOut([wasStarted] {
        End();
        GoTo(wasStarted ? Teaching::Completed : Teaching::NotStarted);
    });
}

void optJOG_Click(int way) {
    if (way >= 0 && way < static_cast<int>(kSteps.size())) {
        state.optJOG = way;
        state.beyond = false;
    }
    Tell();
}

void JogPressed(int index) {
    const auto button = static_cast<std::size_t>(index);
    if (!TheTeachingForm().cmdJOG.at(button)) {
        return;
    }
    state.pressed = true;
    if (IsSet(state.JogHeld)) {
        return;
    }
    const int step = kSteps[static_cast<std::size_t>(state.optJOG)];
    state.beyond = false;
    if (PushJog({button, step, step == 0 ? JogData(button, VelOf100Pls) : ""})) {
        state.JogHeld = FlagOf(IsJog());
        MakeTickDue();
    }
}

void JogReleased() {
    if (!std::exchange(state.pressed, false)) {
        return;
    }
    // A failed exchange has sent a stop before it told, and its box may be what takes the button.
    const bool stopped = (LastStop == Stop::Answered || LastStop == Stop::Failed) && !StopIsDue();
    if ((IsJog() || IsSet(state.JogHeld)) && !stopped && state.state == Teaching::Started) {
        QueueStop();
        Tell();
    }
    state.JogHeld = kClear;
}

void LetStopOut(const std::function<void()>& then) {
    JogReleased();
    DropMoves();
    if (IsStarting()) {
        state.breakOff = true;
        if (IsSet(AxisMayMove)) {
            QueueStop();
        }
    } else if (TheStopSign() == StopSign::NotConfirmed) {
        WishStop();
    }
    WhenLineIsFree([then] {
        JogReleased(); // of a press that came while this waited
        DropMoves();
        if (StopIsDue() && !RunPastHold(FinishStop)) {
            FinishStop();
        }
        then();
    });
}

void timerTusin_Tick() {
    if (timerTusin.interval != kTickMs) {
        SetInterval(timerTusin, kTickMs);
    }
    if (IsSet(state.JogTimerStop)) {
        DisableTimer(timerTusin);
        return;
    }
    if (!RunWatched([] { TalkOrFail(Talk); }) && StopIsDue()) {
        RunPastHold([] { TalkOrFail(TalkOfStop); });
    }
}

void ResetTeaching() {
    DisableTimer(timerTusin);
    DisableTimer(TimerBosoKansi);
    timerTusin = {"timerTusin", kTickMs, false, timerTusin_Tick};
    TimerBosoKansi = {"TimerBosoKansi", 100, false, TimerBosoKansi_Tick};
    Forget();
}

} // namespace qdw8
