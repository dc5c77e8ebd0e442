#pragma once

#include <string>

namespace qdk8 {

/// The whole text of --help.
std::string HelpText();

} // namespace qdk8
