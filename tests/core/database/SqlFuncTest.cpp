// SPDX-License-Identifier: MIT
#include "core/database/SqlFunc.h"

#include "TestSupport.h"

using namespace zolt;
using test::errorNumberOf;
using namespace Qt::StringLiterals;

TEST(SqlValue, LiteralByTypeCode)
{
    const std::tuple<const char *, const char *, const char *> cases[] = {
        {"abc", "la", "'%abc%'"}, {"abc", "LL", "'%abc%'"}, {"abc", "LR", "'abc%'"},
        {"O'Neil", "s", "'O''Neil'"}, {"say \"hi\"", "", "'say \"\"hi\"\"'"},
        {"01/02/2003", "D", "#01/02/2003#"}, {"1/2/2000# Or 1=1 Or #", "D", "##"}, {"x", "Z", ""},
        {"2.5", "N", "2"}, {"13.5", "n", "14"}, {"1,000", "N", "1000"}, {"1; DROP TABLE x", "N", "0"}};
    for (const auto &[value, code, literal] : cases)
        EXPECT_EQ(SqlValue(QString::fromUtf8(value), QString::fromLatin1(code)), literal) << value << code;
    EXPECT_EQ(errorNumberOf([] { SqlValue(QStringLiteral("3000000000"), QStringLiteral("N")); }), 6);
    DateQuoteFlag = true;
    EXPECT_EQ(SqlValue(QStringLiteral("01/02/2003"), QStringLiteral("D")), "'01/02/2003'");
    DateQuoteFlag = false;
}

TEST(SqlQuote, LiteralByKindOrOne)
{
    const std::tuple<const char *, qint32, const char *> cases[] = {
        {"12", 3, "12"}, {"12x", 3, "1"}, {"31/12/2000", 8, "#31/12/2000#"}, {"31/31/2000", 8, "1"},
        {"it's", 10, "'it''s '"}, {"x", 5, "1"}};
    for (const auto &[value, kind, literal] : cases)
        EXPECT_EQ(SqlQuote(QString::fromLatin1(value), kind), literal);
}

TEST(GrowingStatements, AddValuesAndAddSet)
{
    EXPECT_EQ(AddValues(QStringLiteral("insert into T(A) values(1)"), QStringLiteral("B"), QStringLiteral("O'Neil")),
              "insert into T(A,B) values(1,'O''Neil ')");
    for (const char *broken : {"Insert Into T Values(1)", "Insert Into T(A)", ""})
        EXPECT_EQ(errorNumberOf([broken] { AddValues(QString::fromLatin1(broken), QStringLiteral("B"), QStringLiteral("x")); }), 5);
    EXPECT_EQ(AddSet(QStringLiteral("Update T Set A='c'  Where K='a'"), QStringLiteral("D"), QStringLiteral("d")),
              "Update T Set D='d ',A='c'  Where K='a'");
    EXPECT_EQ(AddSet(QStringLiteral("Update T Where A=1"), QStringLiteral("B"), QStringLiteral("x")), "");
    // Keywords are whole words, found where they stand in the text itself.
    EXPECT_EQ(AddSet(QStringLiteral("Update Asset Set A=1"), QStringLiteral("B"), QStringLiteral("x")),
              "Update Asset Set B='x ',A=1");
    const QString wide = QString(40, u'ß');
    EXPECT_EQ(AddValues(u"Insert Into T("_s + wide + u") VALUES(1)"_s, u"B"_s, u"v"_s),
              u"Insert Into T("_s + wide + u",B) VALUES(1,'v ')"_s);
    EXPECT_EQ(AddSet(wide + u" Set A=1"_s, u"B"_s, u"x"_s), wide + u" Set B='x ',A=1"_s);
}
