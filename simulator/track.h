#pragma once

// The way of one axis over time: it gets under way evenly, goes at its speed, and slows down
// evenly.

#include "simulator/wire.h"

namespace qdk8 {

/// Standing at `to` from `end` on. `speedUp` and `slowDown` together are never longer than the
/// whole.
struct Track {
    double from = 0; ///< pulses
    double to = 0;
    Millis start = 0;
    Millis end = 0;
    double speedUp = 0; ///< ms until the full speed
    double slowDown = 0;
};

/// From `from` to `to` with `speed` pulses a second, above 0, and `rampTime` to reach it and to
/// stop from it; a way too short for that is turned round half-way. Standing when it leads nowhere.
Track TrackBetween(double from, double to, double speed, Millis rampTime, Millis now);

/// The same way, taking until `end`, which is not before its own.
Track ArrivingAt(Track track, Millis end);

/// Slowing down from now on as the track would have at its end, to a whole pulse.
Track Braking(const Track& track, Millis now);

/// Standing at once on the nearest pulse.
Track Halted(const Track& track, Millis now);

bool MovesAt(const Track& track, Millis now);
double PositionAt(const Track& track, Millis now); ///< pulses
double SpeedAt(const Track& track, Millis now); ///< pulses a second, below 0 towards the home end

} // namespace qdk8
