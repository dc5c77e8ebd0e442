#include "link/ct_commands.h"

#include "app/main_panel.h"
#include "app/number_forms.h"
#include "link/line_state.h"
#include "link/port.h"
#include "link/receiver.h"
#include "link/stop.h"
#include "platform/platform.h"

#include <optional>

namespace qdw8 {
namespace {

constexpr std::int16_t kReplyMs = 1000;
constexpr std::int16_t kCommitMs = 2000;
constexpr std::int16_t kNoLimit = 0;

using Transaction = std::int16_t (*)(const std::string&, std::int16_t, const std::string&,
                                     std::size_t);

/// Waits until the line is free. False: a dead line keeps it taken.
bool WaitForLine() {
    while (IsSet(CtBusyFlag) && !IsSet(CommErrorFlag)) {
        PumpEvents();
    }
    return !IsSet(CtBusyFlag);
}

/// One exchange behind the gate; without `limit` the time limit stays as the last command left it.
std::int16_t Run(Transaction transaction, const std::string& word, std::int16_t length,
                 const std::string& data, std::size_t echoed, std::optional<std::int16_t> limit) {
    if (!WaitForLine()) {
        return 1;
    }
    if (limit) {
        ReplyTimeoutMs = *limit;
    }
    CtBusyFlag = kSet;
    const std::int16_t result = transaction(word, length, data, echoed);
    CtBusyFlag = kClear;
    return result;
}

std::int16_t Safe(const std::string& word, std::int16_t length, const std::string& data = {},
                  std::int16_t limit = kReplyMs) {
    return Run(SendCtCommand, word, length, data, 0, limit);
}

std::int16_t Once(const std::string& word, std::int16_t length, const std::string& data = {},
                  std::optional<std::int16_t> limit = kReplyMs) {
    return Run(SendCtCommandOnce, word, length, data, 0, limit);
}

/// A read whose reply repeats the number asked for.
std::int16_t ReadNumbered(const std::string& word, std::int16_t length, const std::string& number) {
    return Run(SendCtCommand, word, length, number, number.size(), kReplyMs);
}

/// A request that the reply repeats whole.
std::int16_t OnceEchoed(const std::string& word, std::int16_t length, const std::string& data,
                        std::int16_t limit = kReplyMs) {
    return Run(SendCtCommandOnce, word, length, data, data.size(), limit);
}

std::string MaskDigit() {
    return HexField(AxisMaskOf(AxisOff), 1);
}

} // namespace

std::int16_t CheckCtStatus() {
    const std::int16_t result = OnceEchoed("0CM", 6, "1");
    if (result == 0) {
        SetOnlineState();
    } else {
        SetOfflineState();
    }
    return result;
}

std::int16_t PollCtStatus() {
    return Run(SendCtCommandQuiet, "0CM", 6, "1", 1, kReplyMs);
}

std::int16_t SetCtMode(std::int16_t mode) {
    GoOnLine();
    const std::int16_t asked = mode >= 0 && mode <= 2 ? mode : std::int16_t{0};
    CtModeAnswered = -1;
    const std::int16_t result = OnceEchoed("0CM", 7, "0" + std::to_string(asked));
    CtModeAnswered = result == 0 ? asked : CtModeAnswered;
    return result;
}

std::int16_t SendAlarmReset() {
    return Safe("0AR", 5);
}

std::int16_t ReadHomeStatus() {
    const std::int16_t result = Safe("0RH", 6);
    if (result == 0) {
        const std::string_view status = Mid(ReplyText, 4, 1);
        if (status == "1" || status == "0") {
            HomedFlag = FlagOf(status == "1");
            SetPanel(&MainPanel::imgHomeGreen, IsSet(HomedFlag));
        }
    }
    return result;
}

std::int16_t ReadArrivalStatus() {
    if (Safe("0RA", 6) != 0) {
        return -1;
    }
    if (Mid(ReplyText, 4, 1) != "1") {
        return 0;
    }
    SetMotionRuns(false);
    return 1;
}

std::int16_t CheckCtIdentity() {
    if (OpenCtPortForBatch() != 0 || CheckCtStatus() != 0 || Safe("0RV", 11) != 0) {
        return 1;
    }
    CtVersion = Mid(ReplyText, 4, 3);
    CtAxisCount = ToInt16(NumberFromText(Mid(ReplyText, 8, 1)));
    return 0;
}

std::int16_t ReadAxisVersion(int axis) {
    if (ReadNumbered("0RV", 12, std::to_string(axis + 1)) != 0) {
        return 1;
    }
    if (Mid(ReplyText, 8, 3) != "K8R") {
        return 1;
    }
    CtAxisVersion[static_cast<std::size_t>(axis)] = Mid(ReplyText, 5, 3);
    return 0;
}

std::int16_t MoveToPosition(int position, int kind) {
    return OnceEchoed(kind == 1 ? "0MM" : "0MP", 9, HexField(position, 3) + MaskDigit());
}

std::int16_t RunGroup(int group) {
    return OnceEchoed("0MG", 7, HexField(group, 2), kNoLimit);
}

std::int16_t JogRun(const std::string& data) {
    return Once("0JR", 5, data, std::nullopt);
}

std::int16_t InchingMove(const std::string& data) {
    return Once("0MV", 5, data, std::nullopt);
}

std::int16_t StopMotion() {
    WishStop();
    // Out of the wait of an exchange, that exchange lets it follow: waiting here for the gate would
    // keep it from ending.
    if (IsSet(CtBusyFlag)) {
        return 1;
    }
    CtBusyFlag = kSet;
    const std::int16_t result = SendStop();
    CtBusyFlag = kClear;
    return result;
}

std::int16_t ReadPresentPosition() {
    const std::string mask = MaskDigit();
    std::int16_t axes = 0;
    for (const Flag off : AxisOff) {
        axes = static_cast<std::int16_t>(axes + (IsSet(off) ? 0 : 1));
    }
    return OnceEchoed("0RC", static_cast<std::int16_t>(6 + 5 * axes), mask);
}

std::int16_t ReadParaBlock(int block) {
    return ReadNumbered("0RD", 38, HexField(block, 1));
}

std::int16_t WriteParaBlock(int block, const std::string& data) {
    return Safe("0WD", 6, HexField(block, 1) + data);
}

std::int16_t CommitParameters() {
    return Safe("0WE", 6, "2", kCommitMs);
}
std::int16_t CommitGroups() {
    return Safe("0WE", 6, "3", kCommitMs);
}
std::int16_t CommitMacros() {
    return Safe("0WE", 6, "1", kCommitMs);
}

std::int16_t ReadPosiRow(int position) {
    return ReadNumbered("0RP", 48, HexField(position, 3));
}
std::int16_t WritePosiRow(const std::string& row) {
    return Safe("0WP", 8, row);
}
std::int16_t ReadGroup(int group) {
    return ReadNumbered("0RG", 13, HexField(group, 2));
}
std::int16_t WriteGroup(const std::string& row) {
    return Safe("0WG", 7, row);
}
std::int16_t ReadMacro(int macro) {
    return ReadNumbered("0RS", 39, HexField(macro, 2));
}
std::int16_t WriteMacro(const std::string& row) {
    return Safe("0WS", 7, row);
}

std::int16_t ReadInputs() {
    return Once("0RI", 11);
}
std::int16_t ReadOutputs() {
    return Once("0RO", 11);
}
std::int16_t WriteOutputs(const std::string& digits) {
    return OnceEchoed("0WO", 11, digits);
}

std::int16_t ReadParaBlock0Quiet() {
    return Run(SendCtCommandQuiet, "0RD", 38, "0", 1, kReplyMs);
}

} // namespace qdw8
