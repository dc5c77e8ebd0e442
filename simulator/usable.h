#pragma once

// What the controller takes into its memory, and what it can work with.

#include "simulator/wire.h"

#include <string_view>

namespace qdk8 {

/// A position row of 40 digits whose values a move can be made with.
bool RowUsable(std::string_view row);
/// Six digits, both numbers from 1 to 999.
bool GroupUsable(std::string_view group);
/// 32 digits, every step a command the controller knows (or F, never written) with its data.
bool MacroUsable(std::string_view macro);
/// 32 digits that block number `block` of a controller with `axes` axes can hold.
bool BlockUsable(int block, std::string_view digits, int axes = kAxisCountMax);

} // namespace qdk8
