// SPDX-License-Identifier: MIT
#include <zolt/Schema.h>

#include "core/base/Conversions.h"
#include "core/database/Database.h"
#include "core/database/Options.h"

#include <zolt/Error.h>

#include <QCoreApplication>
#include <QFile>
#include <QRegularExpression>
#include <QStringList>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>

namespace zolt {

namespace {

// The folder of the engine's steps among the library's resources.
QString folderFor(const QSqlDatabase &db)
{
    switch (db.driver() ? db.driver()->dbmsType() : QSqlDriver::UnknownDbms) {
    case QSqlDriver::SQLite: return QStringLiteral(":/zolt/schema/sqlite/");
    case QSqlDriver::PostgreSQL: return QStringLiteral(":/zolt/schema/postgresql/");
    case QSqlDriver::MySqlServer: return QStringLiteral(":/zolt/schema/mariadb/");
    default: throw Error(Error::DatabaseFailure, QStringLiteral("ZOLT has no tables for the engine of ") + db.driverName());
    }
}

QString scriptText(const QString &path)
{
    QFile script(path);
    script.open(QIODevice::ReadOnly);
    return QString::fromUtf8(script.readAll());
}

// The statements of a script whose every statement ends its line with ";".
QStringList statementsOf(const QString &script)
{
    QStringList statements;
    QString current;
    for (const QString &line : script.split(u'\n')) {
        const QString trimmed = line.trimmed();
        if (trimmed.startsWith(QLatin1String("--")) || trimmed.isEmpty())
            continue;
        current += line + u'\n';
        if (trimmed.endsWith(u';')) {
            statements << current.trimmed().chopped(1);
            current.clear();
        }
    }
    return statements;
}

// Runs a statement written in the engine's own dialect.
void runNative(const QSqlDatabase &db, const QString &sql)
{
    QSqlQuery query(db);
    if (!RunStatement(query, sql))
        throw Error(Error::DatabaseFailure, query.lastError().text());
}

// Brings the tables from the version before to this one (its file N.sql).
void step(const QSqlDatabase &db, qint32 version)
{
    for (const QString &statement : statementsOf(scriptText(folderFor(db) + QString::number(version) + QStringLiteral(".sql"))))
        runNative(db, statement);
}

// A unique key of keys.sql: its statement, the table and columns it makes
// unique, and the words (the comment above it) that name a row breaking it.
struct UniqueKey {
    QString statement, table, columns, what;
};

QList<UniqueKey> uniqueKeys(const QSqlDatabase &db)
{
    static const QRegularExpression key(QStringLiteral("ON (\\S+) \\((.+)\\);$"));
    QList<UniqueKey> keys;
    QString what;
    for (const QString &line : scriptText(folderFor(db) + QStringLiteral("keys.sql")).split(u'\n')) {
        if (line.startsWith(QLatin1String("-- ")))
            what = line.mid(3);
        else if (const QRegularExpressionMatch found = key.match(line); found.hasMatch())
            keys.append({line.chopped(1), found.captured(1), found.captured(2), what});
    }
    return keys;
}

// Makes each unique key that is missing; a key that rows already break is not
// made, and those rows are reported (never deleted): a later call makes it
// once they are put right.
QStringList makeUniqueKeys(const QSqlDatabase &db)
{
    QStringList report;
    for (const UniqueKey &key : uniqueKeys(db)) {
        QSqlQuery rows(db);
        if (!RunStatement(rows, QStringLiteral("SELECT %1, COUNT(*) FROM %2 GROUP BY %1 HAVING COUNT(*) > 1").arg(key.columns, key.table)))
            throw Error(Error::DatabaseFailure, rows.lastError().text());
        if (!rows.next()) {
            runNative(db, key.statement);
            continue;
        }
        for (bool row = true; row; row = rows.next()) {
            const int count = rows.record().count();
            QStringList values;
            for (int column = 0; column + 1 < count; ++column)
                values << NullToStr(rows.value(column));
            const int times = rows.value(count - 1).toInt();
            report << QCoreApplication::translate("zolt::Schema", "%1: %2 (%n dòng)", nullptr, times)
                          .arg(key.what, values.join(QStringLiteral(" / ")));
        }
    }
    return report;
}

} // namespace

qint32 TablesVersion(const QSqlDatabase &db)
{
    return ReadOption(QStringLiteral("Config"), QStringLiteral("SchemaVersion"), QStringLiteral("0"), db).toInt();
}

QStringList CreateTables(const QSqlDatabase &db)
{
    UseConnection(db);
    if (!db.isOpen())
        throw Error(Error::DatabaseFailure, ClosedConnectionText());
    folderFor(db);   // an engine without tables fails before anything runs
    // Several desks on one file read while another writes (a file on one
    // machine; see the guide). The mode stays with the file: a desk that has
    // it open in a transaction only delays it to a later call.
    if (db.driver()->dbmsType() == QSqlDriver::SQLite)
        QSqlQuery(db).exec(QStringLiteral("PRAGMA journal_mode=WAL"));
    // Read first: on PostgreSQL a failed read (no Options yet) would end the transaction.
    const qint32 from = TablesVersion(db);
    // A locked server's tables are its owner's to make (zolt-server lock does).
    if (ServerLocked()) {
        if (from < SchemaVersion)
            throw Error(Error::DatabaseFailure,
                        QCoreApplication::translate("zolt::Schema", "Các bảng của máy chủ đã khoá cần nâng cấp: người quản lý "
                                                                    "máy chủ chạy lại zolt-server lock."));
        return {};
    }
    QStringList report;
    InTransaction(db, [&] {
        for (qint32 version = from + 1; version <= SchemaVersion; ++version)
            step(db, version);
        if (from < SchemaVersion)
            SaveOption(QStringLiteral("Config"), QStringLiteral("SchemaVersion"), QString::number(SchemaVersion),
                       QStringLiteral("Phiên bản các bảng của ZOLT"), 0);
        report = makeUniqueKeys(db);
    });
    return report;
}

} // namespace zolt
