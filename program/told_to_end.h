#pragma once

/// The end of the program by the system's word: a session that ends, a terminal that is closed, a
/// kill. Nobody is asked.
namespace qdw8 {

/// From now on that word counts. To be called when the settings have been read, which the end
/// stores.
///
/// The word makes the end confirmed (`ProgramEndFlag`): what is up is cancelled, what moves is
/// stopped, commands end at their next look, and when the line is free and every command back the
/// process keeps unsaved positions for the next start and ends. After 5 s it does so in any case;
/// the port's last word then stops what still moves, before anything is written.
void ObeyToldToEnd();

/// From now on unsaved positions are kept, too, where the toolkit ends the process because its
/// display is gone. The port's last word then stops what moves.
void KeepUnsavedAtExit();

} // namespace qdw8
