#pragma once

#include "app/file_questions.h"

#include <cstdint>
#include <string>

/// Parameter files `.pmt`: five sections of comma-separated rows behind a head, in CP932 with CR LF
/// line ends.
namespace qdw8 {

inline constexpr FileKind kParaFile{1827, "pmt"};

/// Reads a file into `ParaRowTable`, and the file's name into its cell (0, 0). `ParaSet` stays
/// untouched. 0 taken. 1 not taken, and the table is as it was; a file of another kind was told by
/// a box, anything else was not.
std::int16_t ReadParaFile(const std::string& path);

/// The same for a user who waits: up to six tries, 100 ms apart, but none after a file of another
/// kind. 0 taken; 1 given up after a box, message 681; -1 a file of another kind, which a box told.
std::int16_t ReadParaFileWithTries(const std::string& path);

/// Asks for a file under the title with the id, then as above. -1 also when the user cancelled.
std::int16_t AskAndReadParaFile(std::int16_t titleId);

/// Opens a file of the user's choice and takes it over into `ParaSet`; what the window shows is the
/// caller's. 0 done; 1 given up after a box; -1 cancelled, or refused after a box. After 1 and -1
/// `ParaSet` is as it was.
std::int16_t OpenParaFile();

/// Builds each axis' `Actuator` anew and writes `ParaSet`, whole or not at all. The acceleration
/// setting doesn't go into the file. 0 good; 1 failed, and the file that stood there before is as
/// it was.
std::int16_t WriteParaFile(const std::string& path);

/// `cmdSaveParaFile`: takes the fields into `ParaSet`, checks them and saves under a name of the
/// user's choice. 0 saved, and the edits with it; 1 not (the user was told, unless it was the user
/// who cancelled).
std::int16_t SaveParameters();

} // namespace qdw8
