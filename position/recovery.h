#pragma once

#include <memory>

/// Unsaved changes of the position table outlive a crash: as long as there are any, what the grid
/// shows is kept in a file in the user's state folder, written whole or not at all, at most every
/// 10 s. The next start offers it.
///
/// The file goes when there is nothing unsaved any more, and when the user has confirmed the end.
/// Whatever else ends the program leaves it: whoever ends it without asking anybody (a signal, a
/// screen that is gone) calls `KeepUnsavedNow`, and never `EndKeeping`.
namespace qdw8 {

class RecoverySlot;

/// Keeps from now on what is unsaved, in that place, whose table stands for what the grid shows
/// now; in one that is free when it comes to it if there is none.
///
/// `before` holds a table that was put back of which the grid shows a part alone, or for other
/// devices. It stays as it is beside what is kept, and goes with it.
void StartKeeping(std::unique_ptr<RecoverySlot> slot = nullptr,
                  std::unique_ptr<RecoverySlot> before = nullptr);

/// Keeps what is unsaved now, however short ago that was done. It may wait for the disk: what moves
/// must have been stopped before. Nobody is told of a failure, and nothing happens without unsaved
/// changes, before start-up has ended or behind `EndKeeping`.
void KeepUnsavedNow();

/// `PosiDirtyFlag` := 0: the table is saved, or another one has taken its place. What was kept
/// goes.
void NothingUnsaved();

/// The user has confirmed the end: what was kept goes, which a box tells if it can't, and nothing
/// is kept any more.
void EndKeeping();

/// Part of `ResetPositions`. A kept file stays, as in a crash.
void ResetRecovery();

} // namespace qdw8
