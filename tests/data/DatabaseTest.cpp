#include "data/Database.h"
#include "data/Recordset.h"

#include "TestSupport.h"

#include <zolt/Error.h>

#include <gtest/gtest.h>

using namespace zolt;

TEST(DateLiterals, RewrittenToIsoTextMonthFirst)
{
    EXPECT_EQ(RewriteDateLiterals(QStringLiteral("Select * From T Where D=#02/01/2003#")),
              "Select * From T Where D='2003-02-01'");
    EXPECT_EQ(RewriteDateLiterals(QStringLiteral("D>=#1/2/98# And D<#12/31/2029#")),
              "D>='1998-01-02' And D<'2029-12-31'");
    EXPECT_EQ(RewriteDateLiterals(QStringLiteral("D=#02/01/0098#")), "D='1998-02-01'");
    EXPECT_EQ(RewriteDateLiterals(QStringLiteral("D=#02/01/0100#")), "D='0100-02-01'");
    EXPECT_EQ(RewriteDateLiterals(QStringLiteral("D=#1/2/2003 9:05#")), "D='2003-01-02 09:05:00'");
}

TEST(DateLiterals, QuotedTextAndNonDatesStayAsTheyAre)
{
    EXPECT_EQ(RewriteDateLiterals(QStringLiteral("N='#1/2/2003#' And D=#1/2/2003#")),
              "N='#1/2/2003#' And D='2003-01-02'");
    EXPECT_EQ(RewriteDateLiterals(QStringLiteral("N='it''s #1/2/2003#' Or M=\"#1/2/2003#\"")),
              "N='it''s #1/2/2003#' Or M=\"#1/2/2003#\"");
    EXPECT_EQ(RewriteDateLiterals(QStringLiteral("N=#abc# Or D=#13/13/2003#")),
              "N=#abc# Or D=#13/13/2003#");
    EXPECT_EQ(RewriteDateLiterals(QStringLiteral("N='unterminated #1/2/2003#")),
              "N='unterminated #1/2/2003#");
    EXPECT_EQ(RewriteDateLiterals(QStringLiteral("a # b")), "a # b");
}

class DatabaseTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        db.exec(QStringLiteral("Create Table Sales(Code Integer, [Name] Text, Sold Date, Note Text)"));
        db.exec(QStringLiteral("Insert Into Sales Values(1, 'Bánh', '2003-01-02', Null)"));
        db.exec(QStringLiteral("Insert Into Sales Values(2, 'Cà phê', '2003-02-01', 'x')"));
        db.exec(QStringLiteral("Insert Into Sales Values(3, 'Trà', '2004-03-05', 'y')"));
    }
    test::TempDatabase db;
};

TEST_F(DatabaseTest, HashDatesRunOnSQLite)
{
    Recordset rs;
    ASSERT_EQ(rs.Open(QStringLiteral("Select [Name] From Sales Where Sold=#02/01/2003#")), 0);
    ASSERT_FALSE(rs.Eof());
    EXPECT_EQ(rs.Value(QStringLiteral("Name")).toString(), "Cà phê");
    rs.MoveNext();
    EXPECT_TRUE(rs.Eof());

    ASSERT_EQ(rs.Open(QStringLiteral("Select Count(*) From Sales Where Sold>#1/2/2003# "
                                     "And Sold<=#3/5/2004#")), 0);
    EXPECT_EQ(rs.Value(0).toInt(), 2);
}

TEST_F(DatabaseTest, RecordsetWalksAndReadsFields)
{
    Recordset rs;
    ASSERT_EQ(rs.Open(QStringLiteral("Select * From Sales Order By Code")), 0);
    EXPECT_EQ(rs.FieldCount(), 4);
    EXPECT_EQ(rs.FieldName(1), "Name");
    EXPECT_EQ(rs.Value(QStringLiteral("code")).toInt(), 1);     // names match without case
    EXPECT_TRUE(rs.Value(QStringLiteral("Note")).isNull());
    EXPECT_FALSE(rs.Value(QStringLiteral("Note")).isValid());   // Null is a null QVariant
    rs.MoveLast();
    EXPECT_EQ(rs.Value(0).toInt(), 3);
    rs.MoveFirst();
    EXPECT_EQ(rs.Value(0).toInt(), 1);
    int rows = 0;
    for (; !rs.Eof(); rs.MoveNext())
        ++rows;
    EXPECT_EQ(rows, 3);
}

TEST_F(DatabaseTest, RecordsetFailuresCarryTheirNumbers)
{
    Recordset rs;
    EXPECT_EQ(rs.Open(QStringLiteral("Select * From Missing")), Error::DatabaseFailure);
    EXPECT_TRUE(rs.Eof());
    EXPECT_TRUE(rs.LastErrorText().contains(QStringLiteral("Missing")));

    ASSERT_EQ(rs.Open(QStringLiteral("Select * From Sales Where Code=99")), 0);
    EXPECT_TRUE(rs.Eof());
    try {
        rs.Value(0);
        FAIL() << "no error at the end of the record set";
    } catch (const Error &e) {
        EXPECT_EQ(e.number(), Error::NoCurrentRecord);
    }
    try {
        rs.Value(QStringLiteral("Nope"));
        FAIL() << "no error for an unknown column";
    } catch (const Error &e) {
        EXPECT_EQ(e.number(), Error::ItemNotFound);
    }
}

TEST_F(DatabaseTest, ExecuteRaisesTheDriversMessage)
{
    Execute(QStringLiteral("Update Sales Set Note='z' Where Sold=#3/5/2004#"));
    EXPECT_EQ(db.scalar(QStringLiteral("Select Note From Sales Where Code=3")).toString(), "z");
    try {
        Execute(QStringLiteral("Delete From Missing"));
        FAIL() << "no error for a missing table";
    } catch (const Error &e) {
        EXPECT_EQ(e.number(), -2147217900);
        EXPECT_TRUE(e.description().contains(QStringLiteral("no such table")));
    }
}

TEST(DatabaseClosed, QueriesFailWithoutCrashing)
{
    CurrentConnection = QSqlDatabase();
    Recordset rs;
    EXPECT_EQ(rs.Open(QStringLiteral("Select 1")), Error::DatabaseFailure);
    EXPECT_TRUE(rs.Eof());
    try {
        Execute(QStringLiteral("Delete From T"));
        FAIL() << "no error on a closed connection";
    } catch (const Error &e) {
        EXPECT_EQ(e.number(), Error::DatabaseFailure);
    }
}
