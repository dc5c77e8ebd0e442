#pragma once

namespace qdw8 {

/// Puts every variable of the parameter room into the state of a fresh start: all items 0 or empty,
/// no file read, no list loaded, empty fields.
void ResetParameters();

} // namespace qdw8
