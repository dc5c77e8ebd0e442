#pragma once

namespace qdw8 {

/// Puts the whole room into the state of a fresh start and ties its timers and the serial control
/// to the platform in force.
void ResetModule3Tusin();

} // namespace qdw8
