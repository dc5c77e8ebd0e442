// Numbers into text and text into numbers: every file, frame and cell goes through these.

#include "app/number_forms.h"

#include "platform/fault.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

namespace qdw8 {
namespace {

TEST(NumberForms, NumberFromText) {
    struct Case {
        std::string text;
        double value;
    };
    for (const Case& c : std::vector<Case>{
             {"", 0},         {"   ", 0},    {"12", 12},          {"12ab", 12},
             {" -3.5", -3.5}, {"+7", 7},     {"--7", 0},          {"- 7", 0},
             {".5", 0.5},     {"-.5", -0.5}, {"5.", 5},           {".", 0},
             {"1.2.3", 1.2},  {"abc", 0},    {"1,5", 1},          {"1 2", 1},
             {"1E3", 1},      {"1D3", 1},    {"\t5", 0},          {"\n5", 0},
             {"&H1F", 31},    {"&h1f", 31},  {"  &HFFFF", 65535}, {"&HFFFFFFFF", 4294967295.0},
             {"&HG", 0},      {"&H", 0},     {"-&H1", 0},         {"&O17", 0},
             {"0012", 12},    {"inf", 0},    {"nan", 0}}) {
        EXPECT_EQ(NumberFromText(c.text), c.value) << "'" << c.text << "'";
    }
    EXPECT_GT(NumberFromText(std::string(400, '9')), 1e300)
        << "beyond every limit, not a small one";
    EXPECT_LT(NumberFromText("-" + std::string(400, '9')), -1e300);
    EXPECT_EQ(NumberFromText("0." + std::string(400, '0') + "1"), 0);
}

TEST(NumberForms, RoundingGoesToTheEvenNeighbour) {
    for (const auto& [value, rounded] :
         std::vector<std::pair<double, double>>{{0.5, 0},
                                                {1.5, 2},
                                                {2.5, 2},
                                                {-0.5, 0},
                                                {-1.5, -2},
                                                {-2.5, -2},
                                                {2.4999, 2},
                                                {2.5001, 3},
                                                {-2.6, -3},
                                                {4503599627370497.0, 4503599627370497.0}}) {
        EXPECT_EQ(RoundHalfEven(value), rounded) << value;
    }
}

TEST(NumberForms, NarrowNumbersNeverWrap) {
    EXPECT_EQ(ToInt16(32767.4), 32767);
    EXPECT_EQ(ToInt16(-32768.5), -32768) << "half goes to the even neighbour, which fits";
    EXPECT_EQ(ToInt32(2147483647.4), 2147483647);
    for (const double value : {32767.5, -32769.0, 1e300, -std::numeric_limits<double>::infinity(),
                               std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_THROW(ToInt16(value), Fault) << value;
    }
    for (const double value :
         {2147483647.5, -2147483649.0, 1e300, std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_THROW(ToInt32(value), Fault) << value;
    }
}

TEST(NumberForms, PlainDecimal) {
    struct Case {
        double value;
        std::string text;
    };
    for (const Case& c : std::vector<Case>{{0, "0"},
                                           {-0.0, "0"},
                                           {1, "1"},
                                           {-30, "-30"},
                                           {1000, "1000"},
                                           {0.005, "0.005"},
                                           {-0.25, "-0.25"},
                                           {12.5, "12.5"},
                                           {0.1 + 0.2, "0.3"},
                                           {1.0 / 3, "0.333333333333333"},
                                           {2.0 / 3, "0.666666666666667"},
                                           {999999999999999, "999999999999999"},
                                           {1e20, "100000000000000000000"},
                                           {1e-5, "0.00001"},
                                           {0.99999999999999999, "1"}}) {
        EXPECT_EQ(PlainDecimal(c.value), c.text);
    }
    EXPECT_EQ(BlankOrMinusDecimal(30), " 30");
    EXPECT_EQ(BlankOrMinusDecimal(0), " 0");
    EXPECT_EQ(BlankOrMinusDecimal(-1.5), "-1.5");
}

TEST(NumberForms, SinglePrecisionHasSevenDigits) {
    struct Case {
        float value;
        std::string text;
    };
    for (const Case& c : std::vector<Case>{{0.0F, "0"},
                                           {0.005F, "0.005"},
                                           {66.667F, "66.667"},
                                           {200.0F, "200"},
                                           {-0.1F, "-0.1"},
                                           {1.0F / 3, "0.3333333"},
                                           {16777216.0F, "16777220"},
                                           {0.99999999F, "1"}}) {
        EXPECT_EQ(PlainDecimalSingle(c.value), c.text);
    }
}

TEST(NumberForms, FixedDecimalsTakesTiesAwayFromZeroOnTheDecimalFigure) {
    struct Case {
        double value;
        int decimals;
        std::string text;
    };
    // 0.0005, 2.675 and 1.005 lie a hair below their decimal figure in binary.
    for (const Case& c : std::vector<Case>{{0, 3, "0.000"},
                                           {0, 0, "0"},
                                           {0.005, 3, "0.005"},
                                           {0.0005, 3, "0.001"},
                                           {-0.0005, 3, "-0.001"},
                                           {0.00049, 3, "0.000"},
                                           {2.675, 2, "2.68"},
                                           {1.005, 2, "1.01"},
                                           {6666.66666666667, 1, "6666.7"},
                                           {16.05, 1, "16.1"},
                                           {0.05, 1, "0.1"},
                                           {0.04, 1, "0.0"},
                                           {9.9996, 3, "10.000"},
                                           {99.95, 1, "100.0"},
                                           {0.9996, 3, "1.000"},
                                           {0.5, 0, "1"},
                                           {1.5, 0, "2"},
                                           {0.4, 0, "0"},
                                           {12345.678, 3, "12345.678"},
                                           {-7, 3, "-7.000"}}) {
        EXPECT_EQ(FixedDecimals(c.value, c.decimals), c.text) << c.value;
    }
}

TEST(NumberForms, FixedDecimalsReadsBackAsTheSameThousandth) {
    for (int thousandth = -250000; thousandth <= 250000; thousandth += 7) {
        const double value = thousandth / 1000.0;
        ASSERT_EQ(NumberFromText(FixedDecimals(value, 3)), value);
        ASSERT_EQ(NumberFromText(PlainDecimal(value)), value);
    }
}

TEST(NumberForms, Hexadecimal) {
    EXPECT_EQ(HexField(255, 4), "00FF");
    EXPECT_EQ(HexField(0, 2), "00");
    EXPECT_EQ(HexField(0x3FFFF, 6), "03FFFF");
    for (const std::int64_t bad : {std::int64_t{256}, std::int64_t{-1}, std::int64_t{1} << 40U}) {
        EXPECT_EQ(HexField(bad, 2), "X") << bad;
    }
    EXPECT_EQ(HexValue("03FfFf"), 0x3FFFF);
    EXPECT_EQ(HexValue("FFFFFFF"), 0xFFFFFFF);
    for (const char* bad : {"", "FFFFFFFF", "1G", " 1", "-1", "0x1", "1 "}) {
        EXPECT_THROW(HexValue(bad), Fault) << bad;
    }
    for (int value = 0; value <= 0xFFFF; value += 13) {
        ASSERT_EQ(HexValue(HexField(value, 4)), value);
    }
}

TEST(NumberForms, Texts) {
    EXPECT_EQ(PadLeft("50", 3), " 50");
    EXPECT_EQ(PadLeft("1000", 3), "1000");
    EXPECT_EQ(Trim("  a b "), "a b");
    EXPECT_EQ(Trim("   "), "");
    EXPECT_EQ(Mid("ABCDE", 2, 3), "BCD");
    EXPECT_EQ(Mid("ABCDE", 5, 3), "E");
    EXPECT_EQ(Mid("ABCDE", 6, 3), "");
    EXPECT_EQ(Mid("ABCDE", 60, 3), "");
}

} // namespace
} // namespace qdw8
