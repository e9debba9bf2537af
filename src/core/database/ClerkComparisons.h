// SPDX-License-Identifier: MIT
#pragma once

// The text comparisons of a clerk's condition made to follow TextFold's rule
// on the connection's engine.

#include <QSqlDatabase>
#include <QString>

namespace zolt {

// Every comparison of a field with quoted text (field = 'x', <>, LIKE, NOT
// LIKE, IN ('x','y'), NOT IN) rewritten so that case never matters, typed
// text without diacritics matches with or without them, and decomposed text
// matches as composed: on SQLite through the collations and the function
// RegisterCaseBlindText adds, on PostgreSQL (directly or through ODBC)
// through the functions zolt_bare and zolt_nocase of the shipped schema.
// Other engines, and everything else in the condition, are left as they
// stand; the result is still in the original dialect, for DriverSql.
QString ClerkComparisons(const QSqlDatabase &db, const QString &condition);

} // namespace zolt
