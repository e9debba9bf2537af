// SPDX-License-Identifier: MIT

#include "DialogSupport.h"
#include "TestSupport.h"

#include "core/database/Database.h"

#include <zolt/DataCombo1.h>
#include <zolt/DriverSql.h>
#include <zolt/Error.h>
#include <zolt/Tesmir.h>
#include <zolt/clsSearch.h>

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QSignalSpy>
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
        return query.exec(DriverSql(db.db(), u"Select Count(*) From NhanVien Where "_s) + condition) && query.next()
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
    QStringList told;
    EXPECT_EQ(find([&](QWidget *form) {
        fillRow(form, 0, 0, 1, u"a)b"_s);
        fillRow(form, 1, 1, 0, u"30"_s);
        choose(combo(form, "cmbLg", 2), 1);
        fillRow(form, 2, 2, 0, u"abc"_s);   // type 1 opens the next row unchecked...
        EXPECT_TRUE(child(form, "CmdOK")->isEnabled());
        test::retype(value(form, 1), u"ba mươi"_s);   // no number: rows 2 and 3 close
        EXPECT_FALSE(value(form, 2)->isEnabled());
        EXPECT_FALSE(value(form, 3)->isEnabled());
        test::retype(value(form, 1), u"30"_s);
        test::retype(value(form, 0), u"a)b"_s);   // OK follows the row whose control fired
        test::answerMessages(&told);
        test::click(form, "CmdOK");   // ...but no statement is built on it: the clerk is told
        EXPECT_TRUE(QTest::qWaitFor([&] { return value(form, 2)->hasFocus(); }, 1000));
        test::retype(value(form, 2), u"7"_s);
        test::click(form, "CmdOK");
    }), "(Ten  =  'a)b')(and(Tuoi  >  30)or(Ma  =  7)");
    ASSERT_EQ(told.size(), 1);
    EXPECT_TRUE(told[0].startsWith(u"Tìm kiếm|Dòng 3, Mã: «abc» không phải là số."_s)) << told[0].toStdString();
    EXPECT_EQ(find([](QWidget *form) {
        fillRow(form, 0, 0, 1, u"Binh"_s);
        test::click(form, "CmdCancel");
    }), "");
    EXPECT_EQ(find([](QWidget *form) { form->close(); }), "");
}

// A value of the wrong kind is told, with its row, when the clerk presses
// Enter to leave it; the keyboard stays in its box.
TEST_P(FrmFindTest, AWrongValueIsToldWithItsRowAndKeepsTheKeyboard)
{
    const std::tuple<int, const char *, const char *> cases[] = {
        {4, "31/02/2026", "Dòng 1, Ngày sinh: «31/02/2026» không phải là một ngày có thật."},
        {4, "32/13/2026", "Dòng 1, Ngày sinh: «32/13/2026» không phải là một ngày có thật."},
        {1, "12.5", "Dòng 1, Tuổi: «12.5» không phải là số."}, {2, "mười", "Dòng 1, Mã: «mười» không phải là số."},
        {4, "29/02/2000", nullptr}, {1, "1.200", nullptr}};
    for (const auto &[field, typed, message] : cases) {
        QStringList told;
        find([&](QWidget *form) {
            fillRow(form, 0, field, 0, QString::fromUtf8(typed));
            test::answerMessages(&told);
            QTest::keyClick(value(form, 0), Qt::Key_Return);
            QTest::qWait(100);
            EXPECT_EQ(value(form, 0)->hasFocus(), message != nullptr) << typed;
            test::click(form, "CmdCancel");
        });
        if (message) {
            ASSERT_EQ(told.size(), 1) << typed;
            EXPECT_TRUE(told[0].startsWith(u"Tìm kiếm|"_s + QString::fromUtf8(message))) << told[0].toStdString();
        } else {
            EXPECT_EQ(told, QStringList()) << typed;
        }
    }
}

