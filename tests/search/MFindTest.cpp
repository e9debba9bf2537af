#include "search/MFind.h"

#include "controls/DataCombo1.h"
#include "controls/clsListBox.h"
#include "TestSupport.h"

#include <QListWidget>

#include <gtest/gtest.h>

using namespace zolt;

TEST(FormatValue, NumbersGoInAsTyped)
{
    EXPECT_EQ(FormatValue(3, QStringLiteral(">"), QStringLiteral("30")), "30");
    EXPECT_EQ(FormatValue(1, QStringLiteral("="), QStringLiteral("-2.5")), "-2.5");
    EXPECT_EQ(FormatValue(13, QStringLiteral("in"), QStringLiteral("1,2")), "(1,2)");
    EXPECT_EQ(FormatValue(1, QStringLiteral("IN"), QStringLiteral("1, 2 ,3")), "(1, 2 ,3)");
}

TEST(FormatValue, TypedTextNeverBecomesSqlStructure)
{
    // Type 1 is not checked as a number by the dialog; anything that is no
    // number gets no literal, so the condition fails as a whole.
    EXPECT_EQ(FormatValue(1, QStringLiteral("="), QStringLiteral("abc")), "");
    EXPECT_EQ(FormatValue(1, QStringLiteral("="), QStringLiteral("1 Or 1=1")), "");
    EXPECT_EQ(FormatValue(1, QStringLiteral("="), QStringLiteral("1,000")), "");
    EXPECT_EQ(FormatValue(1, QStringLiteral("IN"), QStringLiteral("1) Or (1=1")), "");
    EXPECT_EQ(FormatValue(10, QStringLiteral("="), QStringLiteral("x' Or 'a'='a")), "'x'' Or ''a''=''a'");
    EXPECT_EQ(FormatValue(8, QStringLiteral("="), QStringLiteral("1/2/2003# Or #1/1/2000")), "##");
}

TEST(FormatValue, TextAndDates)
{
    EXPECT_EQ(FormatValue(10, QStringLiteral("IN"), QStringLiteral("a,b")), "('a','b')");
    EXPECT_EQ(FormatValue(11, QStringLiteral("like"), QStringLiteral("O'Neil")), "'O''Neil%'");
    EXPECT_EQ(FormatValue(10, QStringLiteral("<>"), QStringLiteral("Hà \"Nội\"")), "'Hà \"\"Nội\"\"'");
    EXPECT_EQ(FormatValue(8, QStringLiteral(">"), QStringLiteral("1/2/98")), "#02/01/0098#");
    EXPECT_EQ(FormatValue(8, QStringLiteral(">"), QStringLiteral("x")), "##");
    for (int type : {0, 2, 4, 5, 6, 7, 9, 12, 14, -1})
        EXPECT_EQ(FormatValue(type, QStringLiteral("="), QStringLiteral("5")), "") << type;
}

TEST(FormatDate, SwapsDayAndMonthAndPadsTheYear)
{
    EXPECT_EQ(FormatDate(QStringLiteral("5/3/2004")), "03/05/2004");
    EXPECT_EQ(FormatDate(QStringLiteral("25/12/2004")), "12/25/2004");
    EXPECT_EQ(FormatDate(QStringLiteral("1/2/98")), "02/01/0098");
    EXPECT_EQ(FormatDate(QStringLiteral("#1/2/3#")), "02/01/0003");
    EXPECT_EQ(FormatDate(QStringLiteral("31/2/2004")), "");
    EXPECT_EQ(FormatDate(QString()), "");
}

TEST(TextHelpers, EscapeQuotesAndCountOf)
{
    EXPECT_EQ(EscapeQuotes(QStringLiteral("it's \"x\"")), "it''s \"\"x\"\"");
    EXPECT_EQ(CountOf(QStringLiteral("a,b,,c"), QStringLiteral(",")), 3);
    EXPECT_EQ(CountOf(QStringLiteral("aaaa"), QStringLiteral("aa")), 2);
    EXPECT_EQ(CountOf(QString(), QStringLiteral(",")), 0);
    EXPECT_EQ(CountOf(QStringLiteral("abc"), QStringLiteral("x")), 0);
}

