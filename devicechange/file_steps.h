#pragma once

namespace qdw8 {

/// Fills `DeviceChange()`: what opening a position file that was made for other actuators needs of
/// this room. Once, at the start of the program.
void InstallDeviceChangeSteps();

} // namespace qdw8
