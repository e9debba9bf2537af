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

// How a conversion reads one value.
enum class ValueReading {
    Unchanged,   // Null, ASCII, in a column not converted, or read as nothing
    Column,      // by the column's reading
    Own,         // by its own reading, which alone makes syllables of it (Unicode kept, or the other legacy encoding)
    Runs,        // a run in TCVN3 and a run in VNI, each read so
    Ambiguous,   // left as it is: two readings make syllables of it, and the column holds both encodings
};

struct ValueRead {
    ValueReading how = ValueReading::Unchanged;
    TextEncoding encoding = TextEncoding::Ascii;   // the reading taken
    qint32 unconvertible = 0;                      // bytes without meaning (VNI: stray marks, dropped)
    bool strayMarks() const;
};

// Values of one kind a scan counts, with the first few as samples (before, after).
struct ValueKind {
    qint64 count = 0;
    QList<std::pair<QString, QString>> samples;
    void add(const QString &before, const QString &after);
};

struct ColumnReport {
    QString table;
    QString column;
    bool bytes = false;   // a BLOB
    ColumnGuess guess;
    TextEncoding encoding = TextEncoding::Ascii;   // what a conversion reads it as
    bool given = false;   // on the command line, for every value
    bool asTheRest = false;   // a short column read as the rest of its table or database
    bool upper = false;
    bool chosen = true;   // among the columns the command line chose
    qint64 values = 0;    // not Null, not empty
    qint64 changing = 0;
    qint64 unconvertible = 0;   // values holding a byte without meaning in the encoding
    QList<std::pair<QString, QString>> samples;   // as a Unicode program shows it now, and after
    ValueKind ownReading, runs, ambiguous, strayMarks;
};

struct TableReport {
    QString table;
    qint64 rows = 0;
    QList<ColumnReport> columns;
};

// Whether a conversion reads the column: chosen, and not bytes that are no text.
bool Converts(const ColumnReport &column);
// A BLOB whose values become text (it holds a legacy encoding).
bool BecomesText(const ColumnReport &column);

// The value a conversion writes for value; Null stays Null. Each value is
// read by the column's reading where that makes syllables of it, else by its
// own where only one reading does, else run by run, else left; a reading
// given on the command line is taken for every value.
QVariant Converted(const ColumnReport &column, const QVariant &value, ValueRead *read = nullptr);

// What the report says of a column's values read otherwise than by the
// column's reading, and of a column that holds both legacy encodings; none
// for others.
QStringList ColumnNotes(const ColumnReport &column);

// Scans the tables chosen; reports rows read through progress(table, rows).
QList<TableReport> ScanDatabase(const Database &d, const Choices &choices,
                                const std::function<void(const QString &, qint64)> &progress);

} // namespace zolt::migrate
