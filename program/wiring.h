#pragma once

/// Ties the real windows to the screen functions of the rules.
namespace qdw8 {

/// Fills `Screens()`. The application must exist and the platform be in force. The windows are made
/// when they are first needed, in the language of the run.
void WireScreens();

} // namespace qdw8
