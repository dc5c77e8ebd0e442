#pragma once

#include "app/Module1.h"

#include <cstdint>

/// The stop of the axes, `0SP`: a wish that the line itself serves, in front of everything.
///
/// `StopMotion` (ct_commands.h) sends it at once where no exchange runs; else the wish is enough,
/// and nobody waits for the gate. While a wish stands nothing else is sent: a request that has not
/// gone out yet doesn't, the one under way is not sent again, and its wait for the answer to the
/// plain question ends at the time limit that is armed. `0SP` follows it, with the port opened
/// again where it is gone; a late answer to the request that it overtook is skipped.
namespace qdw8 {

/// What became of the last stop.
enum class Stop : std::uint8_t {
    None,     ///< none was wished
    Wished,   ///< it has not gone out
    Sent,     ///< not answered yet
    Answered, ///< the controller has it
    Failed    ///< no answer that can be believed
};
extern Stop& LastStop;

/// What was sent may move an axis: an exchange that fails from now on sends one `0SP` before it
/// tells. Whoever moves the axes sets it before, and clears it when they stand still.
extern Flag& AxisMayMove;

/// What was sent may have set axes moving, by whatever window: it was not refused, and neither
/// their arrival nor the answer to a stop has come since. While it is so the port keeps `0SP` as
/// its last word: it goes out should the process be gone before. Another port has nothing of it.
bool MotionRuns();
void SetMotionRuns(bool runs);

void WishStop();
bool StopIsWished();

void ResetStop();

} // namespace qdw8
