// SPDX-License-Identifier: MIT
#include "core/database/CaseBlindText.h"
#include "core/database/ClerkComparisons.h"
#include "core/database/Database.h"
#include "core/database/Recordset.h"

#include "TestSupport.h"

#include <zolt/Error.h>

#include <QLoggingCategory>
#include <QSqlError>
#include <QSqlQuery>

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

// The comparisons the library puts on an SQLite connection, as SQL runs them:
// LIKE (with an escape), zolt_bare_like, and = under the collation NOCASE.
TEST(SQLiteText, CaseBlindAndAccentBlindAsAClerkTypes)
{
    test::TempDatabase db;
    const char *const like = "Select ? Like ? Escape '!'", *const bare = "Select zolt_bare_like(?, ?)",
                      *const same = "Select ? = ? Collate NoCase";
    for (const auto &[sql, text, pattern, matches] : {
             std::tuple{like, u"BÁNH QUY"_s, u"bánh%"_s, true}, {like, u"ĐỖ VĂN"_s, u"%ỗ%"_s, true},
             {like, u"ĐỖ"_s, u"_ỗ"_s, true}, {like, u"xaxbxbxc"_s, u"%a%b%c"_s, true}, {like, u"ba"_s, u"a%"_s, false},
             {like, u"a"_s, u"a_"_s, false}, {like, u"100%"_s, u"100!%"_s, true}, {like, u"1000"_s, u"100!%"_s, false},
             {like, u""_s, u"%"_s, true}, {like, u"Bánh quy"_s, u"banh%"_s, false},
             {like, u"Ba\u0301nh quy"_s /* stored decomposed */, u"bánh%"_s, true},
             {bare, u"Bảnh"_s, u"banh%"_s, true}, {bare, u"Đường"_s, u"d%"_s, true},
             {bare, u"Nguye\u0302\u0303n Văn"_s, u"nguyen _an"_s, true}, {bare, u"Bánh quy"_s, u"banh"_s, false},
             {same, u"Ba\u0301nh"_s, u"BÁNH"_s, true}, {same, u"Bánh"_s, u"Banh"_s, false}}) {
        QSqlQuery query(db.db());
        query.prepare(QLatin1String(sql));
        query.addBindValue(text);
        query.addBindValue(pattern);
        ASSERT_TRUE(query.exec() && query.next()) << sql;
        EXPECT_EQ(query.value(0).toInt() == 1, matches) << sql << " " << text.toStdString() << " " << pattern.toStdString();
    }
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
    if (!db.traced()) {   // a server that went down: the read runs again on the connection opened again
        db.dropConnection();
        if (db.engine() == test::Engine::MariaDB) {
            EXPECT_EQ(rs.Open(u"Select * From Sales"_s), 0);
        } else {   // where the test's own schema is no longer on the search path
            EXPECT_EQ(rs.Open(u"Select * From Sales"_s), Error::DatabaseFailure);
            EXPECT_EQ(errorNumberOf([] { Execute(u"Delete From Sales"_s); }), Error::DatabaseFailure);
        }
    }
    db.db().close();
    EXPECT_EQ(rs.Open(u"Select 1"_s), Error::DatabaseFailure);
    EXPECT_EQ(errorNumberOf([] { Execute(u"Delete From Sales"_s); }), Error::DatabaseFailure);
}

TEST_P(DatabaseTest, ABackslashEndingATextNeverEndsItsLiteral)
{
    // PostgreSQL reads backslash escapes with standard_conforming_strings off,
    // MariaDB without NO_BACKSLASH_ESCAPES in its sql_mode.
    for (const char *escapes : {"on", "off"}) {
        if (db.engine() == test::Engine::MariaDB)
            db.exec(u"SET SESSION sql_mode = "_s + (qstrcmp(escapes, "on") == 0 ? u"'NO_BACKSLASH_ESCAPES'"_s : u"''"_s));
        else if (db.engine() != test::Engine::SQLite)
            db.exec(u"SET standard_conforming_strings = "_s + QLatin1String(escapes));
        Execute(u"Update Sales Set Note='C:\\' Where Code=1 Or [Name]='x\\'"_s);
        EXPECT_EQ(db.scalar(u"Select Note From Sales Where Code=1"_s).toString(), u"C:\\"_s) << escapes;
        EXPECT_EQ(db.scalar(u"Select Count(*) From Sales Where Note='C:\\'"_s).toInt(), 1) << escapes;
    }
}

