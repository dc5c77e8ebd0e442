#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace qdw8 {

/// Reads a whole file as bytes. Throws `Fault` if it can't be opened or read, or if it is larger
/// than `limit` bytes (no file of this program comes near it).
std::string ReadWholeFile(const std::string& path, std::size_t limit = std::size_t{16} << 20U);

/// Writes a file whole or not at all: the bytes go to a new file in the same folder, reach the
/// disk, and only then take the place of what stood under the name. A name that is a link keeps
/// being one: the file that it points to is replaced. Throws `Fault` on any failure; what stood
/// under the name before is then as it was, and no part of the new file stays behind.
void WriteWholeFile(const std::string& path, std::string_view bytes);

} // namespace qdw8
