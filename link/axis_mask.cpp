#include "link/axis_mask.h"

#include "app/boxes.h"
#include "app/number_forms.h"
#include "app/transfer_dialog.h"
#include "app/waits.h"
#include "link/ct_commands.h"
#include "link/line_state.h"
#include "link/port.h"
#include "link/receiver.h"
#include "platform/fault.h"

namespace qdw8 {
namespace {

/// Takes the mask out of the block 0 that stands in `ReplyText`. False if it is no number.
bool TakeMask(std::array<Flag, kAxes>& off) {
    try {
        SetAxisOffByMask(off, HexValue(Mid(ReplyText, 17, 2)));
        return true;
    } catch (const Fault&) {
        return false;
    }
}

} // namespace

std::int16_t ReadAxisMask() {
    if (OpenCtPortForBatch() != 0 || ReadParaBlock(0) != 0) {
        return 1;
    }
    if (!TakeMask(AxisOff)) {
        ShowWrongData();
        return 1;
    }
    return 0;
}

std::int16_t ReadAxisMaskShown() {
    SetTranceValue(1);
    const std::int16_t result = ReadAxisMask();
    SetTranceValue(2);
    return result;
}

std::int16_t ReadAxisMaskQuiet() {
    bool read = false;
    SixTries([&read] {
        // A failed try went off line, where the receiver is deaf.
        GoOnLine();
        read = ReadParaBlock0Quiet() == 0 && TakeMask(CtAxisOff);
        return read || LastLoss != LineLoss::None || IsSet(ProgramEndFlag);
    });
    if (!read && LastLoss == LineLoss::Port) {
        ShowPortBox();
    }
    return read ? 0 : 1;
}

std::int16_t ReadAxisMaskToCompare() {
    if (ReadAxisMaskQuiet() == 0) {
        return 0;
    }
    if (LastLoss == LineLoss::None) {
        ShowTexts({377});
    }
    return 1;
}

} // namespace qdw8
