#include "motion/io_check.h"

#include "app/boxes.h"
#include "app/command_states.h"
#include "app/screens.h"
#include "link/background.h"
#include "link/ct_commands.h"
#include "link/end_of_run.h"
#include "link/line_state.h"
#include "link/port.h"
#include "link/receiver.h"
#include "motion/motion_window.h"
#include "motion/start_request.h"

#include <algorithm>
#include <cstdint>
#include <exception>
#include <memory>
#include <optional>
#include <string_view>

namespace qdw8 {
namespace {

constexpr std::int16_t kMoves = 0;   ///< mode in which the controller obeys its inputs
constexpr std::int16_t kIgnores = 1; ///< mode in which it doesn't

enum Text : std::int16_t {
    kStarting = 3172,
    kRuns = 3173,
    kStopping = 3174,
    kFailed = 3175,
    kMayIgnore = 3176,
    kNotBegun = 3219,
    kUnderQuestion = 3227,
};

/// The state of a fresh start.
struct IoCheckState {
    Flag IoMonitoring = kClear;
    Flag IoOutputChanged = kClear;
    Flag IoStartRequest = kClear;
    Flag IoStopRequest = kClear;
    IoSlots IoOutputMarks{};
    IoSlots IoInputState{};
    IoSlots IoOutputState{};
    Flag IoLampsShown = kClear;
    Flag chkIgnore = kClear;

