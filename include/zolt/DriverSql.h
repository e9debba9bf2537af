// SPDX-License-Identifier: MIT
#pragma once

// The library writes SQL in the original engine's dialect: [bracketed] names,
// #m/d/y# dates, text between apostrophes with apostrophes doubled. So does
// the condition the search wizard hands back. DriverSql turns such a
// statement into the one the connection's engine reads; the library sends
// every statement of its own through it, and a host sends the conditions it
// receives (or its own statements in that dialect) through it too.

#include <zolt/zolt_export.h>

#include <QSqlDatabase>
#include <QString>

namespace zolt {

// Names are quoted as the engine quotes them (in lower case on PostgreSQL,
// which folds plain names so), dates become ISO text unless the engine behind
// ODBC is of no known kind (the original engine reads them), and backslashes
// in quoted text are doubled where the engine reads them as escapes (MySQL,
// PostgreSQL with standard_conforming_strings off), so that no typed text
// ends a literal.
ZOLT_EXPORT QString DriverSql(const QSqlDatabase &db, const QString &sql);

} // namespace zolt
