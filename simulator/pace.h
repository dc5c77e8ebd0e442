#pragma once

// The pace of the line: when bytes reach the controller, and when they are seen at the other end.

#include "simulator/front.h"

#include <optional>

namespace qdk8 {

/// Takes what the program has written and sends it on its way to the controller.
void ReadLine(Front& front);

/// What is due goes the whole way: to the controller, out of it, and onto the line. Saves the
/// memory when the line has been quiet for a while.
void ServeDue(Front& front);

/// When ServeDue has something to do again, in microseconds; none while all wait for the program.
std::optional<double> NextMoment(const Front& front);

} // namespace qdk8
