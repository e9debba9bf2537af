// SPDX-License-Identifier: MIT
#include "widgets/controls/FmSelHang.h"

#include "DialogSupport.h"
#include "TestSupport.h"

#include <QApplication>
#include <QLineEdit>
#include <QListView>
#include <QTest>

using namespace zolt;
using namespace Qt::StringLiterals;
using test::child;

namespace {

class FmSelHangTest : public ::testing::TestWithParam<test::Engine> {
protected:
    void SetUp() override
    {
        db.createLibraryTables();
        db.exec(u"Create Table Hang(Ma Text, Ten Text)"_s);
        db.exec(u"Insert Into Hang Values('A1', 'Abc'), ('A2', 'aBd'), ('N1', 'Nguyễn Văn An'), ('D1', 'Đường cát'),"
                " ('N2', 'Nguyên liệu'), ('B1', 'Ba\u0301nh de\u0309o')"_s);
    }
    // Shows the pick list on the query and acts on it; returns its result.
    QString pick(const std::function<void(QWidget *)> &act, const QString &sql = u"Select Ma, Ten From Hang"_s)
    {
        FmSelHang dialog;
        dialog.ListSql = sql;
        test::whenModalShows(act);
        dialog.exec();
        return dialog.SelectedValue;
    }
    test::TempDatabase db{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Engines, FmSelHangTest, ::testing::ValuesIn(test::Engines), test::EngineName);

QListView *list(QWidget *form) { return child<QListView>(form, "lv1IP"); }
QString selected(QWidget *form) { return list(form)->currentIndex().data().toString(); }

} // namespace

TEST_P(FmSelHangTest, TypingSelectsTheFirstNameThatBeginsSoAccentsAsideWhenNoneAreTyped)
{
    const std::pair<QString, QString> cases[] = {
        {u"ab"_s, u"Abc"_s}, {u"abd"_s, u"aBd"_s}, {u"nguyen"_s, u"Nguyễn Văn An"_s}, {u"duong"_s, u"Đường cát"_s},
        {u"DUONG"_s, u"Đường cát"_s}, {u"nguyên"_s, u"Nguyên liệu"_s} /* typed marks must match */,
        {u"Nguye\u0302\u0303n"_s, u"Nguyễn Văn An"_s} /* decomposed, as an input method sends it */,
        {u"banh"_s, u"Bánh dẻo"_s}, {u"bánh d"_s, u"Bánh dẻo"_s} /* stored decomposed, shown composed */,
        {u"z"_s, QString()}};
    for (const bool indexed : {false, true}) {   // looked up name by name, then in the index
        EXPECT_EQ(pick([&](QWidget *form) {
            if (indexed)
                qobject_cast<FmSelHang *>(form)->WaitUntilIndexed();
            for (const auto &[typed, name] : cases) {
                test::retype(child<QLineEdit>(form, "TxtSelH"), typed);
                EXPECT_EQ(selected(form), name) << typed.toStdString() << (indexed ? " indexed" : "");
            }
            test::click(form, "CmdSel");
        }), "");   // the last text matched nothing: nothing is chosen
    }

    db.exec(u"Insert Into Options Values('Config', 'AccentBlindSearch', '0', Null)"_s);
    pick([](QWidget *form) {
        test::typeText(child<QLineEdit>(form, "TxtSelH"), u"nguyen"_s);
        EXPECT_EQ(selected(form), "");
        test::click(form, "CmdQuit");
    });
}

// Whatever moved the highlight (keys, typing, the mouse, the load), the row
// highlighted is the row Chọn, Enter or a double click takes.
TEST_P(FmSelHangTest, TheRowHighlightedIsTheRowTaken)
{
    QListView *names = nullptr;
    const auto rowAt = [&](int row) { return names->visualRect(names->model()->index(row, 0)).center(); };
    const std::pair<std::function<void(QWidget *)>, QString> cases[] = {
        {[](QWidget *form) { test::click(form, "CmdSel"); }, u"A1"_s},
        {[](QWidget *form) {
             auto *box = child<QLineEdit>(form, "TxtSelH");
             QTest::keyClick(box, Qt::Key_Down);
             QTest::keyClick(box, Qt::Key_Down);
             EXPECT_TRUE(box->hasFocus());
             test::click(form, "CmdSel");
         }, u"N1"_s},
        {[](QWidget *form) {
             test::typeText(child<QLineEdit>(form, "TxtSelH"), u"duong"_s);
             QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);   // to the list
             QTest::qWait(20);
             EXPECT_EQ(QApplication::focusWidget(), list(form));
             QTest::keyClick(list(form), Qt::Key_Return);
         }, u"D1"_s},
        {[&](QWidget *) {
             QTest::mouseClick(names->viewport(), Qt::LeftButton, {}, rowAt(3));
             QTest::keyClick(names, Qt::Key_Down);
             QTest::keyClick(names, Qt::Key_Enter);
         }, u"N2"_s},
        {[&](QWidget *) {   // a double click is a click and then a double click
             QTest::mouseClick(names->viewport(), Qt::LeftButton, {}, rowAt(1));
             QTest::mouseDClick(names->viewport(), Qt::LeftButton, {}, rowAt(1));
         }, u"A2"_s},
        {[](QWidget *form) {
             test::typeText(child<QLineEdit>(form, "TxtSelH"), u"x"_s);
             test::click(form, "CmdSel");
         }, QString()},
        {[](QWidget *form) {
             QTest::keyClick(child<QLineEdit>(form, "TxtSelH"), Qt::Key_Down);
             form->close();
         }, QString()}};
    for (const auto &[act, code] : cases) {
        EXPECT_EQ(pick([&](QWidget *form) {
            names = list(form);
            act(form);
        }), code);
    }
    EXPECT_EQ(pick([](QWidget *form) {
        EXPECT_EQ(list(form)->model()->rowCount(), 0);
        test::click(form, "CmdSel");
    }, u"Select Ma, Ten From Hang Where 0=1"_s), "");
}
