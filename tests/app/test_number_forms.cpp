// Numbers into text and text into numbers: every file, frame and cell goes through these.

#include "app/number_forms.h"

#include "platform/fault.h"
#include "platform/whole_file.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <map>
#include <sstream>

namespace qdw8 {
namespace {

using Form = std::function<std::string(const std::string&)>;

Form Text(double (*form)(std::string_view)) {
    return [form](const std::string& in) { return PlainDecimal(form(in)); };
}

const std::map<std::string, Form> kForms{
    {"NumberFromText", Text(NumberFromText)},
    {"NumberOfCell",
     [](auto& in) { return NumberOfCell(in) ? PlainDecimal(*NumberOfCell(in)) : "-"; }},
    {"WholeNumberField", Text(WholeNumberField)},
    {"RoundHalfEven", [](auto& in) { return PlainDecimal(RoundHalfEven(std::stod(in))); }},
    {"ToInt16", [](auto& in) { return std::to_string(ToInt16(std::stod(in))); }},
    {"ToInt32", [](auto& in) { return std::to_string(ToInt32(std::stod(in))); }},
    {"PlainDecimal", [](auto& in) { return PlainDecimal(std::stod(in)); }},
    {"PlainDecimalSingle", [](auto& in) { return PlainDecimalSingle(std::stof(in)); }},
    {"BlankOrMinusDecimal", [](auto& in) { return BlankOrMinusDecimal(std::stod(in)); }},
    {"FixedDecimals3", [](auto& in) { return FixedDecimals(std::stod(in), 3); }},
    {"FixedDecimals2", [](auto& in) { return FixedDecimals(std::stod(in), 2); }},
    {"FixedDecimals1", [](auto& in) { return FixedDecimals(std::stod(in), 1); }},
    {"FixedDecimals0", [](auto& in) { return FixedDecimals(std::stod(in), 0); }},
    {"HexField4", [](auto& in) { return HexField(std::stoll(in), 4); }},
    {"HexValue", [](auto& in) { return std::to_string(HexValue(in)); }},
    {"PadLeft3", [](auto& in) { return PadLeft(in, 3); }},
    {"Trim", [](auto& in) { return Trim(in); }}};

TEST(NumberForms, Table) {
    std::istringstream table(ReadWholeFile(QDW8_SOURCE_DIR "/tests/app/number_forms.txt"));
    int rows = 0;
    for (std::string line; std::getline(table, line);) {
        if (line.starts_with('#')) {
            continue;
        }
        const std::size_t first = line.find('|');
        const std::size_t second = line.find('|', first + 1);
        std::string in = Trim(line.substr(first + 1, second - first - 1));
        std::string out = Trim(line.substr(second + 1));
        std::replace(in.begin(), in.end(), '_', ' ');
        std::replace(out.begin(), out.end(), '_', ' ');
        std::string result;
        try {
            result = kForms.at(Trim(line.substr(0, first)))(in);
        } catch (const Fault&) {
            result = "!";
        }
        EXPECT_EQ(result, out) << line;
        ++rows;
    }
    EXPECT_GT(rows, 130);
}

TEST(NumberForms, BeyondEveryDouble) {
    const std::string nines(400, '9');
    EXPECT_GT(NumberFromText(nines), 1e300) << "beyond every limit, not a small one";
    EXPECT_LT(NumberFromText("-" + nines), -1e300);
    EXPECT_EQ(NumberFromText("0." + std::string(400, '0') + "1"), 0);
    EXPECT_FALSE(NumberOfCell(nines));
    for (const double value : {1e300, -std::numeric_limits<double>::infinity(),
                               std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_THROW(ToInt16(value), Fault) << value;
        EXPECT_THROW(ToInt32(value), Fault) << value;
    }
    EXPECT_EQ(NumberFromText("\t5"), 0);
}

TEST(NumberForms, WhatIsWrittenReadsBack) {
    for (int thousandth = -250000; thousandth <= 250000; thousandth += 7) {
        const double value = thousandth / 1000.0;
        ASSERT_EQ(NumberFromText(FixedDecimals(value, 3)), value);
        ASSERT_EQ(NumberOfCell(PlainDecimal(value)), value);
    }
    for (int value = 0; value <= 0xFFFF; value += 13) {
        ASSERT_EQ(HexValue(HexField(value, 4)), value);
    }
    EXPECT_EQ(Mid("ABCDE", 2, 3), "BCD");
    EXPECT_EQ(Mid("ABCDE", 5, 3), "E");
    EXPECT_EQ(Mid("ABCDE", 6, 3), "");
}

} // namespace
} // namespace qdw8
