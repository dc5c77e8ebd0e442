#pragma once

#include <string>

namespace qdw8::test {

/// The text of a box that boxes.txt names.
std::string BoxText(const std::string& name);

} // namespace qdw8::test
