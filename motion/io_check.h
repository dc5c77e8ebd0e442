#pragma once

#include "motion/io_lamps.h"
#include "platform/timer.h"

/// The I/O monitor: what stands behind the window `frmIOCheck`.
///
/// All exchanges happen in the tick of `timerInputOutput1`; the clicks only ask for them. Outputs
/// are forced only while monitoring runs, and only from what the controller has told in this
/// monitoring. While it runs, and from the start request that the tick has taken, the commands of
/// all other windows are away, which also keeps the alarm poll from talking.
namespace qdw8 {

extern Flag& IoMonitoring;     ///< monitoring runs
extern Flag& IoOutputChanged;  ///< a click asked for new outputs: a slot is marked
extern Flag& IoStartRequest;   ///< start at the next tick
extern Flag& IoStopRequest;    ///< stop at the next tick
extern IoSlots& IoOutputMarks; ///< outputs that are to change
extern IoSlots& IoInputState;  ///< of the last reading
extern IoSlots& IoOutputState; ///< of the last reading; nothing else changes it
extern Flag& IoLampsShown;     ///< the lamps show that reading; else all are out
extern Flag& chkIgnore;        ///< the next monitoring has the controller ignore its inputs

extern Timer timerInputOutput1; ///< 300 ms, on while the window is open
extern Timer TimerBtnOff;       ///< 500 ms: on while a click on `cmdIoMonitor` locks it

/// The window opens: everything out, nothing asked for, `timerInputOutput1` on. What a failure left
/// behind it is still told.
void LoadIoCheck();

/// The click on `cmdIoMonitor`: asks for the start or the stop. Nothing while the button is locked.
void cmdIoMonitor_Click();
/// The button can be pressed.
bool IoMonitorEnabled();

/// The click on `chkIgnore`. Nothing while monitoring runs: the controller was told at its start.
void chkIgnore_Click(bool ticked);
bool IgnoreEnabled();

/// The click on an output lamp, or on the white icon in its place: marks the slot, or unmarks it
/// again. It counts only while monitoring shows a reading and no stop is asked for.
void OutputLamp_Click(std::size_t slot);

/// The window is to close. Monitoring that runs is stopped first, and the window goes when that was
/// good (`IoCheckOpen`); after a failure it stays, for what it says.
void CloseIoCheck();
/// The window is to be on the screen.
bool IoCheckOpen();

/// The tick of `timerInputOutput1`.
void timerInputOutput1_Tick();

/// What the window says of itself, as a text id; 0 nothing.
std::int16_t IoStateText();

void ResetIoCheck();

} // namespace qdw8
