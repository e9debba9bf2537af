// SPDX-License-Identifier: MIT
#include "core/base/Conversions.h"

#include "TestSupport.h"

#include <cmath>
#include <limits>

using namespace zolt;
using test::errorNumberOf;

TEST(DoubleToText, FifteenDigitsPlainOrWithExponent)
{
    const std::pair<double, const char *> cases[] = {
        {0, "0"}, {329, "329"}, {-2.5, "-2.5"}, {0.0001, "0.0001"}, {1e14, "100000000000000"},
        {0.1 + 0.2, "0.3"}, {2.0 / 3.0, "0.666666666666667"},
        {999999999999999.9, "1E+15"},   // rounding carries into the exponent form
        {123456789012345678.0, "1.23456789012346E+17"}, {0.00001, "1E-05"},
        {-0.000012345, "-1.2345E-05"}, {2.5e-300, "2.5E-300"}};
    for (const auto &[value, text] : cases)
        EXPECT_EQ(DoubleToText(value), text);
    EXPECT_EQ(errorNumberOf([] { DoubleToText(std::numeric_limits<double>::infinity()); }), 6);
    EXPECT_EQ(errorNumberOf([] { DoubleToText(std::nan("")); }), 6);
}

TEST(RoundToLong, HalfToEvenWithinThirtyTwoBits)
{
    const std::pair<double, qint32> cases[] = {{2.5, 2}, {3.5, 4}, {-2.5, -2}, {-3.5, -4}, {2.4999, 2},
                                               {-2147483648.5, -2147483647 - 1}, {2147483647.4, 2147483647}};
    for (const auto &[value, rounded] : cases)
        EXPECT_EQ(RoundToLong(value), rounded) << value;
    for (double value : {2147483647.5, -2147483649.0, std::nan("")})
        EXPECT_EQ(errorNumberOf([value] { RoundToLong(value); }), 6) << value;
    EXPECT_EQ(LngVal(QStringLiteral("12.5")), 12);
    EXPECT_EQ(LngVal(QStringLiteral("abc")), 0);
    EXPECT_EQ(NumVal(QStringLiteral("13.5")), 14.0);
}

TEST(IsNumeric, TheRuntimesNumberForms)
{
    for (const char *text : {"12", " 12 ", "-1.5", "+3", "1,234.5", "1e5", "1.5E-3", ".5", "1.", "007"})
        EXPECT_TRUE(IsNumeric(QString::fromLatin1(text))) << text;
    for (const char *text : {"", "abc", "12x", "1,,2", ",1", "1,", "1.2.3", "--1", "1e", ".", "- 1"})
        EXPECT_FALSE(IsNumeric(QString::fromLatin1(text))) << text;
    EXPECT_FALSE(IsNumeric(QVariant()));
    EXPECT_DOUBLE_EQ(ToDouble(QVariant(QStringLiteral(" 1,234.5 "))), 1234.5);
    EXPECT_DOUBLE_EQ(ToDouble(QVariant(true)), -1.0);   // True is -1
    EXPECT_EQ(errorNumberOf([] { ToDouble(QVariant(QStringLiteral("x"))); }), 13);
    EXPECT_EQ(errorNumberOf([] { ToDouble(QVariant()); }), 13);
    EXPECT_EQ(errorNumberOf([] { ToDouble(QStringLiteral("4e333")); }), 6);   // numeric, but no Double holds it
}

TEST(IsDate, RealDatesWrittenDayFirst)
{
    for (const char *text : {"31/12/2003", "1/2/3", "#1/2/2003#", " 29/2/2004 ", "1/1/100", "1/2/099"})
        EXPECT_TRUE(IsDate(QString::fromLatin1(text))) << text;
    for (const char *text : {"29/2/2003", "32/1/2000", "0/1/2000", "1/2", "#1/2/2003", "1/2/20031", "1-2-2003"})
        EXPECT_FALSE(IsDate(QString::fromLatin1(text))) << text;
    // Two-digit years fall in 1930..2029.
    EXPECT_EQ(*ParseDayFirstDate(QStringLiteral("1/2/29")), QDate(2029, 2, 1));
    EXPECT_EQ(*ParseDayFirstDate(QStringLiteral("1/2/0098")), QDate(1998, 2, 1));
}

TEST(TextHelpers, VariantTextAndOneBasedPositions)
{
    EXPECT_EQ(VariantToText(QVariant(1e20)) + VariantToText(QVariant(true)) + VariantToText(QVariant()), "1E+20True");
    EXPECT_EQ(InStr(4, QStringLiteral("abcabc"), QStringLiteral("c")), 6);
    EXPECT_EQ(errorNumberOf([] { Mid(QStringLiteral("abc"), 0); }), 5);
    EXPECT_EQ(Trim(QStringLiteral("  a b \t ")), QStringLiteral("a b \t"));   // spaces only
}
