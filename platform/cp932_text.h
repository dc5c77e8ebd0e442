#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace qdw8 {

/// UTF-8 to the Japanese Windows code page (CP932), in which data files are written so that they
/// can be exchanged. A character that the code page lacks, or a broken sequence, becomes "?".
/// Throws `Fault` on a system that has no such conversion.
std::string ToCp932(std::string_view utf8);

/// The characters of a UTF-8 text that do not come back as themselves from the code page, for a
/// question to the user: those that `ToCp932` replaces by "?", and those for which it has another
/// one, as the backslash for a yen sign. Each once, in the order of the text, parted by blanks.
/// Behind the first `limit` of them stands "..." for the rest. A character that shows nothing by
/// itself is named by its number, "U+200B". Empty if all come back. Throws `Fault` as `ToCp932`
/// does.
std::string LackingInCp932(std::string_view utf8, std::size_t limit = 20);

/// The text with the four signs that Japanese input methods produce in two ways (the wave dash, the
/// minus, the long dash and the double bar) as the code page has them: U+FF5E, U+FF0D, U+2015 and
/// U+2225. They look alike, and a reader of the file gets these.
std::string WithCp932Signs(std::string_view utf8);

/// The Japanese Windows code page to UTF-8. A broken sequence becomes "?" for each byte.
std::string FromCp932(std::string_view bytes);

} // namespace qdw8
