// SPDX-License-Identifier: MIT
#include "data/Database.h"
#include "data/Recordset.h"

#include "TestSupport.h"

#include <zolt/Error.h>

#include <gtest/gtest.h>

using namespace zolt;
using test::errorNumberOf;

TEST(DateLiterals, RewrittenMonthFirstOutsideQuotedText)
{
    const std::pair<const char *, const char *> cases[] = {
        {"D>=#1/2/98# And D<#12/31/2029#", "D>='1998-01-02' And D<'2029-12-31'"},
        {"D=#02/01/0100#", "D='0100-02-01'"},
        {"D=#1/2/2003 9:05#", "D='2003-01-02 09:05:00'"},
        {"N='it''s #1/2/2003#' Or M=\"#1/2/2003#\"", "N='it''s #1/2/2003#' Or M=\"#1/2/2003#\""},
        {"N=#abc# Or D=#13/13/2003#", "N=#abc# Or D=#13/13/2003#"},
        {"N='unterminated #1/2/2003#", "N='unterminated #1/2/2003#"}};
    for (const auto &[sql, rewritten] : cases)
        EXPECT_EQ(RewriteDateLiterals(QString::fromUtf8(sql)), rewritten);
}

class DatabaseTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        db.exec(QStringLiteral("Create Table Sales(Code Integer, [Name] Text, Sold Date, Note Text)"));
        db.exec(QStringLiteral("Insert Into Sales Values(1, 'Bánh', '2003-01-02', Null), "
                               "(2, 'Cà phê', '2003-02-01', 'x'), (3, 'Trà', '2004-03-05', 'y')"));
    }
    test::TempDatabase db;
};

TEST_F(DatabaseTest, RecordsetWalksReadsAndFindsHashDates)
{
    Recordset rs;
    ASSERT_EQ(rs.Open(QStringLiteral("Select * From Sales Where Sold>=#1/2/2003# Order By Code")), 0);
    EXPECT_EQ(rs.FieldName(1), "Name");
    EXPECT_EQ(rs.Value(QStringLiteral("code")).toInt(), 1);     // names match without case
    EXPECT_FALSE(rs.Value(QStringLiteral("Note")).isValid());   // Null is a null QVariant
    rs.MoveLast();
    EXPECT_EQ(rs.Value(0).toInt(), 3);
    int rows = 0;
    for (rs.MoveFirst(); !rs.Eof(); rs.MoveNext())
        ++rows;
    EXPECT_EQ(rows, 3);
    EXPECT_EQ(errorNumberOf([&] { rs.Value(0); }), Error::NoCurrentRecord);
    EXPECT_EQ(errorNumberOf([&] { rs.Value(QStringLiteral("Nope")); }), Error::ItemNotFound);
}

TEST_F(DatabaseTest, FailuresCarryTheDatabaseNumberAndMessage)
{
    Recordset rs;
    EXPECT_EQ(rs.Open(QStringLiteral("Select * From Missing")), Error::DatabaseFailure);
    EXPECT_TRUE(rs.Eof());
    EXPECT_TRUE(rs.LastErrorText().contains(QStringLiteral("Missing")));
    Execute(QStringLiteral("Update Sales Set Note='z' Where Sold=#3/5/2004#"));
    EXPECT_EQ(db.scalar(QStringLiteral("Select Note From Sales Where Code=3")).toString(), "z");
    try {
        Execute(QStringLiteral("Delete From Missing"));
        FAIL() << "no error for a missing table";
    } catch (const Error &e) {
        EXPECT_EQ(e.number(), Error::DatabaseFailure);
        EXPECT_TRUE(e.description().contains(QStringLiteral("no such table")));
    }
    db.db().close();
    EXPECT_EQ(rs.Open(QStringLiteral("Select 1")), Error::DatabaseFailure);
    EXPECT_EQ(errorNumberOf([] { Execute(QStringLiteral("Delete From Sales")); }), Error::DatabaseFailure);
}
