#pragma once

// What a controller's memory holds when it is switched on for the first time.

#include "simulator/memory.h"

namespace qdk8 {

/// The machine as it comes out of the crate: four axes in use (a 300 mm 61H, a 100 mm 44L, a 100 mm
/// J52L, a 200 mm 61F), varied and always the same data in all 999 rows, 99 groups, 20 macros.
const Memory& StartMemory();

/// The same machine with rows at 30, 3, 0, 0 (acceleration 2 on a 61F), groups 1 to 1 and macros
/// that were never written.
Memory BlankMemory();

} // namespace qdk8
