#include "data/Database.h"
#include "data/SqlFunc.h"

#include "TestSupport.h"

#include <zolt/Error.h>

#include <gtest/gtest.h>

using namespace zolt;

using test::errorNumberOf;

TEST(FixQuote, DoublesApostrophesAndDoubleQuotes)
{
    EXPECT_EQ(FixQuote(QStringLiteral("O'Neil")), "O''Neil");
    EXPECT_EQ(FixQuote(QStringLiteral("''")), "''''");
    EXPECT_EQ(FixQuote(QStringLiteral("say \"hi\"")), "say \"\"hi\"\"");
    EXPECT_EQ(FixQuote(QStringLiteral("'\"'")), "''\"\"''");
    EXPECT_EQ(FixQuote(QString()), "");
    EXPECT_EQ(FixQuote(QVariant()), "");
    EXPECT_EQ(FixQuote(QVariant(2.5)), "2.5");
}

TEST(SqlValue, LiteralByTypeCode)
{
    EXPECT_EQ(SqlValue(QStringLiteral("abc"), QStringLiteral("la")), "'%abc%'");
    EXPECT_EQ(SqlValue(QStringLiteral("abc"), QStringLiteral("LL")), "'%abc%'");
    EXPECT_EQ(SqlValue(QStringLiteral("abc"), QStringLiteral("LR")), "'abc%'");
    EXPECT_EQ(SqlValue(QStringLiteral("O'Neil"), QStringLiteral("s")), "'O''Neil'");
    EXPECT_EQ(SqlValue(QStringLiteral("O'Neil"), QString()), "'O''Neil'");
    EXPECT_EQ(SqlValue(QStringLiteral("01/02/2003"), QStringLiteral("D")), "#01/02/2003#");
    EXPECT_EQ(SqlValue(QStringLiteral("x'y"), QStringLiteral("d")), "#x'y#");
    EXPECT_EQ(SqlValue(QStringLiteral("x"), QStringLiteral("Z")), "");
}

TEST(SqlValue, DateDelimiterFollowsTheSwitch)
{
    DateQuoteFlag = true;
    EXPECT_EQ(SqlValue(QStringLiteral("01/02/2003"), QStringLiteral("D")), "'01/02/2003'");
    DateQuoteFlag = false;
    EXPECT_EQ(SqlValue(QStringLiteral("01/02/2003"), QStringLiteral("D")), "#01/02/2003#");
}

TEST(SqlValue, NumbersRoundHalfToEvenAndOverflow)
{
    EXPECT_EQ(SqlValue(QStringLiteral("2.5"), QStringLiteral("N")), "2");
    EXPECT_EQ(SqlValue(QStringLiteral("12.5"), QStringLiteral("N")), "12");
    EXPECT_EQ(SqlValue(QStringLiteral("13.5"), QStringLiteral("n")), "14");
    EXPECT_EQ(SqlValue(QStringLiteral("-7"), QStringLiteral("N")), "-7");
    EXPECT_EQ(SqlValue(QStringLiteral("1,000"), QStringLiteral("N")), "1000");
    EXPECT_EQ(SqlValue(QStringLiteral("abc"), QStringLiteral("N")), "0");
    EXPECT_EQ(SqlValue(QStringLiteral("1; DROP TABLE x"), QStringLiteral("N")), "0");
    EXPECT_EQ(SqlValue(QVariant(), QStringLiteral("N")), "0");
    EXPECT_EQ(errorNumberOf([] { SqlValue(QStringLiteral("3000000000"), QStringLiteral("N")); }), 6);
}

TEST(SqlQuote, LiteralByKindOrOne)
{
    EXPECT_EQ(SqlQuote(QStringLiteral("12"), 3), "12");
    EXPECT_EQ(SqlQuote(QStringLiteral("12x"), 3), "1");
    EXPECT_EQ(SqlQuote(QStringLiteral("31/12/2000"), 8), "#31/12/2000#");
    EXPECT_EQ(SqlQuote(QStringLiteral("31/31/2000"), 8), "1");
    EXPECT_EQ(SqlQuote(QStringLiteral("abc"), 10), "'abc '");
    EXPECT_EQ(SqlQuote(QStringLiteral("it's"), 10), "'it''s '");
    EXPECT_EQ(SqlQuote(QStringLiteral("x"), 5), "1");
}

