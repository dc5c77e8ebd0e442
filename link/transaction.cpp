#include "app/boxes.h"
#include "app/string_table.h"
#include "link/Module3Tusin.h"
#include "platform/platform.h"

#include <exception>

namespace qdw8 {
namespace {

/// How the three forms of the exchange differ.
enum class Manner {
    Resend, ///< sends again after a time-out, tells the user
    Once,   ///< tells the user
    Quiet   ///< no box at all
};

bool IsTalking(Manner manner) {
    return manner != Manner::Quiet;
}

/// Where the exchange stands that began last.
struct Progress {
    int number = 0; ///< counts exchanges
    bool quiet = false;
    bool waitsForPort = false;
    bool waitsForReply = false;
};
Progress progress;

/// Thrown out of a wait of a quiet exchange that no longer counts.
struct Overtaken {};

/// A command of the user runs inside the waits of background traffic. When it has sent something,
/// what stands in the reply variables is no answer to this exchange; when it went off line, a late
/// answer must not bring the program back.
void CheckStillCounts(int number) {
    if (progress.number != number || (progress.quiet && IsSet(OffLineFlag))) {
        throw Overtaken{};
    }
}

bool OpenPort() {
    const int number = progress.number;
    progress.waitsForPort = true;
    const bool open = OpenCtPortWithTries() == 0;
    CheckStillCounts(number);
    progress.waitsForPort = false;
    return open;
}

template<typename Condition> void PumpUntil(Condition condition) {
    const int number = progress.number;
    progress.waitsForReply = true;
    while (!condition()) {
        PumpEvents();
        CheckStillCounts(number);
    }
    progress.waitsForReply = false;
    DisableTimer(timerTimeout);
}

/// The end of a quiet exchange that no longer counts. Its port stays open only if it may.
void EndOvertaken(int number) {
    if (progress.number == number) {
        DisableTimer(timerTimeout);
        progress.waitsForPort = progress.waitsForReply = false;
    }
    if (IsSet(OffLineFlag)) {
        CloseCtPortForce();
        SetOfflineState();
    } else {
        CloseCtPort();
    }
}

/// Arms the time limit and sends a frame; the wait is the caller's.
void Send(const std::string& frame) {
    TimeoutFlag = kClear;
    SetInterval(timerTimeout, ReplyTimeoutMs);
    EnableTimer(timerTimeout);
    ReplyDoneFlag = kClear;
    MSComm1().Output(frame + "\r\n");
    MSComm1().SetInputLen(0);
}

void WaitForReply() {
    PumpUntil([] { return IsSet(ReplyDoneFlag) || IsSet(TimeoutFlag); });
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
        CloseCtPortForce();
        SetOfflineState();
    }
}

void FailPort(Manner manner) {
    if (IsTalking(manner)) {
        ShowPortBox();
    } else {
        CloseCtPortForce();
    }
    SetOfflineState();
}

void FailTimeout(Manner manner) {
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

/// A reply that can't be believed: asks the controller for a plain answer, to find out whether it
/// is in alarm or the line is disturbed. The wait looks for the reply and for the group stop
/// button only; the time limit is armed and deliberately doesn't end it, since a controller that
/// runs a group answers when the group is done.
void Recover(Manner manner, bool wrongLength) {
    Send("0CM0");
    PumpUntil([] { return IsSet(ReplyDoneFlag) || IsSet(GrpMoveStopFlag); });
    if (IsSet(GrpMoveStopFlag)) {
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
                      Manner manner) {
    if (!OpenPort()) {
        FailPort(manner);
        return 1;
    }
    const std::string frame = word + data;
    // Counted here: a file that is tried again out of this wait uses the shared counter.
    for (std::int16_t resends = 0;; ++resends) {
        RetryCount = resends;
        CommErrorFlag = kClear;
        Send(frame);
        WaitForReply();
        if (!IsSet(TimeoutFlag)) {
            break;
        }
        if (manner != Manner::Resend || resends == kRetries) {
            FailTimeout(manner);
            return 1;
        }
    }
    if (ReplyText.starts_with("0%%")) {
        FailErrorReply(manner);
        return 1;
    }
    if (ReplyText.substr(0, 3) != frame.substr(0, 3)) {
        Recover(manner, false);
        return 1;
    }
    if (ReplyText.size() != static_cast<std::size_t>(length)) {
        Recover(manner, true);
        return 1;
    }
    AlarmFlag = kClear;
    ClearAlarmDisplay();
    SetOnlineState();
    return 0;
}

std::int16_t ExchangeGuarded(const std::string& word, std::int16_t length, const std::string& data,
                             Manner manner) {
    progress = {progress.number + 1, manner == Manner::Quiet, false, false};
    const int number = progress.number;
    try {
        return Exchange(word, length, data, manner);
    } catch (const Overtaken&) {
        EndOvertaken(number);
        return 1;
    } catch (const std::exception&) {
        DisableTimer(timerTimeout);
        if (IsTalking(manner)) {
            ShowTexts({108});
        }
        CloseCtPortForce();
        SetOfflineState();
        return 1;
    }
}

} // namespace

bool ExchangeWaitsForReply() {
    return progress.waitsForReply;
}

bool LineCanBeTakenOver() {
    return progress.quiet &&
           (progress.waitsForPort ||
            (progress.waitsForReply && (IsSet(ReplyDoneFlag) || IsSet(TimeoutFlag))));
}

std::int16_t SendCtCommand(const std::string& word, std::int16_t length, const std::string& data) {
    return ExchangeGuarded(word, length, data, Manner::Resend);
}

std::int16_t SendCtCommandOnce(const std::string& word, std::int16_t length,
                               const std::string& data) {
    return ExchangeGuarded(word, length, data, Manner::Once);
}

std::int16_t SendCtCommandQuiet(const std::string& word, std::int16_t length,
                                const std::string& data) {
    return ExchangeGuarded(word, length, data, Manner::Quiet);
}

} // namespace qdw8
