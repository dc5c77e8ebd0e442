#include "tables/sm_table.h"

#include <string>

namespace qdw8 {
namespace {

constexpr std::int16_t kUnknownCommand = 3158;

struct State {
    SmMacros table{};
    SmMacros compare{};
    TableState state;
};
State state;

SmMacros& MacrosOf(Held copy) {
    return copy == Held::Shown ? state.table : state.compare;
}

} // namespace

SmMacros& SmTable = state.table;
SmMacros& SmCompare = state.compare;
TableState& SmState = state.state;

bool IsKnownCommand(std::int16_t command) {
    return command >= 0 && static_cast<std::size_t>(command) < kSmCommands.size();
}

const SmCommand& CommandOf(const SmStep& step) {
    return kSmCommands[IsKnownCommand(step.command) ? static_cast<std::size_t>(step.command) : 0];
}

bool StepGood(const SmStep& step) {
    const SmCommand& command = CommandOf(step);
    return IsKnownCommand(step.command) &&
           (step.command == 0 || (step.data >= command.lowest && step.data <= command.highest));
}

Numbers TakeMacros(Held copy) {
    Numbers numbers;
    numbers.reserve(std::size_t{kMacros} * kSmSteps * kSmFields);
    const SmMacros& macros = MacrosOf(copy);
    for (std::size_t macro = 1; macro < macros.size(); ++macro) {
        for (const SmStep& step : macros[macro]) {
            numbers.push_back(step.command);
            numbers.push_back(step.data);
        }
    }
    return numbers;
}

void PutMacros(Held copy, const Numbers& numbers) {
    auto number = numbers.begin();
    SmMacros& macros = MacrosOf(copy);
    for (std::size_t macro = 1; macro < macros.size(); ++macro) {
        for (SmStep& step : macros[macro]) {
            step.command = *number++;
            step.data = *number++;
        }
    }
}

void SettleMacros(Numbers& numbers) {
    for (std::size_t at = 0; at + 1 < numbers.size(); at += kSmFields) {
        if (numbers[at] == 0) {
            numbers[at + kSmDataField] = 0;
        }
    }
}

std::int16_t SmData_Check() {
    SmState.badList.clear();
    SmState.reasons.assign(std::size_t{kMacros} * kSmSteps * kSmFields, 0);
    auto reason = SmState.reasons.begin();
    for (std::size_t macro = 1; macro < SmTable.size(); ++macro) {
        bool good = true;
        for (SmStep& step : SmTable[macro]) {
            if (step.command == 0 || step.command == kNeverWritten) {
                step = {};
            }
            if (!IsKnownCommand(step.command)) {
                reason[kSmCommandField] = kUnknownCommand;
            } else if (!StepGood(step)) {
                reason[kSmDataField] = CommandOf(step).reason;
            }
            good = good && StepGood(step);
            reason += kSmFields;
        }
        if (!good) {
            SmState.badList += "<" + std::to_string(macro) + ">,";
        }
    }
    return SmState.badList.empty() ? 0 : 1;
}

void ResetMacros() {
    state = State{};
}

} // namespace qdw8
