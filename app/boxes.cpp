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

int up = 0; ///< modal windows on the screen

/// One more for the life of the object.
class Up {
public:
    Up() { ++up; }
    ~Up() { --up; }
    Up(const Up&) = delete;
    Up& operator=(const Up&) = delete;
};

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
        const Up modal;
        return ThePlatform().ShowMessageBox(question);
    }
    switch (question.buttons) {
    case BoxButtons::Ok: return BoxAnswer::Ok;
    case BoxButtons::YesNo: return BoxAnswer::No;
    default: return BoxAnswer::Cancel;
    }
}

std::int16_t AskChoice(const SelectionQuestion& question) {
    if (IsSet(ProgramEndFlag)) {
        return kSelectionCancelled;
    }
    const Up modal;
    return Screens().frmSelection(question);
}

bool ShowModal(const std::function<void()>& window) {
    if (IsSet(ProgramEndFlag)) {
        return false;
    }
    const Up modal;
    window();
    return true;
}

bool ModalIsUp() {
    return up > 0;
}

} // namespace qdw8
