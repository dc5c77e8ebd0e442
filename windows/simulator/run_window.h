#pragma once

#include "simulator/front.h"

namespace qdk8 {

/// Serves the line in a thread of its own and shows the machine in a window; ends with the window,
/// and the window with the service. Gives the exit status of the program. Only this makes a desktop
/// program of it; without a desktop it gives 1 and says so on standard error.
int RunWithWindow(Front& front, int count, char** texts);

} // namespace qdk8
