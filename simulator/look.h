#pragma once

// What somebody who stands before the machine sees of it, as plain data.

#include "simulator/front.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace qdk8 {

struct AxisLook {
    bool used = true;
    bool homed = false;
    bool moves = false;
    int position = 0; ///< pulses, as the controller counts them
    double slide = 0; ///< pulses from the home end, where the slide really stands
    int stroke = 0;   ///< pulses
    double pulsesPerMm = 1;

    bool operator==(const AxisLook&) const = default;
};

struct Look {
    bool powered = true;
    bool plugged = true; ///< the cable
    bool homingFails = false;
    std::optional<std::string> alarm; ///< its error reply
    std::uint32_t inputs = 0;
    std::uint32_t outputs = 0;
    std::array<AxisLook, kAxisCountMax> axes;
    std::vector<std::string> faults; ///< the rules that are still to come into effect, as given
    std::string place;               ///< of the terminal; empty while the cable is pulled
    std::string request;             ///< the last one heard
    bool ended = false;

    bool operator==(const Look&) const = default;
};

/// The machine at this moment. To be called from any thread.
Look LookAt(Front& front);

/// Obeys an order of the control input from any thread, and gives what stands behind "error: ", or
/// nothing when it was obeyed.
std::string GiveOrder(Front& front, const std::string& line);

} // namespace qdk8
