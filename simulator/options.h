#pragma once

// The command line of qd-k8-sim.

#include "simulator/faults.h"

#include <optional>
#include <string>
#include <vector>

namespace qdk8 {

struct AlarmOrder {
    Alarm alarm;
    std::optional<Millis> goesOutAfter;
};

struct Options {
    bool help = false;
    bool unpaced = false;
    bool control = false;
    bool trace = false;
    bool blank = false;
    bool homingFails = false;
    std::string link;
    std::string memoryFile;
    std::optional<int> axes;
    std::optional<unsigned> mask;
    std::string identity;
    std::string board;
    std::optional<AlarmOrder> alarm;
    std::optional<Millis> turnaround;
    std::vector<FaultRule> faults;
};

/// Reads the arguments, program name left out. On failure gives false with one line in `problem`.
bool ParseOptions(const std::vector<std::string>& arguments, Options& options,
                  std::string& problem);

/// An axis mask of one or two hexadecimal digits; no value for anything else or above F.
std::optional<unsigned> ParseMask(std::string_view text);

/// The whole text of --help.
std::string HelpText();

} // namespace qdk8
