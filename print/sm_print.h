#pragma once

#include <string>

namespace qdw8 {

/// Prints the macros of the compare table, nine on a page, under a file name.
void PrintSmData(const std::string& fileName);

/// Title line, page number and foot of a page.
void PrintSmHeader(const std::string& fileName);

} // namespace qdw8
