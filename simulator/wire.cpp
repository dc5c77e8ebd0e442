#include "simulator/wire.h"

#include <algorithm>

namespace qdk8 {

std::optional<Alarm> ParseAlarm(std::string_view text) {
    if (text.size() == 2) {
        const Alarm alarm{text[0], '0', text[1]};
        return IsHex(text) ? std::optional<Alarm>(alarm) : std::nullopt;
    }
    if (text.size() != 6 || text.substr(0, 3) != "0%%" || !IsHex(text.substr(3))) {
        return std::nullopt;
    }
    return Alarm{text[3], text[4], text[5]};
}

bool IsHex(std::string_view digits) {
    return std::all_of(digits.begin(), digits.end(),
                       [](char c) { return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F'); });
}

int FromHex(std::string_view digits) {
    int value = 0;
    for (const char c : digits) {
        value = value * 16 + (c <= '9' ? c - '0' : c - 'A' + 10);
    }
    return value;
}

std::string ToHex(int value, int width) {
    std::string text;
    for (int rest = value; rest > 0; rest /= 16) {
        text.insert(text.begin(), "0123456789ABCDEF"[rest % 16]);
    }
    const auto wanted = static_cast<std::size_t>(width);
    return text.size() < wanted ? std::string(wanted - text.size(), '0') + text : text;
}

std::optional<Millis> FromDecimal(std::string_view digits, Millis limit) {
    if (digits.empty()) {
        return std::nullopt;
    }
    Millis value = 0;
    for (const char c : digits) {
        if (c < '0' || c > '9') {
            return std::nullopt;
        }
        value = value * 10 + (c - '0');
        if (value > limit) {
            return std::nullopt;
        }
    }
    return value;
}

std::optional<unsigned> ParseMask(std::string_view text) {
    if (text.empty() || text.size() > 2 || !IsHex(text) || FromHex(text) > 15) {
        return std::nullopt;
    }
    return static_cast<unsigned>(FromHex(text));
}

std::optional<std::string> Unescaped(std::string_view text) {
    constexpr std::string_view kNames = "rns\\";
    constexpr std::string_view kMeant = "\r\n \\";
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            plain += text[i];
            continue;
        }
        const std::size_t at = ++i < text.size() ? kNames.find(text[i]) : std::string_view::npos;
        if (at == std::string_view::npos) {
            return std::nullopt;
        }
        plain += kMeant[at];
    }
    return plain;
}

} // namespace qdk8
