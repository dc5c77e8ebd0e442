#pragma once

#include <string>
#include <string_view>

namespace qdw8 {

/// UTF-8 to the Japanese Windows code page (CP932), in which data files are written so that they
/// can be exchanged. A character that the code page lacks, or a broken sequence, becomes "?".
/// Throws `Fault` on a system that has no such conversion.
std::string ToCp932(std::string_view utf8);

/// The Japanese Windows code page to UTF-8. A broken sequence becomes "?" for each byte.
std::string FromCp932(std::string_view bytes);

} // namespace qdw8