    bool open = false;
    StartRequest request;
    bool starting = false; ///< the request was taken, the controller has not answered
    bool closing = false;  ///< the window goes when monitoring has been stopped
    bool notBegun = false; ///< the last click on the start was dropped
    bool failed = false;   ///< the last monitoring, or the start of one
    std::unique_ptr<CommandsAway> commands; ///< away while this lives
};
IoCheckState state;

void Tell() {
    if (Screens().frmIOCheck) {
        Screens().frmIOCheck();
    }
}

void ClearMarks() {
    state.IoOutputMarks = {};
    state.IoOutputChanged = kClear;
}

void ClearRequests() {
    state.IoStartRequest = kClear;
    state.IoStopRequest = kClear;
    ClearMarks();
}

void AllLED_Off() {
    state.IoLampsShown = kClear;
}

void IoStateHyoji(const IoSlots& inputs, const IoSlots& outputs) {
    state.IoInputState = inputs;
    state.IoOutputState = outputs;
    state.IoLampsShown = kSet;
    Tell();
}

void Unload() {
    DisableTimer(timerInputOutput1);
    DisableTimer(TimerBtnOff);
    state.open = false;
    MotionWindowClosed();
}

/// Monitoring is over, whatever became of it.
void End() {
    state.IoMonitoring = kClear;
    state.starting = false;
    ClearRequests();
    AllLED_Off();
    state.commands.reset();
    CloseCtPort();
}

/// Nothing more goes out: what the controller makes of it is for the user to see.
void Fail() {
    End();
    state.closing = false;
    state.failed = true;
}

bool Start() {
    const std::int16_t mode = IsSet(state.chkIgnore) ? kIgnores : kMoves;
    ClearRequests();
    state.starting = true;
    state.failed = false;
    state.commands = std::make_unique<CommandsAway>();
    Tell();
    if (SetCtMode(mode) != 0) {
        return false;
    }
    state.starting = false;
    state.IoMonitoring = kSet;
    return true;
}

/// The marked outputs the other way round than they were read, all others as they were.
bool ForceOutputs() {
    IoSlots wanted = state.IoOutputState;
    for (std::size_t slot = 0; slot < wanted.size(); ++slot) {
        if (IsSet(state.IoOutputMarks[slot])) {
            wanted[slot] = FlagOf(!IsSet(wanted[slot]));
        }
    }
    ClearMarks();
    return WriteOutputs(DigitsOf(wanted)) == 0;
}

/// The digits of a good reply. A digit that is none is not guessed.
std::optional<IoSlots> TakeReply() {
    constexpr std::size_t kWord = 3;
    std::optional<IoSlots> slots = SlotsOf(std::string_view(ReplyText).substr(kWord, kIoDigits));
    if (!slots) {
        ShowWrongData();
    }
    return slots;
}

bool Read() {
    if (ReadInputs() != 0) {
        return false;
    }
    const auto inputs = TakeReply();
    if (!inputs || ReadOutputs() != 0) {
        return false;
    }
    const auto outputs = TakeReply();
    if (!outputs) {
        return false;
    }
    IoStateHyoji(*inputs, *outputs);
    return true;
}

bool StopIsDue() {
    return IsSet(state.IoStopRequest) || IsSet(ProgramEndFlag);
}

bool Stop() {
    if (SetCtMode(kMoves) != 0) {
        return false;
    }
    End();
    if (state.closing) {
        Unload();
    }
    return true;
}

/// The exchanges of a tick, to the first that fails.
bool Talk() {
    if (!IsSet(state.IoMonitoring) && !Start()) {
        return false;
    }
    if (IsSet(ProgramEndFlag)) {
        ClearMarks(); // meant for a machine that somebody watches
    }
    return (!IsSet(state.IoOutputChanged) || ForceOutputs()) && Read() && (!StopIsDue() || Stop());
}

void TalkOrFail() {
    // The line was lost while nothing was on it: nobody has told, and nothing goes on line again by
    // itself.
    if (IsSet(state.IoMonitoring) && IsSet(OffLineFlag)) {
        Fail();
        Tell();
        ShowPortBox();
        return;
    }
    bool good = false;
    try {
        good = Talk();
    } catch (const std::exception&) {
        ShowTexts({397});
    }
    if (!good) {
        Fail();
    }
    Tell();
}

bool IsBusy() {
    return IsSet(state.IoMonitoring) || state.starting;
}

} // namespace

Flag& IoMonitoring = state.IoMonitoring;
Flag& IoOutputChanged = state.IoOutputChanged;
Flag& IoStartRequest = state.IoStartRequest;
Flag& IoStopRequest = state.IoStopRequest;
IoSlots& IoOutputMarks = state.IoOutputMarks;
IoSlots& IoInputState = state.IoInputState;
IoSlots& IoOutputState = state.IoOutputState;
Flag& IoLampsShown = state.IoLampsShown;
Flag& chkIgnore = state.chkIgnore;

Timer timerInputOutput1{"timerInputOutput1", 300, false, {}};
Timer TimerBtnOff{"TimerBtnOff", 500, false, {}};

void LoadIoCheck() {
    const bool failed = state.failed;
    ResetIoCheck();
    state.failed = failed;
    state.open = true;
    EnableTimer(timerInputOutput1);
}

void cmdIoMonitor_Click() {
    if (!IoMonitorEnabled()) {
        return;
    }
    (IsSet(state.IoMonitoring) ? state.IoStopRequest : state.IoStartRequest) = kSet;
    state.request.begin();
    state.notBegun = false;
    EnableTimer(TimerBtnOff);
    Tell();
}

bool IoMonitorEnabled() {
    return !TimerBtnOff.enabled && !state.starting && !IsSet(state.IoStartRequest) &&
           !IsSet(state.IoStopRequest) && (IsSet(state.IoMonitoring) || !CommandsTaken());
}

void chkIgnore_Click(bool ticked) {
    if (IgnoreEnabled()) {
        state.chkIgnore = FlagOf(ticked);
    }
    Tell();
}

bool IgnoreEnabled() {
    return !IsBusy() && !IsSet(state.IoStartRequest);
}

void OutputLamp_Click(std::size_t slot) {
    if (!IsSet(state.IoMonitoring) || IsSet(state.IoStopRequest) || !IsSet(state.IoLampsShown)) {
        return;
    }
    Flag& mark = state.IoOutputMarks.at(slot);
    mark = FlagOf(!IsSet(mark));
    state.IoOutputChanged =
        FlagOf(std::any_of(state.IoOutputMarks.begin(), state.IoOutputMarks.end(), IsSet));
}

void CloseIoCheck() {
    if (IsBusy()) {
        state.closing = true;
        state.IoStopRequest = kSet;
    } else {
        ClearRequests();
        Unload();
    }
    Tell();
}

bool IoCheckOpen() {
    return state.open;
}

void timerInputOutput1_Tick() {
    const bool starts = !IsBusy() && IsSet(state.IoStartRequest);
    if (starts && state.request.isStale(timerInputOutput1)) {
        ClearRequests();
        state.notBegun = true;
        Tell();
        return;
    }
    if (IsSet(state.IoMonitoring) && PollIsHeld() && IsSet(state.IoLampsShown)) {
        AllLED_Off(); // nothing is read under a question
        Tell();
    }
    if ((starts || IsBusy()) && RunWatched(TalkOrFail)) {
        EndIfConfirmed();
    }
}

std::int16_t IoStateText() {
    if (IsSet(state.IoStopRequest)) {
        return kStopping;
    }
    if (state.starting || IsSet(state.IoStartRequest)) {
        return kStarting;
    }
    if (IsSet(state.IoMonitoring)) {
        return PollIsHeld() ? kUnderQuestion : kRuns;
    }
    if (state.failed) { // graver than a click that was dropped
        return CtModeAnswered == kMoves ? kFailed : kMayIgnore;
    }
    return state.notBegun ? std::int16_t{kNotBegun} : std::int16_t{0};
}

void ResetIoCheck() {
    DisableTimer(timerInputOutput1);
    DisableTimer(TimerBtnOff);
    timerInputOutput1 = {"timerInputOutput1", 300, false, timerInputOutput1_Tick};
    TimerBtnOff = {"TimerBtnOff", 500, false, [] {
                       DisableTimer(TimerBtnOff);
                       Tell();
                   }};
    state = {};
}

} // namespace qdw8
