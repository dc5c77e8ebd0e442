#pragma once

#include "simulator/front.h"

namespace qdk8 {

/// Serves the line until the end is asked for; takes the link away, saves the memory and gives the
/// exit status of the program.
int Serve(Front& front);

} // namespace qdk8