// Typed without marks, with numbers as the screen shows them: the condition
// finds what the clerk meant on every engine, and reads back in words.
TEST_P(FrmFindTest, NoMarksFindMarkedTextAndNumbersReadAsShown)
{
    db.exec(u"Insert Into NhanVien Values('Bình Minh', 28, 490000, 'BH', Null), ('Bỉnh', 45, 1234567, 'KT', Null)"_s);
    clsSearch search;
    search.SetTableSearch(u"NhanVien"_s);
    test::whenModalShows([](QWidget *form) {
        fillRow(form, 0, 0, 0, u"binh"_s);
        fillRow(form, 1, 2, 0, u"490000"_s);
        EXPECT_EQ(child<QPlainTextEdit>(form, "TxtResult")->toPlainText(),
                  "(Tên  Bắt đầu bằng  'binh')và(Mã  Bằng  '490.000')");
        test::click(form, "CmdOK");
    }, 5000, "FrmFind");
    SetCurrentConnection(db.db());
    search.Show(1);
    EXPECT_EQ(search.Result(), "(Ten  LIKE  'binh%')and(Ma  =  490000)");
    EXPECT_EQ(search.ResultWords(), "Tên bắt đầu bằng 'binh' và Mã bằng 490.000");
    EXPECT_EQ(matched(ConditionSql(db.db(), search.Result())), 1);
    EXPECT_EQ(matched(ConditionSql(db.db(), u"(Ten  LIKE  'binh%')"_s)), 4);
    EXPECT_EQ(matched(ConditionSql(db.db(), u"(Ten  LIKE  'Bình%')"_s)), 1);
    const QString words = find([](QWidget *form) {
        fillRow(form, 0, 2, 0, u"1.234.567"_s);
        test::click(form, "CmdOK");
    });
    EXPECT_EQ(matched(words), 1);
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
    if (db.traced()) {
        EXPECT_TRUE(db.statements().contains(u"Select * From PhongBan Where zolt_bare_like(Name, '%')"_s));
    }
}

