#include "parameter/para_transfer.h"

#include "app/boxes.h"
#include "app/number_forms.h"
#include "app/screens.h"
#include "app/string_table.h"
#include "app/transfer_dialog.h"
#include "link/Module3Tusin.h"
#include "link/ct_commands.h"
#include "parameter/para_blocks.h"
#include "parameter/para_file.h"
#include "platform/fault.h"

#include <exception>
#include <string>
#include <utility>

namespace qdw8 {
namespace {

using Blocks = std::array<std::string, kParaBlocks>;

/// The transfer dialog without a cancel button, taken away on every way out.
class TranceShown {
public:
    TranceShown(int maximum, std::int16_t textId) {
        TransferRunFlag = kClear;
        ShowTrance(maximum, ResText(textId));
    }
    ~TranceShown() { UnloadTrance(); }
    TranceShown(const TranceShown&) = delete;
    TranceShown& operator=(const TranceShown&) = delete;
};

/// The digits of each block of the axes in use; the others stay empty. False: an exchange failed.
bool ReadBlocks(Blocks& blocks) {
    const TranceShown shown(kParaBlocks, 368);
    for (int block = 0; block < kParaBlocks; ++block) {
        if (!IsBlockOff(block)) {
            if (ReadParaBlock(block) != 0) {
                return false;
            }
            blocks[static_cast<std::size_t>(block)] = Mid(ReplyText, 5, 32);
        }
        SetTranceValue(block + 1);
    }
    return true;
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
}

enum class Sent { Good, Failed, WrongEcho };

Sent SendBlock(int block, const std::string& digits) {
    if (WriteParaBlock(block, digits) != 0) {
        return Sent::Failed;
    }
    return ReplyText.starts_with("0WD" + HexField(block, 1)) ? Sent::Good : Sent::WrongEcho;
}

Sent SendCommit() {
    if (CommitParameters() != 0) {
        return Sent::Failed;
    }
    return ReplyText.starts_with("0WE2") ? Sent::Good : Sent::WrongEcho;
}

/// The blocks from `first` on, then the commit.
Sent SendBlocks(int first, const Blocks& blocks) {
    const TranceShown shown(kParaBlocks - first + 1, 383);
    for (int block = first; block < kParaBlocks; ++block) {
        if (!IsBlockOff(block)) {
            const Sent sent = SendBlock(block, blocks[static_cast<std::size_t>(block)]);
            if (sent != Sent::Good) {
                return sent;
            }
        }
        SetTranceValue(block - first + 1);
    }
    const Sent sent = SendCommit();
    SetTranceValue(kParaBlocks - first + 1);
    return sent;
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
            ParaWriteFailedFlag = kSet;
            ShowTexts({1524, 1525});
            return 1;
        }
        switch (SendBlocks(first, blocks)) {
        case Sent::Good: return 0;
        case Sent::WrongEcho: break;
        case Sent::Failed:
            if (Screens().frmMainPanel) {
                Screens().frmMainPanel();
            }
            return 1;
        }
    } catch (const std::exception&) {
        // told below, like a reply that doesn't fit
    }
    ParaWriteFailedFlag = kSet;
    ShowWrongData();
    return 1;
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
    const std::string before(Mid(ReplyText, 5, 12));
    const std::string behind(Mid(ReplyText, 19, 18));
    switch (SendBlock(0, before + HexField(mask, 2) + behind)) {
    case Sent::Good: return 0;
    case Sent::WrongEcho: ShowWrongData(); return 1;
    case Sent::Failed: break;
    }
    return 1;
}

} // namespace qdw8
