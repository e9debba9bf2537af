// SPDX-License-Identifier: MIT
// Opening the user list on 10,000 users and the groups dialog on 1,000
// groups, beside stepping the same query with QSqlQuery; a logon with the
// strong password store beside libsodium's own verification.
#include "BenchMain.h"

#include "data/Database.h"
#include "logon/FmGrp.h"
#include "logon/FrmMenu.h"
#include "logon/PasswordStore.h"

#include <zolt/Schema.h>

#include <QElapsedTimer>
#include <sodium.h>

#include <QSqlQuery>
#include <QVariant>

#include <benchmark/benchmark.h>

using namespace zolt;

namespace {

// One SQLite file with users and groups of the given counts.
QSqlDatabase staff(int users, int groups)
{
    return bench::Database(QStringLiteral("staff%1-%2").arg(users).arg(groups), [=](QSqlQuery &query) {
        query.exec(QStringLiteral("Create Table [User](Code Integer Primary Key, [Name] Text, Dec Text, [Password] Double, IdGroup Integer)"));
        query.exec(QStringLiteral("Create Table Groups(Code Integer Primary Key, [Name] Text, Des Text)"));
        query.prepare(QStringLiteral("Insert Into [User] Values(?, ?, ?, 1065, ?)"));
        for (int i = 1; i <= users; ++i) {
            query.addBindValue(i);
            query.addBindValue(QStringLiteral("nhanvien%1").arg(i));
            query.addBindValue(QStringLiteral("Nhân viên quầy số %1").arg(i));
            query.addBindValue(1 + i % groups);
            query.exec();
        }
        query.prepare(QStringLiteral("Insert Into Groups Values(?, ?, ?)"));
        for (int i = 1; i <= groups; ++i) {
            query.addBindValue(i);
            query.addBindValue(QStringLiteral("Nhóm %1").arg(i));
            query.addBindValue(QStringLiteral("Bộ phận bán hàng %1").arg(i));
            query.exec();
        }
    });
}

// The query stepped to its end, each column read as text.
void stepQuery(benchmark::State &state, const QString &sql)
{
    const QSqlDatabase db = staff(10000, 1000);
    for (auto _ : state) {
        QSqlQuery query(db);
        query.exec(sql);
        QStringList texts;
        while (query.next()) {
            for (int column = 0; column < 3; ++column)
                texts << query.value(column).toString();
        }
        benchmark::DoNotOptimize(texts.size());
    }
}

template <typename Dialog>
void openDialog(benchmark::State &state)
{
    SetCurrentConnection(staff(10000, 1000));
    for (auto _ : state) {
        Dialog dialog;
        benchmark::DoNotOptimize(&dialog);
    }
}

void BM_FrmMenu(benchmark::State &state) { openDialog<FrmMenu>(state); }
void BM_UserQuery(benchmark::State &state) { stepQuery(state, QStringLiteral("Select Code,Name,Dec from [user] Order by Code")); }
void BM_FmGrp(benchmark::State &state) { openDialog<FmGrp>(state); }
void BM_GroupQuery(benchmark::State &state) { stepQuery(state, QStringLiteral("Select * From [Groups]")); }

// A logon with the strong store, through the library (options, the user's
// row, the verification), beside libsodium's bare verification of the same
// hash, timed in turn within each iteration.
void BM_LogonArgon2id(benchmark::State &state)
{
    const QSqlDatabase db = bench::Database(QStringLiteral("strong"), [](QSqlQuery &) {});
    CreateTables(db);
    SeedTables(db, QStringLiteral("admin"), QStringLiteral("admin"));
    Execute(QStringLiteral("Delete From Options Where KeyName='PasswordStore'"));
    Execute(QStringLiteral("Insert Into Options Values('Config', 'PasswordStore', 'argon2id', Null)"));
    const PasswordPolicy policy = ReadPasswordPolicy();
    StrongLogon(QStringLiteral("admin"), QStringLiteral("admin"), policy);   // the legacy digest gives way to a hash
    QSqlQuery read(db);
    read.exec(DriverSql(db, QStringLiteral("Select PasswordHash From [User] Where [Name]='admin'")));
    read.next();
    const QByteArray hash = read.value(0).toString().toLatin1();
    qint64 library = 0, bare = 0;
    QElapsedTimer clock;
    for (auto _ : state) {
        clock.start();
        benchmark::DoNotOptimize(StrongLogon(QStringLiteral("admin"), QStringLiteral("admin"), ReadPasswordPolicy()));
        library += clock.nsecsElapsed();
        clock.start();
        benchmark::DoNotOptimize(crypto_pwhash_str_verify(hash.constData(), "ADMIN", 5));
        bare += clock.nsecsElapsed();
    }
    bench::MeasuredRatio("logon_argon2id", double(library) / double(bare));
}

BENCHMARK(BM_LogonArgon2id)->MinTime(5)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FrmMenu)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_UserQuery)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FmGrp)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_GroupQuery)->Unit(benchmark::kMillisecond);

const bench::Ratio ratios[] = {
    {"user_list_10k", "BM_FrmMenu", "BM_UserQuery"},
    {"groups_1k", "BM_FmGrp", "BM_GroupQuery"},
};

} // namespace
