// The error list and the decoding of error replies.

#include "app/main_panel.h"
#include "link/alarm.h"
#include "link/ct_commands.h"
#include "link/line_state.h"
#include "link/link_fixture.h"
#include "link/port.h"
#include "platform/whole_file.h"

#include <filesystem>

namespace qdw8::test {
namespace {

using AlarmTest = LinkTest;

void Decode(const std::string& reply) {
    ErrorReplyText = reply + "\r\n";
    DecodeCtError();
}

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

TEST_F(AlarmTest, DecodingTakesClassAndCode) {
    struct Row {
        const char* reply;
        bool lasting;
        const char* number;
        std::string text = "No error information in the error List";
    };
    const std::string homing = "Homing not completed";
    ErrorList[0].code = "3";
    ErrorList[3] = {"1a", "small letter"};
    for (const Row& row : {Row{"0%%013", false, "3", homing}, Row{"0%%0x3", false, "3", homing},
                           Row{"0%%013 and more", false, "3", homing},
                           Row{"0%%Z34", true, "4", "Home sensor not detected"},
                           Row{"0%%034", false, "4"}, Row{"0%%133", true, "3"},
                           Row{"0%%01a", false, "a", "small letter"}, Row{"0%%01A", false, "A"},
                           // What is missing is empty, and no class is the class that lasts.
                           Row{"0%%01", false, ""}, Row{"0%%", true, ""}}) {
        SCOPED_TRACE(row.reply);
        Decode(row.reply);
        EXPECT_EQ(IsSet(AlarmNotResettableFlag), row.lasting);
        EXPECT_EQ(ErrorNo, row.number);
        EXPECT_EQ(ThePanel().lblAlarmNo, row.number);
        EXPECT_EQ(IsSet(ErrorFoundFlag), !row.text.starts_with("No error"));
        EXPECT_EQ(ErrorText, row.text);
        EXPECT_EQ(ThePanel().lblErrorComment, row.text);
        EXPECT_TRUE(ThePanel().imgAlarmLed);
    }
    ErrorList[0].code = "1";
    Decode("0%%134");
    EXPECT_FALSE(IsSet(ErrorFoundFlag)) << "rows behind the count are not looked at";
    ErrorList[0].code = "13";
    Decode("0%%013");
    EXPECT_EQ(ErrorText, "") << "row 0 takes part, with the count as its code";
    EXPECT_TRUE(IsSet(ErrorFoundFlag));
}

TEST_F(AlarmTest, WhileTheBoxOfTheMissingListIsUpNoSecondOneComes) {
    ErrorListMissingFlag = kSet;
    OpenCtPort();
    ThePlatform().ShowMessageBox = [this](const BoxQuestion& question) {
        platform.boxes.push_back(question.text);
        platform.arrive(10, "0%%014\r\n");
        platform.run(20);
        return BoxAnswer::Ok;
    };
    for (int reply = 0; reply < 2; ++reply) {
        platform.arrive(10, "0%%013\r\n");
        platform.run(100);
    }
    EXPECT_EQ(platform.boxes.size(), 2U);
    EXPECT_FALSE(ThePanel().imgAlarmLed);
}

} // namespace
} // namespace qdw8::test
