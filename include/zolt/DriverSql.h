// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// The library writes SQL in the original engine's dialect: [bracketed] names,
/// \#m/d/y\# dates, text between apostrophes with apostrophes doubled. So does
/// the condition the search wizard hands back. DriverSql turns such a
/// statement into the one the connection's engine reads; the library sends
/// every statement of its own through it, and a host sends the conditions it
/// receives (or its own statements in that dialect) through it too.

#include <zolt/zolt_export.h>

#include <QSqlDatabase>
#include <QString>

namespace zolt {

/// Names are quoted as the engine quotes them (in lower case on PostgreSQL,
/// which folds plain names so), dates become ISO text unless the engine behind
/// ODBC is of no known kind (the original engine reads them), and backslashes
/// in quoted text are doubled where the engine reads them as escapes (MySQL,
/// PostgreSQL with standard_conforming_strings off), so that no typed text
/// ends a literal. Inside apostrophes a doubled double quote stands for one, as
/// the library's quoting writes it: text is stored exactly as it was typed.
ZOLT_EXPORT QString DriverSql(const QSqlDatabase &db, const QString &sql);

/// A condition the search wizard handed back (or any condition a clerk's typed
/// text reaches) ready for db's engine: DriverSql, and besides, every
/// comparison of a field with quoted text (=, <>, LIKE, IN) as a clerk expects
/// it: case never matters; typed text without any diacritic matches text with
/// or without them ("banh" finds "Bánh", "d" finds "Đ") unless the option
/// Config/AccentBlindSearch is "0"; typed marks must match; text stored
/// decomposed matches as if composed. On SQLite and PostgreSQL (directly or
/// through ODBC); on PostgreSQL it needs the functions of the shipped schema.
ZOLT_EXPORT QString ConditionSql(const QSqlDatabase &db, const QString &condition);

} // namespace zolt
