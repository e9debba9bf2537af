// SPDX-License-Identifier: MIT
#pragma once

// The check after a copy: a table's rows and a checksum of its columns that
// are not text, in any row order and whatever the engine calls the types.

#include "MigrateDatabase.h"

namespace zolt::migrate {

struct TableSum {
    qint64 rows = 0;
    QString sum;   // hexadecimal
};

// Sums the columns of summed (found by name without regard to case) of every
// row of the table, each value read as the type summed gives it (a currency
// kept as its digits, a date as ISO text), but for the library's
// schema-version setting, which each database keeps for itself.
TableSum SumTable(const Database &d, const QString &table, const QSqlRecord &summed);

// The columns of a table that the check sums: neither text nor BLOBs.
QSqlRecord SummedColumns(const QSqlRecord &record);

} // namespace zolt::migrate
