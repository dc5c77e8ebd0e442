#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace qdw8 {

/// Reads a whole file as bytes. Throws `Fault` if it can't be opened or read, or if it is larger
/// than `limit` bytes (no file of this program comes near it).
std::string ReadWholeFile(const std::string& path, std::size_t limit = std::size_t{16} << 20U);

/// Writes a file whole or not at all: the bytes go to a new file in the same folder, reach the
/// disk, and only then take the place of what stood under the name.
///
/// A name that is a link keeps being one, also if nothing stands at its end yet: the file that it
/// leads to is written. Owner, group, rights, attributes and the other names of a file stay as
/// they were. Where a new file can't have them, or the folder takes none, the old file is written
/// in place: first its content is copied to a file beside it, or to the settings folder if that
/// can't be; the copy goes when the new content is on the disk. Anything but a file under the
/// name (a folder, a pipe, a device) is refused, and so is a file that the user may not write.
///
/// Throws `Fault` on any failure. What stood under the name before is then as it was; should even
/// that fail while a file is written in place, the copy stays, and the fault names it. What a
/// killed process left beside the file (NAME.HASH-NUMBER.new, a new file that never came into its
/// place, or .old, the copy) goes with the next good save of that file.
void WriteWholeFile(const std::string& path, std::string_view bytes);

/// Takes a file away, so that not even a power cut brings it back. Nothing happens if there is
/// none. Throws `Fault` if it stays.
void RemoveFile(const std::string& path);

} // namespace qdw8
