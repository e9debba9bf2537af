// SPDX-License-Identifier: MIT
#pragma once

// A conversion into another database: the library's tables made by its
// schema, the host's by copying their definitions, every row copied
// converted, one transaction a table, and the copy checked.

#include "MigrateReport.h"

#include <functional>

namespace zolt::migrate {

using RowsDone = std::function<void(const QString &table, qint64 rows)>;

// Makes the table in the target (or adds the columns the target's table
// lacks) and copies its rows, converted, in one transaction. The name of the
// target's table is returned in *targetTable.
bool CopyTable(const Database &source, const Database &target, const TableReport &table, const QString &unicodeFont,
               const RowsDone &done, QString *targetTable, QStringList *notes, QString *error);

// Copies every table of the scan and checks each copy into report->checks.
bool CopyTables(const Database &source, const Database &target, const QList<TableReport> &tables,
                const QString &unicodeFont, const RowsDone &done, Report *report, QString *error);

} // namespace zolt::migrate
