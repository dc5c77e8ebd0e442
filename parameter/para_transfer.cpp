#include "parameter/para_transfer.h"

#include "app/boxes.h"
#include "app/number_forms.h"
#include "link/batch.h"
#include "link/ct_commands.h"
#include "link/exchange.h"
#include "link/line_state.h"
#include "link/receiver.h"
#include "parameter/para_blocks.h"
#include "platform/fault.h"

#include <algorithm>
#include <array>
#include <exception>
#include <string>
#include <utility>
#include <vector>

namespace qdw8 {
namespace {

using Blocks = std::array<std::string, kParaBlocks>;

/// What the controller has told in this run that `ParaSet` doesn't keep.
struct Told {
    std::array<bool, kParaBlocks> reserved{}; ///< the reserved bytes of the block are known
    std::int16_t acceleration = 0;
};
Told told;

/// What was read of a block.
void Note(int block, const std::string& digits) {
    told.reserved.at(static_cast<std::size_t>(block)) = true;
    if (block == 0) {
        told.acceleration = AccelerationOf(digits);
    }
}

/// The digits of each block of the axes in use; the others stay empty. False: an exchange failed.
bool ReadBlocks(Blocks& blocks) {
    const auto read = [&blocks](int block) -> std::int16_t {
        if (IsBlockOff(block)) {
            return 0;
        }
        const std::int16_t result = ReadParaBlock(block);
        blocks[static_cast<std::size_t>(block)] = Mid(ReplyText, 5, 32);
        return result;
    };
    return ReadMany(kParaBlocks, {kParaBlocks, 368}, read) == LineResult::Done;
}

void CutBlocks(const Blocks& blocks) {
    ParaRows rows;
    ReservedBytes reserved = ParaReserved;
    for (int block = 0; block < kParaBlocks; ++block) {
        const std::string& digits = blocks[static_cast<std::size_t>(block)];
        if (!digits.empty()) {
            CutParaBlock(block, digits, rows, reserved);
        }
    }
    ParaRowTable = std::move(rows);
    ParaReserved = reserved;
    for (int block = 0; block < kParaBlocks; ++block) {
        if (!blocks[static_cast<std::size_t>(block)].empty()) {
            Note(block, blocks[static_cast<std::size_t>(block)]);
        }
    }
}

/// The reserved bytes of a block, if nothing is known of them yet. False: told.
bool FetchReserved(int block) {
    if (told.reserved.at(static_cast<std::size_t>(block)) || !HasReserved(block) ||
        IsBlockOff(block)) {
        return true;
    }
    if (ReadParaBlock(block) != 0) {
        return false;
    }
    const std::string digits(Mid(ReplyText, 5, 32));
    try {
        CutReserved(block, digits, ParaReserved);
        Note(block, digits);
        return true;
    } catch (const Fault&) {
        ShowWrongData();
        return false;
    }
}

LineWrite BlockWrite(int block, const std::string& digits) {
    return {[block, digits] { return WriteParaBlock(block, digits); }, "0WD" + HexField(block, 1)};
}

/// The blocks from `first` on, then the commit.
LineResult SendBlocks(int first, const Blocks& blocks) {
    std::vector<LineWrite> writes;
    for (int block = first; block < kParaBlocks; ++block) {
        writes.push_back(IsBlockOff(block)
                             ? LineWrite{}
                             : BlockWrite(block, blocks[static_cast<std::size_t>(block)]));
    }
    writes.push_back({CommitParameters, "0WE2"});
    return SendMany(writes, {static_cast<int>(writes.size()), 383});
}

/// False: a value is too wide for its bytes.
bool BuildBlocks(int first, ReservedMap map, Blocks& blocks) {
    try {
        for (int block = first; block < kParaBlocks; ++block) {
            if (!IsBlockOff(block)) {
                blocks[static_cast<std::size_t>(block)] = BuildParaBlock(block, map);
            }
        }
        return true;
    } catch (const Fault&) {
        return false;
    }
}

std::int16_t Write(int first, ReservedMap map) {
    try {
        // All are built before the first goes out: a value that fits nowhere sends nothing.
        Blocks blocks;
        if (!BuildBlocks(first, map, blocks)) {
            ShowTexts({1524, 1525});
            return 1;
        }
        const LineResult result = SendBlocks(first, blocks);
        return result == LineResult::Done ? 0 : 1;
    } catch (const std::exception&) {
        ShowWrongData();
        return 1;
    }
}

} // namespace

std::int16_t ReadAllBlocks() {
    try {
        Blocks blocks;
        if (!ReadBlocks(blocks)) {
            return 1;
        }
        CutBlocks(blocks);
        return 0;
    } catch (const std::exception&) {
        ShowWrongData();
        return 1;
    }
}

std::int16_t FetchWhatIsCarried() {
    for (int block = 0; block < kParaBlocks; ++block) {
        if (IsSet(ProgramEndFlag) || !FetchReserved(block)) {
            return 1;
        }
    }
    if (ParaSet.ACC_DCC == 0) {
        ParaSet.ACC_DCC = told.acceleration;
    }
    return 0;
}

std::int16_t WriteAllBlocks() {
    return Write(0, ReservedMap::AsRead);
}

std::int16_t WriteDeviceBlocks() {
    return Write(kFirstDeviceWriteBlock, ReservedMap::DeviceWrite);
}

std::int16_t WriteAxisMask() {
    const int mask = AxisMaskOf(AxisOff);
    if (WriteAxisMask(mask) != 0) {
        return 1;
    }
    ParaSet.AXIS = static_cast<std::int16_t>(mask);
    return 0;
}

std::int16_t WriteAxisMask(int mask) {
    if (ReadParaBlock(0) != 0) {
        return 1;
    }
    std::string digits(Mid(ReplyText, 5, 32));
    const std::string maskDigits = HexField(mask, 2);
    digits.replace(std::min<std::size_t>(12, digits.size()), 2, maskDigits);
    if (digits.size() != 32 || digits.find_first_not_of("0123456789ABCDEF") != digits.npos) {
        ShowWrongData(); // what goes back unread must be whole
        return 1;
    }
    if (WriteParaBlock(0, digits) != 0) {
        return 1;
    }
    if (!ReplyText.starts_with("0WD0")) {
        ShowWrongData();
        return 1;
    }
    return 0;
}

void ResetParaTransfer() {
    told = Told{};
}

} // namespace qdw8
