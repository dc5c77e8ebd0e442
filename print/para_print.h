#pragma once

#include <string>

namespace qdw8 {

/// Prints the parameters of `ParaRowTable`, all on one page, under a file name.
void PrintParaData(const std::string& fileName);

} // namespace qdw8
