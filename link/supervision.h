#pragma once

#include <cstdint>

/// What keeps the user informed of the line and the alarm, and the small commands that ask the
/// controller what it is.
namespace qdw8 {

/// The half-second tick `Timer1`: the port lamp (the rest of the panel and the status bar are told
/// of every change at once), and the poll that lets a resettable alarm go out
/// by itself once the controller has dropped it.
void SupervisionTick();

/// Keeps the poll from sending for the life of the object: batches hold one, so that nothing
/// starts between their exchanges. The tick itself goes on.
class PollHeld {
public:
    PollHeld();
    ~PollHeld();
    PollHeld(const PollHeld&) = delete;
    PollHeld& operator=(const PollHeld&) = delete;
};

/// `cmdReset` and `mnuFuncAlmReset`.
void cmdReset_Click();
/// Asks, then goes off line.
void mnuSettingsOffline_Click();
/// Shows the versions of the main unit and of each axis in use.
void mnuFuncCtversion_Click();
/// Reads the axes in use, takes them over and shows them.
void mnuFuncGetAxis_Click();

void ResetSupervision();

} // namespace qdw8
