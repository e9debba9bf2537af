// SPDX-License-Identifier: MIT
#include "controls/FmSelHang.h"

#include "DialogSupport.h"
#include "TestSupport.h"

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
                " ('N2', 'Nguyên liệu')"_s);
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
        {u"z"_s, QString()}};
    EXPECT_EQ(pick([&](QWidget *form) {
        for (const auto &[typed, name] : cases) {
            test::retype(child<QLineEdit>(form, "TxtSelH"), typed);
            EXPECT_EQ(selected(form), name) << typed.toStdString();
        }
        test::click(form, "CmdSel");
    }), "A1");   // typing chose nothing: the row selected on load stands

    db.exec(u"Insert Into Options Values('Config', 'AccentBlindSearch', '0', Null)"_s);
    pick([](QWidget *form) {
        test::typeText(child<QLineEdit>(form, "TxtSelH"), u"nguyen"_s);
        EXPECT_EQ(selected(form), "");
        test::click(form, "CmdQuit");
    });
}

TEST_P(FmSelHangTest, OnlyAClickTakesARowAndOnlyChonKeepsIt)
{
    EXPECT_EQ(pick([](QWidget *form) {
        auto *box = child<QLineEdit>(form, "TxtSelH");
        QTest::keyClick(box, Qt::Key_Down);
        QTest::keyClick(box, Qt::Key_Down);
        EXPECT_TRUE(box->hasFocus());
        EXPECT_EQ(selected(form), "Nguyễn Văn An");
        test::click(form, "CmdSel");
    }), "A1");
    EXPECT_EQ(pick([](QWidget *form) {
        QTest::mouseClick(list(form)->viewport(), Qt::LeftButton, {}, list(form)->visualRect(list(form)->model()->index(3, 0)).center());
        test::click(form, "CmdSel");
    }), "D1");
    EXPECT_EQ(pick([](QWidget *form) { form->close(); }), "");
    EXPECT_EQ(pick([](QWidget *form) {
        EXPECT_EQ(list(form)->model()->rowCount(), 0);
        test::click(form, "CmdSel");
    }, u"Select Ma, Ten From Hang Where 0"_s), "");
}
