// SPDX-License-Identifier: MIT
#pragma once

// The report of a scan or a conversion: a table on the terminal, or a CSV or
// HTML file, with the check of a conversion's target at its end.

#include "ColumnScan.h"

#include <QTextStream>

namespace zolt::migrate {

// A table's rows, and a checksum of its columns that are not text, in the
// source and in the target.
struct TableCheck {
    QString table;
    qint64 sourceRows = 0;
    qint64 targetRows = 0;
    QString sourceSum;
    QString targetSum;
    bool same() const { return sourceRows == targetRows && sourceSum == targetSum; }
};

struct Report {
    QString source;
    QString target;
    QList<TableReport> tables;
    QList<TableCheck> checks;
    QStringList notes;   // backups made, settings changed, tables left
};

void PrintReport(const Report &report, QTextStream &out);
// Writes the report as CSV or HTML, by the file's ending; false when it cannot be written.
bool WriteReport(const Report &report, const QString &path, QString *error);

} // namespace zolt::migrate
