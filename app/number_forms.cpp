#include "app/number_forms.h"

#include "platform/fault.h"
#include "platform/platform.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>

namespace qdw8 {
namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

double LeadingHex(std::string_view digits) {
    const std::size_t end = digits.find_first_not_of("0123456789ABCDEFabcdef");
    digits = digits.substr(0, end);
    double value = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::hex);
    return value;
}

/// Digits that count of a figure in double and in single precision.
constexpr int kDoubleDigits = 15;
constexpr int kSingleDigits = 7;

/// A field of more characters than any figure needs is none.
constexpr std::size_t kLongestNumber = 40;

/// The digits that count of a finite, non-zero value, and the power of ten of the first one.
struct Digits {
    std::string digits;
    int exponent; ///< value = d.ddd... x 10^exponent
};

Digits DigitsOf(double value, int count = kDoubleDigits) {
    std::array<char, 40> text{};
    const auto written = std::to_chars(text.data(), text.data() + text.size(), std::fabs(value),
                                       std::chars_format::scientific, count - 1);
    const std::string_view view(text.data(), static_cast<std::size_t>(written.ptr - text.data()));
    const std::size_t e = view.find('e');
    std::string digits(1, view[0]);
    digits.append(view.substr(2, e - 2));
    int exponent = 0;
    const std::size_t power = view[e + 1] == '+' ? e + 2 : e + 1;
    std::from_chars(view.data() + power, view.data() + view.size(), exponent);
    return {digits, exponent};
}

/// Writes digits with the point behind the first `exponent + 1` of them.
std::string PlacePoint(const std::string& digits, int exponent) {
    if (exponent < 0) {
        return "0." + std::string(static_cast<std::size_t>(-exponent - 1), '0') + digits;
    }
    const auto whole = static_cast<std::size_t>(exponent) + 1;
    if (digits.size() <= whole) {
        return digits + std::string(whole - digits.size(), '0');
    }
    return digits.substr(0, whole) + "." + digits.substr(whole);
}

/// Adds one to the last digit of a row of decimal digits; true if it ran over the first one.
bool AddOne(std::string& digits) {
    for (std::size_t i = digits.size(); i > 0; --i) {
        if (digits[i - 1] != '9') {
            ++digits[i - 1];
            return false;
        }
        digits[i - 1] = '0';
    }
    digits.insert(digits.begin(), '1');
    return true;
}

/// Plain decimal with at most `count` digits that count.
std::string PlainForm(double value, int count) {
    if (value == 0 || !std::isfinite(value)) {
        return "0";
    }
    Digits form = DigitsOf(value, count);
    while (form.digits.size() > 1 && form.digits.back() == '0') {
        form.digits.pop_back();
    }
    return (value < 0 ? "-" : "") + PlacePoint(form.digits, form.exponent);
}

} // namespace

double NumberFromText(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    if (text.starts_with("&H") || text.starts_with("&h")) {
        return LeadingHex(text.substr(2));
    }
    if (text.starts_with('+')) {
        text.remove_prefix(1);
    }
    const std::size_t sign = text.starts_with('-') ? 1 : 0;
    const std::size_t first = text.find_first_not_of('.', sign);
    if (first == text.npos || !IsDigit(text[first]) || first > sign + 1) {
        return 0; // "inf" and "nan" are no numbers, and ".." begins none
    }
    double value = 0;
    const auto result =
        std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
    if (result.ec == std::errc::result_out_of_range) {
        const std::string_view digits =
            text.substr(0, static_cast<std::size_t>(result.ptr - text.data()));
        if (digits.find_first_of("123456789") > digits.find('.')) {
            return 0; // too small for any double
        }
        // So many digits that no double holds them: a figure beyond every limit, not a small one.
        return sign != 0 ? -std::numeric_limits<double>::max() : std::numeric_limits<double>::max();
    }
    return value;
}

bool IsPlainNumber(std::string_view text) {
    if (text.size() > kLongestNumber) {
        return false;
    }
    if (!text.empty() && (text.front() == '-' || text.front() == '+')) {
        text.remove_prefix(1);
    }
    bool digit = false;
    bool point = false;
    for (const char c : text) {
        if (c == '.' && !point) {
            point = true;
        } else if (IsDigit(c)) {
            digit = true;
        } else {
            return false;
        }
    }
    return digit;
}

double WholeNumberField(std::string_view field) {
    const std::string text = Trim(field);
    if (!IsPlainNumber(text)) {
        throw Fault("a text stands where a number is due");
    }
    return NumberFromText(text);
}

