// SPDX-License-Identifier: MIT
#pragma once

// The databases zolt-migrate reads and writes, named as on its command line:
// an SQLite file, an Access file (read only), a server's address
// (ServerAddress.h), or odbc:NAME for an ODBC data source.

#include <QSqlDatabase>
#include <QSqlRecord>
#include <QString>
#include <QStringList>

namespace zolt::migrate {

enum class Engine { SQLite, PostgreSQL, MariaDB, Odbc, Access };

struct Database {
    mutable QSqlDatabase db;   // a handle: transactions on a const Database are fine
    Engine engine = Engine::SQLite;
    QString address;   // as given, without its password
};

// Opens the database at address, as the command line names it. A file is
// known by its first bytes: an SQLite or an Access file as a source, an
// SQLite file as a target, which is made when create is set and there is no
// file. False, with one sentence saying what is wrong and what to do in
// *error, when it cannot be opened; codePage reads Access 97 text (0: the file's).
bool OpenDatabase(const QString &address, const QString &connectionName, bool create, Database *out, QString *error,
                  int codePage = 0);

// A table or column name as the engine reads it in a statement.
QString Quoted(const Database &d, const QString &name);

// The name a table or column made in d takes: in lower case on PostgreSQL,
// which folds the plain names of the host's statements so.
QString MadeName(const Database &d, const QString &name);

// The tables of the host and the library, in name order (an Access file's in
// its own), without the tool's own journal and backups.
QStringList DataTables(const Database &d);

struct TableIndex {
    QString name;
    QStringList columns;
    bool unique = false;
};
// The indexes of a table that a copy makes in its target beside the primary
// key: an Access file's; none for the other engines.
QList<TableIndex> SecondaryIndexes(const Database &d, const QString &table);
// What the source holds that could not be read, one sentence each.
QStringList Unreadable(const Database &d);

// The rows of all those tables.
qint64 CountRows(const Database &d);

// The library's own tables (its schema makes them in a target); names compared without regard to case.
bool IsLibraryTable(const QString &table);

// A column's type for a CREATE TABLE on the engine, from the type its driver
// reports: a number with digits and decimal places (a currency) an exact
// NUMERIC; text (and asText) becomes text that compares without regard to
// case: COLLATE NOCASE on SQLite, citext on PostgreSQL (the extension that
// the library's schema makes; CopyTables makes it where it is missing), the
// table's utf8mb4 collation on MariaDB, where a key's text (key) is VARCHAR.
QString ColumnType(const Database &d, const QSqlField &field, bool asText, bool key = false);

// The tool's journal of tables converted in place, and the prefix of the
// backup copies of tables it makes on a server.
inline const QString JournalTable = QStringLiteral("zolt_migrate_journal");
inline const QString BackupPrefix = QStringLiteral("zolt_backup_");

} // namespace zolt::migrate
