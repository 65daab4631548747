#include "support/Val.h"

#include "support/Error.h"
#include "tests/Errors.h"

#include <gtest/gtest.h>

using namespace support;

namespace {
struct ValCase {
    const char *text;
    double number;
};
constexpr ValCase kCases[] = {
    {"", 0},        {"12", 12},    {"  12", 12},   {"12 34", 1234},    {"\t7\n", 7},       {"-3.5x", -3.5},
    {"+4", 4},      {".5", .5},    {"5.", 5},      {"1.2.3", 1.2},     {"1,5", 1},         {"1e3", 1000},
    {"1D-2", .01},  {"2e", 2},     {"2e+", 2},     {"abc", 0},         {"-", 0},           {".", 0},
    {"1 Level", 1}, {"&HFF", 255}, {"&hFFFF", -1}, {"&H10000", 65536}, {"&HFFFFFFFF", -1}, {"&O17", 15},
    {"&H", 0},      {"&HG", 0},    {"--1", 0},     {"True", 0},        {"1e-400", 0},      {"€", 0},
};
} // namespace

TEST(Val, ReadsTheNumberAtTheBeginningAndNoMore) {
    for (const ValCase &row : kCases)
        EXPECT_DOUBLE_EQ(Val(QString::fromUtf8(row.text)), row.number) << row.text;
}

TEST(Val, RaisesOverflowAboveADouble) {
    for (const char *text : {"1e400", "-1e400", "&HFFFFFFFFF"}) {
        EXPECT_EQ(tests::NumberOf([&] { Val(text); }), 6) << text;
    }
}

TEST(CBool, TakesTheTwoWordsAndNumbers) {
    for (const char *text : {"True", "true", "TRUE", " True ", "1", "-1", "0.1", "1e3"})
        EXPECT_TRUE(CBool(text)) << text;
    for (const char *text : {"False", "false", "0", "0.0", "-0"}) EXPECT_FALSE(CBool(text)) << text;
}

TEST(CBool, RaisesTypeMismatchForEverythingElse) {
    for (const char *text : {"", " ", "yes", "1x", "Tru", "nan", "inf"}) {
        const Error error = tests::ErrorOf([&] { CBool(text); });
        EXPECT_EQ(error.Number(), 13) << text;
        EXPECT_EQ(error.Description(), "Type mismatch") << text;
    }
}

TEST(CLng, RoundsHalvesToEvenAndRaisesOverflow) {
    EXPECT_EQ(CLng(0.5), 0);
    EXPECT_EQ(CLng(1.5), 2);
    EXPECT_EQ(CLng(-2.5), -2);
    EXPECT_EQ(CLng(2147483647.0), 2147483647);
    EXPECT_THROW(CLng(2147483648.0), Error);
    EXPECT_THROW(CInt(32768), Error);
    EXPECT_EQ(CInt(-32768), -32768);
}

TEST(CStr, WritesNumbersWithoutLocale) {
    EXPECT_EQ(CStr(0.0), "0");
    EXPECT_EQ(CStr(-0.0), "0");
    EXPECT_EQ(CStr(1234.5), "1234.5");
    EXPECT_EQ(CStr(0.1f), "0.1");
    EXPECT_EQ(CStr(0.1), "0.1");
    EXPECT_EQ(CStr(1e20), "1E+20");
}