std::optional<double> NumberOfCell(std::string_view text) {
    const std::string cell = Trim(text);
    if (cell.find_first_of("0123456789") == cell.npos ||
        cell.find_first_not_of("0123456789.", cell.starts_with('-') ? 1 : 0) != cell.npos) {
        return std::nullopt;
    }
    double value = 0;
    const char* end = cell.data() + cell.size();
    const auto result = std::from_chars(cell.data(), end, value, std::chars_format::fixed);
    if (result.ec != std::errc{} || result.ptr != end) {
        return std::nullopt;
    }
    return value;
}

double RoundHalfEven(double value) {
    const double down = std::floor(value);
    const double rest = value - down;
    if (rest > 0.5 || (rest == 0.5 && std::fmod(down, 2.0) != 0.0)) {
        return down + 1;
    }
    return down;
}

std::int16_t ToInt16(double value) {
    const double whole = RoundHalfEven(value);
    if (!(whole >= std::numeric_limits<std::int16_t>::min() &&
          whole <= std::numeric_limits<std::int16_t>::max())) {
        throw Fault("a number doesn't fit into 16 bits");
    }
    return static_cast<std::int16_t>(whole);
}

std::int32_t ToInt32(double value) {
    const double whole = RoundHalfEven(value);
    if (!(whole >= std::numeric_limits<std::int32_t>::min() &&
          whole <= std::numeric_limits<std::int32_t>::max())) {
        throw Fault("a number doesn't fit into 32 bits");
    }
    return static_cast<std::int32_t>(whole);
}

std::string PlainDecimal(double value) {
    return PlainForm(value, kDoubleDigits);
}

std::string PlainDecimalSingle(float value) {
    return PlainForm(static_cast<double>(value), kSingleDigits);
}

std::string BlankOrMinusDecimal(double value) {
    std::string text = PlainDecimal(value);
    return text.front() == '-' ? text : " " + text;
}

std::string FixedDecimals(double value, int decimals) {
    const std::string fraction(static_cast<std::size_t>(decimals), '0');
    std::string zero = decimals > 0 ? "0." + fraction : "0";
    if (value == 0 || !std::isfinite(value)) {
        return zero;
    }
    Digits form = DigitsOf(value);
    const int kept = form.exponent + 1 + decimals; // digits that stay
    if (kept < 0) {
        return zero;
    }
    if (static_cast<std::size_t>(kept) < form.digits.size()) {
        const bool up = form.digits[static_cast<std::size_t>(kept)] >= '5';
        form.digits.resize(static_cast<std::size_t>(kept));
        if (up && AddOne(form.digits)) {
            ++form.exponent;
        }
        if (form.digits.empty()) {
            return zero;
        }
    } else {
        form.digits.append(static_cast<std::size_t>(kept) - form.digits.size(), '0');
    }
    return (value < 0 ? "-" : "") + PlacePoint(form.digits, form.exponent);
}

std::string PadLeft(std::string_view text, std::size_t width) {
    const std::size_t blanks = text.size() < width ? width - text.size() : 0;
    return std::string(blanks, ' ').append(text);
}

std::string Trim(std::string_view text) {
    while (!text.empty() && text.front() == ' ') {
        text.remove_prefix(1);
    }
    while (!text.empty() && text.back() == ' ') {
        text.remove_suffix(1);
    }
    return std::string(text);
}

std::string TimeText(const LocalTime& time) {
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%04d/%02d/%02d  %02d:%02d:%02d", time.year, time.month,
                  time.day, time.hour, time.minute, time.second);
    return text.data();
}

std::string HexField(std::int64_t value, int width) {
    if (value < 0 || (value >> (4 * width)) != 0) {
        return "X";
    }
    std::array<char, 16> digits{};
    const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), value, 16);
    std::string text(digits.data(), written.ptr);
    for (char& digit : text) {
        digit = static_cast<char>(digit >= 'a' ? digit - 'a' + 'A' : digit);
    }
    return std::string(static_cast<std::size_t>(width) - text.size(), '0') + text;
}

std::int32_t HexValue(std::string_view digits) {
    constexpr std::size_t kLongest = 7;
    std::int32_t value = 0;
    const char* end = digits.data() + digits.size();
    const auto result = std::from_chars(digits.data(), end, value, 16);
    if (digits.size() > kLongest || result.ec != std::errc{} || result.ptr != end || value < 0 ||
        digits.front() == '-') {
        throw Fault("a hexadecimal field is missing, too long or holds something else");
    }
    return value;
}

std::string_view Mid(std::string_view text, std::size_t from, std::size_t count) {
    return from > text.size() ? std::string_view{} : text.substr(from - 1, count);
}

} // namespace qdw8
