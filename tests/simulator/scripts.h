#pragma once

#include <string>
#include <vector>

namespace qdk8::test {

/// One line of a script. Its fields stand two or more blanks apart; those that it lacks are empty.
struct ScriptLine {
    int number = 0;                  ///< in its file, from 1
    std::vector<std::string> fields; ///< three
};

/// What stands below one "== title" of a file. Lines that begin with # are for the reader.
struct Script {
    std::string file;
    std::string title;
    std::vector<ScriptLine> lines;
};

/// All scripts of all files of a folder; at least one, or the test fails.
std::vector<Script> ReadScripts(const std::string& folder);

/// Bytes as a script shows them: CR and LF as escapes, those at the end of a text left out, "&"
/// behind a text that ends otherwise.
std::string Shown(const std::string& bytes);

/// Lines in one, " / " between them.
std::string Joined(std::string lines);

/// Fails the test at a line of a script unless both texts are equal.
void ExpectShown(const Script& script, const ScriptLine& line, const std::string& came,
                 const std::string& wanted);

} // namespace qdk8::test
