#include "position/posi_file.h"

#include "platform/platform.h"
#include "platform/whole_file.h"
#include "position/flex_grid.h"
#include "position/posi_check.h"
#include "position_fixture.h"

#include <csignal>
#include <filesystem>
#include <sys/wait.h>
#include <unistd.h>

namespace qdw8::test {
namespace {

const std::string kNoData =
    "There is no position data.\r\nPlease try again after perform [New Data] or [Read from C/T] "
    "and then editing data. ";
const std::string kSaveError = "An error occured in saving data.";
const std::string kWriteQuestion = "Write Data to the file,Yes?";

class PosiFileTest : public PositionTest {
protected:
    PosiFileTest() : folder(testing::TempDir() + "qdw8-posi-file-" + std::to_string(::getpid())) {
        std::filesystem::remove_all(folder);
        std::filesystem::create_directories(folder);
        SetPanelText(&MainPanel::lblDeviceType, 0, "QD- 44L-100_ ");
        SetPanelText(&MainPanel::lblDeviceType, 3, "QD- 61F-200  ");
    }
    ~PosiFileTest() override { std::filesystem::remove_all(folder); }

    FileQuestion question(const std::string& title) const {
        return {FileQuestion::Kind::Save,
                title,
                "Position Data(*.qdd)|*.qdd|All Files(*.*)|*.*",
                "qdd",
                "qdw8posi.qdd",
                PosiFolder,
                kOverwritePrompt};
    }
    FileAnswer chosen(const std::string& name) const { return {folder + "/" + name, name}; }
    std::string read(const std::string& name) const { return ReadWholeFile(folder + "/" + name); }

