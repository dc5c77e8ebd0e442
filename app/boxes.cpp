#include "app/boxes.h"

#include "app/Module1.h"
#include "app/string_table.h"
#include "platform/platform.h"

namespace qdw8 {
namespace {

/// Joins what `textOf` makes of each item, one a line.
template<typename Items, typename TextOf> std::string Join(const Items& items, TextOf textOf) {
    std::string text;
    bool first = true;
    for (const auto& item : items) {
        if (!first) {
            text += "\r\n";
        }
        first = false;
        text += textOf(item);
    }
    return text;
}

} // namespace

std::string Lines(std::initializer_list<std::string> lines) {
    return Join(lines, [](const std::string& line) { return line; });
}

std::string TextLines(std::initializer_list<std::int16_t> ids) {
    return Join(ids, [](std::int16_t id) { return ResText(id); });
}

void ShowBox(const std::string& text) {
    AskBox({text, BoxButtons::Ok, {}, BoxIcon::None});
}

void ShowTexts(std::initializer_list<std::int16_t> ids) {
    ShowBox(TextLines(ids));
}

BoxAnswer AskBox(const std::string& text, BoxButtons buttons) {
    return AskBox({text, buttons, {}, BoxIcon::Question});
}

BoxAnswer AskBox(const BoxQuestion& question) {
    if (!IsSet(ProgramEndFlag)) {
        return ThePlatform().ShowMessageBox(question);
    }
    switch (question.buttons) {
    case BoxButtons::Ok: return BoxAnswer::Ok;
    case BoxButtons::YesNo: return BoxAnswer::No;
    default: return BoxAnswer::Cancel;
    }
}

std::int16_t AskChoice(const SelectionQuestion& question) {
    return IsSet(ProgramEndFlag) ? kSelectionCancelled : Screens().frmSelection(question);
}

bool ShowModal(const std::function<void()>& window) {
    if (IsSet(ProgramEndFlag)) {
        return false;
    }
    window();
    return true;
}

} // namespace qdw8
