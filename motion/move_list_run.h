#pragma once

namespace qdw8 {

/// The run through the entries of the list (`MoveRun::List`).
void RunMoveList();

} // namespace qdw8
