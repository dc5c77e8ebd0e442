#include "platform/cp932_text.h"

#include <gtest/gtest.h>

#include <string>

namespace qdw8 {
namespace {

TEST(Cp932, EveryKindOfCharacterGoesThereAndBack) {
    const struct {
        const char* utf8;
        std::string bytes;
    } rows[] = {
        {"", ""},
        {"\"QD-K8\",1,-2\r\n", "\"QD-K8\",1,-2\r\n"},
        {"位置", "\x88\xCA\x92\x75"},
        {"ｱｶ", "\xB1\xB6"},
        {"ソ表", "\x83\x5C\x95\x5C"}, // the second byte is a backslash
        {"①", "\x87\x40"},            // in the Windows page only, not in plain Shift-JIS
        {"～", "\x81\x60"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(ToCp932(row.utf8), row.bytes) << row.utf8;
        EXPECT_EQ(FromCp932(row.bytes), row.utf8) << row.utf8;
    }
}

TEST(Cp932, WhatCannotBeConvertedBecomesAQuestionMarkAndTheRestStays) {
    EXPECT_EQ(ToCp932("a\u00e4b"), "a?b");         // a letter that the page lacks
    EXPECT_EQ(ToCp932("a\U0001F600b"), "a?b");     // four bytes, still one mark
    EXPECT_EQ(ToCp932("a\xE4\xBD z"), "a? z");     // a sequence cut short in the middle
    EXPECT_EQ(ToCp932("a\xE4\xBD"), "a?");         // and at the end
    EXPECT_EQ(ToCp932("a\x80\x80z"), "a??z");      // followers without a leader
    EXPECT_EQ(FromCp932("a\x88"), "a?");           // half a character at the end
    EXPECT_EQ(FromCp932("a\xFF\xFEz"), "a??z");    // bytes that begin nothing
    EXPECT_EQ(FromCp932("\x88\x0D\x0A"), "?\r\n"); // a line end survives a broken leader
}

TEST(Cp932, WhatThePageLacksIsNamedOnceInOrderAndUpToALimit) {
    EXPECT_EQ(LackingInCp932("\"位置～①\",1\r\n"), "");
    EXPECT_EQ(LackingInCp932("aébé\U0001F600, ü"), "é \U0001F600 ü");
    EXPECT_EQ(LackingInCp932("éüéß", 2), "é ü ...");
    EXPECT_EQ(LackingInCp932("éüé", 2), "é ü");
    EXPECT_EQ(LackingInCp932("a\u200B\U000E0100\xE4"), "U+200B U+E0100 U+FFFD");
}

TEST(Cp932, TextLongerThanOneChunkKeepsItsOrder) {
    std::string text;
    for (int i = 0; i < 500; ++i) {
        text += "位" + std::to_string(i);
    }
    EXPECT_EQ(FromCp932(ToCp932(text)), text);
}

} // namespace
} // namespace qdw8
