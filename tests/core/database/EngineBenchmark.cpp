// SPDX-License-Identifier: MIT
// The library's statements on each engine, beside the same statement as the
// engine reads it run with QSqlQuery: what adapting the statement and the
// record set cost on top. The logon's query of 100,000 users, and the query
// of the selection list on all of them. PostgreSQL and ODBC run on the
// server that ./run bench starts (ZOLT_BENCH_SERVERS, its folder), MariaDB on
// its other one (ZOLT_BENCH_MARIADB).
#include "BenchMain.h"

#include "core/database/Database.h"
#include "core/database/Recordset.h"
#include "servers/TestServer.h"

#include <QSqlDriver>
#include <QSqlQuery>
#include <QVariant>

#include <stdexcept>

#include <benchmark/benchmark.h>

using namespace zolt;

namespace {

enum Engine { SQLite, PostgreSQL, Odbc, MariaDB };
constexpr int Users = 100000;

const QString LogonSql = QStringLiteral("SELECT  *  FROM [User] WHERE ([Name]='nhanvien99999') And ( [Password]=1065)");
const QString ListSql = QStringLiteral("Select Code, [Name] From [User] Order By Code");

void fill(QSqlDatabase db)
{
    QSqlQuery query(db);
    const bool server = db.driver()->dbmsType() == QSqlDriver::PostgreSQL;
    if (server) {
        query.exec(QStringLiteral("DROP SCHEMA IF EXISTS bench CASCADE"));
        query.exec(QStringLiteral("CREATE SCHEMA bench"));
        query.exec(QStringLiteral("SET search_path TO bench, public"));
    }
    const bool mariaDb = db.driver()->dbmsType() == QSqlDriver::MySqlServer;
    const QString text = server    ? QStringLiteral("Citext")
                         : mariaDb ? QStringLiteral("Varchar(255) Character Set utf8mb4 Collate utf8mb4_uca1400_nopad_as_ci")
                                   : QStringLiteral("Text Collate NoCase");
    if (mariaDb)
        query.exec(QStringLiteral("DROP TABLE IF EXISTS user"));
    query.exec(DriverSql(db, QStringLiteral("Create Table [User](Code Integer Primary Key, [Name] %1, [Dec] %1, "
                                            "[Password] Double Precision, IdGroup Integer)").arg(text)));
    db.transaction();
    query.prepare(DriverSql(db, QStringLiteral("Insert Into [User] Values(?, ?, ?, 1065, 8)")));
    for (int i = 0; i < Users; ++i) {
        query.addBindValue(i);
        query.addBindValue(QStringLiteral("nhanvien%1").arg(i));
        query.addBindValue(QStringLiteral("Nhân viên quầy số %1").arg(i));
        query.exec();
    }
    db.commit();
}

QSqlDatabase connection(Engine engine)
{
    static const QString names[] = {QStringLiteral("engine-sqlite"), QStringLiteral("engine-psql"), QStringLiteral("engine-odbc"),
                                    QStringLiteral("engine-mariadb")};
    if (QSqlDatabase::contains(names[engine]))
        return QSqlDatabase::database(names[engine]);
    if (engine == SQLite) {
        const QSqlDatabase db = bench::Database(names[engine], [](QSqlQuery &) {});
        fill(db);
        return db;
    }
    if (engine == MariaDB) {
        QSqlDatabase db = test::addServerDatabase(QStringLiteral("QMYSQL"), names[engine], qEnvironmentVariable("ZOLT_BENCH_MARIADB"));
        db.open();
        QSqlQuery(db).exec(QStringLiteral("CREATE DATABASE IF NOT EXISTS bench"));
        db.close();
        db.setDatabaseName(QStringLiteral("bench"));
        db.open();
        fill(db);
        return db;
    }
    if (engine == Odbc)
        connection(PostgreSQL);   // which fills the server's tables
    QSqlDatabase db = test::addServerDatabase(engine == PostgreSQL ? QStringLiteral("QPSQL") : QStringLiteral("QODBC"),
                                              names[engine], qEnvironmentVariable("ZOLT_BENCH_SERVERS"));
    db.open();
    if (engine == PostgreSQL)
        fill(db);
    QSqlQuery(db).exec(QStringLiteral("SET search_path TO bench, public"));
    return db;
}

// Through the library: the statement adapted on its way, read by a record set.
void throughLibrary(const QSqlDatabase &db, const QString &sql)
{
    Recordset rs;
    if (rs.Open(sql, db) != 0)
        throw std::runtime_error("the statement failed");
    qsizetype read = 0;
    for (; !rs.Eof(); rs.MoveNext())
        read += rs.Value(1).toString().size();
    benchmark::DoNotOptimize(read);
}

// The statement as the engine reads it, written out beforehand.
void plainly(const QSqlDatabase &db, const QString &adapted)
{
    QSqlQuery query(db);
    if (!query.exec(adapted))
        throw std::runtime_error("the statement failed");
    qsizetype read = 0;
    while (query.next())
        read += query.value(1).toString().size();
    benchmark::DoNotOptimize(read);
}

void compare(benchmark::State &state, const QString &sql, const char *what)
{
    static const char *const engines[] = {"sqlite", "postgresql", "odbc", "mariadb"};
    const QSqlDatabase db = connection(Engine(state.range(0)));
    const QString adapted = DriverSql(db, sql);
    bench::InTurn(state, std::string(what) + "_100k_" + engines[state.range(0)], [&] { throughLibrary(db, sql); },
                  [&] { plainly(db, adapted); });
}

void BM_Logon(benchmark::State &state) { compare(state, LogonSql, "logon"); }
void BM_List(benchmark::State &state) { compare(state, ListSql, "list"); }

BENCHMARK(BM_Logon)->DenseRange(SQLite, MariaDB)->MinTime(4)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_List)->DenseRange(SQLite, MariaDB)->MinTime(4)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
