#pragma once

namespace qdw8 {

/// Puts every variable of the room of motion into the state of a fresh start: no window open,
/// nothing monitored, nothing marked.
void ResetMotion();

} // namespace qdw8
