#include "data/Conversions.h"

#include "TestSupport.h"

#include <zolt/Error.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace zolt;

using test::errorNumberOf;

TEST(DoubleToText, PlainFormBetweenOneTenThousandthAndTenToTheFifteen)
{
    EXPECT_EQ(DoubleToText(0), "0");
    EXPECT_EQ(DoubleToText(329), "329");
    EXPECT_EQ(DoubleToText(-2.5), "-2.5");
    EXPECT_EQ(DoubleToText(0.5), "0.5");
    EXPECT_EQ(DoubleToText(0.0001), "0.0001");
    EXPECT_EQ(DoubleToText(123.456), "123.456");
    EXPECT_EQ(DoubleToText(1e14), "100000000000000");
    EXPECT_EQ(DoubleToText(999999999999999.0), "999999999999999");
}

TEST(DoubleToText, RoundsToFifteenSignificantDigits)
{
    EXPECT_EQ(DoubleToText(0.1 + 0.2), "0.3");
    EXPECT_EQ(DoubleToText(1.0 / 3.0), "0.333333333333333");
    EXPECT_EQ(DoubleToText(2.0 / 3.0), "0.666666666666667");
    // Rounding can carry into a new digit and so into the exponent form.
    EXPECT_EQ(DoubleToText(999999999999999.9), "1E+15");
}

TEST(DoubleToText, ExponentFormOutsideThePlainRange)
{
    EXPECT_EQ(DoubleToText(123456789012345678.0), "1.23456789012346E+17");
    EXPECT_EQ(DoubleToText(1e15), "1E+15");
    EXPECT_EQ(DoubleToText(0.00001), "1E-05");
    EXPECT_EQ(DoubleToText(-0.000012345), "-1.2345E-05");
    EXPECT_EQ(DoubleToText(1e100), "1E+100");
    EXPECT_EQ(DoubleToText(2.5e-300), "2.5E-300");
}

TEST(DoubleToText, NonFiniteValuesOverflow)
{
    EXPECT_EQ(errorNumberOf([] { DoubleToText(std::numeric_limits<double>::infinity()); }), 6);
    EXPECT_EQ(errorNumberOf([] { DoubleToText(std::nan("")); }), 6);
}

TEST(RoundToLong, RoundsHalfToEven)
{
    EXPECT_EQ(RoundToLong(2.5), 2);
    EXPECT_EQ(RoundToLong(3.5), 4);
    EXPECT_EQ(RoundToLong(12.5), 12);
    EXPECT_EQ(RoundToLong(13.5), 14);
    EXPECT_EQ(RoundToLong(-2.5), -2);
    EXPECT_EQ(RoundToLong(-3.5), -4);
    EXPECT_EQ(RoundToLong(2.4999), 2);
    EXPECT_EQ(RoundToLong(-2147483648.5), -2147483648);
    EXPECT_EQ(RoundToLong(2147483647.4), 2147483647);
}

TEST(RoundToLong, OverflowsPastTheThirtyTwoBitRange)
{
    EXPECT_EQ(errorNumberOf([] { RoundToLong(2147483647.5); }), 6);
    EXPECT_EQ(errorNumberOf([] { RoundToLong(-2147483649.0); }), 6);
    EXPECT_EQ(errorNumberOf([] { RoundToLong(1e20); }), 6);
    EXPECT_EQ(errorNumberOf([] { RoundToLong(std::nan("")); }), 6);
}

TEST(IsNumeric, AcceptsTheRuntimesNumberForms)
{
    for (const char *text : {"12", " 12 ", "-1.5", "+3", "1,234.5", "1,2", "1e5", "1.5E-3",
                             ".5", "1.", "007"})
        EXPECT_TRUE(IsNumeric(QString::fromLatin1(text))) << text;
}

TEST(IsNumeric, RejectsEverythingElse)
{
    for (const char *text : {"", " ", "abc", "12x", "1,,2", ",1", "1,", "1.2.3", "--1", "1e",
                             ".", "- 1", "1 2"})
        EXPECT_FALSE(IsNumeric(QString::fromLatin1(text))) << text;
}

TEST(IsNumeric, OfVariants)
{
    EXPECT_TRUE(IsNumeric(QVariant(12)));
    EXPECT_TRUE(IsNumeric(QVariant(2.5)));
    EXPECT_TRUE(IsNumeric(QVariant(QStringLiteral("1,000"))));
    EXPECT_FALSE(IsNumeric(QVariant()));
    EXPECT_FALSE(IsNumeric(QVariant(QStringLiteral("x"))));
    EXPECT_DOUBLE_EQ(ToDouble(QVariant(QStringLiteral(" 1,234.5 "))), 1234.5);
    EXPECT_DOUBLE_EQ(ToDouble(QVariant(true)), -1.0);
    EXPECT_EQ(errorNumberOf([] { ToDouble(QVariant(QStringLiteral("x"))); }), 13);
    EXPECT_EQ(errorNumberOf([] { ToDouble(QVariant()); }), 13);
}

TEST(IsDate, AcceptsRealDatesWrittenDayFirst)
{
    for (const char *text : {"31/12/2003", "1/2/3", "#1/2/2003#", " 29/2/2004 ", "05/03/98",
                             "1/1/100", "31/1/9999", "1/2/099"})
        EXPECT_TRUE(IsDate(QString::fromLatin1(text))) << text;
    EXPECT_EQ(*ParseDayFirstDate(QStringLiteral("5/3/2004")), QDate(2004, 3, 5));
    EXPECT_EQ(*ParseDayFirstDate(QStringLiteral("1/2/29")), QDate(2029, 2, 1));
    EXPECT_EQ(*ParseDayFirstDate(QStringLiteral("1/2/30")), QDate(1930, 2, 1));
    EXPECT_EQ(*ParseDayFirstDate(QStringLiteral("1/2/0098")), QDate(1998, 2, 1));
}

TEST(IsDate, RejectsImpossibleAndMalformedDates)
{
    for (const char *text : {"29/2/2003", "31/31/2000", "32/1/2000", "0/1/2000", "1/2",
                             "#1/2/2003", "123/1/2000", "1/2/20031", "aa", "",
                             "1-2-2003"})
        EXPECT_FALSE(IsDate(QString::fromLatin1(text))) << text;
}

TEST(TextHelpers, VariantTextAndOneBasedPositions)
{
    EXPECT_EQ(VariantToText(QVariant()), "");
    EXPECT_EQ(VariantToText(QVariant(2.5)), "2.5");
    EXPECT_EQ(VariantToText(QVariant(1e20)), "1E+20");
    EXPECT_EQ(VariantToText(QVariant(true)), "True");
    EXPECT_EQ(VariantToText(QVariant(12)), "12");

    EXPECT_EQ(InStr(QStringLiteral("abcabc"), QStringLiteral("c")), 3);
    EXPECT_EQ(InStr(4, QStringLiteral("abcabc"), QStringLiteral("c")), 6);
    EXPECT_EQ(InStr(QStringLiteral("abc"), QStringLiteral("x")), 0);
    EXPECT_EQ(Mid(QStringLiteral("abcdef"), 2, 3), "bcd");
    EXPECT_EQ(errorNumberOf([] { Mid(QStringLiteral("abc"), 0); }), 5);

    EXPECT_EQ(UCase(QStringLiteral("người")), QStringLiteral("NGƯỜI"));
    EXPECT_EQ(Trim(QStringLiteral("  a b \t ")), QStringLiteral("a b \t"));
}
