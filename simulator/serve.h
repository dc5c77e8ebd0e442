#pragma once

#include "simulator/front.h"

namespace qdk8 {

/// Serves the line until the end is asked for; takes the link away and saves the memory. Gives the
/// exit status.
int Serve(Front& front);

} // namespace qdk8
