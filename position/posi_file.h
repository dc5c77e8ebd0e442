#pragma once

#include "app/Module1.h"

#include <cstdint>
#include <string>

/// Position files `.qdd`: the writer and the commands that save.
namespace qdw8 {

/// -1 after a save command that ended without a file having been written.
extern Flag& SaveCancelledFlag;

/// Writes the table's rows of the working range under a file name in `PosiFolder`, whole or not at
/// all. 0 good: it is the document's file from now on, and `PosiDirtyFlag` is clear if every row of
/// the grid was written. 1 failed: the file that stood there before is as it was, nothing else has
/// changed.
std::int16_t SaveFileAs2(const std::string& fileName);

/// `mnuFileSave` and its kin: saves the whole grid to the file that was opened or written last;
/// asks for a name when there is none. Characters of the comments that the file's code page lacks
/// are named before they are replaced, here and in `SavePosiFileAs`. Both may run in the middle of
/// another command, whose range and marks stay.
void SavePosiFile();
/// `mnuFileSaveAs`: asks for a range and a name. Afterwards the working range is the whole grid.
void SavePosiFileAs();

void ResetPosiFile();

} // namespace qdw8
