#include "motion/move_form.h"

#include "app/string_table.h"

#include <string_view>

namespace qdw8 {

std::string TextOf(const MoveStatus& status) {
    constexpr std::string_view kPlace = "%1";
    std::string text = status.text == 0 ? std::string() : ResText(status.text);
    if (const std::size_t at = text.find(kPlace); at != std::string::npos) {
        text.replace(at, kPlace.size(), std::to_string(status.number));
    }
    return text;
}

std::string TextOf(const MoveStatus& first, const MoveStatus& second) {
    const std::string text = TextOf(first);
    return text + (text.empty() || second.text == 0 ? "" : " ") + TextOf(second);
}

} // namespace qdw8
