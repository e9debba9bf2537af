// SPDX-License-Identifier: MIT
// The strong password store (Config/PasswordStore "argon2id"): a legacy
// digest opens an account once and gives way to a hash; the editor writes
// hashes; a failed upgrade changes nothing; an unknown name takes as long as
// a wrong password.
#include "core/logon/PasswordStore.h"

#include "DialogSupport.h"
#include "TestSupport.h"

#include <zolt/Error.h>
#include <zolt/Password.h>
#include <zolt/Schema.h>
#include <zolt/clsLogon.h>

#include <QElapsedTimer>
#include <QLineEdit>
#include <QTest>

#include <algorithm>

using namespace zolt;
using namespace Qt::StringLiterals;
using test::child;

namespace {

class StrongPasswordTest : public ::testing::TestWithParam<test::Engine> {
protected:
    void SetUp() override
    {
        CreateTables(db.db());
        SeedTables(db.db(), u"admin"_s, u"admin"_s);   // a legacy digest, 26209
        db.exec(u"Insert Into Options Values('Config', 'PasswordStore', 'argon2id', Null)"_s);
    }
    qint32 logon(const char *name, const char *password)
    {
        return StrongLogon(QLatin1String(name), QString::fromUtf8(password), ReadPasswordPolicy());
    }
    QString stored() const
    {
        return db.scalar(u"Select [Password] From [User] Where [Name]='admin'"_s).toString() + u'|'
               + db.scalar(u"Select PasswordHash From [User] Where [Name]='admin'"_s).toString().left(10);
    }
    test::TempDatabase db{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(Engines, StrongPasswordTest, ::testing::ValuesIn(test::Engines), test::EngineName);

} // namespace

TEST_P(StrongPasswordTest, TheLegacyDigestOpensOnceThenOnlyThePasswordDoes)
{
    EXPECT_EQ(stored(), "26209|");
    for (const auto &[caseSensitive, tries] : {
             std::pair{false, std::vector<std::pair<const char *, qint32>>{
                                  {"admin", 1}, {"ecmin", 0} /* the digest's twin */, {"ADMIN", 1}, {"admin", 1}, {"", 0}}},
             std::pair{true, std::vector<std::pair<const char *, qint32>>{{"admin", 1}, {"ADMIN", 0}, {"admin", 1}}}}) {
        db.exec(u"Update [User] Set [Password]=26209, PasswordHash=Null"_s);   // a legacy row again
        db.exec(u"Delete From Options Where KeyName='PasswordCaseSensitive'"_s);
        if (caseSensitive)
            db.exec(u"Insert Into Options Values('Config', 'PasswordCaseSensitive', '1', Null)"_s);
        for (const auto &[password, code] : tries)
            EXPECT_EQ(logon("admin", password), code) << password << " case-sensitive " << caseSensitive;
        EXPECT_EQ(stored(), "-1|$argon2id$");
    }
    EXPECT_EQ(logon("nobody", "admin"), 0);
}

TEST_P(StrongPasswordTest, TheDialogsLogOnAndWriteHashes)
{
    test::whenModalShows([](QWidget *form) {
        test::retype(child<QLineEdit>(form, "Txtuser"), u"admin"_s);
        test::retype(child<QLineEdit>(form, "TxtPass"), u"admin"_s);
        test::click(form, "CmdOk");
    });
    EXPECT_EQ(clsLogon().ShowLogon(db.db()), 1);
    test::whenModalShows([](QWidget *editor) {   // "change own password"
        test::retype(child<QLineEdit>(editor, "TxtPass"), u"Mật khẩu mới"_s);
        test::retype(child<QLineEdit>(editor, "txtConfirm"), u"MẬT KHẨU MỚI"_s);
        test::click(editor, "CMDOK");
    });
    clsLogon().ShowUser(db.db(), u"admin"_s);
    EXPECT_EQ(logon("admin", "admin"), 0);
    EXPECT_EQ(logon("admin", "mật khẩu mới"), 1);
    EXPECT_EQ(stored(), "-1|$argon2id$");
}

TEST_P(StrongPasswordTest, AFailedUpgradeLeavesTheDigestWorking)
{
    if (db.engine() == test::Engine::SQLite) {
        db.exec(u"Create Trigger frozen Before Update On [User] Begin Select Raise(Abort, 'frozen'); End"_s);
    } else if (db.engine() == test::Engine::MariaDB) {
        db.exec(u"Create Trigger frozen Before Update On [User] For Each Row Signal SqlState '45000' Set Message_Text = 'frozen'"_s);
    } else {
        db.exec(u"Create Function frozen() Returns trigger Language plpgsql As $$ Begin Raise Exception 'frozen'; End $$"_s);
        db.exec(u"Create Trigger frozen Before Update On \"user\" For Each Row Execute Function frozen()"_s);
    }
    EXPECT_EQ(test::errorNumberOf([&] { logon("admin", "admin"); }), Error::DatabaseFailure);
    EXPECT_EQ(stored(), "26209|");
    db.exec(db.engine() == test::Engine::PostgreSQL || db.engine() == test::Engine::Odbc ? u"Drop Trigger frozen On \"user\""_s
                                                                                          : u"Drop Trigger frozen"_s);
    EXPECT_EQ(logon("admin", "admin"), 1);
    EXPECT_EQ(stored(), "-1|$argon2id$");
}

// Whether a name exists cannot be told from how long the refusal takes.
TEST_P(StrongPasswordTest, AnUnknownNameTakesAsLongAsAWrongPassword)
{
    logon("admin", "admin");   // upgraded: a hash to verify against
    logon("nobody", "x");      // the stand-in hash made
    const int tries = test::trials(30, 200);
    std::vector<qint64> unknown, wrong;
    QElapsedTimer clock;
    for (int i = 0; i < tries; ++i) {
        clock.start();
        EXPECT_EQ(logon("nobody", "admin"), 0);
        unknown.push_back(clock.nsecsElapsed());
        clock.start();
        EXPECT_EQ(logon("admin", "sai"), 0);
        wrong.push_back(clock.nsecsElapsed());
    }
    const auto median = [](std::vector<qint64> times) {
        std::nth_element(times.begin(), times.begin() + times.size() / 2, times.end());
        return double(times[times.size() / 2]) / 1e6;
    };
    const double a = median(unknown), b = median(wrong);
    std::printf("medians over %d tries: unknown name %.1f ms, wrong password %.1f ms\n", tries, a, b);
    EXPECT_LT(std::abs(a - b) / std::max(a, b), 0.15);
}
