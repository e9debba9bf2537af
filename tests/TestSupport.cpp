// SPDX-License-Identifier: MIT
#include "TestSupport.h"

#include "servers/TestServer.h"

#include "core/database/Database.h"

#include <zolt/Error.h>

#include <QFile>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>

#include <gtest/gtest.h>

#include <sqlite3.h>

namespace zolt::test {

std::string EngineName(const ::testing::TestParamInfo<Engine> &info)
{
    switch (info.param) {
    case Engine::SQLite: return "SQLite";
    case Engine::PostgreSQL: return "PostgreSQL";
    case Engine::Odbc: return "ODBC";
    case Engine::MariaDB: return "MariaDB";
    }
    return "Unknown";
}

namespace {

// Every statement SQLite runs, as it ran it.
void traceStatements(const QSqlDatabase &db, QStringList *log)
{
    auto *handle = *static_cast<sqlite3 *const *>(db.driver()->handle().data());
    sqlite3_trace_v2(handle, SQLITE_TRACE_STMT, [](unsigned, void *log, void *statement, void *) {
        char *sql = sqlite3_expanded_sql(static_cast<sqlite3_stmt *>(statement));
        static_cast<QStringList *>(log)->append(QString::fromUtf8(sql));
        sqlite3_free(sql);
        return 0;
    }, log);
}

} // namespace

// Started by CTest's fixture with tests/servers/pg-cluster.sh.
QString ServerFolder()
{
    return QStringLiteral(ZOLT_TEST_SERVERS);
}

// Started by CTest's fixture with tests/servers/mariadb-cluster.sh.
QString MariaDbFolder()
{
    return QStringLiteral(ZOLT_TEST_MARIADB);
}

TempDatabase::TempDatabase(Engine engine)
    : m_engine(engine)
    , m_name(QUuid::createUuid().toString())
{
    static const char *const drivers[] = {"QSQLITE", "QPSQL", "QODBC", "QMYSQL"};
    const QString driver = QLatin1String(drivers[int(engine)]);
    if (engine != Engine::SQLite)
        m_schema = u't' + QUuid::createUuid().toString(QUuid::Id128);
    if (engine == Engine::MariaDB) {
        // A database of its own, made first so that a connection opened again still uses it.
        {
            QSqlDatabase admin = addServerDatabase(driver, m_name + QStringLiteral("-admin"), MariaDbFolder());
            EXPECT_TRUE(admin.open() && QSqlQuery(admin).exec(QStringLiteral("CREATE DATABASE %1").arg(m_schema)))
                << admin.lastError().text().toStdString();
        }
        QSqlDatabase::removeDatabase(m_name + QStringLiteral("-admin"));
    }
    QSqlDatabase db = engine == Engine::SQLite    ? QSqlDatabase::addDatabase(driver, m_name)
                      : engine == Engine::MariaDB ? addServerDatabase(driver, m_name, MariaDbFolder())
                                                  : addServerDatabase(driver, m_name, ServerFolder());
    if (engine == Engine::SQLite)
        db.setDatabaseName(m_dir.filePath(QStringLiteral("test.db")));
    if (engine == Engine::MariaDB)
        db.setDatabaseName(m_schema);
    EXPECT_TRUE(db.open()) << EngineName({engine, 0}) << ": " << db.lastError().text().toStdString();
    SetCurrentConnection(db);
    if (engine == Engine::SQLite) {
        traceStatements(db, m_statements.get());
    } else if (engine != Engine::MariaDB) {
        exec(QStringLiteral("CREATE SCHEMA %1").arg(m_schema));
        exec(QStringLiteral("SET search_path TO %1, public").arg(m_schema));
    }
}

TempDatabase::~TempDatabase()
{
    QSqlDatabase db = QSqlDatabase::database(m_name, false);
    if (!m_schema.isEmpty() && db.isOpen())
        QSqlQuery(db).exec(m_engine == Engine::MariaDB ? QStringLiteral("DROP DATABASE %1").arg(m_schema)
                                                       : QStringLiteral("DROP SCHEMA %1 CASCADE").arg(m_schema));
    db.close();
    db = QSqlDatabase();
    // The library keeps no copy of the host's connection, so the host removes
    // it without Qt's warning that it is still in use.
    static QStringList warnings;
    warnings.clear();
    const QtMessageHandler previous = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext &, const QString &text) { warnings << text; });
    QSqlDatabase::removeDatabase(m_name);
    qInstallMessageHandler(previous);
    EXPECT_TRUE(warnings.isEmpty()) << warnings.join(QLatin1Char('\n')).toStdString();
}

QSqlDatabase TempDatabase::db() const
{
    return QSqlDatabase::database(m_name, false);
}

void TempDatabase::createLibraryTables() const
{
    // Every statement of the scripts ends its line with ";".
    const char *script = m_engine == Engine::SQLite    ? ZOLT_SQLITE_VERSION1
                         : m_engine == Engine::MariaDB ? ZOLT_MARIADB_VERSION1
                                                       : ZOLT_POSTGRESQL_VERSION1;
    for (const QString &statement : QString::fromUtf8(readFile(QLatin1String(script))).split(QStringLiteral(";\n"))) {
        if (statement.contains(QStringLiteral("CREATE")))
            exec(statement.mid(statement.indexOf(QStringLiteral("CREATE"))));
    }
}

void TempDatabase::exec(const QString &sql) const
{
    QSqlQuery query(db());
    EXPECT_TRUE(query.exec(DriverSql(db(), sql))) << sql.toStdString() << ": " << query.lastError().text().toStdString();
}

QVariant TempDatabase::scalar(const QString &sql) const
{
    QSqlQuery query(db());
    EXPECT_TRUE(query.exec(DriverSql(db(), sql)) && query.next()) << sql.toStdString();
    return query.value(0);
}

void TempDatabase::dropConnection() const
{
    const bool mariaDb = m_engine == Engine::MariaDB;
    const QString backend = scalar(mariaDb ? QStringLiteral("Select Connection_Id()") : QStringLiteral("Select pg_backend_pid()")).toString();
    {
        QSqlDatabase admin = mariaDb ? addServerDatabase(QStringLiteral("QMYSQL"), m_name + QStringLiteral("-admin"), MariaDbFolder())
                                     : addServerDatabase(QStringLiteral("QPSQL"), m_name + QStringLiteral("-admin"), ServerFolder());
        EXPECT_TRUE(admin.open() && QSqlQuery(admin).exec((mariaDb ? QStringLiteral("Kill %1") : QStringLiteral("Select pg_terminate_backend(%1)")).arg(backend)));
    }
    QSqlDatabase::removeDatabase(m_name + QStringLiteral("-admin"));
}

int trials(int few, int many)
{
    return qEnvironmentVariableIsSet("ZOLT_LONG_TRIALS") ? many : few;
}

qint32 errorNumberOf(const std::function<void()> &f)
{
    try {
        f();
    } catch (const Error &e) {
        return e.number();
    }
    return 0;
}

QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

void writeFile(const QString &path, const QByteArray &data)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    file.write(data);
}

} // namespace zolt::test
