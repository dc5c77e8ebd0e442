#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace qdw8 {

/// The text with the id in the language of the run: row `id` + `LanguageBase` (16-bit signed
/// addition). Throws `Fault` for an id with no row.
std::string ResText(std::int16_t id);

} // namespace qdw8
