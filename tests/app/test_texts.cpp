// The two text files against each other: a window finds its texts by number alone, so a row that is
// missing, doubled or out of step shows up only when somebody opens the window that needs it.

#include <array>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <iconv.h>
#include <map>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

using Texts = std::map<int, std::string>;

constexpr int kEnglishBase = 10000;

std::string FileBytes(const std::string& name) {
    std::ifstream file(std::string(QDW8_SOURCE_DIR) + "/app/texts/" + name, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << name;
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

// Nothing when a byte sequence is wrong in `from` or a character does not exist in `to`.
std::optional<std::string> Recode(const std::string& text, const char* to, const char* from) {
    iconv_t converter = iconv_open(to, from);
    if (reinterpret_cast<std::intptr_t>(converter) == -1) {
        ADD_FAILURE() << to << " or " << from << " is not known to this system";
        return std::nullopt;
    }
    std::string input = text;
    std::string output(text.size() * 4 + 16, '\0');
    char* in = input.data();
    char* out = output.data();
    std::size_t inLeft = input.size();
    std::size_t outLeft = output.size();
    const std::size_t result = iconv(converter, &in, &inLeft, &out, &outLeft);
    iconv_close(converter);
    if (result != 0 || inLeft != 0) {
        return std::nullopt;
    }
    output.resize(output.size() - outLeft);
    return output;
}

std::u32string Characters(const std::string& text) {
    const auto bytes = Recode(text, "UTF-32LE", "UTF-8");
    EXPECT_TRUE(bytes.has_value()) << text;
    std::u32string characters;
    for (std::size_t at = 0; bytes && at + 4 <= bytes->size(); at += 4) {
        char32_t character = 0;
        for (std::size_t i = 4; i > 0; --i) {
            character = (character << 8) | static_cast<unsigned char>((*bytes)[at + i - 1]);
        }
        characters += character;
    }
    return characters;
}

std::vector<std::string> Split(const std::string& text, char at) {
    std::vector<std::string> parts(1);
    for (const char c : text) {
        if (c == at) {
            parts.emplace_back();
        } else {
            parts.back() += c;
        }
    }
    return parts;
}

// Reads a text file and reports every line that is not "id TAB text".
Texts ReadTexts(const std::string& name) {
    const std::string bytes = FileBytes(name);
    EXPECT_TRUE(Recode(bytes, "UTF-32LE", "UTF-8").has_value()) << name << " is not UTF-8";
    EXPECT_TRUE(bytes.ends_with('\n')) << name;
    std::vector<std::string> lines = Split(bytes, '\n');
    lines.pop_back();

    Texts texts;
    int last = 0;
    for (const std::string& line : lines) {
        const std::vector<std::string> fields = Split(line, '\t');
        if (fields.size() != 2 || fields[0].empty() || fields[0].front() == '0' ||
            fields[0].size() > 5 ||
            fields[0].find_first_not_of("0123456789") != std::string::npos) {
            ADD_FAILURE() << name << ": not a row: " << line;
            continue;
        }
        const int id = std::stoi(fields[0]);
        EXPECT_GT(id, last) << name << ": out of order or twice";
        last = id;
        EXPECT_NE(fields[1].find_first_not_of(' '), std::string::npos)
            << name << ": no text in row " << id;
        for (const char c : fields[1]) {
            EXPECT_FALSE(static_cast<unsigned char>(c) < 0x20 || c == 0x7F)
                << name << ": control character in row " << id;
        }
        texts[id] = fields[1];
    }
    return texts;
}

const Texts& English() {
    static const Texts texts = ReadTexts("english.txt");
    return texts;
}

const Texts& Japanese() {
    static const Texts texts = ReadTexts("japanese.txt");
    return texts;
}

// Calls check(id, english, japanese) for every row that both files hold.
template<class Check> void ForEachPair(const Check& check) {
    int pairs = 0;
    for (const auto& [id, japanese] : Japanese()) {
        const auto english = English().find(id + kEnglishBase);
        if (english != English().end()) {
            ++pairs;
            check(id, english->second, japanese);
        }
    }
    EXPECT_GT(pairs, 600);
}

int CountOf(std::string_view text, std::string_view part) {
    int count = 0;
    for (std::size_t at = text.find(part); at != std::string_view::npos;
         at = text.find(part, at + part.size())) {
        ++count;
    }
    return count;
}

// The letters of all (&X) marks; '!' for an ampersand that is no such mark.
std::string Mnemonics(const std::string& text) {
    std::string letters;
    for (std::size_t at = text.find('&'); at != std::string::npos; at = text.find('&', at + 1)) {
        const bool mark = at > 0 && text[at - 1] == '(' && at + 1 < text.size() &&
                          text[at + 1] >= 'A' && text[at + 1] <= 'Z' &&
                          text.find(')', at) != std::string::npos;
        letters += mark ? text[at + 1] : '!';
    }
    return letters;
}

std::string WithoutMnemonic(const std::string& text) {
    return text.substr(0, text.find("(&"));
}

// Columns on paper or in a fixed-width font: 1 for a Latin character, 2 for any other.
int Columns(const std::string& text) {
    int columns = 0;
    for (const char32_t character : Characters(text)) {
        columns += character < 0x80 ? 1 : 2;
    }
    return columns;
}

// The blanks, the number and the point that begin an entry of an enumeration inside a box.
std::string Indent(const std::string& text) {
    if (text.size() > 3 && text[0] == ' ' && text[1] >= '1' && text[1] <= '9' && text[2] == '.') {
        return text.substr(0, 3);
    }
    return {};
}

} // namespace

TEST(Texts, BothLanguagesHoldTheSameRows) {
    std::set<int> english;
    std::set<int> japanese;
    for (const auto& row : English()) {
        english.insert(row.first - kEnglishBase);
    }
    for (const auto& row : Japanese()) {
        japanese.insert(row.first);
    }
    EXPECT_EQ(english, japanese);
    ASSERT_FALSE(english.empty());
    EXPECT_EQ(*english.begin(), 1);
    EXPECT_TRUE(english.contains(2547));
}

// Reading a macro file of a wrong kind asks for row 23 and counts on the fault that the missing row
// raises; a text there would bring up a box that the user must not see.
TEST(Texts, RowThatMustNotExist) {
    EXPECT_FALSE(Japanese().contains(23));
    EXPECT_FALSE(English().contains(23 + kEnglishBase));
}

TEST(Texts, LineBreakMarksAgree) {
    ForEachPair([](int id, const std::string& english, const std::string& japanese) {
        for (const char* mark : {"\\r\\n", "\\n", "\\t"}) {
            EXPECT_EQ(CountOf(english, mark), CountOf(japanese, mark)) << id << ' ' << mark;
        }
    });
}

TEST(Texts, MnemonicsAgree) {
    std::set<int> marked;
    ForEachPair([&marked](int id, const std::string& english, const std::string& japanese) {
        EXPECT_EQ(Mnemonics(english), Mnemonics(japanese)) << id;
        EXPECT_EQ(Mnemonics(english).find('!'), std::string::npos) << id;
        if (!Mnemonics(japanese).empty()) {
            marked.insert(id);
        }
    });
    EXPECT_EQ(marked, (std::set<int>{250, 251, 252, 253, 254, 255, 256, 261, 262, 270, 271,
                                     272, 273, 274, 275, 276, 277, 278, 287, 290, 291, 292}));
}

// Two entries of one menu with the same letter would make both hard to reach by the keyboard.
TEST(Texts, MnemonicsOfOneMenuDiffer) {
    struct Menu {
        const char* name;
        std::vector<int> rows;
    };
    const std::vector<Menu> menus = {{"file", {251, 252, 253, 254, 255, 256, 261, 262}},
                                     {"view", {271, 272, 273, 274, 275, 276, 277}},
                                     {"help", {291, 292}}};
    for (const Menu& menu : menus) {
        std::set<std::string> letters;
        for (const int id : menu.rows) {
            EXPECT_TRUE(letters.insert(Mnemonics(Japanese().at(id))).second)
                << menu.name << ' ' << id;
        }
    }
}

TEST(Texts, FileFiltersHaveTheSamePatterns) {
    std::set<int> filters;
    ForEachPair([&filters](int id, const std::string& english, const std::string& japanese) {
        const std::vector<std::string> ours = Split(english, '|');
        const std::vector<std::string> theirs = Split(japanese, '|');
        ASSERT_EQ(ours.size(), theirs.size()) << id;
        if (ours.size() == 1) {
            return;
        }
        filters.insert(id);
        EXPECT_EQ(ours.size() % 2, 0U) << id;
        for (std::size_t i = 0; i + 1 < ours.size(); i += 2) {
            EXPECT_EQ(ours[i + 1], theirs[i + 1]) << id;
            for (const std::string& label : {ours[i], theirs[i]}) {
                EXPECT_TRUE(label.ends_with("(" + ours[i + 1] + ")")) << id << ' ' << label;
            }
        }
    });
    EXPECT_EQ(filters, (std::set<int>{351, 828, 831, 930, 1827}));
}

TEST(Texts, EnumerationsKeepTheirIndent) {
    int entries = 0;
    ForEachPair([&entries](int id, const std::string& english, const std::string& japanese) {
        EXPECT_EQ(Indent(english), Indent(japanese)) << id;
        entries += Indent(english).empty() ? 0 : 1;
    });
    EXPECT_EQ(entries, 8);
}

// Marks that stand on the machine, units, numbers, model names and file names are the same in both
// languages. Any other row that is equal was forgotten by the translator.
TEST(Texts, EveryOtherRowIsTranslated) {
    const std::set<int> same = {
        12,  407,  833,  929,  934,                               // files
        201, 1001, 2005, 643,  644,  645, 646,  647,              // products and types
        648, 649,  650,  651,  665,  666, 1319, 1415, 1416,       //
        215, 218,  232,  233,  247,  248, 508,  657,  658,        // marks
        659, 660,  2505, 1005, 1403,                              //
        229, 230,  2221, 2222, 2522,                              // units
        509, 510,  522,  532,  533,  551, 1811, 1812, 2105, 2106, // numbers
        353, 382,  620,                                           // signs
    };
    ForEachPair([&same](int id, const std::string& english, const std::string& japanese) {
        EXPECT_EQ(english == japanese, same.contains(id)) << id << ' ' << japanese;
    });
}

// Files and paper are in the code page CP932; a character that it lacks would come out as a
// substitute. Half-width kana exist in it and look like an accident in a caption.
TEST(Texts, JapaneseFitsTheCodePage) {
    for (const auto& [id, text] : Japanese()) {
        const auto encoded = Recode(text, "CP932", "UTF-8");
        EXPECT_TRUE(encoded.has_value()) << id << ' ' << text;
        EXPECT_EQ(encoded ? Recode(*encoded, "UTF-8", "CP932") : encoded, text) << id;
        for (const char32_t character : Characters(text)) {
            EXPECT_FALSE(character >= 0xFF61 && character <= 0xFF9F) << id << ' ' << text;
        }
    }
}

TEST(Texts, JapaneseKeepsToItsGlossary) {
    const std::array<std::string_view, 20> strays = {
        "コントローラー", "パラメーター", "アクチュエーター", "センサー", "タイマー", "モニター",
        "コネクター",     "プリンター",   "フォルダー",       "デバイス", "原点出し", "ホーミング",
        "教示",           "警報",         "ベリファイ",       "読込み",   "書込み",   "読み込み中",
        "印字",           "下さい"};
    for (const auto& [id, text] : Japanese()) {
        for (const std::string_view stray : strays) {
            EXPECT_EQ(text.find(stray), std::string::npos) << id << ' ' << text;
        }
    }
}

// A message that names a command in brackets must name it as the menu shows it.
TEST(Texts, QuotedCommandsExist) {
    std::set<std::string> captions;
    for (const auto& row : Japanese()) {
        captions.insert(WithoutMnemonic(row.second));
    }
    int quoted = 0;
    for (const auto& [id, text] : Japanese()) {
        for (std::size_t at = text.find('['); at != std::string::npos;
             at = text.find('[', at + 1)) {
            const std::size_t end = text.find(']', at);
            ASSERT_NE(end, std::string::npos) << id;
            EXPECT_TRUE(captions.contains(text.substr(at + 1, end - at - 1))) << id << ' ' << text;
            ++quoted;
        }
    }
    EXPECT_GE(quoted, 7);
}

// The printed columns of speed, acceleration and way are 8 mm apart at 9 points: four Latin
// characters and the axis number fit, or two Japanese ones and the number.
TEST(Texts, GridHeadingsFitThePrintedColumns) {
    for (const int id : {225, 226, 227, 228, 231, 232, 233}) {
        EXPECT_LE(Columns(English().at(id + kEnglishBase)), 4) << id;
        EXPECT_LE(Columns(Japanese().at(id)), 4) << id;
    }
}

// Rows whose exact form other rows, files or boxes lean on.
TEST(Texts, RowsOfExactForm) {
    const std::vector<std::pair<int, std::string>> english = {
        {10008, " Please fill the data in and try it again."},
        {10013, "Fail to  Save parameters into the file."},
        {10024, "MS GOTHIC"},
        {10120, "erroreng.lst"},
        {10124, "This is not \"QD-K8\" controller."},
        {10130, "The error occurred while reading the teaching speed setting. "},
        {10273, "Input/Output(&I )"},
        {10307, "Copy Position Data\u3000by Line"},
        {10321, "GREEN:Homing completed  WHITE:Homing has not been completed"},
        {10322, "GREEN\uFF1ACom-port open \u3000WHITE\uFF1ACom-port close"},
        {10381, " <Position No. "},
        {10412, "Axis setting is "},
        {11402, "Select Acutuator type,size,speed,stroke and click [OK]"},
        {11601, "Data Renge Setting"},
    };
    for (const auto& [id, text] : english) {
        EXPECT_EQ(English().at(id), text) << id;
    }
    const std::vector<std::pair<int, std::string>> japanese = {
        {24, "\uFF2D\uFF33 ゴシック"},
        {399, "\uFF2D\uFF33 ゴシック"},
        {120, "errorjpn.lst"},
        {381, " <ポジションNo. "},
        {412, "軸設定は "},
        {413, " です。"},
    };
    for (const auto& [id, text] : japanese) {
        EXPECT_EQ(Japanese().at(id), text) << id;
    }
}

// One English sentence, two causes: the line failed (104), or the program while handling it (108).
TEST(Texts, LineErrorAndHandlingFaultDifferInJapaneseOnly) {
    EXPECT_EQ(English().at(10104), English().at(10108));
    EXPECT_NE(Japanese().at(104), Japanese().at(108));
}

// The name of a new table and of a table read from the controller are told from a file name by
// their first three characters, so the two must not be taken for each other or be shorter.
TEST(Texts, NamesOfTablesWithoutAFileDiffer) {
    for (const auto& [fresh, controller] : {std::pair{English().at(10213), English().at(10374)},
                                            std::pair{Japanese().at(213), Japanese().at(374)}}) {
        const std::u32string a = Characters(fresh);
        const std::u32string b = Characters(controller);
        ASSERT_GE(a.size(), 3U);
        ASSERT_GE(b.size(), 3U);
        EXPECT_NE(a.substr(0, 3), b.substr(0, 3));
    }
}
