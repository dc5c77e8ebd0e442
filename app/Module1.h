#pragma once

#include <array>
#include <cstdint>
#include <string>

/// What the whole program shares: run flags, the axes in use, the language of the run.
///
/// Every variable keeps the state of a fresh start until start-up has set it; `ResetModule1` puts
/// all of them back there. One thread uses them, so nothing is locked.
namespace qdw8 {

/// A 16-bit signed flag. It counts as set when it is exactly -1.
using Flag = std::int16_t;
inline constexpr Flag kSet = -1;
inline constexpr Flag kClear = 0;
constexpr bool IsSet(Flag flag) {
    return flag == kSet;
}
constexpr Flag FlagOf(bool set) {
    return set ? kSet : kClear;
}

inline constexpr int kAxes = 4; ///< axes 0 to 3 in data, AXIS 1 to AXIS 4 on the screen

extern Flag& DispMmFlag;            ///< the table shows millimetres rather than pulses
extern Flag& MmRoundUpFlag;         ///< half a pulse goes up when a mm figure is entered
extern Flag& AccWideFlag;           ///< nothing sets it; the limits for it are kept
extern Flag& LanguageChangedFlag;   ///< the language option was changed, for the next start
extern std::int16_t& LanguageNo;    ///< 1 Japanese, anything else English
extern std::int16_t& LanguageBase;  ///< 0 Japanese, 10000 English; fixed at start-up
extern Flag& FirstDeviceSetFlag;    ///< the option boxes of the device window are offered
extern Flag& StartDeviceSelectFlag; ///< start-up opened the device choice: no way out of it
extern Flag& TransferRunFlag;       ///< `frmTrance` shows its cancel button when it opens
extern Flag& TransferCancelFlag;    ///< the user pressed cancel in `frmTrance`
extern Flag& ProcessingShownFlag;   ///< the wait dialog `frmProcessing` is on the screen
extern Flag& SplashDoneFlag;        ///< the splash time is over
extern Flag& RangeCancelFlag;       ///< a range dialog was left by Cancel or by closing it
/// The user gave up a wait, by the group stop button or by the offer to give up: the one way out of
/// a wait for an answer that may never come.
extern Flag& GrpMoveStopFlag;
/// The user has confirmed the end of the program while a command runs: its loops over rows stop at
/// the next row, and the outermost command then ends the program.
extern Flag& ProgramEndFlag;
/// The user knows that the store of the settings can't be written.
extern Flag& SettingsLossToldFlag;

/// Per axis: -1 no actuator on this axis, 0 in use. `CtAxisOff` is what the controller says, read
/// silently for a comparison; `AxisOff` is what the program works with.
extern std::array<Flag, kAxes>& AxisOff;
extern std::array<Flag, kAxes>& CtAxisOff;

/// A file or port operation is tried once and then up to this many times again.
inline constexpr std::int16_t kRetries = 5;
/// Milliseconds between two tries.
inline constexpr std::int16_t kRetryPauseMs = 100;

/// Axis mask of `off`: bit 0 for AXIS 1 up to bit 3 for AXIS 4, a set bit meaning in use.
int AxisMaskOf(const std::array<Flag, kAxes>& off);
/// Takes a mask apart, bits 1, 2, 4, 8 in this order; higher bits are not looked at.
void SetAxisOffByMask(std::array<Flag, kAxes>& off, int mask);

/// Puts every variable of this header into the state of a fresh start.
void ResetModule1();

} // namespace qdw8
