#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace qdw8 {

/// The text with the id in the language of the run: row `id` + `LanguageBase` (16-bit signed
/// addition). Throws `Fault` for an id with no row.
std::string ResText(std::int16_t id);

/// The same with the words in the places of %1, %2, ...: the order of a sentence is its language's.
std::string ResText(std::int16_t id, std::initializer_list<std::string> words);

} // namespace qdw8
