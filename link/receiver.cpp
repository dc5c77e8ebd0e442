#include "link/receiver.h"

#include "app/command_states.h"
#include "link/alarm.h"
#include "link/line_state.h"
#include "link/port.h"
#include "platform/platform.h"

#include <exception>

namespace qdw8 {
namespace {

/// The state of a fresh start.
struct ReceiverState {
    Flag ReplyDoneFlag = kClear;
    Flag TimeoutFlag = kClear;
    Flag ReplyAwaitedFlag = kClear;
    std::string ReplyBuffer;
    std::string ReplyText;
};
ReceiverState state;

} // namespace

Flag& ReplyDoneFlag = state.ReplyDoneFlag;
Flag& TimeoutFlag = state.TimeoutFlag;
Flag& ReplyAwaitedFlag = state.ReplyAwaitedFlag;
std::string& ReplyBuffer = state.ReplyBuffer;
std::string& ReplyText = state.ReplyText;

Timer timerTimeout{"timerTimeout", 15000, false, {}};

namespace {

bool CharactersWait() {
    return MSComm1().PortOpen() && !IsSet(OffLineFlag) && MSComm1().InBufferCount() > 0;
}

/// Takes what has come. Two lines that arrive together count as one reply and fail the length test.
void TakeCharacters() {
    ReplyBuffer += MSComm1().Input();
    if (!ReplyBuffer.ends_with("\r\n")) {
        if (ReplyBuffer.size() > kReplyBufferBound) {
            ReplyBuffer.erase(0, ReplyBuffer.size() - kReplyBufferBound);
        }
        return;
    }
    ReplyDoneFlag = kSet;
    DisableTimer(timerTimeout);
    ReplyText = ReplyBuffer;
    ReplyBuffer.clear();
    if (ReplyText.starts_with("0%%")) {
        AlarmFlag = kSet;
        ErrorReplyText = ReplyText;
        // An exchange that waits tells by itself, and on top of a command no box opens by itself.
        if (IsSet(ReplyAwaitedFlag) || CommandsTaken()) {
            DecodeCtErrorSilently();
        } else {
            DecodeCtError();
        }
    }
}

/// A fault while receiving: the line is gone. `OnLineFlag` and the lamp are left as they are; this
/// is the one place after which both flags can be set.
void GiveLineUp() {
    LineAnswers = false;
    LastHeard = {Heard::PortLost, PortNo};
    OffLineFlag = kSet;
    CloseCtPortForce();
}

void Receive() {
    try {
        if (CharactersWait()) {
            TakeCharacters();
        }
    } catch (const std::exception&) {
        GiveLineUp();
    }
}

/// The control tells that characters have come, or that an error closed the port. An exchange that
/// waits sees that by itself and tells; otherwise the program is off line from here on, in sight.
void LineEvent() {
    if (MSComm1().PortOpen()) {
        Receive();
    } else if (!IsSet(ReplyAwaitedFlag) && !IsSet(OffLineFlag)) {
        LineAnswers = false;
        LastHeard = {Heard::PortLost, PortNo};
        SetOfflineState();
    }
}

} // namespace

void PutReceiverAtRest() {
    // The control tells of characters once; those that came unheard are fetched here.
    Receive();
    if (!IsSet(ReplyAwaitedFlag)) {
        ReplyBuffer.clear();
        MSComm1().DropInput();
    }
}

void GoOnLine() {
    if (IsSet(OffLineFlag) && !IsSet(ReplyAwaitedFlag)) {
        MSComm1().DropInput();
    }
    if (IsSet(OffLineFlag)) {
        LastHeard = {};
    }
    OffLineFlag = kClear;
    OnLineFlag = kSet;
    CommErrorFlag = kClear;
    PutReceiverAtRest();
}

void GoOffLine() {
    CloseCtPortForce();
    SetOfflineState();
    ForgetHeard();
}

void ResetReceiver() {
    state = {};
    DisableTimer(timerTimeout);
    timerTimeout = {"timerTimeout", 15000, false, [] {
                        TimeoutFlag = kSet;
                        DisableTimer(timerTimeout);
                    }};
    MSComm1().OnComm = LineEvent;
}

} // namespace qdw8
