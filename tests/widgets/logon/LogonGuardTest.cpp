// SPDX-License-Identifier: MIT
// Limits on logon attempts and the logon record: a name refused too often
// waits, told so in Vietnamese; every desk sees the same count; a logon or
// an administrator clears it; each attempt is recorded without a password.
#include "core/logon/LogonGuard.h"

#include "core/platform/WriterTool.h"
#include "DialogSupport.h"
#include "TestSupport.h"

#include <zolt/Schema.h>
#include <zolt/clsLogon.h>

#include <QColor>
#include <QLineEdit>
#include <QTreeView>

using namespace zolt;
using namespace Qt::StringLiterals;
using test::child;

namespace {

class LogonGuardTest : public ::testing::TestWithParam<test::Engine> {
protected:
    void SetUp() override
    {
        CreateTables(db.db());
        SeedTables(db.db(), u"admin"_s, u"admin"_s);
        db.exec(u"Insert Into Options Values('Config', 'LogonAttempts', '2', Null), ('Config', 'LogonWaitSeconds', '600', Null),"
                " ('Config', 'LogonLogDays', '1', Null)"_s);
    }
    // A logon with real keys; what the clerk was told, "" when logged on.
    QString logon(const QString &name, const QString &password)
    {
        QStringList told;
        test::whenModalShows([&](QWidget *form) {
            test::retype(child<QLineEdit>(form, "Txtuser"), name);
            test::retype(child<QLineEdit>(form, "TxtPass"), password);
            test::answerMessages(&told);
            test::click(form, "CmdOk");
            if (form->isVisible())
                test::click(form, "CmdCan");
        });
        clsLogon().ShowLogon(db.db());
        return told.value(0).section(u'|', 1);
    }
    test::TempDatabase db{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Engines, LogonGuardTest, ::testing::ValuesIn(test::Engines), test::EngineName);

const QString Refused = u"Mật khẩu hoặc người sử dụng không hợp lệ "_s;

} // namespace

TEST_P(LogonGuardTest, ANameRefusedTooOftenWaitsUntilALogonOrAnAdministratorClearsIt)
{
    for (const QString &name : {u"admin"_s, u"ai đó"_s /* unknown names count too */}) {
        EXPECT_EQ(logon(name, u"sai"_s), Refused);
        EXPECT_EQ(logon(name, u"sai"_s), Refused);
        const QString waiting = logon(name, u"admin"_s);   // even the right password waits
        EXPECT_TRUE(waiting.startsWith(u"Đã nhập sai quá số lần cho phép. Hãy chờ "_s) && waiting.contains(u"phút"_s))
            << waiting.toStdString();
    }
    // The administrator sees who waits in the user list and releases him.
    test::whenModalShows([](QWidget *users) {
        auto *list = child<QTreeView>(users, "Lv");
        list->setCurrentIndex(list->model()->index(0, 0));   // admin, the first user
        EXPECT_EQ(list->model()->index(0, 0).data(Qt::ForegroundRole).value<QColor>(), QColor(Qt::darkRed));
        test::click(users, "CmdRelease");
        EXPECT_FALSE(list->model()->index(0, 0).data(Qt::ForegroundRole).isValid());
        test::click(users, "CmdExit");
    });
    clsLogon().UserManager(db.db());
    EXPECT_EQ(logon(u"admin"_s, u"sai"_s), Refused);
    EXPECT_EQ(logon(u"admin"_s, u"admin"_s), "");   // and a logon clears the count
    EXPECT_EQ(db.scalar(u"Select Count(*) From LogonFailures Where [Name]='admin'"_s).toInt(), 0);
    EXPECT_EQ(WaitMessage(45), u"Đã nhập sai quá số lần cho phép. Hãy chờ 45 giây nữa rồi đăng nhập lại."_s);
    EXPECT_EQ(WaitMessage(120), u"Đã nhập sai quá số lần cho phép. Hãy chờ 2 phút nữa rồi đăng nhập lại."_s);
    EXPECT_EQ(WaitMessage(599), u"Đã nhập sai quá số lần cho phép. Hãy chờ 9 phút 59 giây nữa rồi đăng nhập lại."_s);

    // The record: every attempt, its desk and result, never a password.
    EXPECT_EQ(db.scalar(u"Select Count(*) From LogonLog Where Result='waiting'"_s).toInt(), 2);
    EXPECT_EQ(db.scalar(u"Select Count(*) From LogonLog Where Result='accepted' And [Name]='admin'"_s).toInt(), 1);
    EXPECT_EQ(db.scalar(u"Select Count(*) From LogonLog Where Desk Is Null Or Desk=''"_s).toInt(), 0);
    EXPECT_EQ(db.scalar(u"Select Count(*) From LogonLog Where [Name] Like '%sai%' Or Result Like '%sai%'"_s).toInt(), 0);
    db.exec(u"Insert Into LogonLog Values('2000-01-01T00:00:00', 'cũ', 'x', 'refused')"_s);
    logon(u"admin"_s, u"admin"_s);
    EXPECT_EQ(db.scalar(u"Select Count(*) From LogonLog Where [Name]='cũ'"_s).toInt(), 0);   // older than kept
}

// Two desks refusing the same name at once: every refusal counts.
class TwoDesks : public ::testing::TestWithParam<test::Engine> {};
INSTANTIATE_TEST_SUITE_P(Servers, TwoDesks, ::testing::Values(test::Engine::PostgreSQL, test::Engine::MariaDB), test::EngineName);

TEST_P(TwoDesks, EveryRefusalCounts)
{
    test::TempDatabase db(GetParam());
    CreateTables(db.db());
    const auto desk = [&] { return test::startWriter({u"refuse"_s, db.serverFolder(), db.schema(), u"thu ngân"_s, u"40"_s}); };
    const auto first = desk(), second = desk();
    test::finish({first.get(), second.get()});
    EXPECT_EQ(db.scalar(u"Select Refusals From LogonFailures Where [Name]='THU NGÂN'"_s).toInt(), 80);
    EXPECT_GT(SecondsToWait(u"thu ngân"_s, LogonLimits{5, 30, 900, 0}), 800);   // 900 at most, doubled since the 5th
}
