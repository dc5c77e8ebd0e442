#include "link/batch.h"

#include "app/Module1.h"
#include "app/boxes.h"
#include "app/transfer_dialog.h"
#include "app/waits.h"
#include "link/ct_commands.h"
#include "link/line_state.h"
#include "link/port.h"
#include "link/receiver.h"

#include <exception>

namespace qdw8 {
namespace {

constexpr std::int16_t kIdle = 0;
constexpr std::int16_t kWriting = 1;

void TellFailed() {
    ShowTexts({377});
}

TransferShown::Cancel CancelOf(const RunShown& shown) {
    return shown.cancel ? TransferShown::Cancel::Yes : TransferShown::Cancel::No;
}

/// The frames until the first that isn't taken.
LineResult SendAll(const std::vector<LineWrite>& writes, const RunShown& shown) {
    const TransferShown dialog(shown.maximum, shown.textId, CancelOf(shown));
    int value = shown.firstValue;
    for (const LineWrite& write : writes) {
        if (IsSet(ProgramEndFlag)) {
            return LineResult::Cancelled;
        }
        if (write.send) {
            if (write.send() != 0) {
                return LineResult::Failed;
            }
            if (!ReplyText.starts_with(write.echo)) {
                return LineResult::WrongEcho;
            }
        }
        dialog.moveTo(value++);
    }
    return LineResult::Done;
}

} // namespace

LineBatch::LineBatch() {
    GoOnLine();
}

LineBatch::~LineBatch() {
    UnloadTrance();
    CloseCtPort();
}

bool StandsStill(OnFailure onFailure) {
    const std::int16_t arrived = ReadArrivalStatus();
    if (arrived == 0) {
        ShowTexts({424});
    } else if (arrived < 0 && onFailure == OnFailure::Tell) {
        TellFailed();
    }
    return arrived == 1;
}

WritingMode::~WritingMode() {
    try {
        end();
    } catch (const std::exception&) {
        on = false; // the fault that ended the command is told by the command
    }
}

bool WritingMode::begin() {
    if (IsSet(ProgramEndFlag)) {
        return false;
    }
    const bool taken = SetCtMode(kWriting) == 0;
    on = taken || LineAnswers;
    if (!taken) {
        TellFailed();
    }
    return taken;
}

void WritingMode::end(int tries) {
    if (!on) {
        return;
    }
    on = false;
    if (!LineAnswers) {
        return;
    }
    while (SetCtMode(kIdle) != 0) {
        if (--tries <= 0 || !LineAnswers) {
            TellFailed();
            return;
        }
        MsecTimer(kRetryPauseMs);
    }
}

bool WasStopped(LineResult result) {
    return result == LineResult::Cancelled ||
           (result == LineResult::Failed && LastLoss == LineLoss::GivenUp);
}

LineResult ReadMany(int count, const RunShown& shown,
                    const std::function<std::int16_t(int index)>& read) {
    const TransferShown dialog(shown.maximum, shown.textId, CancelOf(shown));
    for (int index = 0; index < count; ++index) {
        if (IsSet(ProgramEndFlag) || (shown.cancel && IsSet(TransferCancelFlag))) {
            return LineResult::Cancelled;
        }
        if (read(index) != 0) {
            return LineResult::Failed;
        }
        dialog.moveTo(shown.firstValue + index);
    }
    // A press during the last row still counts.
    return shown.cancel && IsSet(TransferCancelFlag) ? LineResult::Cancelled : LineResult::Done;
}

LineResult SendMany(const std::vector<LineWrite>& writes, const RunShown& shown) {
    const LineResult result = SendAll(writes, shown);
    if (result == LineResult::WrongEcho) {
        ShowWrongData();
    }
    return result;
}

} // namespace qdw8
