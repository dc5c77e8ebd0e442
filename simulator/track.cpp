#include "simulator/track.h"

#include <algorithm>
#include <cmath>

namespace qdk8 {
namespace {

constexpr double kShortestMove = 20;

/// Pulses a millisecond, with its sign.
double FullSpeed(const Track& track) {
    const double whole = static_cast<double>(track.end - track.start);
    return (track.to - track.from) / (whole - (track.speedUp + track.slowDown) / 2);
}

double Since(const Track& track, Millis now) {
    return static_cast<double>(std::max(now - track.start, Millis{0}));
}

double Left(const Track& track, Millis now) {
    return static_cast<double>(track.end - now);
}

} // namespace

Track TrackBetween(double from, double to, double speed, Millis rampTime, Millis now) {
    if (std::lround(from) == std::lround(to)) {
        return {from, to, now, now};
    }
    double ramp = static_cast<double>(rampTime);
    const double even = std::fabs(to - from) / speed * 1000.0;
    double whole = even + ramp;
    if (even < ramp) {
        whole = 2 * std::sqrt(even * ramp);
        ramp = whole / 2;
    }
    const double takes = std::max(std::round(whole), kShortestMove);
    ramp = std::min(ramp, takes / 2);
    return {from, to, now, now + static_cast<Millis>(takes), ramp, ramp};
}

Track ArrivingAt(Track track, Millis end) {
    if (track.end > track.start) {
        track.end = std::max(track.end, end);
    }
    return track;
}

Track Braking(const Track& track, Millis now) {
    if (!MovesAt(track, now)) {
        return track;
    }
    const double speed = SpeedAt(track, now) / 1000.0;
    const double takes = std::ceil(track.slowDown * speed / FullSpeed(track));
    if (takes < 1) {
        return Halted(track, now);
    }
    const double here = PositionAt(track, now);
    const double to = std::round(here + speed * takes / 2);
    // Rounded up, it must not end behind where it was to end anyway.
    const bool beyond = (to - track.to) * speed > 0;
    return {here, beyond ? track.to : to, now, now + static_cast<Millis>(takes), 0, takes};
}

Track Halted(const Track& track, Millis now) {
    if (!MovesAt(track, now)) {
        return track;
    }
    const double here = std::round(PositionAt(track, now));
    return {here, here, now, now};
}

bool MovesAt(const Track& track, Millis now) {
    return track.start < track.end && now < track.end;
}

double PositionAt(const Track& track, Millis now) {
    if (!MovesAt(track, now)) {
        return track.to;
    }
    const double since = Since(track, now);
    const double left = Left(track, now);
    if (since < track.speedUp) {
        return track.from + FullSpeed(track) * since * since / (2 * track.speedUp);
    }
    if (left < track.slowDown) {
        return track.to - FullSpeed(track) * left * left / (2 * track.slowDown);
    }
    return track.from + FullSpeed(track) * (since - track.speedUp / 2);
}

double SpeedAt(const Track& track, Millis now) {
    if (!MovesAt(track, now)) {
        return 0;
    }
    double share = 1;
    if (Since(track, now) < track.speedUp) {
        share = Since(track, now) / track.speedUp;
    } else if (Left(track, now) < track.slowDown) {
        share = Left(track, now) / track.slowDown;
    }
    return FullSpeed(track) * share * 1000.0;
}

} // namespace qdk8
