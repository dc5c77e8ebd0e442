#pragma once

#include "platform/timer.h"

/// A click that begins something on the line waits for the tick that finds the line free. Axes that
/// set out later than the user expects, or under a window that hides Stop, would surprise, so the
/// click doesn't wait for anything else.
namespace qdw8 {

class StartRequest {
public:
    /// Asked of the tick of `timer` while a click waits, before all else. True: the click is to be
    /// dropped. A command came first, a box or a modal window is up, something holds the line, or
    /// the line has been busy for a second. A background exchange that is in the way may be given
    /// up meanwhile.
    bool isStale(const Timer& timer);
    /// Another click.
    void begin() { waited = 0; }

private:
    int waited = 0; ///< milliseconds
};

} // namespace qdw8
