#include "platform/cp932_text.h"
#include "platform/fault.h"
#include "platform/platform.h"
#include "platform/whole_file.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace qdw8 {
namespace {

namespace fs = std::filesystem;

/// A folder of its own for each test, gone afterwards.
class Files : public ::testing::Test {
protected:
    Files() {
        std::string name = (fs::temp_directory_path() / "qdw8-files-XXXXXX").string();
        if (::mkdtemp(name.data()) == nullptr) {
            throw std::runtime_error("no temporary folder");
        }
        folder = name;
    }
    ~Files() override {
        std::error_code error;
        fs::remove_all(folder, error);
    }

    std::string path(const std::string& name) const { return (folder / name).string(); }

    /// Names of all that lies in the folder.
    std::vector<std::string> names() const {
        std::vector<std::string> result;
        for (const auto& entry : fs::directory_iterator(folder)) {
            result.push_back(entry.path().filename().string());
        }
        std::sort(result.begin(), result.end());
        return result;
    }

    fs::path folder;
};

using Names = std::vector<std::string>;

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

TEST_F(Files, WhatWasWrittenIsReadBackByteForByte) {
    std::string bytes(200000, '\0');
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        bytes[i] = static_cast<char>(i * 7);
    }
    for (const std::string& text : {std::string(), std::string("a\r\nb\x1A"), bytes}) {
        WriteWholeFile(path("data"), text);
        EXPECT_EQ(ReadWholeFile(path("data")), text);
    }
    EXPECT_EQ(names(), Names{"data"});
}

TEST_F(Files, ReadingFaults) {
    WriteWholeFile(path("ten"), "0123456789");
    EXPECT_EQ(ReadWholeFile(path("ten"), 10), "0123456789");
    EXPECT_THROW(ReadWholeFile(path("ten"), 9), Fault);
    EXPECT_THROW(ReadWholeFile(path("missing")), Fault);
    EXPECT_THROW(ReadWholeFile(folder.string()), Fault);
}

TEST_F(Files, AFileKeepsItsRightsAndALinkStaysALink) {
    fs::create_directory(folder / "real");
    WriteWholeFile(path("real/data"), "old");
    fs::permissions(path("real/data"), fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink("real/data", path("link"));

    WriteWholeFile(path("link"), "new");

    EXPECT_TRUE(fs::is_symlink(path("link")));
    EXPECT_EQ(ReadWholeFile(path("real/data")), "new");
    EXPECT_EQ(fs::status(path("real/data")).permissions(),
              fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(Files, AFailedWriteLeavesNothingBehind) {
    EXPECT_THROW(WriteWholeFile(path("missing/data"), "new"), Fault);
    EXPECT_EQ(names(), Names{});

    // Everything works up to the last step, which can't put a file in the place of a folder.
    fs::create_directory(folder / "taken");
    EXPECT_THROW(WriteWholeFile(path("taken"), "new"), Fault);
    EXPECT_EQ(names(), Names{"taken"});
    EXPECT_TRUE(fs::is_directory(path("taken")));
}

TEST_F(Files, APortIsALinkInTheSettingsFolderOrABuiltInOne) {
    ThePlatform().settingsFolder = folder.string();
    EXPECT_EQ(DeviceOfPort(1), "/dev/ttyS0");
    EXPECT_EQ(DeviceOfPort(9), "/dev/ttyS8");

    fs::create_directory(folder / "ports");
    fs::create_symlink("/dev/null", path("ports/com1"));
    EXPECT_EQ(DeviceOfPort(1), path("ports/com1"));
    EXPECT_EQ(DeviceOfPort(2), "/dev/ttyS1");

    // The adapter behind the link was pulled out: no other port steps in for it.
    fs::create_symlink(path("gone"), path("ports/com2"));
    EXPECT_EQ(DeviceOfPort(2), path("ports/com2"));
    ThePlatform().settingsFolder.clear();
}

} // namespace
} // namespace qdw8
