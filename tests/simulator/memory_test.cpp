// What the file of a memory is read for, when its check is right and its lines are not; and that a
// controller from the crate has nothing in it that it would refuse.

#include "simulator/memory_file.h"
#include "simulator/start_memory.h"
#include "simulator/usable.h"

#include <algorithm>
#include <gtest/gtest.h>

using namespace qdk8;

namespace {

int Field(const std::string& row, std::size_t from, std::size_t width) {
    return FromHex(row.substr(from, width));
}

TEST(StartMemory, HoldsUsableDataThroughout) {
    const Memory memory = StartMemory();
    std::array<int, kAxisCountMax> highest{};
    for (const std::string& row : memory.positions) {
        ASSERT_TRUE(RowUsable(row)) << row;
        ASSERT_LE(Field(row, 29, 1), 2) << "a 61F has one acceleration less: " << row;
        for (std::size_t axis = 0; axis < highest.size(); ++axis) {
            highest[axis] = std::max(highest[axis], Field(row, 9 * axis + 4, 5));
        }
    }
    EXPECT_EQ(highest, (std::array<int, kAxisCountMax>{15000, 20000, 20000, 4800}));
    for (const std::string& group : memory.groups) {
        EXPECT_TRUE(GroupUsable(group) && Field(group, 0, 3) <= Field(group, 3, 3)) << group;
    }
    EXPECT_TRUE(std::all_of(memory.macros.begin(), memory.macros.end(), MacroUsable));
    for (int block = 0; block < kBlockCount; ++block) {
        EXPECT_TRUE(BlockUsable(block, memory.blocks[static_cast<std::size_t>(block)])) << block;
    }
}

TEST(MemoryFile, ComesBackAndIsNeverTakenInHalf) {
    Memory back = BlankMemory();
    std::string problem;
    EXPECT_TRUE(MemoryFromText(MemoryText(StartMemory()), back, problem));
    EXPECT_EQ(back, StartMemory());
    Memory bad = BlankMemory();
    bad.macros[19] = "3G" + bad.macros[19].substr(2);
    EXPECT_FALSE(MemoryFromText(MemoryText(bad), back, problem));
    EXPECT_EQ(problem, "line 1136: digits missing or wrong");
    EXPECT_EQ(back, StartMemory());
}

} // namespace
