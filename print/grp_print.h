#pragma once

#include <string>

namespace qdw8 {

/// Prints the groups of the compare table, all on one page, under a file name.
void PrintGrpData(const std::string& fileName);

/// Title line and foot of the page.
void PrintGrpHeader(const std::string& fileName);

} // namespace qdw8
