#pragma once

// The controller's lasting memory in a text file:
//
//     QD-K8 memory 1
//     # comment lines
//     block 0 <32 digits>
//     position 001 <9 digits> <9> <9> <9> <4>
//     group 01 <3> <3>
//     macro 01 <32 digits>
//     check <8 digits>
//
// All numbers are hexadecimal, as on the line. The check is the CRC-32 of everything before its own
// line, so a file that was cut or touched is refused.

#include "simulator/memory.h"

#include <string>

namespace qdk8 {

std::string MemoryText(const Memory& memory);

/// Takes a memory text in whole or not at all. On failure gives false, leaves `memory` as it was
/// and says in one line in `problem` what is wrong.
bool MemoryFromText(const std::string& text, Memory& memory, std::string& problem);

enum class FileState { Read, Missing, Broken };

/// Reads `path`. `missing`: no such file, `memory` is as it was. `broken`: the same, and `problem`
/// tells in one line what is wrong.
FileState LoadMemory(const std::string& path, Memory& memory, std::string& problem);

/// Writes `path` whole or not at all: a neighbour file is written, forced to the disk and renamed.
/// On failure gives false with one line in `problem`; an older file is as it was.
bool SaveMemory(const std::string& path, const Memory& memory, std::string& problem);

} // namespace qdk8
