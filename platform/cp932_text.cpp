#include "platform/cp932_text.h"

#include "platform/fault.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <iconv.h>
#include <iterator>
#include <utility>
#include <vector>

namespace qdw8 {
namespace {

/// Length of the UTF-8 sequence that begins with this byte; 1 for a byte that begins none.
std::size_t SequenceLength(unsigned char lead) {
    if (lead >= 0xF0) {
        return 4;
    }
    if (lead >= 0xE0) {
        return 3;
    }
    return lead >= 0xC0 ? 2 : 1;
}

/// Length of the character that begins this UTF-8 text. Broken sequences count up to their last
/// byte that is none of another.
std::size_t CharacterLength(std::string_view text) {
    const std::size_t whole = SequenceLength(static_cast<unsigned char>(text[0]));
    for (std::size_t i = 1; i < whole; ++i) {
        if (i >= text.size() || (static_cast<unsigned char>(text[i]) & 0xC0U) != 0x80U) {
            return i;
        }
    }
    return whole;
}

/// Converts the text. `replace` gets what is left from each place that can't be converted, puts
/// its stand-in behind the result and tells how many bytes it stands for.
template<typename Replace>
std::string Convert(const char* to, const char* from, std::string_view text, Replace replace) {
    iconv_t converter = iconv_open(to, from);
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the C library's own sign of failure
    if (converter == reinterpret_cast<iconv_t>(-1)) {
        throw Fault("the system has no conversion for the Japanese code page");
    }
    std::string input(text);
    std::string result;
    char* in = input.data();
    std::size_t inLeft = input.size();
    while (inLeft > 0) {
        char chunk[256];
        char* out = chunk;
        std::size_t outLeft = sizeof chunk;
        const std::size_t done = iconv(converter, &in, &inLeft, &out, &outLeft);
        result.append(chunk, sizeof chunk - outLeft);
        if (done == static_cast<std::size_t>(-1) && errno != E2BIG) {
            const std::size_t skip = replace(std::string_view(in, inLeft), result);
            in += skip;
            inLeft -= skip;
        }
    }
    iconv_close(converter);
    return result;
}

/// Number of the one character that a whole UTF-8 sequence makes; U+FFFD for a broken sequence.
std::uint32_t NumberOf(std::string_view character) {
    const auto lead = static_cast<unsigned char>(character[0]);
    if (lead < 0xC0U || character.size() != SequenceLength(lead)) {
        return 0xFFFD;
    }
    std::uint32_t number = lead & (0xFFU >> (character.size() + 1));
    for (const char follower : character.substr(1)) {
        number = number << 6U | (static_cast<unsigned char>(follower) & 0x3FU);
    }
    return number;
}

/// Blanks, marks that join the character before, and what only steers the writing: in a list of
/// characters the user would see nothing of them.
bool ShowsNothing(std::uint32_t number) {
    static constexpr std::uint32_t kRanges[][2] = {
        {0x80, 0xA0},     {0xAD, 0xAD},     {0x300, 0x36F},   {0x2000, 0x200F},
        {0x2028, 0x202F}, {0x205F, 0x206F}, {0x3099, 0x309A}, {0xFE00, 0xFE0F},
        {0xFEFF, 0xFEFF}, {0xE000, 0xF8FF}, {0xFFFD, 0xFFFD}, {0xE0000, 0xE01EF}};
    return std::any_of(std::begin(kRanges), std::end(kRanges), [number](const auto& range) {
        return number >= range[0] && number <= range[1];
    });
}

std::string NameOf(std::string_view character) {
    const std::uint32_t number = NumberOf(character);
    if (!ShowsNothing(number)) {
        return std::string(character);
    }
    char name[16];
    std::snprintf(name, sizeof name, "U+%04X", static_cast<unsigned>(number));
    return name;
}

} // namespace

std::string ToCp932(std::string_view utf8) {
    return Convert("CP932", "UTF-8", utf8, [](std::string_view rest, std::string& result) {
        result += '?';
        return CharacterLength(rest);
    });
}

std::string LackingInCp932(std::string_view utf8, std::size_t limit) {
    // One character comes back for each that goes there.
    const std::string returned = FromCp932(ToCp932(utf8));
    std::string_view back = returned;
    std::vector<std::string> names;
    while (!utf8.empty() && !back.empty() && names.size() <= limit) {
        const std::string_view one = utf8.substr(0, CharacterLength(utf8));
        const std::string_view other = back.substr(0, CharacterLength(back));
        utf8.remove_prefix(one.size());
        back.remove_prefix(other.size());
        const std::string name = one == other ? "" : NameOf(one);
        if (!name.empty() && std::find(names.begin(), names.end(), name) == names.end()) {
            names.push_back(name);
        }
    }
    if (names.size() > limit) {
        names[limit] = "...";
    }
    std::string list;
    for (const std::string& name : names) {
        list += (list.empty() ? "" : " ") + name;
    }
    return list;
}

std::string WithCp932Signs(std::string_view utf8) {
    static constexpr std::array<std::pair<std::string_view, std::string_view>, 4> kSigns{
        {{"\u301C", "\uFF5E"}, {"\u2212", "\uFF0D"}, {"\u2014", "\u2015"}, {"\u2016", "\u2225"}}};
    std::string text(utf8);
    for (const auto& [typed, sign] : kSigns) {
        for (std::size_t at = text.find(typed); at != text.npos; at = text.find(typed, at)) {
            text.replace(at, typed.size(), sign); // of the same length
        }
    }
    return text;
}

std::string FromCp932(std::string_view bytes) {
    return Convert("UTF-8", "CP932", bytes, [](std::string_view, std::string& result) {
        result += '?';
        return std::size_t{1};
    });
}

} // namespace qdw8
