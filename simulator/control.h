#pragma once

// The commands that qd-k8-sim takes on its standard input.

#include <string>

namespace qdk8 {

struct Front;

/// Obeys one line and gives the lines to answer with; the last is "ok" or "error: ...".
std::string ObeyControl(Front& front, const std::string& line);

/// The lines of a help text, one for each command.
std::string ControlHelp();

} // namespace qdk8
