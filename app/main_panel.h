#pragma once

#include "app/Module1.h"

#include <array>
#include <cstdint>
#include <string>

namespace qdw8 {

/// What is told of the line: the port, whether it is open, whether the controller has answered.
struct LinePanel {
    enum class Sign : std::uint8_t { Rest, Good, Bad };
    Sign sign = Sign::Rest;
    std::string port; ///< its number and its device
    bool open = false;
    std::string state; ///< what was heard last; if something is the matter, what to do

    bool operator==(const LinePanel&) const = default;
};

/// What the main window shows beside the grid and the command states: the lamps and the alarm
/// display of `FrameOnLine`, the file name, the axis texts, the status bar.
struct MainPanel {
    bool imgPortGreen = false;      ///< the port is open
    bool imgGreenLedOnline = false; ///< on line
    bool imgHomeGreen = false;      ///< the controller has been homed
    bool imgAlarmLed = false;       ///< an alarm was decoded and not yet cleared
    std::string lblAlarmNo;
    std::string lblErrorComment;
    std::string lblFileName;
    std::array<std::string, kAxes> lblDeviceType;
    /// Head of each axis over its four grid columns.
    std::array<std::string, kAxes> axisHeader;
    /// Head of each axis' position column, "Posi1(mm)".
    std::array<std::string, kAxes> posiHeader;
    LinePanel line;
    /// Panels 2 and 3 of `sbStatusBar`: the scale of the axis under the cursor.
    std::array<std::string, 2> scale;

    bool operator==(const MainPanel&) const = default;
};

/// What stands in the panel now.
const MainPanel& ThePanel();

/// Change one field, and tell the window if that changed anything.
void SetPanel(bool MainPanel::*lamp, bool on);
void SetPanel(std::string MainPanel::*field, const std::string& text);
void SetPanelText(std::array<std::string, kAxes> MainPanel::*field, std::size_t axis,
                  const std::string& text);
void SetPanelLine(const LinePanel& line);
void SetPanelScale(const std::string& pulsesPerMm, const std::string& mmPerPulse);

/// The state of a fresh start: everything off and empty.
void ResetMainPanel();

} // namespace qdw8
