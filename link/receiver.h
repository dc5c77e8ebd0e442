#pragma once

#include "app/Module1.h"
#include "platform/timer.h"

#include <cstddef>
#include <string>

/// The receiver: takes what comes on the line, whether or not an exchange waits for it.
///
/// A reply is whatever has collected at the moment the characters happen to end in CR LF. Error
/// replies light the alarm display at once, also those that nobody asked for.
namespace qdw8 {

extern Flag& ReplyDoneFlag;      ///< a whole line has arrived
extern Flag& TimeoutFlag;        ///< the reply time has run out
extern Flag& ReplyAwaitedFlag;   ///< an exchange waits; it decides what the user hears of an error
extern std::string& ReplyBuffer; ///< characters of the reply now coming in
extern std::string& ReplyText;   ///< the last complete reply, CR LF included
/// Of a flow without CR LF only so many characters are kept, the last ones.
inline constexpr std::size_t kReplyBufferBound = 4096;

extern Timer timerTimeout; ///< reply time limit

/// Going on line, the first step of every command that needs the controller: the receiver listens
/// again and an earlier failure no longer counts. What came while the program was deaf is dropped,
/// and the first command hears its own reply and nothing older; only inside the wait of an exchange
/// everything that comes is left to that exchange. The lamp waits for the first good reply.
void GoOnLine();
/// The user leaves the line, or its port: closed and off line, and what was heard on it is no
/// longer told. A failure goes off line by `SetOfflineState` and stays told.
void GoOffLine();
/// Begins a run of exchanges with nothing of an older one: lines that have come are taken as what
/// the controller sent by itself, and the beginning of a line is dropped. Inside the wait of an
/// exchange nothing is dropped.
void PutReceiverAtRest();

/// Ties the receiver to the platform in force, in the state of a fresh start.
void ResetReceiver();

} // namespace qdw8
