// SPDX-License-Identifier: MIT
#include "MigrateDatabase.h"

#include "AccessDriver.h"
#include "Language.h"
#include "ServerAddress.h"

#include <QFile>
#include <QFileInfo>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlField>
#include <QSqlQuery>

namespace zolt::migrate {

using tools::AddServerDatabase;
using tools::ServerKind;
using tools::ServerKindOf;
using tools::ShownAddress;

namespace {

enum class FileKind { Missing, Folder, Empty, SQLite, Access, Other };

// What a file holds, known by its first bytes.
FileKind kindOf(const QString &path)
{
    const QFileInfo info(path);
    if (!info.exists())
        return FileKind::Missing;
    if (info.isDir())
        return FileKind::Folder;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return FileKind::Other;
    const QByteArray head = file.read(32);
    if (head.isEmpty())
        return FileKind::Empty;
    if (head.startsWith(QByteArrayView("SQLite format 3\0", 16)))
        return FileKind::SQLite;
    if (head.mid(4, 15) == "Standard Jet DB" || head.mid(4, 15) == "Standard ACE DB")
        return FileKind::Access;
    return FileKind::Other;
}

// Why a file cannot be the source or the target, and what to do; "" when it can.
QString unfitFile(const QString &path, FileKind kind, bool target)
{
    switch (kind) {
    case FileKind::Missing:
        return target ? QString()
                      : Say("Không có tệp %1: hãy chỉ tệp dữ liệu của chương trình cũ (Access .mdb hoặc SQLite) "
                            "hoặc địa chỉ một máy chủ.",
                            "There is no file %1: name the old program's data file (an Access .mdb or an SQLite "
                            "file) or a server's address.")
                            .arg(path);
    case FileKind::Folder:
        return Say("%1 là một thư mục, không phải cơ sở dữ liệu: hãy chỉ một tệp.",
                   "%1 is a folder, not a database: name a file.")
            .arg(path);
    case FileKind::Empty:
        return target ? QString()
                      : Say("%1 là tệp rỗng, không phải cơ sở dữ liệu: hãy chỉ tệp chương trình cũ lưu dữ liệu.",
                            "%1 is an empty file, not a database: name the file the old program kept its data in.")
                            .arg(path);
    case FileKind::SQLite: return QString();
    case FileKind::Access:
        return target ? Say("%1 là tệp Access, zolt-migrate chỉ đọc được: hãy chỉ một tệp SQLite mới hoặc một "
                            "cơ sở dữ liệu PostgreSQL hay MariaDB làm đích.",
                            "%1 is an Access file, which zolt-migrate only reads: name a new SQLite file or a "
                            "PostgreSQL or MariaDB database as the target.")
                            .arg(path)
                      : QString();
    case FileKind::Other:
        return target ? Say("%1 chứa thứ không phải cơ sở dữ liệu SQLite: hãy chỉ một tệp mới hoặc một cơ sở dữ "
                            "liệu PostgreSQL hay MariaDB làm đích.",
                            "%1 holds something that is not an SQLite database: name a new file or a PostgreSQL "
                            "or MariaDB database as the target.")
                            .arg(path)
                      : Say("%1 không phải cơ sở dữ liệu Access hay SQLite: hãy chỉ tệp chương trình cũ lưu dữ liệu.",
                            "%1 is neither an Access nor an SQLite database: name the file the old program kept "
                            "its data in.")
                            .arg(path);
    }
    return {};
}

// The type names of each target engine. Text compares without regard to
// case, as the library's statements expect: COLLATE NOCASE, citext, or
// MariaDB's utf8mb4 table collation, where text a key or an index holds is
// VARCHAR (255 characters at most). Dates and times carry no time zone.
struct TypeNames {
    QString text, keyText, integer, floating, dateTime, binary;
};

const TypeNames &typeNames(Engine engine)
{
    static const TypeNames sqlite{u"TEXT COLLATE NOCASE"_qs, u"TEXT COLLATE NOCASE"_qs, u"INTEGER"_qs,
                                  u"DOUBLE"_qs, u"TIMESTAMP"_qs, u"BLOB"_qs};
    static const TypeNames postgreSql{u"CITEXT"_qs, u"CITEXT"_qs, u"BIGINT"_qs,
                                      u"DOUBLE PRECISION"_qs, u"TIMESTAMP"_qs, u"BYTEA"_qs};
    static const TypeNames mariaDb{u"LONGTEXT"_qs, u"VARCHAR(255)"_qs, u"BIGINT"_qs,
                                   u"DOUBLE"_qs, u"DATETIME"_qs, u"LONGBLOB"_qs};
    switch (engine) {
    case Engine::PostgreSQL:
    case Engine::Odbc: return postgreSql;
    case Engine::MariaDB: return mariaDb;
    default: return sqlite;
    }
}

} // namespace

bool OpenDatabase(const QString &address, const QString &connectionName, bool create, Database *out, QString *error,
                  int codePage)
{
    out->address = address;
    if (const ServerKind server = ServerKindOf(address); server != ServerKind::None) {
        out->engine = server == ServerKind::PostgreSQL ? Engine::PostgreSQL : Engine::MariaDB;
        out->db = AddServerDatabase(address, connectionName);
        out->address = ShownAddress(address);
    } else if (address.startsWith(QLatin1String("odbc:"))) {
        out->engine = Engine::Odbc;
        out->db = QSqlDatabase::addDatabase(QStringLiteral("QODBC"), connectionName);
        out->db.setDatabaseName(address.mid(5));
    } else {
        const FileKind kind = kindOf(address);
        if (const QString unfit = unfitFile(address, kind, create); !unfit.isEmpty()) {
            *error = unfit;
            return false;
        }
        out->engine = kind == FileKind::Access ? Engine::Access : Engine::SQLite;
        if (out->engine == Engine::Access) {
            AccessDriver::Register();
            out->db = QSqlDatabase::addDatabase(AccessDriver::Name, connectionName);
            if (codePage > 0)
                out->db.setConnectOptions(QStringLiteral("CODEPAGE=%1").arg(codePage));
        } else {
            out->db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connectionName);
        }
        out->db.setDatabaseName(address);
    }
    if (!out->db.open()) {
        *error = Say("Không mở được %1: %2", "Cannot open %1: %2").arg(out->address, out->db.lastError().text());
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
    return d.engine == Engine::PostgreSQL || d.engine == Engine::MariaDB ? name.toLower() : name;
}

QStringList DataTables(const Database &d)
{
    QStringList tables;
    for (const QString &table : d.db.tables(QSql::Tables)) {
        if (table.compare(JournalTable, Qt::CaseInsensitive) != 0 && !table.startsWith(BackupPrefix, Qt::CaseInsensitive)
            && !table.startsWith(QLatin1String("sqlite_")))
            tables << table;
    }
    if (d.engine != Engine::Access)
        tables.sort(Qt::CaseInsensitive);
    return tables;
}

QList<TableIndex> SecondaryIndexes(const Database &d, const QString &table)
{
    QList<TableIndex> indexes;
    if (const auto *access = dynamic_cast<const AccessDriver *>(d.db.driver())) {
        for (const AccessIndex &index : access->indexes(table)) {
            if (!index.primary)
                indexes << TableIndex{index.name, index.columns, index.unique};
        }
    }
    return indexes;
}

QStringList Unreadable(const Database &d)
{
    const auto *access = dynamic_cast<const AccessDriver *>(d.db.driver());
    return access ? access->unreadable() : QStringList();
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

QString ColumnType(const Database &d, const QSqlField &field, bool asText, bool key)
{
    const TypeNames &names = typeNames(d.engine);
    const bool shortText = key || (field.length() > 0 && field.length() <= 255);
    const QString &text = shortText ? names.keyText : names.text;
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
    case QMetaType::ULongLong: return names.integer;
    case QMetaType::Double:
    case QMetaType::Float:
        if (field.length() > 0 && field.precision() >= 0)   // digits and decimal places: exact
            return QStringLiteral("NUMERIC(%1,%2)").arg(field.length()).arg(field.precision());
        return names.floating;
    case QMetaType::Bool: return QStringLiteral("BOOLEAN");
    case QMetaType::QDate: return QStringLiteral("DATE");
    case QMetaType::QTime: return QStringLiteral("TIME");
    case QMetaType::QDateTime: return names.dateTime;
    case QMetaType::QByteArray: return names.binary;
    default: return text;
    }
}

} // namespace zolt::migrate
