#pragma once

namespace qdw8 {

/// Puts every variable of the room of printing into the state of a fresh start.
void ResetPrint();

} // namespace qdw8
