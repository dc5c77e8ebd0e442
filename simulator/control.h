#pragma once

// The orders that a controller takes from beside the line: what happens to the machine, and what
// there is to see of it.

#include "simulator/controller.h"
#include "simulator/orders.h"

#include <string>

namespace qdk8 {

/// Obeys one order at `now`.
OrderResult ObeyControl(Controller& controller, const Words& words, Millis now);

/// The lines of a help text, one for each order.
std::string ControlHelp();

} // namespace qdk8
