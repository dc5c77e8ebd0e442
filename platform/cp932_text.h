#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace qdw8 {

/// UTF-8 to the Japanese Windows code page (CP932), in which data files are written so that they
/// can be exchanged. A character that the code page lacks, or a broken sequence, becomes "?".
/// Throws `Fault` on a system that has no such conversion.
std::string ToCp932(std::string_view utf8);

/// The characters of a UTF-8 text that `ToCp932` would replace by "?", for a question to the user:
/// each once, in the order of the text, parted by blanks. Behind the first `limit` of them stands
/// "..." for the rest. A character that shows nothing by itself is named by its number, "U+200B".
/// Empty if the code page has them all. Throws `Fault` as `ToCp932` does.
std::string LackingInCp932(std::string_view utf8, std::size_t limit = 20);

/// The Japanese Windows code page to UTF-8. A broken sequence becomes "?" for each byte.
std::string FromCp932(std::string_view bytes);

} // namespace qdw8
