// SPDX-License-Identifier: MIT
// The logon and administration dialogs on a locked server, directly and
// through unixODBC: a desk connected with the desk's account does through
// them what its logged-on user may, and the server refuses the rest.
#include "core/database/Database.h"
#include "core/logon/LockedServer.h"
#include "servers/LockedShop.h"

#include "DialogSupport.h"
#include "TestSupport.h"

#include <zolt/clsLogon.h>

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QSqlQuery>
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

const QString Refused = u"Mật khẩu hoặc người sử dụng không hợp lệ "_s;

class LockedDialogsTest : public ::testing::TestWithParam<const char *> {
protected:
    void SetUp() override
    {
        shop.addMenus();
        owner(u"INSERT INTO options VALUES ('Config', 'PasswordStore', 'argon2id', ''), ('Config', 'LogonAttempts', '2', ''),"
              " ('Config', 'LogonLogDays', '30', '')"_s);
        ASSERT_EQ(shop.lock(), 0) << shop.said().toStdString();
    }
    // A desk of the shop: its own connection, as its own process would have.
    QSqlDatabase desk(const QString &name) { return shop.desk(QLatin1String(GetParam()), name); }
    QString owner(const QString &sql) const
    {
        QSqlQuery query(shop.owner());
        EXPECT_TRUE(query.exec(sql)) << sql.toStdString();
        return query.next() ? query.value(0).toString() : QString();
    }
    // A logon at the desk with real keys, Enter from field to field; what the
    // clerk was told ("" when he logged on) and the code the logon returned.
    QString logon(const QSqlDatabase &db, const QString &name, const QString &password, qint32 *code = nullptr)
    {
        QStringList told;
        test::whenModalShows([&](QWidget *form) {
            for (const QString &text : {name, password}) {
                test::typeText(form->focusWidget(), text);
                QTest::keyClick(form->focusWidget(), Qt::Key_Return);
                QTest::qWait(1);
            }
            told = toldDuring([&] { QTest::keyClick(form->focusWidget(), Qt::Key_Return); });
            if (form->isVisible())
                click(form, "CmdCan");
        });
        const qint32 returned = clsLogon().ShowLogon(db);
        if (code)
            *code = returned;
        return told.value(0).section(u'|', 1);
    }
    test::LockedShop shop;
};

INSTANTIATE_TEST_SUITE_P(Drivers, LockedDialogsTest, ::testing::Values("QPSQL", "QODBC"),
                         [](const auto &info) { return std::string(info.param + 1); });

// The user list, acted on with real keys and clicks.
void users(const QSqlDatabase &db, const std::function<void(QTreeView *)> &act)
{
    test::whenModalShows([act](QWidget *form) { act(child<QTreeView>(form, "Lv")); }, 5000, "FrmMenu");
    clsLogon().UserManager(db);
}

// Adds a user in the list's editor; what the editor told.
QStringList addUser(QTreeView *list, const QString &name, const QString &password)
{
    QStringList told;
    test::whenModalShows([&](QWidget *editor) {
        test::typeText(child<QLineEdit>(editor, "Txtuser"), name);
        test::typeText(child<QLineEdit>(editor, "TxtDes"), u"Thủ kho"_s);
        test::typeText(child<QLineEdit>(editor, "TxtPass"), password);
        test::typeText(child<QLineEdit>(editor, "txtConfirm"), password);
        auto *group = child<QComboBox>(editor, "TxtIdGroup");
        group->setFocus();
        QTest::keyClick(group, Qt::Key_End);
        told = toldDuring([&] { click(editor, "CMDOK"); });
        if (editor->isVisible())
            click(editor, "CMDCAN");
    }, 5000, "FrmInput");
    click(list->window(), "CmdAdd");
    return told;
}

} // namespace

TEST_P(LockedDialogsTest, TheClerksLogonIsTheSessionsAndHisDigestBecomesAHash)
{
    QSqlDatabase db = desk(u"quay"_s);
    EXPECT_EQ(logon(db, u"banhang"_s, u"sai"_s), Refused);
    qint32 code = 0;
    EXPECT_EQ(logon(db, u"banhang"_s, u"123"_s, &code), "");
    EXPECT_EQ(code, 2);
    EXPECT_EQ(LockedSessionUser(), 2);
    EXPECT_TRUE(owner(u"SELECT passwordhash FROM \"user\" WHERE name = 'banhang'"_s).startsWith(u"$zolt-sha256$argon2id$"_s));
    EXPECT_EQ(logon(desk(u"quay2"_s), u"banhang"_s, u"123"_s, &code), "");   // now by the hash
    EXPECT_EQ(code, 2);
    EXPECT_EQ(owner(u"SELECT string_agg(result, ',' ORDER BY result) FROM logonlog WHERE name = 'banhang'"_s),
              "accepted,accepted,refused");
}

