// The error list.

#include "link/alarm.h"
#include "link/link_fixture.h"
#include "platform/whole_file.h"

#include <filesystem>

namespace qdw8::test {
namespace {

using AlarmTest = LinkTest;

// The number behind the last "_" of a file's name is how many rows come of it. All but the good
// ones are told.
TEST_F(AlarmTest, ListsAreReadFieldByFieldAndBrokenOnesTold) {
    leaveListsBehind();
    int lists = 0;
    for (const auto& file :
         std::filesystem::directory_iterator(QDW8_SOURCE_DIR "/tests/link/lists")) {
        const std::string name = file.path().stem().string();
        SCOPED_TRACE(name);
        writeFile("erroreng.lst", ReadWholeFile(file.path().string()));
        platform.boxes.clear();
        LoadErrorList();
        const bool good = name.starts_with("good");
        EXPECT_EQ(IsSet(ErrorListMissingFlag), !good);
        EXPECT_EQ(platform.boxes,
                  good ? std::vector<std::string>{} : std::vector{box::kNoErrorList});
        std::size_t rows = 0;
        while (rows < kErrorListRows && !ErrorList[rows + 1].message.empty()) {
            ++rows;
        }
        EXPECT_EQ(rows, std::stoul(name.substr(name.rfind('_') + 1)));
        if (name == "good_2") {
            EXPECT_EQ(ErrorList[1].message, "Homing, not completed");
            EXPECT_EQ(ErrorList[2].code + ErrorList[2].message, "24Home sensor");
        }
        ++lists;
    }
    EXPECT_EQ(lists, 10);
    writeFile("errorjpn.lst", "1\r\n\"13\",\"\x8C\xB4\x93\x5F\"\r\n");
    LanguageBase = 0;
    LoadErrorList();
    EXPECT_EQ(ErrorList[1].message, "原点");
    std::filesystem::remove(pathOf("errorjpn.lst"));
    LoadErrorList();
    EXPECT_TRUE(IsSet(ErrorListMissingFlag));
}

} // namespace
} // namespace qdw8::test
