// SPDX-License-Identifier: MIT
#include "core/search/MFind.h"

#include "TestSupport.h"

using namespace zolt;

TEST(FormatValue, LiteralsByValueTypeAndOperator)
{
    const std::tuple<int, const char *, const char *, const char *> cases[] = {
        {NumberType, ">", "30", "30"}, {NumberType13, "in", "1,2", "(1,2)"}, {UncheckedNumberType, "IN", "1, 2 ,3", "(1,2,3)"},
        // Numbers as the screen shows them: "." between thousands, "," before decimals.
        {NumberType, "=", "490.000", "490000"}, {NumberType, "<", "-1.234.567,5", "-1234567.5"},
        {NumberType, "IN", "490.000,5", "(490000,5)"}, {NumberType, "=", "12.5", ""}, {NumberType, "=", "1.2345", ""},
        {TextType, "IN", "a,b", "('a','b')"}, {TextType11, "like", "O'Neil", "'O''Neil%'"},
        {TextType, "<>", "Hà \"Nội\"", "'Hà \"\"Nội\"\"'"}, {DateType, ">", "1/2/98", "#02/01/0098#"},
        {DateType, ">", "x", "##"}, {2, "=", "5", ""}, {12, "=", "5", ""}, {-1, "=", "5", ""},
        // Typed text never becomes SQL structure: what is no number gets no literal.
        {UncheckedNumberType, "=", "1 Or 1=1", ""}, {UncheckedNumberType, "=", "1,0,0", ""},
        {UncheckedNumberType, "IN", "1) Or (1=1", ""}, {TextType, "=", "x' Or 'a'='a", "'x'' Or ''a''=''a'"},
        {DateType, "=", "1/2/2003# Or #1/1/2000", "##"}};
    for (const auto &[type, predicate, value, literal] : cases)
        EXPECT_EQ(FormatValue(type, QString::fromLatin1(predicate), QString::fromUtf8(value)), QString::fromUtf8(literal))
            << type << " " << value;
}

TEST(FormatDate, SwapsDayAndMonthAndPadsTheYear)
{
    const std::pair<const char *, const char *> cases[] = {
        {"5/3/2004", "03/05/2004"}, {"25/12/2004", "12/25/2004"}, {"#1/2/3#", "02/01/0003"}, {"31/2/2004", ""}};
    for (const auto &[value, text] : cases)
        EXPECT_EQ(FormatDate(QString::fromLatin1(value)), text);
    EXPECT_EQ(CountOf(QStringLiteral("aaaa"), QStringLiteral("aa")), 2);
    EXPECT_EQ(CountOf(QString(), QStringLiteral(",")), 0);
}

class CatalogueTest : public ::testing::TestWithParam<test::Engine> {
protected:
    void SetUp() override
    {
        db.exec(QStringLiteral("Create Table LstFld(code Integer, [Name] Text, [Desc] Text, InTable Text, "
                               "Relation Text, [Type] Integer)"));
        db.exec(QStringLiteral("Insert Into LstFld Values(2, 'Ten', 'Tên hàng', 'Hang', Null, 10), "
                               "(1, 'Ma', 'Mã hàng', 'Hang', 'Hang', 10), (3, 'Gia', 'Giá', 'Hang', '', 3), "
                               "(4, 'Ngay', 'Ngày', 'PhieuXuat', Null, 8)"));
    }
    test::TempDatabase db{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Engines, CatalogueTest, ::testing::ValuesIn(test::Engines), test::EngineName);

TEST_P(CatalogueTest, QueriesOpenCountAndTestForRows)
{
    Recordset rs;
    EXPECT_EQ(OpenQuery(rs, QStringLiteral("Select * From LstFld")), 0);
    rs.MoveNext();
    EXPECT_EQ(CountRecords(rs), 4);
    EXPECT_EQ(rs.Value(QStringLiteral("Name")).toString(), "Ten");   // back on the first row
    EXPECT_NE(OpenQuery(rs, QStringLiteral("Select * From Nothing")), 0);
    EXPECT_FALSE(HasRows(rs));
    EXPECT_EQ(OpenQuery(rs, QStringLiteral("Select * From LstFld Where code=0")), 0);
    EXPECT_FALSE(HasRows(rs));
}

TEST_P(CatalogueTest, LoadFieldInfoCachesRelationAndTypeInListOrder)
{
    LoadFieldInfo(QStringLiteral("Select * From LstFld Where [InTable]='Hang'"), QStringLiteral("[code]"));
    // One more entry than rows, as dimensioned 0..n.
    EXPECT_EQ(FieldRelation, (QStringList{QStringLiteral("Hang"), QString(), QString(), QString()}));
    EXPECT_EQ(FieldType, (QList<qint32>{10, 10, 3, 0}));
    LoadFieldInfo(QStringLiteral("Select * from LstFld Where [InTable]='None'"), QStringLiteral("[code]"));
    EXPECT_EQ(FieldRelation.size(), 1);
}
