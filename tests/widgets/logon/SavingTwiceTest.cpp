// SPDX-License-Identifier: MIT
// One clerk saves the same record twice in a row through its dialog, as a
// clerk does who presses Ghi again to be sure or changes his mind at once:
// nothing is told, and both saves are stored.
#include "core/base/Conversions.h"
#include "core/logon/MdlLogon.h"

#include "DialogSupport.h"
#include "TestSupport.h"

#include <zolt/Options.h>
#include <zolt/Schema.h>
#include <zolt/clsLogon.h>

#include <QLineEdit>
#include <QListWidget>
#include <QTest>
#include <QTreeView>

using namespace zolt;
using namespace Qt::StringLiterals;
using test::child;
using test::click;
using test::clickRow;
using test::retype;
using test::toldDuring;

namespace {

class SavingTwiceTest : public ::testing::TestWithParam<test::Engine> {
protected:
    void SetUp() override
    {
        CreateTables(db.db());   // with the strong password store's column
        db.exec(u"Alter Table Groups Add Column DanhMuc Integer"_s);
        db.exec(u"Insert Into Groups Values(1, 'Quản trị', 'Mọi quyền', 7), (5, 'Kho', 'Thủ kho', 0),"
                " (8, 'Bán hàng', 'Quầy', 1)"_s);
        db.exec(u"Insert Into [User](Code, [Name], [Dec], [Password], IdGroup) Values(1, 'admin', 'Quản trị viên', 26209, 1),"
                " (2, 'thu', 'Thủ kho', 1065, 5)"_s);
        db.exec(u"Insert Into Menu Values(1, 'Danh mục')"_s);
        db.exec(u"Insert Into SubMenu Values(1, 'Hàng hoá', 1), (2, 'Khách hàng', 1)"_s);
    }
    QString text(const QString &sql) const { return db.scalar(sql).toString(); }
    test::TempDatabase db{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Engines, SavingTwiceTest, ::testing::ValuesIn(test::Engines), test::EngineName);

// Runs act on the next modal dialog of that name while the entry point shows it.
void onDialog(const char *name, const std::function<void(QWidget *)> &act, const std::function<void()> &open)
{
    test::whenModalShows(act, 5000, name);
    open();
}

} // namespace

TEST_P(SavingTwiceTest, AUsersRecordEditedTwiceFromTheList)
{
    onDialog("FrmMenu", [&](QWidget *list) {
        for (const QString &description : {u"Thủ kho chính"_s, u"Thủ kho và kế toán"_s}) {
            clickRow(child<QTreeView>(list, "Lv"), 1);
            onDialog("FrmInput", [&](QWidget *editor) {
                retype(child<QLineEdit>(editor, "TxtDes"), description);
                EXPECT_EQ(toldDuring([&] { click(editor, "CMDOK"); }), QStringList());
            }, [&] { click(list, "CmdEdit"); });
            EXPECT_EQ(text(u"Select [Dec] From [User] Where Code=2"_s), description);
        }
        click(list, "CmdExit");
    }, [&] { clsLogon().UserManager(db.db()); });
}

TEST_P(SavingTwiceTest, AClerksOwnPasswordChangedTwice)
{
    for (const char *store : {"digest", "argon2id"}) {
        db.exec(u"Delete From Options Where KeyName='PasswordStore'"_s);
        db.exec(u"Insert Into Options Values('Config', 'PasswordStore', '%1', Null)"_s.arg(QLatin1String(store)));
        for (const QString &password : {u"kho1"_s, u"kho2"_s}) {
            onDialog("FrmInput", [&](QWidget *editor) {
                retype(child<QLineEdit>(editor, "TxtPass"), password);
                retype(child<QLineEdit>(editor, "txtConfirm"), password);
                EXPECT_EQ(toldDuring([&] { click(editor, "CMDOK"); }), QStringList());
            }, [&] { clsLogon().ShowUser(db.db(), u"thu"_s); });
            test::whenModalShows([&](QWidget *logon) {
                retype(child<QLineEdit>(logon, "Txtuser"), u"thu"_s);
                retype(child<QLineEdit>(logon, "TxtPass"), password);
                click(logon, "CmdOk");
            });
            EXPECT_EQ(clsLogon().ShowLogon(db.db()), 2) << store << ' ' << password.toStdString();
        }
    }
}

TEST_P(SavingTwiceTest, AGroupAndItsRightsSavedTwice)
{
    onDialog("FmGrp", [&](QWidget *groups) {
        clickRow(child<QAbstractItemView>(groups, "Lv1"), 1);
        for (const QString &name : {u"Kho hàng"_s, u"Kho tổng"_s}) {
            retype(child<QLineEdit>(groups, "TxtName"), name);
            EXPECT_EQ(toldDuring([&] { click(groups, "CmdWrite"); }), QStringList());
            EXPECT_EQ(text(u"Select [Name] From Groups Where Code=5"_s), name);
        }
        for (int item : {0, 1}) {   // Hàng hoá, then Khách hàng too
            onDialog("FrPms", [&](QWidget *rights) {
                clickRow(child<QListWidget>(rights, "LstMenuBar"), 0);
                clickRow(child<QListWidget>(rights, "LstSubMenu"), item);
                EXPECT_EQ(toldDuring([&] { click(rights, "CmdOk"); }), QStringList());
            }, [&] { click(groups, "CmdPms"); });
        }
        click(groups, "CmdExit");
    }, [&] { clsLogon().ShowGroup(db.db()); });
    EXPECT_EQ(db.scalar(u"Select DanhMuc From Groups Where Code=5"_s).toInt(), 3);
}

TEST_P(SavingTwiceTest, AnOptionWrittenTwice)
{
    for (const QString &value : {u"A4"_s, u"A5"_s}) {
        EXPECT_EQ(toldDuring([&] { EXPECT_EQ(WriteOption(u"In"_s, u"Khổ giấy"_s, value, u"Khổ giấy in hoá đơn"_s, 0), 0); }),
                  QStringList());
        EXPECT_EQ(ReadOption(u"In"_s, u"Khổ giấy"_s, QString()), value);
    }
    // The description keeps the one blank its statement adds, never two.
    EXPECT_EQ(text(u"Select Description From Options Where KeyName='Khổ giấy'"_s), u"Khổ giấy in hoá đơn "_s);
}
