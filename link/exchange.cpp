#include "link/exchange.h"

#include "app/Module1.h"
#include "app/boxes.h"
#include "app/string_table.h"
#include "app/transfer_dialog.h"
#include "link/alarm.h"
#include "link/background.h"
#include "link/line_state.h"
#include "link/port.h"
#include "link/receiver.h"
#include "link/stop.h"
#include "platform/platform.h"

#include <algorithm>
#include <array>
#include <exception>

namespace qdw8 {
namespace {

constexpr std::size_t kWord = 3; ///< characters of a command word

/// How the three forms of the exchange differ.
enum class Manner {
    Resend, ///< sends again after a time-out, tells the user
    Once,   ///< tells the user
    Quiet   ///< no box at all
};

struct Request {
    std::string word;
    std::int16_t length = 0;
    std::string data;
    std::size_t echoed = 0;
    Manner manner = Manner::Once;
};

/// How an exchange ends.
enum class Ending {
    Good,
    Overtaken,  ///< by a stop: not sent, or not sent again
    NoPort,     ///< the port can't be opened
    PortGone,   ///< it closed itself under the exchange
    Fault,      ///< of the port
    Timeout,    ///< no reply
    ErrorReply, ///< in `ReplyText`
    GivenUp,    ///< the wait for the answer to the plain question
    WrongEcho,  ///< a reply that can't be believed; `ReplyText` is what the plain question brought
    WrongLength,
    WrongData ///< the answer to another request
};

constexpr const char* kStop = "0SP";

/// Nobody is told of a line any more when the program is about to end.
bool IsTalking(Manner manner) {
    return manner != Manner::Quiet && !IsSet(ProgramEndFlag);
}

/// A wait for the answer to the plain question has the limit of the command before it; where that
/// had none, the user is offered a way out after this time.
constexpr std::int16_t kRecoveryMs = 1000;

/// Thrown out of a wait when the port has closed itself.
struct PortGone {};

/// An exchange waits for its reply for the life of the object.
class Awaiting {
public:
    Awaiting() { ReplyAwaitedFlag = kSet; }
    ~Awaiting() {
        ReplyAwaitedFlag = kClear;
        DisableTimer(timerTimeout);
    }
    Awaiting(const Awaiting&) = delete;
    Awaiting& operator=(const Awaiting&) = delete;
};

template<typename Condition> void PumpUntil(Condition condition) {
    const Awaiting awaiting;
    while (!condition()) {
        if (!MSComm1().PortOpen()) {
            throw PortGone{};
        }
        PumpEvents();
    }
}

/// Arms the time limit and sends a frame; the wait is the caller's.
void Send(const std::string& frame, std::int16_t limit) {
    TimeoutFlag = kClear;
    SetInterval(timerTimeout, limit);
    EnableTimer(timerTimeout);
    ReplyDoneFlag = kClear;
    MSComm1().Output(frame + "\r\n");
    MSComm1().SetInputLen(0);
}

void WaitForReply() {
    // A wait without limit must not outlive the program.
    PumpUntil([] {
        return IsSet(ReplyDoneFlag) || IsSet(TimeoutFlag) ||
               (ReplyTimeoutMs == 0 && IsSet(ProgramEndFlag));
    });
}

void DecodeReply(Manner manner) {
    AlarmFlag = kSet;
    ErrorReplyText = ReplyText;
    if (IsTalking(manner)) {
        DecodeCtError();
    } else {
        DecodeCtErrorSilently();
    }
}

void ShowErrorReply() {
    const std::string text = "[" + ErrorText + "]";
    if (IsSet(ErrorFoundFlag)) {
        ShowBox(Lines({ResText(104), "Error No." + ErrorNo, text}));
    } else {
        ShowBox(Lines({ResText(104), text}));
    }
}

void LeaveIfNotResettable() {
    if (IsSet(AlarmNotResettableFlag)) {
        LineAnswers = false;
        CloseCtPortForce();
        SetOfflineState();
    }
}

/// A stop goes out before anything is told, and before a wait that has no end.
bool StopGoesFirst() {
    return StopIsWished() || IsSet(AxisMayMove);
}

void FailPort(Manner manner) {
    LastLoss = LineLoss::Port;
    LineAnswers = false;
    if (IsTalking(manner)) {
        ShowPortBox();
    } else {
        CloseCtPortForce();
    }
    SetOfflineState();
}

/// The port closed itself under the exchange.
void FailPortGone(Manner manner) {
    LastLoss = LineLoss::Port;
    LineAnswers = false;
    CommErrorFlag = kSet;
    CloseCtPortForce();
    SetOfflineState();
    if (IsTalking(manner)) {
        ShowPortBox();
    }
}

void FailTimeout(Manner manner) {
    LineAnswers = false;
    CommErrorFlag = kSet;
    CloseCtPortForce();
    if (IsTalking(manner)) {
        ShowBox(Lines({ResText(100), "", ResText(101), "", ResText(102), "", ResText(103)}));
    }
    SetOfflineState();
}

void FailErrorReply(Manner manner) {
    DecodeReply(manner);
    if (IsTalking(manner)) {
        ShowErrorReply();
        LeaveIfNotResettable();
    } else {
        CloseCtPort();
    }
}

/// Waits for the reply or for the user who gives the wait up; the time limit only brings the offer
/// to do so, where somebody waits, or ends the wait where a stop is to follow. A controller that
/// runs a group answers when the group is done. False: given up.
bool WaitForAnswerOrUser() {
    struct Offer {
        ~Offer() { WithdrawGiveUp(); }
    };
    const Offer offer;
    PumpUntil([] {
        const bool late = IsSet(TimeoutFlag);
        if (late && !StopGoesFirst() && UserWaitsForLine()) {
            OfferGiveUp();
        }
        return IsSet(ReplyDoneFlag) || IsSet(GrpMoveStopFlag) || IsSet(ProgramEndFlag) ||
               (late && StopGoesFirst());
    });
    const bool givenUp = IsSet(GrpMoveStopFlag) || (IsSet(ProgramEndFlag) && !IsSet(ReplyDoneFlag));
    GrpMoveStopFlag = kClear;
    return !givenUp;
}

/// A reply that can't be believed: asks the controller for a plain answer, to find out whether it
/// is in alarm or the line is disturbed. The answer to a stop that is due tells as much.
Ending Recover(Ending why) {
    if (StopIsWished()) {
        return why;
    }
    Send("0CM0", ReplyTimeoutMs > 0 ? ReplyTimeoutMs : kRecoveryMs);
    return WaitForAnswerOrUser() ? why : Ending::GivenUp;
}

void FailGivenUp() {
    LastLoss = LineLoss::GivenUp;
    LineAnswers = false;
    SetOfflineState();
}

void FailRecovered(Manner manner, bool wrongLength) {
    if (ReplyText.starts_with("0%%")) {
        DecodeReply(manner);
        if (IsTalking(manner)) {
            LeaveIfNotResettable();
            ShowErrorReply();
            return;
        }
        if (!wrongLength) {
            return;
        }
    }
    CloseCtPort();
    CommErrorFlag = kSet;
    SetOfflineState();
    if (IsTalking(manner)) {
        ShowBox(wrongLength ? TextLines({105, 106}) : ResText(104));
    }
}

void FailFault(Manner manner) {
    LineAnswers = false;
    if (IsTalking(manner)) {
        ShowTexts({108});
    }
    CloseCtPortForce();
    SetOfflineState();
}

/// The answers to what a stop has overtaken come in front of its own, up to `late` lines.
void SkipLateAnswers(const std::string& word, int late) {
    while (late-- > 0 && IsSet(ReplyDoneFlag) && !ReplyText.starts_with(word) &&
           !ReplyText.starts_with("0%%")) {
        ReplyText.erase(0, ReplyText.find("\r\n") + 2);
        if (ReplyText.empty()) {
            ReplyDoneFlag = kClear;
            EnableTimer(timerTimeout);
            WaitForReply();
        }
    }
}

/// Sends and judges; nobody is told anything yet. `sent` counts what went out.
Ending Talk(const Request& request, int late, int& sent) {
    if (OpenCtPortWithTries() != 0) {
        return Ending::NoPort;
    }
    const std::string frame = request.word + request.data;
    for (std::int16_t resends = 0;; ++resends) {
        if (StopIsWished()) {
            return Ending::Overtaken;
        }
        CommErrorFlag = kClear;
        ++sent;
        Send(frame, ReplyTimeoutMs);
        WaitForReply();
        SkipLateAnswers(request.word, late);
        if (IsSet(ReplyDoneFlag)) {
            break;
        }
        if (request.manner != Manner::Resend || resends == kRetries || IsSet(ProgramEndFlag)) {
            return Ending::Timeout;
        }
    }
    if (ReplyText.starts_with("0%%")) {
        return Ending::ErrorReply;
    }
    if (ReplyText.compare(0, kWord, frame, 0, kWord) != 0) {
        return Recover(Ending::WrongEcho);
    }
    if (ReplyText.size() != static_cast<std::size_t>(request.length)) {
        return Recover(Ending::WrongLength);
    }
    const std::size_t repeated = kWord + request.echoed;
    return ReplyText.compare(0, repeated, frame, 0, repeated) == 0 ? Ending::Good
                                                                   : Ending::WrongData;
}

Ending Try(const Request& request, int late, int& sent) {
    try {
        return Talk(request, late, sent);
    } catch (const PortGone&) {
        return Ending::PortGone;
    } catch (const std::exception&) {
        DisableTimer(timerTimeout);
        return MSComm1().PortOpen() ? Ending::Fault : Ending::PortGone;
    }
}

/// What was heard. A stop that went out instead tells nothing of the line, a port that could not be
/// opened has been noted.
void NoteHeard(Ending ending) {
    Heard heard = Heard::Answer;
    switch (ending) {
    case Ending::NoPort:
    case Ending::Overtaken: return;
    case Ending::Good:
    case Ending::ErrorReply: break;
    case Ending::Timeout:
    case Ending::GivenUp: heard = Heard::Silence; break;
    case Ending::PortGone:
    case Ending::Fault: heard = Heard::PortLost; break;
    case Ending::WrongEcho:
    case Ending::WrongLength:
        heard = ReplyText.starts_with("0%%") ? Heard::Answer : Heard::Garble;
        break;
    case Ending::WrongData: heard = Heard::Garble; break;
    }
    LastHeard = {heard, PortNo};
}

/// What was heard is noted in the order in which it came, not in that in which it is told.
Ending Attempt(const Request& request, int late, int& sent) {
    const Ending ending = Try(request, late, sent);
    NoteHeard(ending);
    return ending;
}

/// What an ending means for the line and the alarm, and what is told of it.
void Conclude(Ending ending, Manner manner) {
    switch (ending) {
    case Ending::Good:
        AlarmFlag = kClear;
        ClearAlarmDisplay();
        SetOnlineState();
        break;
    case Ending::Overtaken: LastLoss = LineLoss::Overtaken; break;
    case Ending::NoPort: FailPort(manner); break;
    case Ending::PortGone: FailPortGone(manner); break;
    case Ending::Fault: FailFault(manner); break;
    case Ending::Timeout: FailTimeout(manner); break;
    case Ending::ErrorReply: FailErrorReply(manner); break;
    case Ending::GivenUp: FailGivenUp(); break;
    case Ending::WrongEcho: FailRecovered(manner, false); break;
    case Ending::WrongLength: FailRecovered(manner, true); break;
    case Ending::WrongData:
        if (IsTalking(manner)) {
            ShowWrongData();
        }
        break;
    }
}

/// `0SP`, behind an exchange whose reply stays. Up to `late` answers to that exchange may still
/// come. A failure is told where the exchange has nothing to tell.
void ServeStop(int late, bool tells) {
    const std::string reply = ReplyText;
    const std::int16_t limit = ReplyTimeoutMs;
    if (ReplyTimeoutMs == 0) {
        ReplyTimeoutMs = kRecoveryMs;
    }
    Ending ending = Ending::Good;
    do {
        LastStop = Stop::Sent;
        // The answer must be heard, whatever has become of the line.
        OffLineFlag = kClear;
        OnLineFlag = kSet;
        int sent = 0;
        ending = Attempt({kStop, 5, {}, 0, Manner::Once}, late, sent);
    } while (StopIsWished());
    LastStop = ending == Ending::Good ? Stop::Answered : Stop::Failed;
    if (ending == Ending::Good) {
        SetMotionRuns(false);
    }
    Conclude(ending, tells ? Manner::Once : Manner::Quiet);
    ReplyTimeoutMs = limit;
    ReplyText = reply;
}

bool SetsMoving(const std::string& word) {
    constexpr std::array kWords{"0MP", "0MM", "0MG", "0JR", "0MV"};
    return std::find(kWords.begin(), kWords.end(), word) != kWords.end();
}

/// `Attempt`, with the axes counted as moving from before the frame goes out, unless it sets
/// nothing moving: it was refused, or never went out.
Ending AttemptOnAxes(const Request& request, int& sent) {
    const bool ranBefore = MotionRuns();
    if (SetsMoving(request.word)) {
        SetMotionRuns(true);
    }
    const Ending ending = Attempt(request, 0, sent);
    if (!ranBefore && MotionRuns() && (ending == Ending::ErrorReply || sent == 0)) {
        SetMotionRuns(false);
    }
    return ending;
}

/// A stop that is wished meanwhile follows the exchange, and before it tells of a failure one goes
/// out in any case while an axis may move.
std::int16_t Exchange(const Request& request) {
    int sent = 0;
    const Ending ending = AttemptOnAxes(request, sent);
    const bool good = ending == Ending::Good;
    if (good) {
        Conclude(ending, request.manner);
    }
    if (StopIsWished() || (!good && IsSet(AxisMayMove))) {
        ServeStop(sent - (good ? 1 : 0), good || ending == Ending::Overtaken);
    }
    if (!good) {
        Conclude(ending, request.manner);
    }
    return good ? 0 : 1;
}

/// What even a conclusion throws is a fault of the port.
template<typename Run> std::int16_t Guarded(Manner manner, Run run) {
    LastLoss = LineLoss::None;
    LineAnswers = true;
    try {
        return run();
    } catch (const std::exception&) {
        FailFault(manner);
        return 1;
    }
}

std::int16_t ExchangeGuarded(const Request& request) {
    return Guarded(request.manner, [&request] { return Exchange(request); });
}

} // namespace

std::int16_t SendCtCommand(const std::string& word, std::int16_t length, const std::string& data,
                           std::size_t echoed) {
    return ExchangeGuarded({word, length, data, echoed, Manner::Resend});
}

std::int16_t SendCtCommandOnce(const std::string& word, std::int16_t length,
                               const std::string& data, std::size_t echoed) {
    return ExchangeGuarded({word, length, data, echoed, Manner::Once});
}

std::int16_t SendCtCommandQuiet(const std::string& word, std::int16_t length,
                                const std::string& data, std::size_t echoed) {
    return ExchangeGuarded({word, length, data, echoed, Manner::Quiet});
}

std::int16_t SendStop() {
    return Guarded(Manner::Once, [] {
        ServeStop(0, true);
        return static_cast<std::int16_t>(LastStop == Stop::Answered ? 0 : 1);
    });
}

void ShowWrongData() {
    ShowTexts({384, 385});
}

} // namespace qdw8
