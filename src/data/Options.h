// SPDX-License-Identifier: MIT
#pragma once

// The settings store in the table Options, and the largest key of a table.

#include <QSqlDatabase>
#include <QString>

namespace zolt {

// The stored value of (section, key), or defaultValue when there is no row,
// the value is Null or empty, or the read fails; on CurrentConnection unless
// another connection is named.
QString ReadOption(const QString &section, const QString &key, const QString &defaultValue);
QString ReadOption(const QString &section, const QString &key, const QString &defaultValue, const QSqlDatabase &db);

// Stores the value by update-or-insert (insert only, with isNew set); the
// description is written when not empty. A failure raises zolt::Error.
void SaveOption(const QString &section, const QString &key, const QString &value,
                const QString &description, qint32 isNew);

// The largest value of the field in the table as a whole number; 0 when the
// table is empty or the read fails.
qint32 GetMaxValue(const QString &table, const QString &field, const QSqlDatabase &connection);

} // namespace zolt
