#pragma once

#include "app/Module1.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

/// What the window `frmMove` shows and what the user has set in it, as data.
namespace qdw8 {

inline constexpr std::size_t kMoveCells = 15; ///< entries of the list
inline constexpr std::size_t kMoveTabs = 3;
inline constexpr int kHighestPosition = 999;
inline constexpr int kHighestGroup = 99;

/// What a tool tip says of Stop and Pause, and of the Stop of a group run.
inline constexpr std::int16_t kStopTip = 3217;
inline constexpr std::int16_t kGroupStopTip = 3218;

/// A kind of run: the code in `MoveRequest`.
enum class MoveRun : std::int16_t { None = 0, List = 1, Range = 2, Home = 3, Group = 4 };

/// What a list run and a range run are told beside their positions.
struct MoveChoices {
    bool step = false;        ///< `optSelectMode(1)`, `optMoveWay(1)`; else "Continual"
    bool repeat = false;      ///< `chkRepeat`, `chkRepeat2`
    bool noSqMcr = false;     ///< `chkNoSqMcr1`, `chkNoSqMcr2`
    bool timerUse = false;    ///< `chkTimerUse`, `chkTimerUse2`
    std::string timer = "10"; ///< `txtTimer`, `txtTimer2`: digits, 0 to 999, or empty
};

/// The cell editor `txtEdit2`, over the current cell.
struct ListEdit {
    bool shown = false;
    std::string text; ///< the caret stands behind it when it opens
};

/// What the user has set. It lives as long as the window.
struct MoveFields {
    std::size_t SSTab1 = 0;                          ///< the tab in front: list, range, group
    std::array<std::string, kMoveCells> flgdProgram; ///< position numbers, decimal, or empty
    std::size_t column = 0;                          ///< current cell of the list
    ListEdit txtEdit2;
    MoveChoices list;
    int lblStartPosiNo = 1;
    int lblEndPosiNo = 10; ///< never below the start
    MoveChoices range;
    int lblGrpNo = 1;
};

/// Which controls can be used. What isn't named here always can.
struct MoveEnabled {
    std::array<bool, kMoveTabs> SSTab1{};
    bool start = false;       ///< `cmdMove`, `cmdSelectMove`, `cmdGrpMove`, `cmdHome`
    bool flgdProgram = false; ///< with `cmdInp1toF` and `cmdDataClear`
    bool chkTimerUse = false;
    bool txtTimer = false;
    bool chkTimerUse2 = false;
    bool txtTimer2 = false;
    bool cmdStop = false;
    bool cmdTmpStop = false;
    bool cmdStop2 = false;
    bool cmdTempStop2 = false;
    bool cmdGrpMoveStop = false;
};

/// A line of text that the window shows: a text id, 0 for nothing, in which "%1" stands for the
/// number.
struct MoveStatus {
    std::int16_t text = 0;
    int number = 0;

    bool operator==(const MoveStatus&) const = default;
};
/// The text in the language of the run, the number in its place.
std::string TextOf(const MoveStatus& status);
/// Both in one line, as far as they are there.
std::string TextOf(const MoveStatus& first, const MoveStatus& second);

struct MoveFormData {
    MoveFields fields;
    MoveEnabled enabled;
    bool out1 = false; ///< arrival lamp 1 is green, else white
    bool out2 = false;
    std::string lblkanryoNo; ///< number of the position last reached, or empty
    /// The cell with which the next click on `cmdMove` begins.
    std::size_t nextCell = 0;
    /// Stands beside the buttons all the time: what they do about homing.
    MoveStatus homing;
    /// What goes on, what a Stop or Pause waits for, how the last run ended.
    MoveStatus status;
    /// Where the next run of the tab in front goes on behind a pause; nothing while a run goes on.
    MoveStatus place;
};

} // namespace qdw8
