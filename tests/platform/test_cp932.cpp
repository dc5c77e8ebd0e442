#include "platform/cp932_text.h"

#include <gtest/gtest.h>

namespace qdw8 {
namespace {

TEST(Cp932, EveryKindOfCharacterGoesThereAndBack) {
    std::string text;
    std::string bytes;
    const std::pair<const char*, std::string> rows[] = {
        {"", ""},
        {"\"QD-K8\",1,-2\r\n", "\"QD-K8\",1,-2\r\n"},
        {"位置ｱｶ", "\x88\xCA\x92\x75\xB1\xB6"},
        {"ソ表", "\x83\x5C\x95\x5C"},           // the second byte is a backslash
        {"①～", "\x87\x40\x81\x60"}};           // in the Windows page only, not in plain Shift-JIS
    for (int round = 0; round < 100; ++round) { // longer than any buffer
        for (const auto& [one, its] : rows) {
            text += one;
            bytes += its;
            ASSERT_EQ(ToCp932(text), bytes) << one;
            ASSERT_EQ(FromCp932(bytes), text) << one;
        }
    }
}

TEST(Cp932, WhatCannotBeConvertedBecomesAQuestionMarkAndTheRestStays) {
    EXPECT_EQ(ToCp932("a\u00e4b\U0001F600b"), "a?b?b"); // two bytes, four bytes, one mark each
    EXPECT_EQ(ToCp932("a\xE4\xBD z\x80\x80z\xE4\xBD"), "a? z??z?");   // cut short, no leader
    EXPECT_EQ(FromCp932("a\x88\x0D\x0A\xFF\xFEz\x88"), "a?\r\n??z?"); // the line's end survives
}

TEST(Cp932, WhatThePageLacksIsNamedOnceInOrderAndUpToALimit) {
    EXPECT_EQ(LackingInCp932("\"位置～①?－\",1\r\n"), "");
    EXPECT_EQ(LackingInCp932("a\\b¥c〜\x80é¥‾"), "¥ 〜 U+FFFD é ‾"); // comes back as another
    EXPECT_EQ(LackingInCp932("aébé\U0001F600, ü"), "é \U0001F600 ü");
    EXPECT_EQ(LackingInCp932("éüéß", 2), "é ü ...");
    EXPECT_EQ(LackingInCp932("éüé", 2), "é ü");
    EXPECT_EQ(LackingInCp932("a\u200B\U000E0100\xE4"), "U+200B U+E0100 U+FFFD");
}

} // namespace
} // namespace qdw8
