#pragma once

#include "app/Module1.h"

#include <cstdint>
#include <string>

/// Position files `.qdd`: the writer and the commands that save.
namespace qdw8 {

/// The folder of the last position file opened or saved; empty before the first one.
extern std::string PosiFolder;
/// -1 after a save command that ended without a file having been written.
extern Flag SaveCancelledFlag;

/// A file name without its extension of four characters.
std::string FileNameOnly(const std::string& fileName);

/// Writes the table's rows of the working range under a file name in `PosiFolder`, whole or not at
/// all. 0 good: `PosiFileName` and `lblFileName` are set, `PosiDirtyFlag` is clear. 1 failed: the
/// file that stood there before is as it was, nothing else has changed.
std::int16_t SaveFileAs2(const std::string& fileName);

/// `mnuFileSave` and its kin: saves under the current name; asks for a name when there is none.
void SavePosiFile();
/// `mnuFileSaveAs`: asks for a range and a name. The working range stays the one that was saved; if
/// nothing was saved it is as it was.
void SavePosiFileAs();

void ResetPosiFile();

} // namespace qdw8
