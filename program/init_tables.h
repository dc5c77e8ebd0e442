#pragma once

namespace qdw8 {

/// Puts every variable of the program into the state of a fresh start.
void InitTables();

} // namespace qdw8