// F2 on what the box holds: typed text narrows the list to the names it
// begins; a code of the list (what a choice put there, or typed by hand)
// opens the whole list on its row; text that is neither opens the whole list
// on no row, so that Enter chooses nothing.
TEST_P(FrmFindTest, F2OnACodeOfTheListOpensTheWholeListOnItsRow)
{
    struct Case {
        const char *box;
        QStringList names;    // the list shown
        const char *current;  // its highlighted name ("" for none)
        const char *typed;    // the name box
        const char *after;    // the value box after Enter in the list
    };
    const QStringList all = {u"Kế toán"_s, u"Bán hàng"_s};
    const Case cases[] = {
        {"", all, "Kế toán", "", "KT"},
        {"ban", {u"Bán hàng"_s}, "Bán hàng", "ban", "BH"},
        {"BH", all, "Bán hàng", "", "BH"},
        {"kt", all, "Kế toán", "", "KT"},
        {"zz", all, "", "zz", "zz"},
    };
    for (const Case &c : cases) {
        find([&](QWidget *form) {
            choose(combo(form, "CmbFld", 0), 3);
            choose(combo(form, "CmbPredicate", 0), 0);
            test::retype(value(form, 0), QString::fromUtf8(c.box));
            test::whenModalShows([&](QWidget *pick) {
                QListView *names = child<QListView>(pick, "lv1IP");
                QStringList shown;
                for (int row = 0; row < names->model()->rowCount(); ++row)
                    shown << names->model()->index(row, 0).data().toString();
                EXPECT_EQ(shown, c.names) << c.box;
                EXPECT_EQ(names->currentIndex().data().toString(), QString::fromUtf8(c.current)) << c.box;
                EXPECT_EQ(child<QLineEdit>(pick, "TxtSelH")->text(), QString::fromUtf8(c.typed)) << c.box;
                QTest::keyClick(names, Qt::Key_Return);
                if (pick->isVisible())
                    test::click(pick, "CmdQuit");
            }, 5000, "FmSelHang");
            QTest::keyClick(value(form, 0), Qt::Key_F2);
            EXPECT_EQ(value(form, 0)->text(), QString::fromUtf8(c.after)) << c.box;
            test::click(form, "CmdCancel");
        });
    }
    // A choice, then F2 again at once: the list it came from, on the row chosen.
    EXPECT_EQ(find([](QWidget *form) {
        choose(combo(form, "CmbFld", 0), 3);
        choose(combo(form, "CmbPredicate", 0), 0);
        value(form, 0)->setFocus();
        test::whenModalShows([](QWidget *pick) {
            test::typeText(child<QLineEdit>(pick, "TxtSelH"), u"ban"_s);
            QTest::keyClick(child<QLineEdit>(pick, "TxtSelH"), Qt::Key_Return);
            QTest::keyClick(child<QListView>(pick, "lv1IP"), Qt::Key_Return);
        }, 5000, "FmSelHang");
        QTest::keyClick(value(form, 0), Qt::Key_F2);
        EXPECT_EQ(value(form, 0)->text(), "BH");
        value(form, 0)->setFocus();
        test::whenModalShows([](QWidget *pick) {
            QListView *names = child<QListView>(pick, "lv1IP");
            EXPECT_EQ(names->model()->rowCount(), 2);
            EXPECT_EQ(names->currentIndex().data().toString(), u"Bán hàng"_s);
            QTest::keyClick(child<QLineEdit>(pick, "TxtSelH"), Qt::Key_Up);   // to Kế toán, and chosen
            QTest::keyClick(child<QLineEdit>(pick, "TxtSelH"), Qt::Key_Return);
            QTest::keyClick(names, Qt::Key_Return);
        }, 5000, "FmSelHang");
        QTest::keyClick(value(form, 0), Qt::Key_F2);
        test::click(form, "CmdOK");
    }), "(Phong  =  'KT')");
}

// The condition, made ready for the engine as a host makes it, never finds
// more than the typed text stands for; on MariaDB in both its ways of reading
// a backslash in quoted text.
TEST_P(FrmFindTest, TypedValuesNeverMatchMoreThanTheyMean)
{
    const QString hostile[] = {u"x'y"_s, u"' Or '1'='1"_s, u"Binh') Or ('1'='1"_s, u"1; Delete From NhanVien"_s,
                               u"Binh' --"_s, u"/* Binh"_s, u"\"Binh\""_s, QString(300, u'('), u"Binh\\' Or '1'='1"_s,
                               u"\\"_s, u"Binh\\"_s,
                               u"x\\') Or 1=1 -- "_s, u"x\\') Or 1=1 #"_s};
    const QStringList modes = db.engine() == test::Engine::MariaDB ? QStringList{u"''"_s, u"'NO_BACKSLASH_ESCAPES'"_s}
                                                                   : QStringList{QString()};
    for (const QString &mode : modes) {
        if (!mode.isEmpty())
            db.exec(u"SET SESSION sql_mode = "_s + mode);
        for (const QString &text : hostile) {
            for (int op : {0, 1}) {   // LIKE, =
                const QString condition = find([&](QWidget *form) {
                    fillRow(form, 0, 0, op, text);
                    test::click(form, "CmdOK");
                });
                QSqlQuery meant(db.db());   // the rows the text stands for, asked with bound values
                meant.prepare(DriverSql(db.db(), u"Select Count(*) From NhanVien Where "_s)
                              + (op ? u"Ten = ?"_s : u"substr(Ten, 1, length(?)) = ?"_s));
                meant.addBindValue(text);
                if (!op)
                    meant.addBindValue(text);
                ASSERT_TRUE(meant.exec() && meant.next());
                const qint64 most = meant.value(0).toLongLong();
                EXPECT_LE(matched(DriverSql(db.db(), condition)), most) << mode.toStdString() << condition.left(80).toStdString();
                EXPECT_LE(matched(ConditionSql(db.db(), condition)), most) << mode.toStdString() << condition.left(80).toStdString();
            }
        }
    }
    EXPECT_EQ(db.scalar(u"Select Count(*) From NhanVien"_s).toInt(), 4);
}