TEST_P(LockedDialogsTest, TheAdministratorAddsAUserWhoThenLogsOn)
{
    QSqlDatabase db = desk(u"quay"_s);
    ASSERT_EQ(logon(db, u"admin"_s, u"admin"_s), "");
    users(db, [&](QTreeView *list) {
        EXPECT_EQ(addUser(list, u"thu"_s, u"kho"_s), QStringList());
        EXPECT_EQ(addUser(list, u"THU"_s, u"kho"_s), QStringList{u"User Infomation|Người sử dụng đã tồn tại"_s});
        EXPECT_EQ(list->model()->index(list->model()->rowCount() - 1, 0).data().toString(), "thu");
        click(list->window(), "CmdExit");
    });
    EXPECT_EQ(owner(u"SELECT idgroup || ' ' || password || ' ' || left(passwordhash, 22) FROM \"user\" WHERE name = 'thu'"_s),
              "8 -1 $zolt-sha256$argon2id$");
    qint32 code = 0;
    EXPECT_EQ(logon(desk(u"kho"_s), u"thu"_s, u"kho"_s, &code), "");
    EXPECT_EQ(code, owner(u"SELECT code FROM \"user\" WHERE name = 'thu'"_s).toInt());
}

TEST_P(LockedDialogsTest, TheAdministratorRenamesAGroupAndSetsItsRights)
{
    QSqlDatabase db = desk(u"quay"_s);
    ASSERT_EQ(logon(db, u"admin"_s, u"admin"_s), "");
    test::whenModalShows([](QWidget *groups) {
        clickRow(child<QAbstractItemView>(groups, "Lv1"), 1);   // group 8
        for (const QString &name : {u"Thu ngân"_s, u"Thu ngân"_s /* saved twice */}) {
            retype(child<QLineEdit>(groups, "TxtName"), name);
            EXPECT_EQ(toldDuring([&] { click(groups, "CmdWrite"); }), QStringList());
        }
        test::whenModalShows([](QWidget *rights) {
            clickRow(child<QListWidget>(rights, "LstMenuBar"), 0);
            clickRow(child<QListWidget>(rights, "LstSubMenu"), 1);   // Khách hàng
            EXPECT_EQ(toldDuring([&] { click(rights, "CmdOk"); }), QStringList());
        }, 5000, "FrPms");
        click(groups, "CmdPms");
        click(groups, "CmdExit");
    }, 5000, "FmGrp");
    clsLogon().ShowGroup(db);
    EXPECT_EQ(owner(u"SELECT name || ' ' || danhmuc || ' ' || chungtu FROM groups WHERE code = 8"_s), "Thu ngân 2 0");
}

TEST_P(LockedDialogsTest, TheAdministratorReleasesAWaitingClerk)
{
    QSqlDatabase counter = desk(u"quay"_s);
    EXPECT_EQ(logon(counter, u"banhang"_s, u"sai"_s), Refused);
    EXPECT_EQ(logon(counter, u"banhang"_s, u"sai"_s), Refused);
    EXPECT_TRUE(logon(counter, u"banhang"_s, u"123"_s).startsWith(u"Đã nhập sai quá số lần cho phép."_s));
    QSqlDatabase office = desk(u"van-phong"_s);
    ASSERT_EQ(logon(office, u"admin"_s, u"admin"_s), "");
    users(office, [](QTreeView *list) {
        clickRow(list, 1);   // banhang, waiting
        click(list->window(), "CmdRelease");
        EXPECT_FALSE(list->model()->index(1, 0).data(Qt::ForegroundRole).isValid());
        click(list->window(), "CmdExit");
    });
    EXPECT_EQ(logon(counter, u"banhang"_s, u"123"_s), "");
}

// A clerk who opens the administration, as a host may let him by mistake:
// the server refuses each write, and the dialog says why.
TEST_P(LockedDialogsTest, AClerkInTheUserListChangesNothing)
{
    QSqlDatabase db = desk(u"quay"_s);
    ASSERT_EQ(logon(db, u"banhang"_s, u"123"_s), "");
    const QString before = owner(u"SELECT string_agg(name || idgroup, ',' ORDER BY code) FROM \"user\""_s);
    users(db, [](QTreeView *list) {
        EXPECT_EQ(addUser(list, u"thu"_s, u"kho"_s),
                  QStringList{u"User Infomation|Chỉ người quản trị đã đăng nhập mới được làm việc này."_s});
        click(list->window(), "CmdExit");
    });
    EXPECT_EQ(owner(u"SELECT string_agg(name || idgroup, ',' ORDER BY code) FROM \"user\""_s), before);
}
