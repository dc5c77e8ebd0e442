#pragma once

// The command line of qd-k8-sim.

#include "simulator/faults.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qdk8 {

struct AlarmOrder {
    Alarm alarm;
    std::optional<Millis> goesOutAfter;
};

struct Options {
    bool help = false;
    bool version = false;
    bool unpaced = false;
    bool control = false;
    bool trace = false;
    bool blank = false;
    bool homingFails = false;
    bool window = false;
    std::string language; ///< of the window: "en", "ja", or empty for that of the desktop
    std::string link;
    std::string memoryFile;
    std::optional<int> axes;
    std::optional<unsigned> mask;
    std::string identity;
    std::string board;
    std::optional<AlarmOrder> alarm;
    std::optional<Millis> turnaround;
    std::optional<std::size_t> handful;
    std::vector<FaultRule> faults;
};

/// Reads the arguments, program name left out. On failure gives false with one line in `problem`.
bool ParseOptions(const std::vector<std::string>& arguments, Options& options,
                  std::string& problem);

/// How many characters the driver hands over together, 1 to 4096; no value for anything else.
std::optional<std::size_t> ParseHandful(std::string_view text);

} // namespace qdk8
