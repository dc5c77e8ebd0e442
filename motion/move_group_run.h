#pragma once

namespace qdw8 {

/// The run of a group that the controller holds (`MoveRun::Group`).
void RunMoveGroup();

} // namespace qdw8
