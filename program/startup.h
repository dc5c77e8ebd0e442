#pragma once

#include <cstdint>

/// From process start to the main window on the screen and the first replies of the controller.
namespace qdw8 {

/// The start, from the splash to the end of start-up. The platform and the screens must be in
/// force. Every failure ends off line with the main window usable.
void Main();

/// What the main window does before it is shown: no traffic.
void frmMain_Load();

/// Asks by which way the program is to be used: 0 on line, anything else off line.
std::int16_t SelectStartMode();

} // namespace qdw8