TEST(AddValues, AppendsTheColumnAndItsValue)
{
    EXPECT_EQ(AddValues(QStringLiteral("Insert Into Options([Section],KeyName,KeyValue) "
                                       "Values('a','b','c')"),
                        QStringLiteral("Description"), QStringLiteral("d")),
              "Insert Into Options([Section],KeyName,KeyValue,Description) "
              "Values('a','b','c','d ')");
    EXPECT_EQ(AddValues(QStringLiteral("insert into T(A) values(1)"), QStringLiteral("B"),
                        QStringLiteral("O'Neil")),
              "insert into T(A,B) values(1,'O''Neil ')");
}

TEST(AddValues, TextWithoutItsParenthesesIsAnInvalidArgument)
{
    EXPECT_EQ(errorNumberOf([] { AddValues(QStringLiteral("Insert Into T Values(1)"),
                                           QStringLiteral("B"), QStringLiteral("x")); }), 5);
    EXPECT_EQ(errorNumberOf([] { AddValues(QStringLiteral("Insert Into T(A)"),
                                           QStringLiteral("B"), QStringLiteral("x")); }), 5);
    EXPECT_EQ(errorNumberOf([] { AddValues(QString(), QStringLiteral("B"), QStringLiteral("x")); }), 5);
}

TEST(AddSet, PutsTheAssignmentFirst)
{
    EXPECT_EQ(AddSet(QStringLiteral("Update Options Set KeyValue='c'  Where [Section]='a'"),
                     QStringLiteral("Description"), QStringLiteral("d")),
              "Update Options Set Description='d ',KeyValue='c'  Where [Section]='a'");
    EXPECT_EQ(AddSet(QStringLiteral("Update T Where A=1"), QStringLiteral("B"), QStringLiteral("x")), "");
    // The first "SET" of the text is taken, even inside a table name.
    EXPECT_EQ(AddSet(QStringLiteral("Update Settings Set A=1"), QStringLiteral("B"), QStringLiteral("x")),
              "Update SettB='x ',ings Set A=1");
}

TEST(ComposedStatements, RunOnSQLiteAndKeepTheTrailingBlank)
{
    test::TempDatabase db;
    db.exec(QStringLiteral("Create Table Options([Section] Text, KeyName Text, KeyValue Text, "
                           "Description Text)"));
    const QString insert = AddValues(
        QStringLiteral("Insert Into Options([Section],KeyName,KeyValue) Values(")
            + SqlValue(QStringLiteral("Config"), QStringLiteral("S")) + QLatin1Char(',')
            + SqlValue(QStringLiteral("Người's"), QStringLiteral("S")) + QLatin1Char(',')
            + SqlValue(QStringLiteral("a\"b"), QStringLiteral("S")) + QLatin1Char(')'),
        QStringLiteral("Description"), QStringLiteral("ghi chú"));
    Execute(insert);
    EXPECT_EQ(db.scalar(QStringLiteral("Select KeyName From Options")).toString(), "Người's");
    // Double quotes are doubled too, and inside apostrophes the database keeps both.
    EXPECT_EQ(db.scalar(QStringLiteral("Select KeyValue From Options")).toString(), "a\"\"b");
    EXPECT_EQ(db.scalar(QStringLiteral("Select Description From Options")).toString(), "ghi chú ");

    Execute(AddSet(QStringLiteral("Update Options Set KeyValue='c'  Where [Section]='Config'"),
                   QStringLiteral("Description"), QStringLiteral("it's")));
    EXPECT_EQ(db.scalar(QStringLiteral("Select Description From Options")).toString(), "it's ");
    EXPECT_EQ(db.scalar(QStringLiteral("Select KeyValue From Options")).toString(), "c");

    const QString pattern = QStringLiteral("Select Count(*) From Options Where KeyName Like ")
                            + SqlValue(QStringLiteral("'s"), QStringLiteral("LA"));
    EXPECT_EQ(db.scalar(pattern).toInt(), 1);
}
