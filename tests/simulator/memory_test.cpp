// The machine as it is delivered, and its lasting memory in a file.

#include "simulator/memory_file.h"
#include "simulator/start_memory.h"
#include "simulator/usable.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

using namespace qdk8;

namespace {

struct Folder {
    std::filesystem::path path;
    Folder() {
        std::string name = (std::filesystem::temp_directory_path() / "qdk8-XXXXXX").string();
        path = ::mkdtemp(name.data());
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder() { std::filesystem::remove_all(path); }
    std::string file(const char* name) const { return (path / name).string(); }
};

int Field(const std::string& row, int from, int width) {
    return FromHex(row.substr(static_cast<std::size_t>(from), static_cast<std::size_t>(width)));
}

TEST(StartMemory, HoldsUsableDataThroughout) {
    const Memory memory = StartMemory();
    ASSERT_TRUE(memory == StartMemory()) << "the same every time";
    std::array<int, kAxisCountMax> highest{};
    for (const std::string& row : memory.positions) {
        ASSERT_TRUE(RowUsable(row)) << row;
        for (int axis = 0; axis < kAxisCountMax; ++axis) {
            const int pulses = Field(row, 9 * axis + 4, 5);
            ASSERT_LE(pulses, StrokeEnd(memory, axis)) << row;
            highest[static_cast<std::size_t>(axis)] =
                std::max(highest[static_cast<std::size_t>(axis)], pulses);
        }
        ASSERT_LE(Field(row, 27 + 2, 1), 2) << "a 61F has one acceleration less: " << row;
    }
    EXPECT_EQ(highest, (std::array<int, kAxisCountMax>{15000, 20000, 20000, 4800}));
    for (const std::string& group : memory.groups) {
        EXPECT_TRUE(GroupUsable(group));
        EXPECT_LE(Field(group, 0, 3), Field(group, 3, 3));
    }
    for (const std::string& macro : memory.macros) {
        EXPECT_TRUE(MacroUsable(macro)) << macro;
    }
    for (int block = 0; block < 13; ++block) {
        EXPECT_TRUE(BlockUsable(block, memory.blocks[static_cast<std::size_t>(block)])) << block;
    }
    EXPECT_EQ(AxisMask(memory), 0xFU);
}

TEST(BlankMemory, HoldsTheDefaultsOfARow) {
    const Memory memory = BlankMemory();
    EXPECT_EQ(memory.positions[998], "1E3000000"
                                     "1E3000000"
                                     "1E3000000"
                                     "1E2000000"
                                     "0000");
    EXPECT_EQ(memory.blocks, StartMemory().blocks);
}

TEST(MemoryFile, ComesBackAsItWasSaved) {
    const Folder folder;
    Memory memory = StartMemory();
    memory.positions[41] = std::string(40, '7');
    std::string problem;
    ASSERT_TRUE(SaveMemory(folder.file("memory"), memory, problem)) << problem;
    Memory back = BlankMemory();
    ASSERT_EQ(LoadMemory(folder.file("memory"), back, problem), FileState::Read) << problem;
    EXPECT_TRUE(back == memory);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path), {}), 1)
        << "nothing else is left behind";
}

TEST(MemoryFile, IsTextForAPerson) {
    const std::string text = MemoryText(BlankMemory());
    EXPECT_EQ(text.substr(0, 15), "QD-K8 memory 1\n");
    EXPECT_NE(text.find("\nposition 3E7 1E3000000 1E3000000 1E3000000 1E2000000 0000\n"),
              std::string::npos);
    EXPECT_NE(text.find("\ngroup 63 001 001\n"), std::string::npos);
}

TEST(MemoryFile, IsRefusedWhenItWasCutOrTouched) {
    const std::string good = MemoryText(StartMemory());
    std::string touched = good;
    touched[good.find("position 1F4") + 14] ^= 1;
    std::string swapped = good;
    swapped.replace(swapped.find("group 02"), 8, "group 03");
    const std::vector<std::pair<const char*, std::string>> all{
        {"empty", ""},
        {"another file", "hello\n"},
        {"cut in the middle", good.substr(0, good.size() / 2)},
        {"cut at a line", good.substr(0, good.rfind("check "))},
        {"last character lost", good.substr(0, good.size() - 1)},
        {"one digit changed", touched},
        {"line renumbered", swapped},
        {"something behind", good + "more\n"},
    };
    for (const auto& [what, text] : all) {
        Memory memory = BlankMemory();
        std::string problem;
        EXPECT_FALSE(MemoryFromText(text, memory, problem)) << what;
        EXPECT_FALSE(problem.empty()) << what;
        EXPECT_TRUE(memory == BlankMemory()) << what << ": left as it was";
    }
}

TEST(MemoryFile, TellsMissingFromBroken) {
    const Folder folder;
    Memory memory = BlankMemory();
    std::string problem;
    EXPECT_EQ(LoadMemory(folder.file("none"), memory, problem), FileState::Missing);
    EXPECT_EQ(LoadMemory(folder.path.string(), memory, problem), FileState::Broken);
    EXPECT_FALSE(SaveMemory(folder.file("none/memory"), memory, problem));
    EXPECT_FALSE(problem.empty());
}

TEST(MemoryFile, AFailedSaveLeavesTheOldFile) {
    const Folder folder;
    std::string problem;
    ASSERT_TRUE(SaveMemory(folder.file("memory"), StartMemory(), problem));
    // A folder in the way of the neighbour file makes the save fail for every user.
    std::filesystem::create_directory(folder.file("memory.new"));
    EXPECT_FALSE(SaveMemory(folder.file("memory"), BlankMemory(), problem));
    Memory back;
    EXPECT_EQ(LoadMemory(folder.file("memory"), back, problem), FileState::Read);
    EXPECT_TRUE(back == StartMemory());
}

} // namespace
