#pragma once

namespace qdw8 {

/// Homing by itself (`MoveRun::Home`).
void RunMoveHome();

} // namespace qdw8
