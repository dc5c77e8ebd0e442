#pragma once

#include <string>
#include <vector>

namespace qdk8::test {

/// One line of a script: its fields stand two or more blanks apart.
struct ScriptLine {
    int number = 0; ///< in its file, from 1
    std::vector<std::string> fields;

    /// The field, empty when the line has fewer.
    std::string field(std::size_t index) const {
        return index < fields.size() ? fields[index] : "";
    }
};

/// What stands below one "== title" of a file. Lines that begin with # are for the reader.
struct Script {
    std::string file;
    std::string title;
    std::vector<ScriptLine> lines;
};

/// All scripts of all files of a folder; at least one, or the test fails.
std::vector<Script> ReadScripts(const std::string& folder);

/// Bytes as a script shows them: CR and LF as escapes, those at the end of a text left out, "&" behind
/// a text that ends otherwise.
std::string Shown(const std::string& bytes);

/// Fails the test at a line of a script unless both texts are equal.
void ExpectShown(const Script& script, const ScriptLine& line, const std::string& came,
                 const std::string& wanted);

} // namespace qdk8::test
