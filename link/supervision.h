#pragma once

/// What keeps the user informed of the line and the alarm.
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

void ResetSupervision();

} // namespace qdw8
