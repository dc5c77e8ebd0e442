// The error list and the decoding of error replies.

#include "link/Module3Tusin.h"
#include "link/ct_commands.h"
#include "link/link_fixture.h"

#include <filesystem>
#include <fstream>
#include <optional>
#include <unistd.h>

namespace qdw8::test {
namespace {

class AlarmTest : public LinkTest {
protected:
    AlarmTest() : folder(testing::TempDir() + "qdw8_alarms_" + std::to_string(getpid())) {
        std::filesystem::create_directories(folder);
        ThePlatform().programFolder = folder;
    }
    ~AlarmTest() override { std::filesystem::remove_all(folder); }

    void writeList(const std::string& bytes, const std::string& name = "erroreng.lst") const {
        std::ofstream(folder + "/" + name, std::ios::binary) << bytes;
    }
    /// The list as it would come if it could not be read.
    void loseList() {
        platform.expectBox(box::kNoErrorList);
        LoadErrorList();
        platform.checkAllAsked();
        newEvents();
    }
    static void decode(const std::string& reply) {
        ErrorReplyText = reply + "\r\n";
        DecodeCtError();
    }

    std::string folder;
};

std::string Rows(int count, const std::string& head) {
    std::string text = head + "\r\n";
    for (int row = 1; row <= count; ++row) {
        text += "\"2" + std::to_string(row % 10) + "\",\"row " + std::to_string(row) + "\"\r\n";
    }
    return text;
}

TEST_F(AlarmTest, ListIsReadFieldByField) {
    writeList("2\r\n\"13\",\"Homing, not completed\"\r\n24\r\nHome sensor\r\n");
    ErrorListMissingFlag = kSet;
    LoadErrorList();
    EXPECT_FALSE(IsSet(ErrorListMissingFlag));
    EXPECT_EQ(ErrorList[0].code, "2");
    EXPECT_EQ(ErrorList[1].code, "13");
    EXPECT_EQ(ErrorList[1].message, "Homing, not completed");
    EXPECT_EQ(ErrorList[2].code, "24");
    EXPECT_EQ(ErrorList[2].message, "Home sensor");
    EXPECT_EQ(ErrorList[3].code, "");
}

TEST_F(AlarmTest, FortyRowsAreTheMost) {
    writeList(Rows(40, "40"));
    LoadErrorList();
    EXPECT_FALSE(IsSet(ErrorListMissingFlag));
    EXPECT_EQ(ErrorList[40].message, "row 40");
}

TEST_F(AlarmTest, ListThatCannotBeReadIsToldAndItsRowsSoFarAreKept) {
    struct Row {
        const char* what;
        std::optional<std::string> bytes;
        std::size_t kept;
    };
    for (const Row& row :
         {Row{"missing", {}, 0}, Row{"empty", "", 0}, Row{"41 rows", Rows(41, "41"), 40},
          Row{"41 rows told, 3 there", Rows(3, "41"), 3}, Row{"broken off", Rows(2, "3"), 2},
          Row{"no count", Rows(2, "many"), 0}, Row{"count with more", Rows(2, "2x"), 0},
          Row{"negative count", Rows(2, "-2"), 0},
          Row{"quote without end", "1\r\n\"11\",\"x", 0}}) {
        SCOPED_TRACE(row.what);
        std::filesystem::remove(folder + "/erroreng.lst");
        if (row.bytes) {
            writeList(*row.bytes);
        }
        ErrorListMissingFlag = kClear;
        platform.expectBox(box::kNoErrorList);
        LoadErrorList();
        platform.checkAllAsked();
        EXPECT_TRUE(IsSet(ErrorListMissingFlag));
        std::size_t kept = 0;
        while (kept + 1 < ErrorList.size() && !ErrorList[kept + 1].message.empty()) {
            ++kept;
        }
        EXPECT_EQ(kept, row.kept);
    }
}

TEST_F(AlarmTest, EachLanguageHasItsList) {
    writeList("1\r\n\"13\",\"English\"\r\n");
    writeList("1\r\n\"13\",\"\x8C\xB4\x93\x5F\"\r\n", "errorjpn.lst");
    LoadErrorList();
    EXPECT_EQ(ErrorList[1].message, "English");
    LanguageBase = 0;
    LoadErrorList();
    EXPECT_EQ(ErrorList[1].message, "原点");
}

TEST_F(AlarmTest, DecodingTakesClassAndCode) {
    struct Row {
        std::string reply;
        bool lasting;
        std::string number;
        std::string text; ///< empty: not in the list
    };
    ErrorList[0].code = "3";
    ErrorList[3] = {"1a", "small letter"};
    for (const Row& row :
         {Row{"0%%013", false, "3", "Homing not completed"},
          Row{"0%%0x3", false, "3", "Homing not completed"},
          Row{"0%%013 and more", false, "3", "Homing not completed"},
          Row{"0%%134", true, "4", "Home sensor not detected"},
          Row{"0%%Z34", true, "4", "Home sensor not detected"}, Row{"0%%034", false, "4", ""},
          Row{"0%%133", true, "3", ""}, Row{"0%%01a", false, "a", "small letter"},
          Row{"0%%01A", false, "A", ""},
          // What is missing is empty, and no class is the class that lasts.
          Row{"0%%01", false, "", ""}, Row{"0%%0", false, "", ""}, Row{"0%%", true, "", ""}}) {
        SCOPED_TRACE(row.reply);
        decode(row.reply);
        EXPECT_EQ(IsSet(AlarmNotResettableFlag), row.lasting);
        EXPECT_EQ(ErrorNo, row.number);
        EXPECT_EQ(ThePanel().lblAlarmNo, row.number);
        EXPECT_EQ(IsSet(ErrorFoundFlag), !row.text.empty());
        const std::string text =
            row.text.empty() ? "No error information in the error List" : row.text;
        EXPECT_EQ(ErrorText, text);
        EXPECT_EQ(ThePanel().lblErrorComment, text);
        EXPECT_TRUE(ThePanel().imgAlarmLed);
    }
}

TEST_F(AlarmTest, CountRowTakesPart) {
    // A list of 13 rows: row 0 matches class 1 and code 3 before the row that is meant.
    ErrorList[0].code = "13";
    decode("0%%013");
    EXPECT_TRUE(IsSet(ErrorFoundFlag));
    EXPECT_EQ(ErrorText, "");
    EXPECT_EQ(ThePanel().lblErrorComment, "");
}

TEST_F(AlarmTest, RowsBehindTheCountAreNotLookedAt) {
    ErrorList[0].code = "1";
    decode("0%%134");
    EXPECT_FALSE(IsSet(ErrorFoundFlag));
}

TEST_F(AlarmTest, NoErrorIsLiteralInBothLanguages) {
    LanguageBase = 0;
    letAlarmStand();
    platform.answer("0RH1");
    EXPECT_EQ(ReadHomeStatus(), 0);
    EXPECT_EQ(ThePanel().lblErrorComment, "No Error");
    EXPECT_EQ(ThePanel().lblAlarmNo, "");
}

TEST_F(AlarmTest, WithoutAListATalkingExchangeTellsOnce) {
    decode("0%%134");
    loseList();
    platform.answer("0%%013");
    platform.expectBox(box::kNoErrorList);
    // The fields are as the last decode left them, and so is the class.
    platform.expectBox(box::kSensor);
    EXPECT_EQ(ReadHomeStatus(), 1);
    EXPECT_EQ(newEvents(),
              (std::vector<std::string>{"open 1", "settings 9600,N,8,1", "send 0RH",
                                        "receive 0%%013", "box Ok: " + box::kNoErrorList,
                                        "box Ok: " + box::kSensor, "close", "online lamp off"}));
    EXPECT_EQ(state(), "OffLine Alarm NotResettable ErrorFound");
}

TEST_F(AlarmTest, WithoutAListTheRecoveryTellsOnce) {
    loseList();
    platform.answer("0ZZ1");
    platform.answer("0%%013");
    platform.expectBox(box::kNoErrorList);
    platform.expectBox("Communication error occurs!\r\n[]");
    EXPECT_EQ(ReadHomeStatus(), 1);
}

TEST_F(AlarmTest, WithoutAListTheIdleReceiverTellsOnce) {
    loseList();
    OpenCtPort();
    platform.arrive(10, "0%%013\r\n");
    platform.expectBox(box::kNoErrorList);
    platform.run(20);
    EXPECT_EQ(state(), "OnLine PortOpen Alarm");
    EXPECT_FALSE(ThePanel().imgAlarmLed);
}

TEST_F(AlarmTest, WithoutAListThePollKeepsQuiet) {
    loseList();
    platform.answer("0%%013");
    EXPECT_EQ(PollCtStatus(), 1);
    EXPECT_EQ(state(), "OnLine Alarm");
}

} // namespace
} // namespace qdw8::test
