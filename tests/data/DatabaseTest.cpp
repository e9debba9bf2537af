// SPDX-License-Identifier: MIT
#include "data/CaseBlindText.h"
#include "data/Database.h"
#include "data/Recordset.h"

#include "TestSupport.h"

#include <zolt/Error.h>

using namespace zolt;
using namespace Qt::StringLiterals;
using test::errorNumberOf;

TEST(DateLiterals, RewrittenMonthFirstOutsideQuotedText)
{
    for (const auto &[sql, rewritten] : {
             std::pair{u"D>=#1/2/98# And D<#12/31/2029#"_s, u"D>='1998-01-02' And D<'2029-12-31'"_s},
             {u"D=#02/01/0100#"_s, u"D='0100-02-01'"_s}, {u"D=#1/2/2003 9:05#"_s, u"D='2003-01-02 09:05:00'"_s},
             {u"N='it''s #1/2/2003#' Or M=\"#1/2/2003#\""_s, u"N='it''s #1/2/2003#' Or M=\"#1/2/2003#\""_s},
             {u"N=#abc# Or D=#13/13/2003#"_s, u"N=#abc# Or D=#13/13/2003#"_s},
             {u"N='unterminated #1/2/2003#"_s, u"N='unterminated #1/2/2003#"_s},
             {u"D=#1/2/2003#'a' Or 'b'#1/2/2003#"_s, u"D='2003-01-02' 'a' Or 'b' '2003-01-02'"_s}})
        EXPECT_EQ(RewriteDateLiterals(sql), rewritten);
}

TEST(CaseBlindLike, MatchesAsTheOriginalEngine)
{
    for (const auto &[pattern, text, matches] : {
             std::tuple{u"bánh%"_s, u"BÁNH QUY"_s, true}, {u"%ỗ%"_s, u"ĐỖ VĂN"_s, true}, {u"_ỗ"_s, u"ĐỖ"_s, true},
             {u"%a%b%c"_s, u"xaxbxbxc"_s, true}, {u"a%"_s, u"ba"_s, false}, {u"a_"_s, u"a"_s, false},
             {u"100!%"_s, u"100%"_s, true}, {u"100!%"_s, u"1000"_s, false}, {u"%"_s, QString(), true}})
        EXPECT_EQ(CaseBlindLike(pattern, text, u'!'), matches) << pattern.toStdString() << " " << text.toStdString();
}

class DatabaseTest : public ::testing::TestWithParam<test::Engine> {
protected:
    void SetUp() override
    {
        db.exec(u"Create Table Sales(Code Integer, [Name] Text, Sold Date, Note Text)"_s);
        db.exec(u"Insert Into Sales Values(1, 'Bánh', '2003-01-02', Null), (2, 'Cà phê', '2003-02-01', 'x'), "
                "(3, 'Trà', '2004-03-05', 'y')"_s);
    }
    test::TempDatabase db{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Engines, DatabaseTest, ::testing::ValuesIn(test::Engines), test::EngineName);

TEST_P(DatabaseTest, RecordsetWalksReadsAndFindsHashDates)
{
    Recordset rs;
    ASSERT_EQ(rs.Open(u"Select * From Sales Where Sold>=#1/2/2003# Order By Code"_s), 0);
    EXPECT_EQ(rs.FieldName(1).toLower(), "name");   // as the engine spells it
    EXPECT_EQ(rs.Value(u"code"_s).toInt(), 1);     // names match without case
    EXPECT_FALSE(rs.Value(u"Note"_s).isValid());   // Null is a null QVariant
    rs.MoveLast();
    EXPECT_EQ(rs.Value(0).toInt(), 3);
    int rows = 0;
    for (rs.MoveFirst(); !rs.Eof(); rs.MoveNext())
        ++rows;
    EXPECT_EQ(rows, 3);
    EXPECT_EQ(errorNumberOf([&] { rs.Value(0); }), Error::NoCurrentRecord);
    EXPECT_EQ(errorNumberOf([&] { rs.Value(u"Nope"_s); }), Error::ItemNotFound);
}

TEST_P(DatabaseTest, FailuresCarryTheDatabaseNumberAndMessage)
{
    Recordset rs;
    EXPECT_EQ(rs.Open(u"Select * From Missing"_s), Error::DatabaseFailure);
    EXPECT_TRUE(rs.Eof() && rs.LastErrorText().contains(u"missing"_s, Qt::CaseInsensitive));
    Execute(u"Update Sales Set Note='z' Where Sold=#3/5/2004#"_s);
    EXPECT_EQ(db.scalar(u"Select Note From Sales Where Code=3"_s).toString(), "z");
    try {
        Execute(u"Delete From Missing"_s);
        ADD_FAILURE() << "no error for a missing table";
    } catch (const Error &e) {
        EXPECT_EQ(e.number(), Error::DatabaseFailure);
        EXPECT_TRUE(e.description().contains(u"missing"_s, Qt::CaseInsensitive));
    }
    if (!db.traced()) {   // a server that went down
        db.dropConnection();
        EXPECT_EQ(rs.Open(u"Select * From Sales"_s), Error::DatabaseFailure);
        EXPECT_EQ(errorNumberOf([] { Execute(u"Delete From Sales"_s); }), Error::DatabaseFailure);
    }
    db.db().close();
    EXPECT_EQ(rs.Open(u"Select 1"_s), Error::DatabaseFailure);
    EXPECT_EQ(errorNumberOf([] { Execute(u"Delete From Sales"_s); }), Error::DatabaseFailure);
}

TEST_P(DatabaseTest, ABackslashEndingATextNeverEndsItsLiteral)
{
    for (const char *escapes : {"on", "off"}) {   // PostgreSQL reads backslash escapes with it off
        if (db.engine() != test::Engine::SQLite)
            db.exec(u"SET standard_conforming_strings = "_s + QLatin1String(escapes));
        Execute(u"Update Sales Set Note='C:\\' Where Code=1 Or [Name]='x\\'"_s);
        EXPECT_EQ(db.scalar(u"Select Note From Sales Where Code=1"_s).toString(), u"C:\\"_s) << escapes;
        EXPECT_EQ(db.scalar(u"Select Count(*) From Sales Where Note='C:\\'"_s).toInt(), 1) << escapes;
    }
}