    std::string folder;
};

TEST_F(PosiFileTest, TheFileIsByteForByteAsLaidDown) {
    showRows(5, 6);
    type(5, kPosi, "12500");
    type(5, kComment, "first");
    type(6, 12 + kPosi, "4799");
    type(6, kItpl, "1");
    type(6, kSm, "20");
    type(6, kComment, "原点 A'B€");
    DevSetting[0].NewType = kClear;
    TakePosiFile(folder + "/table.qdd");
    PosiDirtyFlag = kSet;
    platform.expectBox("These characters of the comments cannot be written to the file:\r\n€\r\n"
                       "They are saved as \"?\". Save the data all the same?",
                       BoxButtons::YesNo, BoxAnswer::Yes);
    SavePosiFile();
    EXPECT_EQ(
        read("table.qdd"),
        "\"QD-K8\"\r\n"
        "\"QD- 44L-100_ \",\"\",\"\",\"QD- 61F-200  \"\r\n"
        "\"OLD\",\"NEW\",\"NEW\",\"NEW\"\r\n"
        "5,\" 30\",\" 3\",\" 0\",\" 12500\",\" 30\",\" 3\",\" 0\",\" 0\",\" 30\",\" 3\",\" "
        "0\",\" 0\",\" 30\",\" 2\",\" 0\",\" 0\",\" 0\",\" 0\",\" 0\",\"first\"\r\n"
        "6,\" 30\",\" 3\",\" 0\",\" 0\",\" 30\",\" 3\",\" 0\",\" 0\",\" 30\",\" 3\",\" 0\",\" "
        "0\",\" 30\",\" 2\",\" 0\",\" 4799\",\" 1\",\" 0\",\" 20\",\"\x8C\xB4\x93\x5F "
        "A'B?\"\r\n");
    EXPECT_EQ(PosiDirtyFlag, kClear);
    EXPECT_EQ(SaveCancelledFlag, kClear);
    EXPECT_EQ(ThePanel().lblFileName, "table");
}

TEST_F(PosiFileTest, WithoutAFileYetSaveAsksForAName) {
    showRows(1, 1);
    for (const char* name : {"Inside of C/T", "New Data", "Newton"}) {
        PosiFileName = name;
        platform.expectFile(question("Save Position data As..."), chosen("abc.qdd"));
        SavePosiFile();
        EXPECT_EQ(PosiFileName, "abc");
        EXPECT_EQ(PosiFolder, folder);
    }
    std::filesystem::remove(folder + "/abc.qdd");
    SavePosiFile(); // the name it has now goes without a question
    EXPECT_TRUE(std::filesystem::exists(folder + "/abc.qdd"));
    EXPECT_TRUE(IsEnabled(Command::cmdPosiSaveFile) == false) << "nothing is built in this test";
}

TEST_F(PosiFileTest, AFailingSaveIsTriedSixTimesAndLosesNothing) {
    showRows(1, 1);
    TakePosiFile(folder + "/missing/abc.qdd");
    PosiDirtyFlag = kSet;
    platform.expectBox(kSaveError);
    SavePosiFile();
    EXPECT_EQ(platform.now, 500);
    EXPECT_EQ(PosiDirtyFlag, kSet);
    EXPECT_EQ(SaveCancelledFlag, kSet);
    EXPECT_EQ(PosiFileName, "abc");
}

TEST_F(PosiFileTest, ASaveAsThatFailsLeavesTheFolderOfTheDocument) {
    showRows(1, 2);
    TakePosiFile(folder + "/abc.qdd");
    platform.expectScreen("frmSelectPosiNo3");
    platform.expectBox(kWriteQuestion, BoxButtons::OkCancel, BoxAnswer::Ok);
    platform.expectFile(question("Save Position Data as ..."),
                        FileAnswer{folder + "/missing/x.qdd", "x.qdd"});
    platform.expectBox(kSaveError);
    SavePosiFileAs();
    EXPECT_EQ(PosiFolder, folder);
    SavePosiFile();
    EXPECT_TRUE(std::filesystem::exists(folder + "/abc.qdd"));
}

TEST_F(PosiFileTest, AProcessKilledWhileItSavesLosesNeitherFile) {
    showRows(1, 400);
    PosiFolder = folder;
    std::array<std::string, 2> whole;
    for (std::size_t which = 0; which < 2; ++which) {
        type(1, kVel, std::to_string(10 + which));
        ASSERT_EQ(PosiDataCheck3(), 0);
        ASSERT_EQ(SaveFileAs2("a.qdd"), 0);
        whole[which] = read("a.qdd");
    }
    for (int kill = 0; kill < 100; ++kill) {
        const pid_t child = ::fork();
        if (child == 0) {
            for (int save = 0;; ++save) {
                PosiTable[1].number[kVel] = 10 + save % 2;
                SaveFileAs2("a.qdd");
            }
        }
        ASSERT_GT(child, 0);
        ::usleep(static_cast<useconds_t>(500 + 97 * kill)); // wherever it happens to be by then
        ::kill(child, SIGKILL);
        ASSERT_EQ(::waitpid(child, nullptr, 0), child);
        // Whatever else the killed process left there is whole too.
        for (const auto& file : std::filesystem::directory_iterator(folder)) {
            const std::string left = ReadWholeFile(file.path().string());
            ASSERT_TRUE(left == whole[0] || left == whole[1]) << file.path() << left.size();
        }
        ASSERT_TRUE(std::filesystem::exists(folder + "/a.qdd"));
    }
}

TEST_F(PosiFileTest, SaveWithoutDataSaysSoTwice) {
    platform.expectBox(kNoData);
    platform.expectBox(kSaveError);
    SavePosiFile();
    EXPECT_EQ(SaveCancelledFlag, kSet);
    platform.expectBox(kNoData);
    SavePosiFileAs();
    EXPECT_EQ(SaveCancelledFlag, kSet);
}

TEST_F(PosiFileTest, SaveAsTakesTheRangeChosen) {
    showRows(1, 9);
    platform.expectScreen("frmSelectPosiNo3", [] {
        PosiFirst = 5;
        PosiLast = 7;
    });
    platform.expectBox(kWriteQuestion, BoxButtons::OkCancel, BoxAnswer::Ok);
    platform.expectFile(question("Save Position Data as ..."), chosen("part.qdd"));
    SavePosiFileAs();
    const std::string text = read("part.qdd");
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 6);
    EXPECT_EQ(PosiFileName, "part");
}

TEST_F(PosiFileTest, EveryWayOutOfSaveAsWritesNothing) {
    showRows(1, 2);
    PosiDirtyFlag = kSet;
    platform.expectScreen("frmSelectPosiNo3", [] { RangeCancelFlag = kSet; });
    SavePosiFileAs();
    EXPECT_EQ(RangeCancelFlag, kClear);
    EXPECT_EQ(SaveCancelledFlag, kSet);

    platform.expectScreen("frmSelectPosiNo3");
    platform.expectBox(kWriteQuestion, BoxButtons::OkCancel, BoxAnswer::Cancel);
    SavePosiFileAs();
    EXPECT_EQ(SaveCancelledFlag, kSet);

    platform.expectScreen("frmSelectPosiNo3");
    platform.expectBox(kWriteQuestion, BoxButtons::OkCancel, BoxAnswer::Ok);
    platform.expectFile(question("Save Position Data as ..."), std::nullopt);
    SavePosiFileAs();
    EXPECT_EQ(SaveCancelledFlag, kSet);

    type(1, kVel, "99");
    platform.expectScreen("frmSelectPosiNo3");
    platform.expectScreen("frmSyogoKekka");
    SavePosiFileAs();
    EXPECT_EQ(SaveCancelledFlag, kSet);
    EXPECT_EQ(PosiDirtyFlag, kSet);
    EXPECT_TRUE(std::filesystem::is_empty(folder));
    EXPECT_FALSE(flgdData().locked);
}

} // namespace
} // namespace qdw8::test
