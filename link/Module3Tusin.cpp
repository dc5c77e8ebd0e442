#include "link/Module3Tusin.h"

#include "app/boxes.h"
#include "app/main_panel.h"
#include "app/settings.h"
#include "app/string_table.h"
#include "link/supervision.h"
#include "platform/platform.h"

#include <exception>

namespace qdw8 {

std::int16_t PortNo = 1;
Flag OffLineFlag = kClear;
Flag OnLineFlag = kClear;
Flag PortOccupyFlag = kClear;
Flag CtBusyFlag = kClear;
Flag ReplyDoneFlag = kClear;
Flag TimeoutFlag = kClear;
Flag CommErrorFlag = kClear;
Flag GrpMoveStopFlag = kClear;
Flag HomedFlag = kClear;
std::string ReplyBuffer;
std::string ReplyText;
std::int16_t ReplyTimeoutMs = 0;
Flag AlarmFlag = kClear;
Flag AlarmNotResettableFlag = kClear;
Flag ErrorFoundFlag = kClear;
std::string ErrorNo;
std::string ErrorText;
std::string ErrorReplyText;
Flag ErrorListMissingFlag = kClear;
std::array<ErrorListRow, kErrorListRows + 1> ErrorList;
std::string CtVersion;
std::int16_t CtAxisCount = 0;
std::array<std::string, kAxes> CtAxisVersion;

Timer TimerJusin{"TimerJusin", 1, false, {}};
Timer timerTimeout{"timerTimeout", 15000, false, {}};
Timer Timer1{"Timer1", 500, false, {}};

namespace {

bool CharactersWait() {
    return MSComm1().PortOpen() && !IsSet(OffLineFlag) && MSComm1().InBufferCount() > 0;
}

/// Takes what has come. A reply is whatever has collected at the moment the buffer happens to end
/// in CR LF, so two lines that arrive together count as one reply and fail the length test.
void TakeCharacters() {
    if (!CharactersWait()) {
        return;
    }
    ReplyBuffer += MSComm1().Input();
    if (!ReplyBuffer.ends_with("\r\n")) {
        return;
    }
    ReplyDoneFlag = kSet;
    DisableTimer(timerTimeout);
    ReplyText = ReplyBuffer;
    ReplyBuffer.clear();
    if (ReplyText.starts_with("0%%")) {
        AlarmFlag = kSet;
        ErrorReplyText = ReplyText;
        // An exchange that waits decides itself whether the user hears of it.
        if (ExchangeWaitsForReply()) {
            DecodeCtErrorSilently();
        } else {
            DecodeCtError();
        }
    }
}

/// A fault while receiving: the line is gone. `OnLineFlag` and the lamp are left as they are; this
/// is the one place after which both flags can be set.
void GiveLineUp() {
    OffLineFlag = kSet;
    CloseCtPortForce();
}

/// The receive tick. Characters that come while the program listens wake it at once, so the timer
/// itself runs only for those that were already there when the program went on line.
void ReceiveTick() {
    try {
        TakeCharacters();
        if (!CharactersWait()) {
            DisableTimer(TimerJusin);
        }
    } catch (const std::exception&) {
        DisableTimer(TimerJusin);
        GiveLineUp();
    }
}

/// The control tells that characters have come, or that an error closed the port under a program
/// that is on line.
void LineEvent() {
    if (!MSComm1().PortOpen()) {
        if (!IsSet(OffLineFlag)) {
            GiveLineUp();
        }
        return;
    }
    ReceiveTick();
}

} // namespace

void ResetModule3Tusin() {
    PortNo = 1;
    OffLineFlag = OnLineFlag = PortOccupyFlag = CtBusyFlag = kClear;
    ReplyDoneFlag = TimeoutFlag = CommErrorFlag = GrpMoveStopFlag = HomedFlag = kClear;
    ReplyBuffer.clear();
    ReplyText.clear();
    ReplyTimeoutMs = 0;
    AlarmFlag = AlarmNotResettableFlag = ErrorFoundFlag = ErrorListMissingFlag = kClear;
    ErrorNo.clear();
    ErrorText.clear();
    ErrorReplyText.clear();
    ErrorList.fill({});
    CtVersion.clear();
    CtAxisCount = 0;
    CtAxisVersion.fill({});

    DisableTimer(TimerJusin);
    DisableTimer(timerTimeout);
    DisableTimer(Timer1);
    TimerJusin = {"TimerJusin", 1, false, ReceiveTick};
    timerTimeout = {"timerTimeout", 15000, false, [] {
                        TimeoutFlag = kSet;
                        DisableTimer(timerTimeout);
                    }};
    Timer1 = {"Timer1", 500, false, SupervisionTick};
    MSComm1().OnComm = LineEvent;
    ResetSupervision();
}

std::int16_t OpenCtPort() {
    try {
        if (PortNo < 1 || PortNo > 9) {
            PortNo = StoredPortNo();
        }
        SerialControl& port = MSComm1();
        if (!port.PortOpen()) {
            if (PortNo < 1 || PortNo > 9) {
                return 1;
            }
            port.SetCommPort(PortNo);
            port.SetPortOpen(true);
            // The control takes line settings only while the port is open.
            port.SetSettings("9600,N,8,1");
            port.SetCDTimeout(3000);
            port.SetHandshaking(0);
        }
        return 0;
    } catch (const std::exception&) {
        return 1;
    }
}

std::int16_t OpenCtPortWithTries() {
    // Counted here: what runs out of the pause has tries of its own.
    for (std::int16_t failed = 1; OpenCtPort() != 0; ++failed) {
        RetryCount = failed;
        if (failed > kRetries) {
            return 1;
        }
        MsecTimer(kRetryPauseMs);
    }
    return 0;
}

void ShowPortBox() {
    ShowBox(Lines({ResText(109), "", ResText(110)}));
}

std::int16_t OpenCtPortForBatch() {
    if (OpenCtPortWithTries() == 0) {
        return 0;
    }
    ShowPortBox();
    SetOfflineState();
    return 1;
}

void CloseCtPort() {
    if (!IsSet(PortOccupyFlag)) {
        CloseCtPortForce();
    }
}

void CloseCtPortForce() {
    if (MSComm1().PortOpen()) {
        MSComm1().SetPortOpen(false);
    }
}

void SetOnlineState() {
    if (IsSet(OffLineFlag)) {
        OffLineFlag = kClear;
        OnLineFlag = kSet;
    }
    SetPanel(&MainPanel::imgGreenLedOnline, true);
}

void SetOfflineState() {
    if (!IsSet(OffLineFlag)) {
        OffLineFlag = kSet;
        OnLineFlag = kClear;
    }
    SetPanel(&MainPanel::imgGreenLedOnline, false);
}

void GoOnLine() {
    OffLineFlag = kClear;
    OnLineFlag = kSet;
    CommErrorFlag = kClear;
    if (CharactersWait()) {
        EnableTimer(TimerJusin);
    }
}

void MsecTimer(std::int16_t ms) {
    // A timer for each wait: one that begins inside another must neither end nor strand it.
    bool done = false;
    Timer mmsecTimer{"mmsecTimer", ms, false, {}};
    mmsecTimer.routine = [&] {
        done = true;
        DisableTimer(mmsecTimer);
    };
    EnableTimer(mmsecTimer);
    while (!done) {
        PumpEvents();
    }
}

} // namespace qdw8
