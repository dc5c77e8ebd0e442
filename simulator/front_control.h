#pragma once

// The orders that qd-k8-sim takes on its standard input: those of the controller, and those that
// concern the line and the program itself.

#include "simulator/front.h"

#include <string>

namespace qdk8 {

/// Obeys one line and gives the lines to answer with; the last is "ok" or "error: ...".
std::string ObeyFront(Front& front, const std::string& line);

/// The lines of a help text, one for each order that the controller itself does not know.
std::string FrontHelp();

} // namespace qdk8
