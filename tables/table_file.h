#pragma once

#include "tables/small_table.h"

#include <cstdint>
#include <string>

/// Files of small tables, `.grp` and `.smd`: a head of controller and kind, a line of sizes, and
/// the rows by their numbers; comma-separated, texts in double quotes, lines ended by CR LF.
namespace qdw8 {

enum class FileRead {
    Good,
    OtherKind, ///< another kind of file; the table's box for it, if there is one, was shown
    Failed
};

/// Reads a file into the compare table; rows that the file doesn't hold keep what they held. Unless
/// the result is `Good` the compare table is as it was. Failed: no such file, one that is too
/// large, a row number that there isn't, a value that is no whole number of 16 bits, an empty line
/// before the last row, an end inside a row.
FileRead ReadTableFile(const SmallTable& table, const std::string& path);

/// The same in up to six tries, 100 ms apart; another kind of file is not tried again. False: the
/// user was told.
bool ReadTableFileWithTries(const SmallTable& table, const std::string& path);

/// Writes what is shown, whole or not at all. 0 good; 1 failed, what stood there before is as it
/// was.
std::int16_t WriteTableFile(const SmallTable& table, const std::string& path);

} // namespace qdw8
