#include "app/string_table.h"

#include "app/Module1.h"
#include "platform/fault.h"

#include <charconv>
#include <unordered_map>

namespace qdw8 {

extern const std::string_view k_english_rows;
extern const std::string_view k_japanese_rows;

namespace {

using Rows = std::unordered_map<std::int16_t, std::string_view>;

/// One row a line: the id, a tab, the text.
void AddRows(Rows& rows, std::string_view text) {
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        const std::string_view line = text.substr(0, end);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        const std::size_t tab = line.find('\t');
        std::int16_t id = 0;
        if (tab != std::string_view::npos &&
            std::from_chars(line.data(), line.data() + tab, id).ec == std::errc{}) {
            rows.emplace(id, line.substr(tab + 1));
        }
    }
}

const Rows& AllRows() {
    static const Rows rows = [] {
        Rows made;
        AddRows(made, k_japanese_rows);
        AddRows(made, k_english_rows);
        return made;
    }();
    return rows;
}

} // namespace

std::string ResText(std::int16_t id) {
    const auto row = AllRows().find(static_cast<std::int16_t>(id + LanguageBase));
    if (row == AllRows().end()) {
        throw Fault("no text with the id " + std::to_string(id));
    }
    return std::string(row->second);
}

std::string ResText(std::int16_t id, std::initializer_list<std::string> words) {
    std::string made;
    const std::string text = ResText(id);
    for (std::size_t at = 0; at < text.size(); ++at) {
        const std::size_t word = text[at] == '%' && at + 1 < text.size()
                                     ? static_cast<std::size_t>(text[at + 1] - '1')
                                     : words.size();
        if (word < words.size()) {
            made += words.begin()[word];
            ++at;
        } else {
            made += text[at];
        }
    }
    return made;
}

} // namespace qdw8
