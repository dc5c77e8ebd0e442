#include "app/number_forms.h"

#include "platform/fault.h"

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

int HexDigit(char c) {
    if (IsDigit(c)) {
        return c - '0';
    }
    if (c >= 'A' && c <= 'F') {
        return c - 'A' + 10;
    }
    if (c >= 'a' && c <= 'f') {
        return c - 'a' + 10;
    }
    return -1;
}

double LeadingHex(std::string_view digits) {
    double value = 0;
    for (const char c : digits) {
        const int digit = HexDigit(c);
        if (digit < 0) {
            break;
        }
        value = value * 16 + digit;
    }
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
    std::snprintf(text.data(), text.size(), "%.*e", count - 1, std::fabs(value));
    const std::string_view view(text.data());
    const std::size_t e = view.find('e');
    std::string digits(1, view[0]);
    digits.append(view.substr(2, e - 2));
    const std::string_view exponent = view.substr(e + 1);
    int power = 0;
    for (const char c : exponent.substr(1)) {
        power = power * 10 + (c - '0');
    }
    return {digits, exponent[0] == '-' ? -power : power};
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
    while (!text.empty() && text.front() == ' ') {
        text.remove_prefix(1);
    }
    if (text.size() >= 2 && text[0] == '&' && (text[1] == 'H' || text[1] == 'h')) {
        return LeadingHex(text.substr(2));
    }
    std::string number;
    std::size_t at = 0;
    if (at < text.size() && (text[at] == '-' || text[at] == '+')) {
        if (text[at] == '-') {
            number += '-';
        }
        ++at;
    }
    bool anyDigit = false;
    bool point = false;
    for (; at < text.size(); ++at) {
        if (text[at] == '.' && !point) {
            point = true;
            number += anyDigit ? "." : "0.";
        } else if (IsDigit(text[at])) {
            anyDigit = true;
            number += text[at];
        } else {
            break;
        }
    }
    if (!anyDigit) {
        return 0;
    }
    double value = 0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        if (number.find_first_of("123456789") > number.find('.')) {
            return 0; // too small for any double
        }
        // So many digits that no double holds them: a figure beyond every limit, not a small one.
        return number[0] == '-' ? -std::numeric_limits<double>::max()
                                : std::numeric_limits<double>::max();
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
    const std::string zero = decimals > 0 ? "0." + fraction : "0";
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

std::string HexField(std::int64_t value, int width) {
    if (value < 0 || (value >> (4 * width)) != 0) {
        return "X";
    }
    std::string text(static_cast<std::size_t>(width), '0');
    for (std::size_t i = text.size(); i > 0; --i) {
        text[i - 1] = "0123456789ABCDEF"[value & 0xF];
        value >>= 4;
    }
    return text;
}

std::int32_t HexValue(std::string_view digits) {
    if (digits.empty() || digits.size() > 7) {
        throw Fault("a hexadecimal field is missing or too long");
    }
    std::int32_t value = 0;
    for (const char c : digits) {
        const int digit = HexDigit(c);
        if (digit < 0) {
            throw Fault("a hexadecimal field holds something else");
        }
        value = value * 16 + digit;
    }
    return value;
}

std::string_view Mid(std::string_view text, std::size_t from, std::size_t count) {
    return from > text.size() ? std::string_view{} : text.substr(from - 1, count);
}

} // namespace qdw8
