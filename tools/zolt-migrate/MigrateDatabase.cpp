// SPDX-License-Identifier: MIT
#include "MigrateDatabase.h"

#include <QFileInfo>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlField>
#include <QSqlQuery>
#include <QUrl>
#include <QUrlQuery>

namespace zolt::migrate {

bool OpenDatabase(const QString &address, const QString &connectionName, bool create, Database *out, QString *error)
{
    out->address = address;
    if (address.startsWith(QLatin1String("postgresql://")) || address.startsWith(QLatin1String("postgres://"))) {
        const QUrl url(address);
        out->engine = Engine::PostgreSQL;
        out->db = QSqlDatabase::addDatabase(QStringLiteral("QPSQL"), connectionName);
        const QString socket = QUrlQuery(url).queryItemValue(QStringLiteral("host"));
        out->db.setHostName(socket.isEmpty() ? url.host() : socket);
        if (url.port() > 0)
            out->db.setPort(url.port());
        out->db.setUserName(url.userName());
        out->db.setPassword(url.password());
        out->db.setDatabaseName(url.path().mid(1));
        out->address = url.toString(QUrl::RemovePassword);
    } else if (address.startsWith(QLatin1String("odbc:"))) {
        out->engine = Engine::Odbc;
        out->db = QSqlDatabase::addDatabase(QStringLiteral("QODBC"), connectionName);
        out->db.setDatabaseName(address.mid(5));
    } else {
        out->engine = Engine::SQLite;
        if (!create && !QFileInfo(address).isFile()) {
            *error = QStringLiteral("không có tệp %1 / no such file").arg(address);
            return false;
        }
        out->db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connectionName);
        out->db.setDatabaseName(address);
    }
    if (!out->db.open()) {
        *error = out->db.lastError().text();
        return false;
    }
    return true;
}

QString Quoted(const Database &d, const QString &name)
{
    return d.db.driver()->escapeIdentifier(name, QSqlDriver::TableName);
}

QString MadeName(const Database &d, const QString &name)
{
    return d.engine == Engine::PostgreSQL ? name.toLower() : name;
}

QStringList DataTables(const Database &d)
{
    QStringList tables;
    for (const QString &table : d.db.tables(QSql::Tables)) {
        if (table.compare(JournalTable, Qt::CaseInsensitive) != 0 && !table.startsWith(BackupPrefix, Qt::CaseInsensitive)
            && !table.startsWith(QLatin1String("sqlite_")))
            tables << table;
    }
    tables.sort(Qt::CaseInsensitive);
    return tables;
}

qint64 CountRows(const Database &d)
{
    qint64 rows = 0;
    for (const QString &table : DataTables(d)) {
        QSqlQuery count(QStringLiteral("SELECT COUNT(*) FROM ") + Quoted(d, table), d.db);
        rows += count.next() ? count.value(0).toLongLong() : 0;
    }
    return rows;
}

bool IsLibraryTable(const QString &table)
{
    static const QStringList library{QStringLiteral("User"),    QStringLiteral("Groups"),        QStringLiteral("Menu"),
                                     QStringLiteral("SubMenu"), QStringLiteral("Options"),       QStringLiteral("LstFld"),
                                     QStringLiteral("Operator"), QStringLiteral("LogonFailures"), QStringLiteral("LogonLog")};
    return library.contains(table, Qt::CaseInsensitive);
}

QString ColumnType(const Database &d, const QSqlField &field, bool asText)
{
    const bool pg = d.engine != Engine::SQLite;
    // Text compares without regard to case, as the library's statements expect.
    const QString text = pg ? QStringLiteral("CITEXT") : QStringLiteral("TEXT COLLATE NOCASE");
    if (asText)
        return text;
    switch (field.metaType().id()) {
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Char:
    case QMetaType::UChar:
    case QMetaType::LongLong:
    case QMetaType::ULongLong: return pg ? QStringLiteral("BIGINT") : QStringLiteral("INTEGER");
    case QMetaType::Double:
    case QMetaType::Float: return pg ? QStringLiteral("DOUBLE PRECISION") : QStringLiteral("DOUBLE");
    case QMetaType::Bool: return QStringLiteral("BOOLEAN");
    case QMetaType::QDate: return QStringLiteral("DATE");
    case QMetaType::QTime: return QStringLiteral("TIME");
    case QMetaType::QDateTime: return QStringLiteral("TIMESTAMP");
    case QMetaType::QByteArray: return pg ? QStringLiteral("BYTEA") : QStringLiteral("BLOB");
    default: return text;
    }
}

} // namespace zolt::migrate
