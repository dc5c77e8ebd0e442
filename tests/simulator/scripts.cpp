#include "scripts.h"

#include <gtest/gtest.h>
#include <regex>

namespace qdk8::test {

std::array<std::string, 3> Fields(const std::string& line) {
    static const std::regex form(" *(.*?)(  +(.*?)(  +(.*))?)?");
    std::smatch found;
    EXPECT_TRUE(std::regex_match(line, found, form)) << line;
    return {found[1], found[3], found[5]};
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

} // namespace qdk8::test
