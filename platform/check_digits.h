#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace qdw8 {

inline constexpr std::size_t kCheckDigits = 16;

/// Hexadecimal digits that another text bears only by the rarest of chances. They tell a text that
/// was damaged or is no text of ours; they keep nobody from making one on purpose.
std::string CheckDigits(std::string_view text);

} // namespace qdw8
