#pragma once

namespace qdw8 {

/// Puts every variable of the position room into the state of a fresh start.
void ResetPositions();

} // namespace qdw8
