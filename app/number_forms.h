#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// The number and text forms that the whole program shares. None of them follows the locale.
namespace qdw8 {

struct LocalTime;

/// The leading number of a text, 0 if there is none; it never fails. Blanks in front are skipped,
/// a sign is allowed, there is no exponent: "12ab" is 12, " -3.5" is -3.5. A text that begins
/// with "&H" or "&h" is hexadecimal and never negative.
double NumberFromText(std::string_view text);

/// The number that a field holds as a whole, blanks at its ends left out. There is no exponent and
/// no hexadecimal form. Throws `Fault` for anything else, the empty field included.
double WholeNumberField(std::string_view field);
/// True for a text that `WholeNumberField` takes, but for blanks at its ends.
bool IsPlainNumber(std::string_view text);

/// The number that the text of a cell or a field is as a whole, blanks at its ends left out: digits
/// with at most one point among, before or behind them, and at most one "-" in front. Nothing for
/// anything else: an empty text, a lone point, a comma, "+", an exponent, letters, full-width
/// digits, a figure beyond every double. What a negative figure means is the caller's business.
std::optional<double> NumberOfCell(std::string_view text);

/// To the nearest whole number; exactly half goes to the even neighbour.
double RoundHalfEven(double value);

/// `RoundHalfEven` into 16 or 32 bits. Throws `Fault` when the result doesn't fit.
std::int16_t ToInt16(double value);
std::int32_t ToInt32(double value);

/// A number in plain decimal: no exponent, no trailing zeros, at most 15 digits that count; a
/// fraction below 1 keeps its leading zero here ("0.005").
std::string PlainDecimal(double value);

/// The same for a figure that is held in single precision: at most 7 digits that count.
std::string PlainDecimalSingle(float value);

/// The form with one leading blank for a number that is not negative and "-" for a negative one.
std::string BlankOrMinusDecimal(double value);

/// `decimals` digits behind the point, at least one before it ("#0.000" is 3). Ties go away from
/// zero, judged on the decimal figure at 15 digits.
std::string FixedDecimals(double value, int decimals);

/// Blanks in front up to `width` characters; a longer text stays as it is.
std::string PadLeft(std::string_view text, std::size_t width);

/// Without the blanks at both ends.
std::string Trim(std::string_view text);

/// "2024/11/21  09:05:07".
std::string TimeText(const LocalTime& time);

/// Upper-case hexadecimal of `width` digits, padded with "0". A value that is negative or too wide
/// for the field comes out as the single character "X", which fails every length test.
std::string HexField(std::int64_t value, int width);

/// The value of hexadecimal digits; throws `Fault` if the text is empty, longer than 7 digits or
/// holds anything else than hexadecimal digits. For fields of a reply.
std::int32_t HexValue(std::string_view digits);

/// `count` characters from position `from`, counted from 1; what lies behind the end is missing.
std::string_view Mid(std::string_view text, std::size_t from, std::size_t count);

} // namespace qdw8