namespace {

class CatalogueTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        db.exec(QStringLiteral("Create Table LstFld(code Integer, [Name] Text, [Desc] Text, "
                               "InTable Text, Relation Text, [Type] Integer)"));
        db.exec(QStringLiteral("Insert Into LstFld Values(2, 'Ten', 'Tên hàng', 'Hang', Null, 10)"));
        db.exec(QStringLiteral("Insert Into LstFld Values(1, 'Ma', 'Mã hàng', 'Hang', 'Hang', 10)"));
        db.exec(QStringLiteral("Insert Into LstFld Values(3, 'Gia', 'Giá bán', 'Hang', '', 3)"));
        db.exec(QStringLiteral("Insert Into LstFld Values(4, 'Ngay', 'Ngày', 'PhieuXuat', Null, 8)"));
        db.exec(QStringLiteral("Create Table Operator(Code Integer, [Name] Text, Des Text, [Type] Integer)"));
        db.exec(QStringLiteral("Insert Into Operator Values(1, '=', 'Bằng', 3)"));
        db.exec(QStringLiteral("Insert Into Operator Values(2, '>', 'Lớn hơn', 3)"));
        db.exec(QStringLiteral("Insert Into Operator Values(3, 'LIKE', 'Bắt đầu bằng', 10)"));
    }
    const QString fields = QStringLiteral("Select [Name],[Desc] From LstFld Where [InTable]='Hang'");
    test::TempDatabase db;
};

void expectFields(const ItemDataList &list)
{
    ASSERT_EQ(list.ListCount(), 3);
    EXPECT_EQ(list.ItemData(0), "Ma");
    EXPECT_EQ(list.ItemData(1), "Ten");
    EXPECT_EQ(list.ItemData(2), "Gia");
}

} // namespace

TEST_F(CatalogueTest, QueriesOpenCountAndTestForRows)
{
    Recordset rs;
    EXPECT_EQ(OpenQuery(rs, QStringLiteral("Select * From LstFld")), 0);
    EXPECT_TRUE(HasRows(rs));
    rs.MoveNext();
    EXPECT_EQ(CountRecords(rs), 4);
    EXPECT_EQ(rs.Value(QStringLiteral("Name")).toString(), "Ten");   // back on the first row
    EXPECT_NE(OpenQuery(rs, QStringLiteral("Select * From Nothing")), 0);
    EXPECT_FALSE(HasRows(rs));
    EXPECT_EQ(OpenQuery(rs, QStringLiteral("Select * From LstFld Where code=0")), 0);
    EXPECT_FALSE(HasRows(rs));
    EXPECT_EQ(CountRecords(rs), 0);
}

TEST_F(CatalogueTest, FillListFillsADataCombo)
{
    DataCombo1 combo;
    FillList(combo, QStringLiteral("[code]"), fields);
    expectFields(combo);
    EXPECT_EQ(combo.List(0), "Mã hàng");
    EXPECT_EQ(combo.ListIndex(), -1);   // nothing was selected before the fill
    combo.SetListIndex(0);
    EXPECT_EQ(combo.Value(), "Ma");

    FillList(combo, QString(), QStringLiteral("Select [Name],[Des] From [Operator] Where [Type]=3  Order By [Code]"));
    ASSERT_EQ(combo.ListCount(), 2);
    EXPECT_EQ(combo.Text(), "Bằng");
    EXPECT_EQ(combo.Value(), "=");
}

TEST_F(CatalogueTest, FillListKeepsTheSelectionWhileTheRowExists)
{
    QListWidget widget;
    clsListBox list;
    list.SetTListBox(&widget);
    FillList(list, QStringLiteral("[code]"), fields);
    expectFields(list);
    list.SetListIndex(2);
    FillList(list, QStringLiteral("[code]"), fields);
    EXPECT_EQ(list.ListIndex(), 2);
    EXPECT_EQ(list.Value(), "Gia");

    for (int i = 0; i < 3; ++i)
        list.AddItem(QStringLiteral("x"));
    list.SetListIndex(5);
    FillList(list, QStringLiteral("[code]"), fields);
    EXPECT_EQ(list.ListCount(), 3);
    EXPECT_EQ(list.ListIndex(), 0);
}

TEST_F(CatalogueTest, FillListOnAFailingQueryLeavesTheList)
{
    DataCombo1 combo;
    FillList(combo, QStringLiteral("[code]"), fields);
    FillList(combo, QString(), QStringLiteral("Select [Name],[Desc] From Missing"));
    expectFields(combo);
    FillList(combo, QString(), QStringLiteral("Select [Name] From LstFld"));   // no second column
    EXPECT_EQ(combo.ListCount(), 0);
}

TEST_F(CatalogueTest, LoadFieldInfoCachesRelationAndTypeInListOrder)
{
    LoadFieldInfo(QStringLiteral("Select * From LstFld Where [InTable]='Hang'"), QStringLiteral("[code]"));
    ASSERT_EQ(FieldRelation.size(), 4);   // one more than the rows, as dimensioned 0..n
    EXPECT_EQ(FieldRelation, (QStringList{QStringLiteral("Hang"), QString(), QString(), QString()}));
    EXPECT_EQ(FieldType, (QList<qint32>{10, 10, 3, 0}));

    LoadFieldInfo(QStringLiteral("Select * from LstFld Where [InTable]='None'"), QStringLiteral("[code]"));
    EXPECT_EQ(FieldRelation.size(), 1);
}
