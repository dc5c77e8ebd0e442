#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

/// The one exchange that ever happens on the line: a `CtCommand`, one text request and one text
/// reply.
///
/// A frame is a command word of three characters, the data, and CR LF. There is no check sum: a
/// reply is believed when its first three characters echo the request and its length is the one
/// that the caller predicted. While an exchange waits, the event pump runs, so timers and windows
/// stay alive; flags keep order, not locks.
namespace qdw8 {

/// Sends `word` and `data` and waits for the reply, which must have `length` characters, the echo
/// and CR LF counted. 0: good, the reply stands in `ReplyText`. 1: failed, and the user has been
/// told, except by the quiet form, after the user gave the wait up, and when the program ends. The
/// caller has set `ReplyTimeoutMs` and `CtBusyFlag`, and clears `CtBusyFlag` on either result.
///
/// A port that reports an error or is gone ends every wait at once, off line. After a reply that
/// can't be believed the wait for the controller's answer has no end of its own; from one time
/// limit on the user is offered to give it up (`OfferGiveUp`), which ends it with 1, off line.
///
/// A stop that is wished (link/stop.h) goes before the exchange, or follows it before anything is
/// told. One that it went before, or that was not sent again for its sake, ends with 1 and
/// `LineLoss::Overtaken` and tells nothing itself; one that was good stays good, whatever became of
/// the stop (`LastStop`).
///
/// `echoed` characters of the data come back behind the word. Others there are the answer to
/// another request: the result is 1 with the box of `ShowWrongData`, and line and alarm stay as
/// they are.
///
/// Sends again up to five times after a time-out: for reads and writes that are safe to repeat.
std::int16_t SendCtCommand(const std::string& word, std::int16_t length,
                           const std::string& data = {}, std::size_t echoed = 0);
/// Never sends twice: for what acts on the machine or is timed by the user.
std::int16_t SendCtCommandOnce(const std::string& word, std::int16_t length,
                               const std::string& data = {}, std::size_t echoed = 0);
/// Never sends twice and shows no box: for background traffic.
std::int16_t SendCtCommandQuiet(const std::string& word, std::int16_t length,
                                const std::string& data = {}, std::size_t echoed = 0);

/// `0SP`, sent once, with the time limit that the last command left, 1000 ms where that was none:
/// 0 answered, 1 failed, and the user has been told. Goes on line first. Like those above it is
/// called behind the gate (`StopMotion`).
std::int16_t SendStop();

/// The box for a reply that can't belong to the request.
void ShowWrongData();

} // namespace qdw8
