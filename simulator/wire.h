#pragma once

// The small words of the line: time, what goes out, hexadecimal fields, alarms.

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace qdk8 {

/// A moment or a length of time in milliseconds. The engine has no clock of its own: the caller
/// hands one in, which starts where it likes and never runs backwards.
using Millis = std::int64_t;

constexpr int kAxisCountMax = 4;

/// The longest time that anybody may ask for.
constexpr Millis kLongestWait = 3'600'000;

/// Something that leaves the controller at a moment: bytes, or the end of the line itself.
struct Outgoing {
    Millis at = 0;
    std::string bytes;
    bool hangUp = false; ///< the cable is pulled; `bytes` is empty
};

/// An alarm as the wire shows it: "0%%", class, place, code.
struct Alarm {
    char kind = '0';  ///< '0' a reset clears it, anything else: only a power cycle does
    char where = '0'; ///< axis digit, or '0' when no axis is meant
    char code = '1';  ///< upper-case hexadecimal digit

    bool resettable() const { return kind == '0'; }
    std::string text() const { return std::string("0%%") + kind + where + code; }
};

/// Reads "06" (class and code) or the whole reply "0%%134". No value for anything else.
std::optional<Alarm> ParseAlarm(std::string_view text);

/// True when every character is one of 0-9 A-F. Lower case is not a digit on this line.
bool IsHex(std::string_view digits);

/// The value of upper-case hexadecimal digits; the caller has made sure with isHex, and that there
/// are no more than seven of them.
int FromHex(std::string_view digits);

/// `value` (not negative) in upper-case hexadecimal, zeros in front up to `width`.
std::string ToHex(int value, int width);

/// The value of plain decimal digits, within 0 to `limit`; no value for any other text.
std::optional<Millis> FromDecimal(std::string_view digits, Millis limit);

/// An axis mask of one or two hexadecimal digits; no value for anything else or above F.
std::optional<unsigned> ParseMask(std::string_view text);

/// `text` with "\\r", "\\n", "\\s" and "\\\\" turned into CR, LF, a blank and a backslash; no value
/// when another character follows a backslash.
std::optional<std::string> Unescaped(std::string_view text);

} // namespace qdk8
