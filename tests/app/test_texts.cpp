// The two text files against each other: a window finds its texts by number alone, so a row that is
// missing, doubled or out of step shows up only when somebody opens the window that needs it.

#include "platform/cp932_text.h"
#include "platform/whole_file.h"

#include <gtest/gtest.h>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace qdw8 {
namespace {

using Texts = std::map<int, std::string>;
constexpr int kEnglishBase = 10000;

std::vector<std::string> LinesOf(const std::string& name) {
    std::istringstream file(ReadWholeFile(QDW8_SOURCE_DIR "/" + name));
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) {
        lines.push_back(line);
    }
    return lines;
}

// Reports every line that is not "id TAB text", is out of order, or has no form in the code page
// of files and paper.
Texts ReadTexts(const std::string& name, bool inOrder = true) {
    static const std::regex row("([1-9][0-9]{0,4})\t(?! *$)([^\\x00-\\x1F\\x7F]+)");
    Texts texts;
    for (const std::string& line : LinesOf(name)) {
        std::smatch parts;
        EXPECT_TRUE(std::regex_match(line, parts, row)) << name << ": not a row: " << line;
        EXPECT_EQ(FromCp932(ToCp932(line)), line);
        const int id = parts.size() == 3 ? std::stoi(parts[1]) : 0;
        EXPECT_TRUE(!inOrder || texts.empty() || id > texts.rbegin()->first) << line;
        texts[id] = parts[2];
    }
    return texts;
}

/// Read once, with its faults told by the first test that looks.
template<bool japanese> const Texts& In() {
    static const Texts texts =
        ReadTexts(japanese ? "app/texts/japanese.txt" : "app/texts/english.txt");
    return texts;
}
constexpr auto& English = In<false>;
constexpr auto& Japanese = In<true>;

/// All that a pattern finds in a text, one behind the other.
std::string Found(const std::string& text, const char* pattern) {
    static std::map<std::string, std::regex> patterns;
    const std::regex& what = patterns.try_emplace(pattern, pattern).first->second;
    std::string all;
    for (std::sregex_iterator at(text.begin(), text.end(), what), end; at != end; ++at) {
        all += at->str() + " ";
    }
    return all;
}

// A row that is there in one language only, or not translated, or whose marks (line breaks,
// mnemonics, file patterns, the number of an enumeration) were lost on the way.
TEST(Texts, BothLanguagesAreInStep) {
    std::set<std::string> same;
    for (const std::string& line : LinesOf("tests/app/texts/same_in_both.txt")) {
        std::istringstream words(line);
        same.insert(std::istream_iterator<std::string>(words), {});
    }
    ASSERT_EQ(English().size(), Japanese().size());
    ASSERT_GT(English().size(), 600U);
    std::map<std::string, int> seen;
    for (const auto& [id, japanese] : Japanese()) {
        SCOPED_TRACE(id);
        ASSERT_TRUE(English().contains(id + kEnglishBase));
        const std::string& english = English().at(id + kEnglishBase);
        EXPECT_EQ(english == japanese, same.contains(std::to_string(id)));
        for (const char* marks :
             {R"(\\r\\n|\\n|\\t)", R"(\(&[A-Z] ?\)|&)", R"([(|]\*\.[a-z*]+\)?)", R"(^ [1-9]\.)"}) {
            // The blank inside one English mnemonic is none of the mark.
            EXPECT_EQ(std::regex_replace(Found(english, marks), std::regex(" \\)"), ")"),
                      Found(japanese, marks));
            seen[marks] += Found(japanese, marks).empty() ? 0 : 1;
        }
        EXPECT_EQ(Found(japanese, "&").size(), 2 * (Found(japanese, R"(\(&[A-Z]\))").size() / 5));
    }
    EXPECT_EQ(seen[R"(\(&[A-Z] ?\)|&)"], 22);
    EXPECT_EQ(seen[R"([(|]\*\.[a-z*]+\)?)"], 6);
}

TEST(Texts, JapaneseKeepsToItsGlossaryAndQuotesCommandsThatExist) {
    std::string captions;
    std::string quoted;
    for (const auto& [id, text] : Japanese()) {
        captions += "[" + text.substr(0, text.find("(&")) + "] ";
        quoted += Found(text, "\\[[^\\]]*\\]");
        for (const std::string& stray : LinesOf("tests/app/texts/stray_words.txt")) {
            EXPECT_EQ(text.find(stray), std::string::npos) << id << ' ' << text;
        }
        EXPECT_EQ(Found(text, "\xEF\xBD[\xA1-\xBF]|\xEF\xBE[\x80-\x9F]"), "")
            << id << ": half-width kana look like an accident";
    }
    int quotes = 0;
    for (std::size_t at = 0; at < quoted.size(); at = quoted.find("] ", at) + 2, ++quotes) {
        const std::string quote = quoted.substr(at, quoted.find("] ", at) + 2 - at);
        EXPECT_NE(captions.find(quote), std::string::npos) << quote;
    }
    EXPECT_GE(quotes, 7);
}

TEST(Texts, RowsThatOtherThingsLeanOn) {
    for (const auto& [id, text] : ReadTexts("tests/app/texts/exact.txt", false)) {
        EXPECT_EQ(id > kEnglishBase ? English().at(id) : Japanese().at(id), text);
    }
    // The printed columns of speed, acceleration and way are 8 mm apart at 9 points: four Latin
    // characters and the axis number fit, or two Japanese ones and the number.
    for (const int id : {225, 226, 227, 228, 231, 232, 233}) {
        EXPECT_LE(ToCp932(English().at(id + kEnglishBase)).size(), 4U) << id;
        EXPECT_LE(ToCp932(Japanese().at(id)).size(), 4U) << id;
    }
    // Reading a macro file of a wrong kind asks for row 23 and counts on the fault that the missing
    // row raises; a text there would bring up a box that the user must not see.
    EXPECT_FALSE(Japanese().contains(23));
    // One English sentence, two causes: the line failed, or the program while handling it.
    EXPECT_EQ(English().at(10104), English().at(10108));
    EXPECT_NE(Japanese().at(104), Japanese().at(108));
    // A new table and one read from the controller are told from a file name by three characters.
    EXPECT_NE(English().at(10213).substr(0, 3), English().at(10374).substr(0, 3));
    EXPECT_NE(Japanese().at(213).substr(0, 9), Japanese().at(374).substr(0, 9));
}

} // namespace
} // namespace qdw8
