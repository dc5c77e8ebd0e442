#include "support/story.h"

#include "platform/fault.h"

#include <algorithm>
#include <regex>

namespace qdw8::test {

std::string Word(Args& args) {
    std::string word;
    args >> word;
    return word;
}

int Number(Args& args) {
    int number = 0;
    args >> number;
    return number;
}

std::string Plain(const std::string& text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::size_t code = std::string("rnt0x").find(i + 1 < text.size() ? text[i + 1] : ' ');
        if (text[i] != '\\' || code == std::string::npos) {
            plain += text[i];
            continue;
        }
        const bool hex = code == 4;
        plain +=
            hex ? static_cast<char>(std::stoi(text.substr(i + 2, 2), nullptr, 16)) : "\r\n\t"[code];
        i += hex ? 3 : 1;
    }
    return plain;
}

std::string Rest(Args& args) {
    std::string rest;
    std::getline(args, rest);
    return Plain(rest.substr(rest.starts_with(' ') ? 1 : 0));
}

std::vector<std::string> Split(const std::string& text, char mark) {
    std::vector<std::string> parts;
    Args stream(text + mark);
    for (std::string part; std::getline(stream, part, mark);) {
        const std::size_t first = std::min(part.find_first_not_of(' '), part.size());
        parts.push_back(part.substr(first, part.find_last_not_of(' ') + 1 - first));
    }
    return parts;
}

std::string Joined(const std::vector<std::string>& parts, const std::string& mark) {
    std::string all;
    for (const std::string& part : parts) {
        all += (all.empty() ? "" : mark) + part;
    }
    return all;
}

std::vector<std::string> LinesOf(const std::string& file) {
    std::vector<std::string> lines;
    std::ifstream all(QDW8_SOURCE_DIR "/tests/" + file);
    for (std::string line; std::getline(all, line);) {
        if (!line.empty() && !line.starts_with('#')) {
            lines.push_back(line);
        }
    }
    EXPECT_FALSE(lines.empty()) << file;
    return lines;
}

std::vector<std::vector<std::string>> RowsOf(const std::string& table) {
    std::vector<std::vector<std::string>> rows;
    for (const std::string& line : LinesOf(table)) {
        rows.push_back(Split(line, '|'));
        std::transform(rows.back().begin(), rows.back().end(), rows.back().begin(), Plain);
    }
    return rows;
}

void PlayVerb(const Verbs& verbs, const std::string& line) {
    auto sides = Split(std::regex_replace(line, std::regex("\\^"), "\\r\\n"), '=');
    ASSERT_LE(sides.size(), 2U);
    Args args(sides[0]);
    const Verb& verb = verbs.at(Word(args));
    std::string result;
    try {
        result = verb(Rest(args));
    } catch (const Fault&) {
        result = "!";
    }
    if (sides.size() == 2 || result == "!") {
        EXPECT_EQ(result, sides.size() == 2 ? Plain(sides[1]) : "no fault");
    }
}

void TellStatement(const StoryWords& words, const StoryValues& values,
                   const std::string& statement) {
    Args args(statement);
    const std::string word = Word(args);
    const bool asks = statement.find(" =") != statement.npos && values.contains(word);
    ASSERT_TRUE(asks || words.contains(word)) << "no such word: " << word;
    if (!asks) {
        words.at(word)(args);
        return;
    }
    const std::string value = values.at(word)(args);
    EXPECT_EQ(Word(args), "=");
    EXPECT_EQ(value, Rest(args));
}

} // namespace qdw8::test
