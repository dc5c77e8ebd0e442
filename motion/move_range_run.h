#pragma once

namespace qdw8 {

/// The run through a range of positions (`MoveRun::Range`).
void RunMoveRange();

} // namespace qdw8
