#pragma once

// The pseudo-terminal that stands for the serial line, and the link that leads to it.

#include <string>

namespace qdk8 {

struct Terminal {
    int master = -1; ///< the controller's end, never blocks; -1 while unplugged
    int held = -1;   ///< our own hold on the slave: the line outlives whoever opens and closes it
    int watch = -1;  ///< tells of openings and closings of the slave; -1 where that cannot be had
    std::string slave;
    std::string link;
    /// How many others have the slave open, as far as seen; -1 before the first.
    int openers = -1;
};

/// Makes a pseudo-terminal in raw mode and, with `terminal.link` not empty, a symbolic link of that
/// name to its slave. A link that stands there is replaced; anything else is left alone and makes
/// this fail. On failure gives false with one line in `problem`, and nothing is left behind.
bool Plug(Terminal& terminal, std::string& problem);

/// Hangs up: whoever has the slave open sees the end of the line. Takes the link away if it still
/// leads here. Nothing when unplugged.
void Unplug(Terminal& terminal);

/// Takes in what `watch` has to tell.
void NoteOpenings(Terminal& terminal);

} // namespace qdk8
