// SPDX-License-Identifier: MIT
#include "controls/DataCombo1.h"

#include "DialogSupport.h"
#include "TestSupport.h"

#include <zolt/Error.h>
#include <zolt/Tesmir.h>
#include <zolt/clsSearch.h>

#include <QComboBox>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QSqlQuery>
#include <QTest>

using namespace zolt;
using namespace Qt::StringLiterals;
using test::child;

namespace {

class FrmFindTest : public ::testing::TestWithParam<test::Engine> {
protected:
    void SetUp() override
    {
        db.createLibraryTables();
        db.exec(u"Insert Into LstFld Values(2, 'Tuoi', 'Tuổi', 'NhanVien', Null, 3), (1, 'Ten', 'Tên', 'NhanVien', Null, 10),"
                " (3, 'Ma', 'Mã', 'NhanVien', Null, 1), (4, 'Phong', 'Phòng', 'NhanVien', 'PhongBan', 11),"
                " (5, 'NgaySinh', 'Ngày sinh', 'NhanVien', Null, 8)"_s);
        db.exec(u"Insert Into Operator Values(1, 'LIKE', 'Bắt đầu bằng', 10), (2, '=', 'Bằng', 10), (3, '>', 'Lớn hơn', 3),"
                " (4, '=', 'Bằng', 1), (5, '=', 'Thuộc', 11), (6, '=', 'Đúng ngày', 8)"_s);
        db.exec(u"Create Table NhanVien(Ten Text, Tuoi Integer, Ma Integer, Phong Text, NgaySinh Text)"_s);
        db.exec(u"Insert Into NhanVien Values('Binh', 31, 1, 'KT', '1990-05-03'), ('Binh An', 25, 2, 'BH', '1999-01-02'),"
                " ('a)b', 40, 3, 'KT', Null), ('x''y', 40, 4, 'KT', Null)"_s);
        db.exec(u"Create Table PhongBan(Code Text, [Name] Text)"_s);
        db.exec(u"Insert Into PhongBan Values('KT', 'Kế toán'), ('BH', 'Bán hàng')"_s);
    }
    // Runs the search on NhanVien, acting on the dialog; returns the condition.
    QString find(const std::function<void(QWidget *)> &act)
    {
        test::whenModalShows(act, 5000, "FrmFind");
        return Tesmir().FindShow(db.db(), u"NhanVien"_s);
    }
    // The rows the condition matches after WHERE; a statement that fails matches none.
    qint64 matched(const QString &condition) const
    {
        QSqlQuery query(db.db());
        return query.exec(u"Select Count(*) From NhanVien Where "_s + condition) && query.next()
                   ? query.value(0).toLongLong() : 0;
    }
    test::TempDatabase db{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Engines, FrmFindTest, ::testing::ValuesIn(test::Engines), test::EngineName);

DataCombo1 *combo(QWidget *form, const char *name, int row)
{
    return child<DataCombo1>(form, (QLatin1String(name) + u'(' + QString::number(row) + u')').toLatin1().constData());
}
QLineEdit *value(QWidget *form, int row) { return child<QLineEdit>(form, ("MskValue(" + QByteArray::number(row) + ")").constData()); }

// Picks entry index of the combo with the keyboard, as a clerk does.
void choose(DataCombo1 *list, int index)
{
    list->Cmb1()->setFocus();
    QTest::keyClick(list->Cmb1(), Qt::Key_Home);
    for (int i = 0; i < index; ++i)
        QTest::keyClick(list->Cmb1(), Qt::Key_Down);
}

// Fills a row: field and operator by position in their lists, and the value.
void fillRow(QWidget *form, int row, int field, int op, const QString &text)
{
    choose(combo(form, "CmbFld", row), field);
    choose(combo(form, "CmbPredicate", row), op);
    test::retype(value(form, row), text);
}

} // namespace

TEST_P(FrmFindTest, RowsComposeTheConditionAndItsWords)
{
    const QString condition = find([](QWidget *form) {
        EXPECT_EQ(form->windowTitle(), "Search 1.1");
        fillRow(form, 0, 0, 0, u"Binh"_s);
        EXPECT_TRUE(value(form, 1)->isEnabled());
        fillRow(form, 1, 1, 0, u"30"_s);
        EXPECT_EQ(child<QPlainTextEdit>(form, "TxtResult")->toPlainText(),
                  "(Tên  Bắt đầu bằng  'Binh')và(Tuổi  Lớn hơn  '30')");
        test::click(form, "CmdOK");
    });
    EXPECT_EQ(condition, "(Ten  LIKE  'Binh%')and(Tuoi  >  30)");
    EXPECT_EQ(matched(condition), 1);
}

TEST_P(FrmFindTest, AnIncompleteRowLocksTheRowsBelowAndTheQuirksAreKept)
{
    EXPECT_EQ(find([](QWidget *form) {
        fillRow(form, 0, 0, 1, u"a)b"_s);
        fillRow(form, 1, 1, 0, u"30"_s);
        choose(combo(form, "cmbLg", 2), 1);
        fillRow(form, 2, 2, 0, u"abc"_s);   // type 1: never checked
        EXPECT_TRUE(child(form, "CmdOK")->isEnabled());
        test::retype(value(form, 1), u"ba mươi"_s);   // no number: rows 2 and 3 close
        EXPECT_FALSE(value(form, 2)->isEnabled());
        EXPECT_FALSE(value(form, 3)->isEnabled());
        test::retype(value(form, 1), u"30"_s);
        test::retype(value(form, 0), u"a)b"_s);   // OK follows the row whose control fired
        test::click(form, "CmdOK");
    }), "(Ten  =  'a)b')(and(Tuoi  >  30)or(Ma  =  )");
    EXPECT_EQ(find([](QWidget *form) {
        fillRow(form, 0, 0, 1, u"Binh"_s);
        test::click(form, "CmdCancel");
    }), "");
    EXPECT_EQ(find([](QWidget *form) { form->close(); }), "");
}

TEST_P(FrmFindTest, F2LooksTheValueUpAndAChoiceMovesOn)
{
    EXPECT_EQ(find([](QWidget *form) {
        choose(combo(form, "CmbFld", 0), 3);
        choose(combo(form, "CmbPredicate", 0), 0);
        value(form, 0)->setFocus();
        test::whenModalShows([](QWidget *pick) {
            test::typeText(child<QLineEdit>(pick, "TxtSelH"), u"ban"_s);
            QListView *names = child<QListView>(pick, "lv1IP");
            QTest::mouseClick(names->viewport(), Qt::LeftButton, {}, names->visualRect(names->currentIndex()).center());
            test::click(pick, "CmdSel");
        }, 5000, "FmSelHang");
        QTest::keyClick(value(form, 0), Qt::Key_F2);
        EXPECT_EQ(value(form, 0)->text(), "BH");
        EXPECT_FALSE(value(form, 0)->hasFocus());
        test::click(form, "CmdOK");
    }), "(Phong  =  'BH')");
    if (db.traced())
        EXPECT_TRUE(db.statements().contains(u"Select * From PhongBan Where Name   Like '%'"_s));
}

TEST_P(FrmFindTest, TypedValuesNeverMatchMoreThanTheyMean)
{
    const QString hostile[] = {u"x'y"_s, u"' Or '1'='1"_s, u"Binh') Or ('1'='1"_s, u"1; Delete From NhanVien"_s,
                               u"Binh' --"_s, u"/* Binh"_s, u"\"Binh\""_s, QString(300, u'(')};
    for (const QString &text : hostile) {
        for (int op : {0, 1}) {   // LIKE, =
            const QString condition = find([&](QWidget *form) {
                fillRow(form, 0, 0, op, text);
                test::click(form, "CmdOK");
            });
            QSqlQuery meant(db.db());   // the rows the text stands for, asked with bound values
            meant.prepare(u"Select Count(*) From NhanVien Where "_s + (op ? u"Ten = ?"_s : u"substr(Ten, 1, length(?)) = ?"_s));
            meant.addBindValue(text);
            if (!op)
                meant.addBindValue(text);
            ASSERT_TRUE(meant.exec() && meant.next());
            EXPECT_LE(matched(condition), meant.value(0).toLongLong()) << condition.left(80).toStdString();
        }
    }
    EXPECT_EQ(db.scalar(u"Select Count(*) From NhanVien"_s).toInt(), 4);
}

TEST_P(FrmFindTest, TheComponentStartsAfreshAndATableWithoutCatalogueOffersNothing)
{
    clsSearch search;
    search.SetTableSearch(u"NhanVien"_s);
    for (const char *text : {"Binh", "An"}) {
        test::whenModalShows([text](QWidget *form) {
            fillRow(form, 0, 0, 1, QLatin1String(text));
            test::click(form, "CmdOK");
        }, 5000, "FrmFind");
        search.Show(1);
        EXPECT_EQ(search.Result(), u"(Ten  =  '"_s + QLatin1String(text) + u"')"_s);
    }
    test::whenModalShows([](QWidget *form) {
        EXPECT_EQ(combo(form, "CmbFld", 0)->ListCount(), 0);
        EXPECT_FALSE(child(form, "CmdOK")->isEnabled());
        test::click(form, "CmdCancel");
    }, 5000, "FrmFind");
    EXPECT_EQ(Tesmir().FindShow(db.db(), u"KhongCo"_s), "");
    EXPECT_EQ(test::errorNumberOf([] { Tesmir().FindShow(QSqlDatabase(), u"NhanVien"_s); }), Error::TypeMismatch);
}
