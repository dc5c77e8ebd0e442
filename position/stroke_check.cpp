#include "position/stroke_check.h"

#include "app/boxes.h"
#include "app/number_forms.h"
#include "app/string_table.h"
#include "app/transfer_dialog.h"
#include "link/axis_mask.h"
#include "link/ct_commands.h"
#include "link/exchange.h"
#include "link/line_state.h"
#include "link/port.h"
#include "link/receiver.h"
#include "platform/fault.h"
#include "position/check_result.h"
#include "position/flex_grid.h"
#include "position/posi_columns.h"
#include "position/posi_table.h"

#include <exception>
#include <string>

namespace qdw8 {

namespace {

std::array<std::int32_t, kAxes> strokeLimit{};

/// The block that holds the actuator of an axis, and where its stroke end stands in the reply.
constexpr int ActuatorBlock(std::size_t axis) {
    return 6 + 2 * static_cast<int>(axis);
}
constexpr std::size_t kStrokeFrom = 15;
constexpr std::size_t kStrokeWidth = 6;

bool ReadStrokeLimits() {
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        CtStrokeLimit[axis] = 0;
        if (!IsSet(AxisOff[axis])) {
            if (OpenCtPortForBatch() != 0 || ReadParaBlock(ActuatorBlock(axis)) != 0) {
                return false;
            }
            try {
                CtStrokeLimit[axis] = HexValue(Mid(ReplyText, kStrokeFrom, kStrokeWidth));
            } catch (const Fault&) {
                ShowWrongData();
                return false;
            }
        }
        SetTranceValue(static_cast<int>(axis) + 1);
    }
    return true;
}

bool AskController() {
    if (OpenCtPortForBatch() != 0) {
        CtBusyFlag = kClear;
        return false;
    }
    if (CheckCtStatus() != 0 || ReadAxisMaskToCompare() != 0) {
        return false;
    }
    if (CtAxisOff != AxisOff) {
        ShowTexts({357, 483}); // they were alike when the command compared them
        return false;
    }
    return ReadStrokeLimits();
}

bool GoesTooFar(int gridRow) {
    for (std::size_t axis = 0; axis < kAxes; ++axis) {
        if (IsSet(AxisOff[axis])) {
            continue;
        }
        const int column = kAxisColumns * (static_cast<int>(axis) + 1);
        // Any text counts by its leading number here: the rows that go out have been judged by
        // the check, and those looked at here may be others.
        if (RoundHalfEven(NumberFromText(GridText(gridRow, column))) > CtStrokeLimit[axis]) {
            return true;
        }
    }
    return false;
}

/// The positions that go too far, each with a comma behind it.
std::string ListTooFar() {
    std::string list;
    for (int i = 0; i <= PosiLast - PosiFirst; ++i) {
        const int position = PosiFirst + i;
        if (!IsSet(PosiRowError[static_cast<std::size_t>(position) - 1]) &&
            GoesTooFar(i + kGridHeadRows)) {
            list += std::to_string(position) + ",";
        }
    }
    return list;
}

std::int16_t Stop() {
    UnloadTrance();
    CloseCtPort();
    return 1;
}

} // namespace

std::array<std::int32_t, kAxes>& CtStrokeLimit = strokeLimit;

std::int16_t PosiKakikomimaeParaCheck() {
    try {
        TransferRunFlag = kClear;
        ShowTrance(4, ResText(378));
        if (!AskController()) {
            return Stop();
        }
        const std::string list = ListTooFar();
        if (list.empty()) {
            return 0;
        }
        ShowBox(Lines({ResText(379), ResText(380), ResText(381) + list + ResText(382)}));
        return Stop();
    } catch (const std::exception&) {
        ShowTexts({108});
        return Stop();
    }
}

void ResetStrokeCheck() {
    strokeLimit = {};
}

} // namespace qdw8
