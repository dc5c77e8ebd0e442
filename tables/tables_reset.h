#pragma once

namespace qdw8 {

/// Puts every variable of the room of small tables into the state of a fresh start: all numbers 0,
/// nothing unsaved.
void ResetTables();

} // namespace qdw8
