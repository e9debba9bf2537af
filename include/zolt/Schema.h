// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// The library's own tables on a host's database: created, brought up to date
/// and given the rows the library needs, with one call each.

#include <zolt/zolt_export.h>

#include <QSqlDatabase>
#include <QString>
#include <QStringList>

namespace zolt {

/// The version of the library's tables that this library writes; the version
/// a database holds is kept in Options under Config / SchemaVersion.
inline constexpr qint32 SchemaVersion = 4;

/// The version of the library's tables on db; 0 when they are missing or
/// older than recorded versions.
ZOLT_EXPORT qint32 TablesVersion(const QSqlDatabase &db);

/// Creates the library's tables on db for its engine (SQLite; PostgreSQL,
/// directly or through ODBC), or brings tables of an older version up to
/// SchemaVersion, in one transaction; running it again changes nothing. db
/// becomes the library's connection; an SQLite file is put in WAL mode. A
/// failure raises zolt::Error (the database's number and message) and leaves
/// the tables as they were, as does an engine the library has no tables for.
/// 
/// User names (without regard to case) and settings (Section, KeyName) are
/// made unique, so that several desks cannot add the same one twice. Where
/// rows already break that (written before, by desks without the key), the
/// key is not made and those rows are returned, one line each, in Vietnamese;
/// nothing is deleted, and a later call makes the key once they are put right.
/// An empty list: every key is in place. On a server locked by zolt-server
/// nothing is made (its owner makes the tables); tables of an older version
/// raise zolt::Error.
ZOLT_EXPORT QStringList CreateTables(const QSqlDatabase &db);

/// Adds the rows the library needs to be usable where they are missing, and
/// touches no row that exists: the search wizard's operators for each value
/// type that has none, the built-in groups 1 (system administrators) and 8
/// (users), and a first administrator of group 1 named adminName with
/// adminPassword unless a user of that name exists. In one transaction;
/// db becomes the library's connection; a failure raises zolt::Error.
/// Nothing on a locked server, which was seeded before it was locked.
ZOLT_EXPORT void SeedTables(const QSqlDatabase &db, const QString &adminName, const QString &adminPassword);

} // namespace zolt
