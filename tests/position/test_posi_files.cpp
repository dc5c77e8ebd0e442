#include "platform/whole_file.h"
#include "position/posi_reader.h"
#include "position_bench.h"
#include "setup/posi_open.h"

#include <filesystem>
#include <fstream>

namespace qdw8::test {
namespace {

TEST_F(PositionTest, OlderAndLooseFormsAreRead) {
    ASSERT_EQ(ReadPosiFile(fileOf("old.txt")), 0);
    EXPECT_EQ(FileNewOld[0] + FileNewOld[3], "OLDOLD");
    EXPECT_EQ(std::pair(FileFirst, FileLast), std::pair(std::int16_t{3}, std::int16_t{3}));
    EXPECT_EQ(TextOf(PosiStage[3][kComment + 1]), "NEW");
    ASSERT_EQ(ReadPosiFile(fileOf("loose.qdd")), 0);
    PosiFirst = PosiLast = 5;
    PosiStageToTable();
    EXPECT_EQ(PosiTable[5].number[kVel], 10);
    EXPECT_EQ(PosiUnitTable[5].pulse[3], 7.5);
    EXPECT_EQ(PosiTable[5].number[kSm], 0) << "what is no number reads as 0";
    EXPECT_EQ(PosiTable[5].comment, " a, b ");
    PosiStage[6][kVel + 1] = 44.0;
    ASSERT_EQ(ReadPosiFile(fileOf("gap.qdd")), 0);
    ASSERT_EQ(ReadPosiFile(fileOf("head-alone.qdd")), 0); // leaves what was read before
    EXPECT_EQ(FileFirst, 5);
    EXPECT_EQ(FileLast, 7) << "the last one met";
    EXPECT_EQ(NumberOf(PosiStage[6][kVel + 1]), 44);
    EXPECT_EQ(NumberOf(PosiStage[9][kPosi + 1]), 1009);
}

TEST_F(PositionTest, TheShelfOfBrokenFilesIsRefusedInBoundedTime) {
    std::vector<std::string> shelf{pathOf("missing.qdd"), pathOf("huge.qdd"), pathOf("rows.qdd")};
    const std::string head = ReadWholeFile(fileOf("head-alone.qdd"));
    std::ofstream(shelf[1], std::ios::binary) << head << std::string(17U << 20U, 'x');
    std::string rows = ReadWholeFile(fileOf("gap.qdd")); // more rows than there are positions
    while (rows.size() < (4U << 20U)) {
        rows += rows.substr(head.size());
    }
    writeFile("rows.qdd", rows);
    for (const char* folderName : {"broken", "unshowable"}) {
        for (const auto& file : std::filesystem::directory_iterator(fileOf(folderName))) {
            shelf.push_back(file.path().string());
        }
    }
    EXPECT_GT(shelf.size(), 15U);
    showRows(1, 2);
    type(1, kComment, "old");
    for (const std::string& path : shelf) {
        SCOPED_TRACE(path);
        const std::int64_t begin = platform.now;
        expectOpen(path);
        platform.expectBox(BoxText("read error"));
        OpenPosiFile();
        platform.checkAllAsked();
        EXPECT_EQ(platform.now - begin, path.find("unshowable") == path.npos ? 500 : 0);
        ExpectRanges(1, 2);
        EXPECT_EQ(cell(1, kComment), "old");
    }
}

} // namespace
} // namespace qdw8::test
