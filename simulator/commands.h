#pragma once

// The catalogue of commands: what each word asks, what it does and how it is answered.

#include "simulator/machine.h"

#include <optional>
#include <string>
#include <string_view>

namespace qdk8 {

/// Obeys one frame (without its terminator) at `now` and gives the reply, without a terminator. No
/// value for a group run that has begun: it is answered with the frame's own text when it has
/// ended, or with the alarm that ended it.
///
/// A frame that is not understood or not allowed is refused with a resettable error reply:
/// 1 not a command, or digits missing, too many or wrong; 2 a value out of range; 3 an axis not
/// homed; 4 an axis not in use; 5 not while moving; 7 past the soft limit; 8 the row or group holds
/// nothing usable. 7 and 8 stand as an alarm until it is reset, the others are only a reply.
///
/// While an alarm stands, every move and 0CM0, 0CM1, 0RA are answered with it, and so is 0AR if
/// a reset cannot clear it. Everything else works as usual.
std::optional<std::string> AnswerFrame(Machine& machine, std::string_view frame, Millis now);

/// True for the first three characters of a frame that the controller knows.
bool IsCommandWord(std::string_view word);

} // namespace qdk8
