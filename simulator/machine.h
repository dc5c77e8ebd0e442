#pragma once

// The state of the machine behind the line: memory, axes in motion, inputs and outputs, the alarm.

#include "simulator/start_memory.h"
#include "simulator/track.h"
#include "simulator/wire.h"

#include <array>
#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>

namespace qdk8 {

/// Inputs and outputs are words of 24 bits, the first of the six digits on the line on top.
constexpr std::uint32_t kOutputAlarm = 0x400000;
constexpr std::uint32_t kOutputReady = 0x200000;
constexpr std::uint32_t kOutputInPosition = 0x100000;
constexpr std::uint32_t kLineOne = 0x010000;            ///< EXP 1, the inputs and outputs of macros
constexpr std::uint32_t kOutputPositionMask = 0x00FFF0; ///< the number reached, decimal digits
constexpr std::uint32_t kOutputArrivalMask = 0x000003;  ///< OUT1, OUT2

/// One thing the machine does; a plan is a row of them.
struct Step {
    enum class Kind { Home, Go, Macro, Brake };
    Kind kind = Kind::Go;
    unsigned mask = 0;                           ///< axes that take part
    std::array<double, kAxisCountMax> targets{}; ///< pulses
    std::array<double, kAxisCountMax> speeds{};  ///< pulses a second
    std::array<Millis, kAxisCountMax> ramps{};   ///< time to get under way and to stop
    bool together = false;                       ///< interpolated: all axes arrive at once
    bool toPosition = false;                     ///< a row of the table: OUT and number are shown
    int number = 0;                              ///< of the position, or of the macro
    int out = 0;
};

struct Machine {
    Memory working = StartMemory(); ///< what the controller goes by
    Memory lasting = working;       ///< what is still there after a power cycle
    unsigned lastingChanges = 0;    ///< goes up with each change of `lasting`
    unsigned commits = 0;           ///< goes up with each 0WE
    /// Writes `lasting` to where it outlives the program; false if it cannot. May be empty.
    std::function<bool()> keep;

    int axes = 4;                    ///< axes the controller has at all
    std::string identity = "140A40"; ///< version (3), one character, axes, one character
    std::array<std::string, kAxisCountMax> boards{"121K8R", "121K8R", "121K8R", "121K8R"};

    int mode = 0; ///< working mode set last, 0 to 2
    std::optional<Alarm> alarm;
    std::optional<Millis> alarmEnds; ///< a resettable alarm goes out by itself then
    bool homeSensorFails = false;    ///< a homing ends in the alarm "0%%134"

    std::uint32_t inputs = 0;
    std::uint32_t outputs = kOutputReady | kOutputInPosition;

    std::array<Track, kAxisCountMax> tracks{}; ///< what the controller counts
    /// Where the slides stand beyond what is counted: before the first homing nobody knows.
    std::array<double, kAxisCountMax> astray{};
    unsigned homed = 0; ///< axis mask
    std::deque<Step> plan;
    std::optional<Millis> stepEnds; ///< none while a macro waits for an input without limit
    Millis planEnded = 0;           ///< when the machine came to rest last
    int macroStep = 0;
    bool macroWaits = false;
};

} // namespace qdk8