// A search left open without waiting never swallows a later call: the same
// table brings it forward, a modal call gets a dialog of its own.
TEST_P(FrmFindTest, AnOpenSearchNeverSwallowsAnotherCall)
{
    clsSearch open;
    open.SetTableSearch(u"NhanVien"_s);
    open.Show();
    const auto searches = [] {
        int shown = 0;
        for (QWidget *window : QApplication::topLevelWidgets())
            shown += window->objectName() == u"FrmFind"_s && window->isVisible();
        return shown;
    };
    EXPECT_EQ(searches(), 1);
    open.Show();
    EXPECT_EQ(searches(), 1);   // brought forward
    EXPECT_EQ(find([&](QWidget *form) {
        EXPECT_EQ(searches(), 2);
        fillRow(form, 0, 0, 1, u"Binh"_s);
        test::click(form, "CmdOK");
    }), "(Ten  =  'Binh')");
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window->objectName() == u"FrmFind"_s)
            window->close();
    }
}

// A search shown without waiting tells the host when it ends: once, with the
// condition and its words after OK, with "" after Cancel; Result stays as
// the call left it.
TEST_P(FrmFindTest, ASearchWithoutWaitingTellsItsEnd)
{
    clsSearch search;
    search.SetActiveConnection(db.db());
    search.SetTableSearch(u"NhanVien"_s);
    QSignalSpy ended(&search, &clsSearch::finished);
    const auto openSearch = [] {
        for (QWidget *window : QApplication::topLevelWidgets()) {
            if (window->objectName() == u"FrmFind"_s && window->isVisible())
                return window;
        }
        return static_cast<QWidget *>(nullptr);
    };
    const struct {
        const char *button;
        QList<QVariant> told;
    } ends[] = {
        {"CmdOK", {u"(Ten  =  'Binh')"_s, u"Tên bằng 'Binh'"_s}},
        {"CmdCancel", {QString(), QString()}},
    };
    for (const auto &end : ends) {
        search.Show();
        EXPECT_EQ(search.Result(), "");
        QWidget *form = openSearch();
        ASSERT_NE(form, nullptr);
        test::showActive(form);
        fillRow(form, 0, 0, 1, u"Binh"_s);
        EXPECT_EQ(ended.count(), 0);
        test::click(form, end.button);
        ASSERT_EQ(ended.count(), 1) << end.button;
        EXPECT_EQ(ended.takeFirst(), end.told);
        EXPECT_EQ(search.Result(), "");
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_EQ(openSearch(), nullptr);
    }
}

// Given a connection, the component searches on it, whatever the library's
// connection was, and its dialog is transient for the owner it is given.
TEST_P(FrmFindTest, AComponentGivenAConnectionSearchesOnIt)
{
    test::TempDatabase other(GetParam());   // now the library's connection, without a catalogue
    QWidget owner;
    clsSearch search;
    search.SetActiveConnection(db.db());
    search.SetTableSearch(u"NhanVien"_s);
    test::whenModalShows([&](QWidget *form) {
        EXPECT_EQ(form->parentWidget(), &owner);
        EXPECT_EQ(combo(form, "CmbFld", 0)->ListCount(), 5);
        fillRow(form, 0, 0, 1, u"Binh"_s);
        test::click(form, "CmdOK");
    }, 5000, "FrmFind");
    search.Show(1, &owner);
    EXPECT_EQ(search.Result(), "(Ten  =  'Binh')");
    EXPECT_EQ(test::errorNumberOf([&] { search.SetActiveConnection(QSqlDatabase()); }), Error::TypeMismatch);
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
