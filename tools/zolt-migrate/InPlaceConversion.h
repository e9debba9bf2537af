// SPDX-License-Identifier: MIT
#pragma once

// A conversion of a database in place: a backup first (a copy of an SQLite
// file; on a server a copy of each table touched), then one transaction a
// table, each recorded in the tool's journal in the same transaction, so that
// a run that was stopped resumes where it stopped and a second run changes
// nothing.

#include "MigrateReport.h"
#include "TableCopy.h"

namespace zolt::migrate {

bool ConvertInPlace(const Database &d, const QList<TableReport> &tables, const QString &unicodeFont,
                    const RowsDone &done, Report *report, QString *error);

} // namespace zolt::migrate
