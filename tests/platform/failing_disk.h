#pragma once

#include <string>

namespace qdw8::test {

/// What happens at one of the calls by which a save changes the disk.
enum class Mishap { None, FailsOnce, FailsForGood, Killed };

/// The test program's own way to the disk: every call of a save that changes something comes by
/// here. All calls go through to the system but for what is told.
struct FailingDisk {
    Mishap mishap = Mishap::None;
    int at = 0;                     ///< the call that it happens at, the first one is 1
    int calls = 0;                  ///< calls so far
    bool knowsNameless = true;      ///< whether the file system has files without a name
    std::string closedFolder = "-"; ///< a folder that takes no new file
};
FailingDisk& TheDisk();

} // namespace qdw8::test
