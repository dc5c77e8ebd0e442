#pragma once

#include "link/exchange.h"

#include <cstdint>
#include <string>

/// The words of the controller's language, one wrapper each.
///
/// Every wrapper waits until no other exchange runs, sets `ReplyTimeoutMs` and `CtBusyFlag`, runs
/// the exchange and clears `CtBusyFlag`. Results: 0 good (the reply stands in `ReplyText`), 1
/// failed; the exchange has then told the user, unless the line stayed taken by a dead one. What
/// the controller repeats of the request is compared, but for the writes of rows, whose echo
/// `SendMany` judges: one late reply would otherwise shift every row behind it, or pass for another
/// answer.
namespace qdw8 {

// ---- link and status ----

/// `0CM1`: a good reply means that no alarm stands. On line after it, off line after a failure.
std::int16_t CheckCtStatus();
/// `0CM1` without any box, for the supervision tick.
std::int16_t PollCtStatus();
/// `0CM0` and the mode, 0 to 2 (others go out as 0): the controller's working mode. Mode 1 stands
/// before every run that writes, 0 after it, 2 at start-up and for teaching. Goes on line first.
std::int16_t SetCtMode(std::int16_t mode);
/// `0AR`: alarm reset.
std::int16_t SendAlarmReset();
/// `0RH`: sets or clears `HomedFlag` and its lamp.
std::int16_t ReadHomeStatus();
/// `0RA`: 1 the motion has ended, 0 still moving, -1 the exchange failed.
std::int16_t ReadArrivalStatus();
/// `0CM1`, then `0RV`: keeps `CtVersion` and `CtAxisCount`. The port is opened first.
std::int16_t CheckCtIdentity();
/// `0RV` and the axis (0 to 3): keeps `CtAxisVersion`; 1 also for a board that is not "K8R".
std::int16_t ReadAxisVersion(int axis);

// ---- moves ----

/// Kind 1 sends `0MM` (homing with position 0), any other value `0MP`; with the mask of the axes in
/// use.
std::int16_t MoveToPosition(int position, int kind);
/// `0MG`: returns only when the controller answers.
std::int16_t RunGroup(int group);
/// `0JR`, `0MV`: these take the time limit that the command before left.
std::int16_t JogRun(const std::string& data);
std::int16_t InchingMove(const std::string& data);
/// `0SP`: 0 answered, with the same time limit, or 1000 ms where that was none. Out of the wait of
/// an exchange it comes back at once with 1, and the stop follows that exchange (link/stop.h).
std::int16_t StopMotion();
/// `0RC`: present positions of the axes in use, in `ReplyText`.
std::int16_t ReadPresentPosition();

// ---- data ----

/// `0RD`, block 0 to 12.
std::int16_t ReadParaBlock(int block);
/// `0WD`, block 0 to 12 and 32 hexadecimal digits.
std::int16_t WriteParaBlock(int block, const std::string& data);
/// `0WE` and "2", "3" or "1": what was written becomes lasting.
std::int16_t CommitParameters();
std::int16_t CommitGroups();
std::int16_t CommitMacros();
/// `0RP`, position 1 to 999.
std::int16_t ReadPosiRow(int position);
/// `0WP` and the 43 characters of a row.
std::int16_t WritePosiRow(const std::string& row);
/// `0RG`, group 1 to 99.
std::int16_t ReadGroup(int group);
/// `0WG` and the group number with two fields of three digits.
std::int16_t WriteGroup(const std::string& row);
/// `0RS`, macro 1 to 20.
std::int16_t ReadMacro(int macro);
/// `0WS` and the macro number with its data.
std::int16_t WriteMacro(const std::string& row);

// ---- inputs and outputs ----

std::int16_t ReadInputs();
std::int16_t ReadOutputs();
/// `0WO` and six hexadecimal digits.
std::int16_t WriteOutputs(const std::string& digits);

/// `0RD` of block 0 without any box, for the silent read of the axes in use.
std::int16_t ReadParaBlock0Quiet();

} // namespace qdw8
