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

/// Thrown out of a wait of a quiet exchange in which another exchange has run: what stands in the
/// reply variables now is no answer to this one.
struct Overtaken {};

bool OpenPort() {
    const int number = progress.number;
    progress.waitsForPort = true;
    const bool open = OpenCtPortWithTries() == 0;
    if (progress.number != number) {
        // What ran in between may have ended off line with the port closed for good.
        if (IsSet(OffLineFlag)) {
            CloseCtPortForce();
        } else {
            CloseCtPort();
        }
        throw Overtaken{};
    }
    progress.waitsForPort = false;
    return open;
}

template<typename Condition> void PumpUntil(Condition condition) {
    const int number = progress.number;
    progress.waitsForReply = true;
    while (!condition()) {
        PumpEvents();
        if (progress.number != number) {
            throw Overtaken{};
        }
    }
    progress.waitsForReply = false;
    DisableTimer(timerTimeout);
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
    RetryCount = 0;
    while (true) {
        CommErrorFlag = kClear;
        Send(frame);
        WaitForReply();
        if (!IsSet(TimeoutFlag)) {
            break;
        }
        ++RetryCount;
        if (manner != Manner::Resend || RetryCount > kRetries) {
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
    try {
        return Exchange(word, length, data, manner);
    } catch (const Overtaken&) {
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

void EndQuietExchange() {
    if (progress.quiet && (progress.waitsForPort || progress.waitsForReply)) {
        DisableTimer(timerTimeout);
        ++progress.number;
    }
}

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
