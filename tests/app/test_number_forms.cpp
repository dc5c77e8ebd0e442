// Numbers into text, text into numbers and into the code page of files: every file, frame and cell
// goes through these.

#include "app/number_forms.h"

#include "app/field_reader.h"
#include "platform/cp932_text.h"
#include "platform/fault.h"
#include "support/story.h"

#include <algorithm>
#include <limits>

namespace qdw8 {
namespace {

/// The fields of a text, behind one another.
std::string Fields(const std::string& text) {
    FieldReader reader(text);
    std::string fields;
    while (!reader.atEnd() && fields.size() < 100) {
        try {
            fields += "<" + reader.next() + ">";
        } catch (const Fault&) {
            fields += "!";
        }
    }
    EXPECT_THROW(reader.next(), Fault) << "the end";
    return fields;
}

test::Verb Text(double (*form)(std::string_view)) {
    return [form](const std::string& in) { return PlainDecimal(form(in)); };
}

const test::Verbs kForms{
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
    {"Mid", [](auto& in) { return std::string(Mid("ABCDE", std::stoul(in), 3)); }},
    {"Fields", [](auto& in) { return Fields(in); }},
    {"Trim", [](auto& in) { return Trim(in); }},
    {"ToCp932", [](auto& in) { return ToCp932(in); }},
    {"FromCp932", [](auto& in) { return FromCp932(in); }},
    {"LackingInCp932", [](auto& in) { return LackingInCp932(in); }},
    {"TwoLackingInCp932", [](auto& in) { return LackingInCp932(in, 2); }}};

TEST(NumberForms, Table) {
    const auto rows = test::RowsOf("app/number_forms.txt");
    EXPECT_GT(rows.size(), 150U);
    for (auto row : rows) {
        for (std::string& part : row) {
            std::replace(part.begin(), part.end(), '_', ' ');
        }
        std::string result;
        try {
            result = kForms.at(row[0])(row.at(1));
        } catch (const Fault&) {
            result = "!";
        }
        EXPECT_EQ(result, row.at(2)) << row[0] << " of " << row[1];
    }
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
}

TEST(NumberForms, WhatIsWrittenReadsBack) {
    for (int thousandth = -250000; thousandth <= 250000; thousandth += 7) {
        const double value = thousandth / 1000.0;
        ASSERT_EQ(NumberFromText(FixedDecimals(value, 3)), value);
        ASSERT_EQ(NumberOfCell(PlainDecimal(value)), value);
    }
    std::string text;
    for (int round = 0; round < 1000; ++round) { // longer than any buffer
        text += "位置ｱｶ ソ表\r\n";
        ASSERT_EQ(FromCp932(ToCp932(text)), text);
    }
    for (int value = 0; value <= 0xFFFF; value += 13) {
        ASSERT_EQ(HexValue(HexField(value, 4)), value);
    }
}

} // namespace
} // namespace qdw8
