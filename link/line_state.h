#pragma once

#include "app/Module1.h"

#include <cstdint>
#include <string>

/// The state of the one serial line to the `QD-K8`: what every room that talks to the controller
/// looks at. One thread uses it; flags keep order, not locks.
namespace qdw8 {

extern Flag& OffLineFlag;   ///< off line: no traffic, the receiver is idle
extern Flag& OnLineFlag;    ///< kept up to date; no decision reads it
extern Flag& CtBusyFlag;    ///< a caller is inside a `CtCommand`: the gate of every sender
extern Flag& CommErrorFlag; ///< an exchange failed for good; cleared at the start of every try
extern Flag& AlarmFlag;     ///< set by an error reply until a good reply or a reset
extern Flag& HomedFlag;     ///< the controller has been homed in this run
/// What the last exchange met that no further try mends.
enum class LineLoss : std::uint8_t {
    None,
    Port,     ///< the port is gone, or can't be opened
    GivenUp,  ///< the wait for an answer was given up
    Overtaken ///< a stop went out instead
};
extern LineLoss& LastLoss;
/// What the last exchange brought, for the eyes of the user; an error reply is an answer, too. It
/// goes for one port, and an answer for one time on line.
enum class Heard : std::uint8_t {
    Nothing, ///< there was none yet
    Answer,
    Silence,
    Garble,       ///< what came can't be believed
    Stranger,     ///< a controller of another kind
    LastingAlarm, ///< that no reset clears
    NoPort,       ///< the port could not be opened
    PortLost      ///< it closed itself
};
struct LineHeard {
    Heard what = Heard::Nothing;
    std::int16_t portNo = 0; ///< there
};
extern LineHeard& LastHeard;
/// Another controller may stand there from here on: nothing was heard of it, nor how many axes it
/// has.
void ForgetHeard();
/// The controller was heard in the last exchange, if not to its liking, and can be talked to: the
/// plain question after a reply that can't be believed was answered, too. False when the time limit
/// passed, the wait was given up, the port is gone, or an alarm stands that no reset clears.
extern bool& LineAnswers;
/// Milliseconds allowed for the next reply; every caller sets it before. 0 is no limit.
extern std::int16_t& ReplyTimeoutMs;

/// The mode that the controller has answered last, 0 to 2. -1: none, or the last one that it was
/// asked for had no good answer, and it may have taken it all the same.
extern std::int16_t& CtModeAnswered;

extern std::string& CtVersion;    ///< version text from `0RV`
extern std::int16_t& CtAxisCount; ///< axis count from `0RV`; 0: not known
extern std::array<std::string, kAxes>& CtAxisVersion;

/// The outcome of the line: state and lamp.
void SetOnlineState();
void SetOfflineState();

void ResetLineState();

} // namespace qdw8
