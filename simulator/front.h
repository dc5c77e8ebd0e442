#pragma once

// What qd-k8-sim is made of: the controller, the terminal, and the bytes on their way between them.

#include "simulator/controller.h"
#include "simulator/options.h"
#include "simulator/terminal.h"

#include <deque>
#include <mutex>
#include <string>

namespace qdk8 {

/// Bytes on their way, in microseconds of the simulator's clock.
struct Arriving {
    double due = 0; ///< the last of them has arrived
    std::string bytes;
};

struct Leaving {
    double start = 0; ///< the first of them begins
    std::string bytes;
    std::size_t sent = 0;
    bool hangUp = false;
};

struct Front {
    Options options;
    Controller controller;
    Terminal terminal;
    std::deque<Arriving> arriving;
    std::deque<Leaving> leaving;
    double arrivedUntil = 0; ///< the line towards the controller is taken until then
    double leftUntil = 0;    ///< the line from the controller is taken until then
    double lastRequest = 0;
    double lastTraffic = 0;
    unsigned savedChanges = 0;
    std::string typed; ///< control input, not yet a whole line
    bool ended = false;

    // Whoever serves the line sleeps without the lock; a second thread, which shows the machine in
    // a window, takes it for everything above and wakes the other one behind an order.
    std::mutex lock;
    int wake = -1; ///< an event file, -1 while there is no second thread
};

/// Microseconds since the first call, on a clock that is never set.
double Microseconds();
Millis Milliseconds();

/// Makes the controller from its options and memory file, and the terminal. On failure gives false
/// with one line in `problem`.
bool SetUp(Front& front, std::string& problem);

/// The line that tells where the controller can be reached, to standard output.
void TellPlace(const Front& front, const char* event);

/// Pulls the cable. `plug` of the terminal puts it back.
void PullCable(Front& front);

/// Writes the lasting memory to its file if there is one and it changed. On failure gives false
/// with one line in `problem`.
bool KeepMemory(Front& front, std::string& problem);

/// The same; a failure goes to standard error.
bool KeepMemoryOrTell(Front& front);

} // namespace qdk8
