#include "support/story.h"

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

std::string Rest(Args& args) {
    std::string rest;
    std::getline(args, rest);
    std::string text;
    for (std::size_t i = rest.starts_with(' ') ? 1 : 0; i < rest.size(); ++i) {
        const std::size_t code = std::string("rnt").find(i + 1 < rest.size() ? rest[i + 1] : ' ');
        const bool escape = rest[i] == '\\' && code != std::string::npos;
        text += escape ? "\r\n\t"[code] : rest[i];
        i += escape ? 1 : 0;
    }
    return text;
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
