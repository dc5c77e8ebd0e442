#pragma once

#include <array>
#include <string>

namespace qdk8::test {

/// The fields of a line of a story, which stand two or more blanks apart; those that it lacks are
/// empty.
std::array<std::string, 3> Fields(const std::string& line);

/// Bytes as a story shows them: CR and LF as escapes, those at the end of a text left out, "&"
/// behind a text that ends otherwise.
std::string Shown(const std::string& bytes);

/// Lines in one, " / " between them.
std::string Joined(std::string lines);

} // namespace qdk8::test
