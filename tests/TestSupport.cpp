// SPDX-License-Identifier: MIT
#include "TestSupport.h"

#include "data/Database.h"

#include <zolt/Error.h>

#include <QFile>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>

#include <gtest/gtest.h>

#include <sqlite3.h>

namespace zolt::test {

TempDatabase::TempDatabase()
    : m_name(QUuid::createUuid().toString())
{
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_name);
    db.setDatabaseName(m_dir.filePath(QStringLiteral("test.db")));
    EXPECT_TRUE(db.open()) << db.lastError().text().toStdString();
    SetCurrentConnection(db);
    auto *handle = *static_cast<sqlite3 *const *>(db.driver()->handle().data());
    sqlite3_trace_v2(handle, SQLITE_TRACE_STMT, [](unsigned, void *log, void *statement, void *) {
        char *sql = sqlite3_expanded_sql(static_cast<sqlite3_stmt *>(statement));
        static_cast<QStringList *>(log)->append(QString::fromUtf8(sql));
        sqlite3_free(sql);
        return 0;
    }, m_statements.get());
}

TempDatabase::~TempDatabase()
{
    QSqlDatabase::database(m_name, false).close();
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
    // Every statement of the script ends its line with ";".
    for (const QString &statement : QString::fromUtf8(readFile(QStringLiteral(ZOLT_SQLITE_SCHEMA))).split(QStringLiteral(";\n"))) {
        if (statement.contains(QStringLiteral("CREATE")))
            exec(statement.mid(statement.indexOf(QStringLiteral("CREATE"))));
    }
}

void TempDatabase::exec(const QString &sql) const
{
    QSqlQuery query(db());
    EXPECT_TRUE(query.exec(sql)) << sql.toStdString() << ": " << query.lastError().text().toStdString();
}

QVariant TempDatabase::scalar(const QString &sql) const
{
    QSqlQuery query(db());
    EXPECT_TRUE(query.exec(sql) && query.next()) << sql.toStdString();
    return query.value(0);
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
