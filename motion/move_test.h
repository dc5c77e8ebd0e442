#pragma once

#include "motion/move_form.h"
#include "platform/timer.h"

#include <cstddef>
#include <cstdint>
#include <string>

/// The move test: what stands behind the window `frmMove`.
///
/// A click sends nothing: it sets `MoveRequest`, and the tick of `timerEventCheck` that finds the
/// line free runs it. The run holds the thread until it ends, serves events meanwhile, and has the
/// commands of all windows; the routines below only set what it looks at. It looks again directly
/// before every frame that moves: behind a Stop, a Pause or a close no further move goes out. A
/// move that has gone out is never cut short from here.
///
/// Whenever something of `MoveForm()` has changed, `Screens().frmMove` is told.
namespace qdw8 {

extern Flag& MoveActive;          ///< a run is in the foreground
extern std::int16_t& MoveRequest; ///< 0, or the `MoveRun` that the next tick shall run
extern Timer timerEventCheck;     ///< 100 ms, on while the window is open and no run is
extern Timer Timer2;              ///< the wait between two moves

/// What the window shows now.
MoveFormData MoveForm();

/// The window opens: everything as on a fresh start, `timerEventCheck` on. Nothing goes out.
void LoadMove();
/// The window goes, by `cmdMoveWinClose` without a question: a request that waits is dropped, and a
/// run ends at its next look.
void UnloadMove();
/// The window may go. Only the title bar asks (570), and only while a run is in the foreground.
bool MoveMayClose(bool fromTitleBar);

// Starting: the click counts while `MoveForm().enabled.start` says so. One with an entry of the
// list half typed that is none only beeps. One that the tick can't take within a second, or over
// which something else comes up, is dropped, and the window says so.
void cmdMove_Click();
void cmdSelectMove_Click();
void cmdGrpMove_Click();
void cmdHome_Click();

// Ending a run behind the move under way. A request that has not been taken yet is dropped. A click
// counts while the button is enabled.
void cmdStop_Click();
void cmdStop2_Click();
void cmdTmpStop_Click();
void cmdTempStop2_Click();
/// The controller finishes the group; this ends only a wait that has no other end.
void cmdGrpMoveStop_Click();

// What the user sets. Each may be changed while a run goes on, as far as its control is enabled.
void SSTab1_Click(std::size_t tab);
void optSelectMode_Click(std::size_t index);
void optMoveWay_Click(std::size_t index);
void chkRepeat_Click(bool ticked);
void chkRepeat2_Click(bool ticked);
void chkNoSqMcr1_Click(bool ticked);
void chkNoSqMcr2_Click(bool ticked);
void chkTimerUse_Click(bool ticked);
void chkTimerUse2_Click(bool ticked);
/// Enter, or the field is left: digits up to 999, or an empty text, are taken. Anything else beeps,
/// and the old text stays.
void txtTimer_Enter(const std::string& typed);
void txtTimer2_Enter(const std::string& typed);
/// A start above the end takes the end along; an end below the start stops there.
void StartPosiNo_Change(int position);
void EndPosiNo_Change(int position);
void GrpNo_Change(int group);

void ResetMoveTest();

} // namespace qdw8
