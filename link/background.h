#pragma once

#include <functional>

/// One sender at a time. Ticks of timers talk to the controller too, and while such an exchange
/// waits the events go on: a command that the user starts out of that wait could not send before
/// the exchange has ended, and the exchange can't end before the command has returned. So the
/// command is kept until then.
namespace qdw8 {

/// The exchanges of a tick: runs `talk` now, and then the command that was kept meanwhile, if any.
/// False, and nothing happened: the line is busy, off line, held, or another tick talks; the tick
/// comes again. What `talk` throws goes on to the caller after the kept command.
bool RunInBackground(const std::function<void()>& talk);

/// The same for a tick that the user watches: off line is for `talk` to see to, and a wait of it is
/// offered to be given up like that of a command.
bool RunWatched(const std::function<void()>& talk);

/// The same for a stop that is due: a hold keeps it from nothing. False: an exchange runs, and lets
/// the stop follow it.
bool RunPastHold(const std::function<void()>& talk);

/// Runs a command of the user: at once, or when the background exchange out of whose wait it was
/// started has ended. One command is kept; a second one meanwhile is dropped, as one that is
/// chosen while another command runs.
void WhenLineIsFree(const std::function<void()>& command);

/// A command that the user starts now is kept, and none is yet.
bool CommandWouldWait();

/// The user has asked for something that a tick is to begin. A background exchange that runs now
/// counts as one that somebody waits for, to its end.
void AskForLine();

/// Somebody waits for the exchange that runs now: it is no background exchange, or one that is
/// watched or asked to end, or a command is kept for its end.
bool UserWaitsForLine();

/// A frame is on its way, or the answer to one: in an exchange of whomever, or between those of a
/// tick.
bool LineTalks();

/// Keeps ticks from sending for the life of the object, but for a stop: batches hold one, so that
/// nothing starts between their exchanges. The ticks themselves go on.
class PollHeld {
public:
    PollHeld();
    ~PollHeld();
    PollHeld(const PollHeld&) = delete;
    PollHeld& operator=(const PollHeld&) = delete;
};

/// One of them lives.
bool PollIsHeld();

void ResetBackground();

} // namespace qdw8
