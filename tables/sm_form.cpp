#include "tables/sm_form.h"

#include "platform/platform.h"

#include <algorithm>

namespace qdw8 {
namespace {

constexpr char kBackspace = '\b';

SmForm state;

void Tell() {
    if (Screens().frmSqMcr) {
        Screens().frmSqMcr();
    }
}

SmStep& StepOf(int step) {
    return SmTable[static_cast<std::size_t>(state.lblSqMacroNo)][static_cast<std::size_t>(step)];
}

SmStepShown& RowOf(int step) {
    return state.steps[static_cast<std::size_t>(step)];
}

/// An edit of the user; what the check had against the step no longer holds.
void Change(int step, std::int16_t SmStep::*field, std::int16_t value) {
    std::int16_t& number = StepOf(step).*field;
    if (number == value) {
        return;
    }
    number = value;
    SmState.unsaved = true;
    if (!SmState.reasons.empty()) {
        const std::size_t at =
            static_cast<std::size_t>((state.lblSqMacroNo - 1) * kSmSteps + step) * kSmFields;
        SmState.reasons[at + kSmCommandField] = SmState.reasons[at + kSmDataField] = 0;
    }
}

void ShowStep(int step) {
    const SmStep& held = StepOf(step);
    const bool ends = held.command == 0 || held.command == kNeverWritten;
    const bool listed =
        held.command > 0 && static_cast<std::size_t>(held.command) < kSmCommands.size();
    RowOf(step) = {ends     ? std::int16_t{0}
                   : listed ? held.command
                            : std::int16_t{-1},
                   ends ? std::string() : std::to_string(held.data)};
}

} // namespace

const SmForm& TheSmForm() {
    return state;
}

void LoadSm() {
    SmTable = {};
    SmState = TableState{};
    ShowMacro(1);
}

void ShowMacro(int macro) {
    state.lblSqMacroNo = static_cast<std::int16_t>(std::clamp(macro, 1, kMacros));
    for (int step = 0; step < kSmSteps; ++step) {
        ShowStep(step);
    }
    Tell();
}

void ShowMacro() {
    ShowMacro(state.lblSqMacroNo);
}

void ChooseSmCommand(int step, int choice) {
    if (choice < 0 || static_cast<std::size_t>(choice) >= kSmCommands.size()) {
        ThePlatform().Beep();
        return;
    }
    const auto command = static_cast<std::int16_t>(choice);
    RowOf(step).comboMerei = command;
    Change(step, &SmStep::command, command);
    if (command == 0) {
        EditSmData(step, {});
    } else {
        if (StepOf(step).data != 0) {
            ShowStep(step); // those of a step never written were out of sight
        }
        Tell();
    }
}

bool SmDataKeyGoesIn(int step, char key) {
    const SmCommand& command = CommandOf(StepOf(step));
    return key == kBackspace ||
           (command.lowest > 0 && key >= '0' + command.lowest && key <= '0' + command.highest);
}

void EditSmData(int step, const std::string& text) {
    RowOf(step).txtSmData = text;
    Change(step, &SmStep::data, NumberOfField(text));
    Tell();
}

void EnterSmData(int step) {
    const SmStep& held = StepOf(step);
    if (CommandOf(held).lowest > 0 && !StepGood(held)) {
        Change(step, &SmStep::data, 1);
    }
    ShowMacro();
}

std::int16_t SmDataLimits(int step) {
    return CommandOf(StepOf(step)).limits;
}

void ResetSmForm() {
    state = SmForm{};
}

} // namespace qdw8
