#pragma once

#include "app/Module1.h"
#include "platform/timer.h"

#include <array>
#include <cstdint>
#include <string>

/// The one serial line to the `QD-K8` and the one exchange that ever happens on it: a `CtCommand`,
/// one text request and one text reply.
///
/// A frame is a command word of three characters, the data, and CR LF. There is no check sum: a
/// reply is believed when its first three characters echo the request and its length is the one
/// that the caller predicted. While an exchange waits, the event pump runs, so timers and windows
/// stay alive; flags keep order, not locks. All variables keep their value for the whole run.
namespace qdw8 {

extern std::int16_t PortNo;     ///< 1 to 9
extern Flag OffLineFlag;        ///< off line: no traffic, the receiver is idle
extern Flag OnLineFlag;         ///< kept up to date; no decision reads it
extern Flag PortOccupyFlag;     ///< the port stays open between batches
extern Flag CtBusyFlag;         ///< a caller is inside a `CtCommand`: the gate of every sender
extern Flag ReplyDoneFlag;      ///< a whole line has arrived
extern Flag TimeoutFlag;        ///< the reply time has run out
extern Flag CommErrorFlag;      ///< an exchange failed for good; cleared at the start of every try
extern Flag GrpMoveStopFlag;    ///< the group stop button; the one way out of a recovery wait
extern Flag HomedFlag;          ///< the controller has been homed in this run
extern std::string ReplyBuffer; ///< characters of the reply now coming in
extern std::string ReplyText;   ///< the last complete reply, CR LF included
/// Milliseconds allowed for the next reply; every caller sets it before. 0 is no limit.
extern std::int16_t ReplyTimeoutMs;

extern Flag AlarmFlag;              ///< set by an error reply until a good reply or a reset
extern Flag AlarmNotResettableFlag; ///< the last error reply was of the class no reset clears
extern Flag ErrorFoundFlag;         ///< its code stands in the error list
extern std::string ErrorNo;         ///< its code character
extern std::string ErrorText;       ///< the list's text for it
extern std::string ErrorReplyText;  ///< the last reply handed to the decoder

extern Flag ErrorListMissingFlag;
/// The error list; row 0 holds only the count of rows, as its code.
struct ErrorListRow {
    std::string code;
    std::string message;
};
inline constexpr std::size_t kErrorListRows = 40;
extern std::array<ErrorListRow, kErrorListRows + 1> ErrorList;

extern std::string CtVersion;    ///< version text from `0RV`
extern std::int16_t CtAxisCount; ///< axis count from `0RV`
extern std::array<std::string, kAxes> CtAxisVersion;

extern Timer TimerJusin;   ///< receive tick, 1 ms; runs only while characters wait unread
extern Timer timerTimeout; ///< reply time limit
extern Timer Timer1;       ///< supervision tick, 500 ms

/// Puts the variables into the state of a fresh start and ties the timers and the serial control to
/// the platform in force.
void ResetModule3Tusin();

// ---- port and state ----

/// Opens the port, settings 9600,N,8,1 without handshaking; an open port is left as it is. A
/// `PortNo` outside 1 to 9 is replaced by the stored one (default 1) first. 0 open, 1 failed.
std::int16_t OpenCtPort();
/// Opens with six tries, 100 ms apart. 0 open, 1 failed.
std::int16_t OpenCtPortWithTries();
/// The same, and tells: on failure the port box comes once and the program goes off
/// line. 0 open, 1 failed.
std::int16_t OpenCtPortForBatch();
/// The box for a port that can't be opened.
void ShowPortBox();
/// Closes the port unless `PortOccupyFlag` keeps it: the normal end of a batch.
void CloseCtPort();
void CloseCtPortForce();

/// The outcome of the line: state and lamp.
void SetOnlineState();
void SetOfflineState();
/// Going on line, the first step of every command that needs the controller: the receiver listens
/// again and an earlier failure no longer counts. The lamp waits for the first good reply.
void GoOnLine();

/// Waits `ms` milliseconds (above 0; 0 would never end) while events go on. Waits may nest; each
/// takes its own time.
void MsecTimer(std::int16_t ms);

// ---- the exchange ----

/// Sends `word` and `data` and waits for the reply, which must have `length` characters, the echo
/// and CR LF counted. 0: good, the reply stands in `ReplyText`. 1: failed, and the user has been
/// told, except by the quiet form and after the group stop button. The caller has set
/// `ReplyTimeoutMs` and `CtBusyFlag`, and clears `CtBusyFlag` on either result.
///
/// Sends again up to five times after a time-out: for reads and writes that are safe to repeat.
std::int16_t SendCtCommand(const std::string& word, std::int16_t length,
                           const std::string& data = {});
/// Never sends twice: for what acts on the machine or is timed by the user.
std::int16_t SendCtCommandOnce(const std::string& word, std::int16_t length,
                               const std::string& data = {});
/// Never sends twice and shows no box: for background traffic that begins on line. If a command of
/// the user took the line over or went off line while this one waited, the result is 1 and
/// everything stays as that command left it.
std::int16_t SendCtCommandQuiet(const std::string& word, std::int16_t length,
                                const std::string& data = {});
/// True while a quiet exchange has the line and nothing more is to come for it. A command that
/// starts out of the wait of that exchange can't wait for `CtBusyFlag`: the exchange goes on only
/// when the command has returned. It takes the line instead.
bool LineCanBeTakenOver();
/// True while an exchange waits for its reply. It then decides itself what the user hears of it.
bool ExchangeWaitsForReply();

// ---- alarms ----

/// Reads the error list of the language of the run, beside the program. On any failure
/// `ErrorListMissingFlag` is set and a box shown; rows read so far are kept.
void LoadErrorList();
/// Decodes `ErrorReplyText` into the error fields and the alarm display. Without an error list it
/// shows a box and leaves the fields as they are.
void DecodeCtError();
/// The same without the box: an exchange that waits for this reply tells, or keeps quiet, itself.
void DecodeCtErrorSilently();
/// The alarm display after a good reply or a reset: lamp out, "No Error", no number.
void ClearAlarmDisplay();

} // namespace qdw8
