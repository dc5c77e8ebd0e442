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
#include "platform/platform.h"

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
/// to do so, where somebody waits. A controller that runs a group answers when the group is done.
/// False: given up.
bool WaitForAnswerOrUser() {
    struct Offer {
        ~Offer() { WithdrawGiveUp(); }
    };
    const Offer offer;
    PumpUntil([] {
        if (IsSet(TimeoutFlag) && UserWaitsForLine()) {
            OfferGiveUp();
        }
        return IsSet(ReplyDoneFlag) || IsSet(GrpMoveStopFlag) || IsSet(ProgramEndFlag);
    });
    const bool givenUp = IsSet(GrpMoveStopFlag) || !IsSet(ReplyDoneFlag);
    GrpMoveStopFlag = kClear;
    return !givenUp;
}

/// A reply that can't be believed: asks the controller for a plain answer, to find out whether it
/// is in alarm or the line is disturbed.
void Recover(Manner manner, bool wrongLength) {
    Send("0CM0", ReplyTimeoutMs > 0 ? ReplyTimeoutMs : kRecoveryMs);
    if (!WaitForAnswerOrUser()) {
        LastLoss = LineLoss::GivenUp;
        LineAnswers = false;
        SetOfflineState();
        return;
    }
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

std::int16_t Exchange(const std::string& word, std::int16_t length, const std::string& data,
                      std::size_t echoed, Manner manner) {
    if (OpenCtPortWithTries() != 0) {
        FailPort(manner);
        return 1;
    }
    const std::string frame = word + data;
    for (std::int16_t resends = 0;; ++resends) {
        CommErrorFlag = kClear;
        Send(frame, ReplyTimeoutMs);
        WaitForReply();
        if (IsSet(ReplyDoneFlag)) {
            break;
        }
        if (manner != Manner::Resend || resends == kRetries || IsSet(ProgramEndFlag)) {
            FailTimeout(manner);
            return 1;
        }
    }
    if (ReplyText.starts_with("0%%")) {
        FailErrorReply(manner);
        return 1;
    }
    if (ReplyText.compare(0, kWord, frame, 0, kWord) != 0) {
        Recover(manner, false);
        return 1;
    }
    if (ReplyText.size() != static_cast<std::size_t>(length)) {
        Recover(manner, true);
        return 1;
    }
    if (ReplyText.compare(0, kWord + echoed, frame, 0, kWord + echoed) != 0) {
        if (IsTalking(manner)) {
            ShowWrongData();
        }
        return 1;
    }
    AlarmFlag = kClear;
    ClearAlarmDisplay();
    SetOnlineState();
    return 0;
}

std::int16_t ExchangeGuarded(const std::string& word, std::int16_t length, const std::string& data,
                             std::size_t echoed, Manner manner) {
    LastLoss = LineLoss::None;
    LineAnswers = true;
    try {
        return Exchange(word, length, data, echoed, manner);
    } catch (const PortGone&) {
        FailPortGone(manner);
        return 1;
    } catch (const std::exception&) {
        DisableTimer(timerTimeout);
        if (!MSComm1().PortOpen()) {
            FailPortGone(manner);
            return 1;
        }
        LineAnswers = false;
        if (IsTalking(manner)) {
            ShowTexts({108});
        }
        CloseCtPortForce();
        SetOfflineState();
        return 1;
    }
}

} // namespace

std::int16_t SendCtCommand(const std::string& word, std::int16_t length, const std::string& data,
                           std::size_t echoed) {
    return ExchangeGuarded(word, length, data, echoed, Manner::Resend);
}

std::int16_t SendCtCommandOnce(const std::string& word, std::int16_t length,
                               const std::string& data, std::size_t echoed) {
    return ExchangeGuarded(word, length, data, echoed, Manner::Once);
}

std::int16_t SendCtCommandQuiet(const std::string& word, std::int16_t length,
                                const std::string& data, std::size_t echoed) {
    return ExchangeGuarded(word, length, data, echoed, Manner::Quiet);
}

void ShowWrongData() {
    ShowTexts({384, 385});
}

} // namespace qdw8