// What a clerk types finds what he means, on every engine: case never
// matters, no marks typed finds marked text, marks typed must match, text
// stored decomposed is found as composed.
TEST_P(DatabaseTest, ClerkConditionsFollowOneRuleOnEveryEngine)
{
    if (db.engine() != test::Engine::SQLite)
        db.createLibraryTables();   // the shipped schema brings the functions
    else
        db.exec(u"Create Table Options([Section] Text, KeyName Text, KeyValue Text, Description Text)"_s);
    db.exec(u"Create Table Hang(Ten Text)"_s);
    for (const QString &name : {u"Bánh quy"_s, u"Bảnh"_s, u"banh mì"_s, u"Ba\u0301nh dẻo"_s, u"Đường cát"_s,
                                u"Duong"_s, u"Khách \"VIP\""_s})
        db.exec(u"Insert Into Hang Values('"_s + QString(name).replace(u'"', u"\"\""_s) + u"')"_s);
    const auto found = [&](const QString &condition) {
        QStringList names;
        QSqlQuery query(db.db());
        EXPECT_TRUE(query.exec(DriverSql(db.db(), u"Select Ten From Hang Where "_s) + ConditionSql(db.db(), condition)
                               + u" Order By Ten"_s))
            << ConditionSql(db.db(), condition).toStdString() << query.lastError().text().toStdString();
        while (query.next())
            names << query.value(0).toString().normalized(QString::NormalizationForm_C);
        names.sort();
        return names.join(u'|');
    };
    for (const auto &[condition, names] : {
             std::pair{u"(Ten  LIKE  'banh%')"_s, u"Bánh dẻo|Bánh quy|Bảnh|banh mì"_s},
             {u"(Ten  LIKE  'BÁNH%')"_s, u"Bánh dẻo|Bánh quy"_s}, {u"([Ten]  =  'duong cat')"_s, u"Đường cát"_s},
             {u"(Ten  LIKE  'd%')"_s, u"Duong|Đường cát"_s}, {u"(Ten  =  'đường cát')"_s, u"Đường cát"_s},
             {u"(Ten  <>  'banh mi')"_s, u"Bánh dẻo|Bánh quy|Bảnh|Duong|Khách \"VIP\"|Đường cát"_s},
             {u"(Ten  IN  ('duong','bảnh'))"_s, u"Bảnh|Duong"_s} /* a mark in the list: marks matter */,
             {u"(Ten  IN  ('duong','BANH MI'))"_s, u"Duong|banh mì"_s},
             {u"(Ten  NOT LIKE  'b%')and(Ten  =  'khách \"\"vip\"\"')"_s, u"Khách \"VIP\""_s}})
        EXPECT_EQ(found(condition), names) << condition.toStdString();

    db.exec(u"Insert Into Options Values('Config', 'AccentBlindSearch', '0', Null)"_s);
    EXPECT_EQ(found(u"(Ten  LIKE  'banh%')"_s), u"banh mì"_s);
    EXPECT_EQ(found(u"(Ten  =  'duong')"_s), u"Duong"_s);
}

// Off by default; switched on, zolt.sql tells every statement as the engine
// received it.
TEST_P(DatabaseTest, TheCategoryZoltSqlTellsEveryStatementAsTheEngineReceivedIt)
{
    static QStringList told;
    told.clear();
    const QtMessageHandler previous = qInstallMessageHandler([](QtMsgType, const QMessageLogContext &context, const QString &text) {
        if (qstrcmp(context.category, "zolt.sql") == 0)
            told << text;
    });
    const QString statement = u"Update Sales Set Note='z' Where [Name]='Trà'"_s;
    Execute(statement);
    QLoggingCategory::setFilterRules(u"zolt.sql.debug=true"_s);
    Execute(statement);
    QLoggingCategory::setFilterRules(QString());
    Execute(statement);
    qInstallMessageHandler(previous);
    QStringList expected{DriverSql(db.db(), statement)};
    if (db.engine() == test::Engine::MariaDB)   // the row already held its values: its match is counted
        expected << DriverSql(db.db(), u"SELECT COUNT(*) FROM Sales WHERE  [Name]='Trà'"_s);
    EXPECT_EQ(told, expected);
}
