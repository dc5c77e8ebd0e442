#pragma once

#include "simulator/front.h"

namespace qdk8 {

/// SIGINT, SIGTERM and SIGHUP come to the serving thread alone. To be called before any other
/// thread is started.
void HoldSignals();

/// Serves the line until the end is asked for; takes the link away, saves the memory and gives the
/// exit status of the program.
int Serve(Front& front);

} // namespace qdk8
