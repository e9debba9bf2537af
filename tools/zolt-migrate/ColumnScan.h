// SPDX-License-Identifier: MIT
#pragma once

// What zolt-migrate finds in a database: for every text column of every
// table, the encoding it holds, how many rows a conversion changes, samples
// before and after, and the rows holding bytes without meaning.

#include "MigrateDatabase.h"

#include <zolt/EncodingGuess.h>

#include <QHash>
#include <QList>
#include <QSet>

#include <functional>

namespace zolt::migrate {

// What the command line chose: tables and columns ("Table.Column") to
// convert (all when empty), encodings given for a column or for all ("*"),
// and the columns written for a capitals font.
struct Choices {
    QStringList tables;
    QStringList columns;
    QHash<QString, TextEncoding> encodings;   // keys in lower case
    QSet<QString> upper;                      // "table.column" in lower case, or "*"
    int sampleSize = 2000;
};

struct ColumnReport {
    QString table;
    QString column;
    bool bytes = false;   // a BLOB
    ColumnGuess guess;
    TextEncoding encoding = TextEncoding::Ascii;   // what a conversion reads it as
    bool upper = false;
    bool chosen = true;   // among the columns the command line chose
    qint64 values = 0;    // not Null, not empty
    qint64 changing = 0;
    qint64 unconvertible = 0;   // values holding a byte without meaning in the encoding
    QList<std::pair<QString, QString>> samples;   // as a Unicode program shows it now, and after
};

struct TableReport {
    QString table;
    qint64 rows = 0;
    QList<ColumnReport> columns;
};

// Whether a conversion rewrites the column: a legacy encoding, or Unicode
// stored decomposed.
bool Converts(const ColumnReport &column);

// The value a conversion writes for value; Null stays Null.
QVariant Converted(const ColumnReport &column, const QVariant &value, qint32 *unconvertible = nullptr);

// What the report says of a column that holds more than one encoding, "" for others.
QString MixedNote(const ColumnReport &column);

// Scans the tables chosen; reports rows read through progress(table, rows).
QList<TableReport> ScanDatabase(const Database &d, const Choices &choices,
                                const std::function<void(const QString &, qint64)> &progress);

} // namespace zolt::migrate
