#include "scripts.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <regex>
#include <set>

namespace qdk8::test {

std::vector<Script> ReadScripts(const std::string& folder) {
    std::set<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        files.insert(entry.path());
    }
    std::vector<Script> scripts;
    const std::regex gap("  +");
    for (const auto& file : files) {
        std::ifstream stream(file);
        int number = 0;
        for (std::string text; std::getline(stream, text);) {
            ++number;
            if (text.rfind("== ", 0) == 0) {
                scripts.push_back({file.string(), text.substr(3), {}});
            } else if (!text.empty() && text[0] != '#') {
                text.erase(0, text.find_first_not_of(' '));
                const std::sregex_token_iterator first(text.begin(), text.end(), gap, -1);
                ScriptLine line{number, {first, {}}};
                EXPECT_LE(line.fields.size(), 3U) << file << ':' << number;
                line.fields.resize(3);
                scripts.back().lines.push_back(line);
            }
        }
    }
    EXPECT_FALSE(scripts.empty()) << folder;
    return scripts;
}

std::string Shown(const std::string& bytes) {
    std::string text;
    for (const char c : bytes) {
        text += c == '\r' ? "\\r" : c == '\n' ? "\\n" : std::string(1, c);
    }
    const std::string end = "\\r\\n";
    if (text.size() > end.size() && text.substr(text.size() - end.size()) == end) {
        text.erase(text.size() - end.size());
    } else if (!text.empty() && text != end) {
        text += '&';
    }
    return text;
}

std::string Joined(std::string lines) {
    lines.erase(lines.find_last_not_of('\n') + 1);
    return std::regex_replace(lines, std::regex("\n"), " / ");
}

void ExpectShown(const Script& script, const ScriptLine& line, const std::string& came,
                 const std::string& wanted) {
    if (came != wanted) {
        ADD_FAILURE_AT(script.file.c_str(), line.number)
            << script.title << ": " << line.fields[0] << "  " << line.fields[1] << "\n  came    "
            << came << "\n  wanted  " << wanted;
    }
}

} // namespace qdk8::test
