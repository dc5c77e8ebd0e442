#pragma once

#include "app/Module1.h"

#include <array>
#include <cstdint>
#include <string>

/// The reader of position files `.qdd`, for opening, verifying and printing.
namespace qdw8 {

extern std::int16_t& FileFirst; ///< first and last row number met in the file last read
extern std::int16_t& FileLast;
extern Flag& FileHasRowsFlag; ///< -1: a row of its own came out of the file last read
extern Flag& FileCommentCut;  ///< -1: a comment of the file last read was cut to its 40 characters

/// Reads a file into `PosiStage` (fields as they stand; rows that the file lacks keep what they
/// held), `FileFirst`, `FileLast`, `FileDevText` and `FileNewOld`. `FileAxisOff` is the
/// caller's.
///
/// 0 read. 0 also for a file that doesn't begin as a position file: a box told so, everything is as
/// it was, and the file stays open. The next call then finds an open file, closes it and gives 1,
/// and the one after that reads. 1 on any other fault: no such file, one that is too large or has
/// more rows than a position file can, a field longer than any figure, a position number outside 0
/// to 999, an end inside a row; what was read before it stands in the variables above.
std::int16_t ReadPosiFile(const std::string& path);

/// Up to six tries, 100 ms apart. False: a box has told that the file can't be read.
bool ReadPosiFileWithTries(const std::string& path);

void ResetPosiReader();

} // namespace qdw8
