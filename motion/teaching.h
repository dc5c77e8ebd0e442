#pragma once

#include "app/Module1.h"
#include "motion/jog_position.h"
#include "motion/jog_queue.h"
#include "motion/stop_sign.h"
#include "platform/timer.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

/// Teaching: what stands behind the window `frmJOG`, but for its chart (teach_chart.h).
///
/// A press or a release only changes the queue; the tick of `timerTusin` sends. A release is a stop
/// that the line itself serves in front of everything (link/stop.h). While the window is open the
/// commands of all other windows are away, and the alarm poll with them.
namespace qdw8 {

inline constexpr std::size_t kJogButtons = 8; ///< `cmdJOG(0)` to `cmdJOG(7)`

/// Where teaching stands.
enum class Teaching : std::uint8_t {
    NotStarted,
    Starting, ///< the controller is asked
    Homing,   ///< all axes move home
    Started,
    Failed,   ///< it was started; after a failure nothing goes out any more until the next start
    Completed ///< ended by `cmdJOGend`; it can be started again
};

/// What the window shows, all of it. Texts are ids of the string table, 0 for none.
struct TeachingForm {
    Teaching state = Teaching::NotStarted;
    StopSign stop = StopSign::None;
    /// The line beside the buttons: what happens, what Start will do, that a step was sent beyond
    /// the stroke end.
    std::int16_t stateText = 0;
    std::int16_t stopText = 0; ///< of the sign; nothing but the sign itself may hide it
    /// What Start will do, to stand below the text of a sign that hides `stateText` for good.
    std::int16_t homeText = 0;
    /// `lblPosi1` to `lblPosi4`, in the unit of the caption; empty for an axis out of use and where
    /// no reading stands.
    std::array<std::string, kAxes> lblPosi;
    std::int16_t lblGenzaitiHyoji = 0; ///< caption over them, by `TeachesInMm`
    std::string lblJogVEL;
    int optJOG = 0; ///< the chosen way of moving, 0 to 3

    bool cmdJOGST = false; ///< enabled states
    bool cmdJOGend = false;
    bool cmdJOGWrite = false; ///< a reading stands, and no axis may be on its way
    bool flgdJOGPosi = false; ///< the chart and its row choice
    std::array<bool, kJogButtons> cmdJOG{};
};
TeachingForm TheTeachingForm();

extern Timer timerTusin;     ///< 50 ms, on from the start of teaching: sends the queue and polls
extern Timer TimerBosoKansi; ///< 100 ms, on while the window is open: the sign of the stop

/// The window opens: settings read, nothing started, nothing chosen but JOG, the commands away. A
/// stop that was not confirmed when it was closed still isn't.
void LoadJog();
/// The last of teaching: timer off, queue empty, the port closed unless it is kept, and the axes
/// that came into use completed, where the start could not do it. A stop that is due must be out
/// before.
void EndTeaching();
/// The window is gone: teaching is ended where it wasn't, timers off, the commands back. A stop
/// that is due must be out before (`LetStopOut`). Ends the program where that was confirmed.
void UnloadJog();
/// Between the two.
bool JogOpen();

/// Begins teaching: controller's mode, axes in use, homing where it is needed, stroke ends. Runs as
/// soon as the line is free, and returns when it has ended. A failure of any step ends it, told,
/// with the timer off.
void cmdJOGST_Click();
/// Ends teaching, behind a stop that is due; the chart stays. During the start it breaks that off,
/// with a stop where axes are homing.
void cmdJOGend_Click();

/// Chooses the way of moving: 0 JOG, 1 to 3 inching by 1, 10, 100 pulses.
void optJOG_Click(int way);

/// The button (0 to 7) goes down, by mouse or key; key auto-repeat is none. Index / 2 is the axis,
/// an even one plus. Nothing is sent here, and nothing comes of it while another button is held or
/// within 300 ms of the last press.
void JogPressed(int index);
/// The button that is held is let go, or may have been: window and program call it for each real
/// and each lost release. A second call, and one with nothing held, does nothing. Sends nothing
/// here: the stop goes out with the next look of the line, which is at once.
void JogReleased();

/// Counts as a release, and drops the moves that wait. Lets the stop that is due out (a stop that
/// was not confirmed is tried once more), then runs `then`: before this returns, or, called out of
/// the wait of an exchange, behind it. Window closing, end of the program, going off line, change
/// of the port begin with it.
void LetStopOut(const std::function<void()>& then);

/// The tick of `timerTusin`.
void timerTusin_Tick();

void ResetTeaching();

} // namespace qdw8
