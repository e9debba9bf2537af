// SPDX-License-Identifier: MIT
#include "ColumnScan.h"

#include "Language.h"

#include <QSqlField>
#include <QSqlQuery>

#include <numeric>
#include <optional>

namespace zolt::migrate {

namespace {

constexpr int SamplesShown = 3;

bool isEmpty(const QVariant &value)
{
    return value.isNull() || (value.typeId() == QMetaType::QString && value.toString().isEmpty())
        || (value.typeId() == QMetaType::QByteArray && value.toByteArray().isEmpty());
}

// The password digest and hash are computed from ASCII and copied as they are.
bool isDigest(const QString &table, const QString &column)
{
    return table.compare(QLatin1String("User"), Qt::CaseInsensitive) == 0
        && column.startsWith(QLatin1String("Password"), Qt::CaseInsensitive);
}

QString key(const QString &table, const QString &column) { return (table + u'.' + column).toLower(); }

bool chosen(const Choices &choices, const QString &table, const QString &column)
{
    if (!choices.tables.isEmpty() && !choices.tables.contains(table, Qt::CaseInsensitive))
        return false;
    return choices.columns.isEmpty() || choices.columns.contains(table + u'.' + column, Qt::CaseInsensitive);
}

QString shown(const QVariant &value)
{
    return value.typeId() == QMetaType::QByteArray ? AnsiText(value.toByteArray()) : value.toString();
}

// The text columns of a table: text and BLOB columns, digests left out.
QList<ColumnReport> textColumns(const Database &d, const QString &table, const Choices &choices)
{
    QList<ColumnReport> columns;
    const QSqlRecord record = d.db.record(table);
    for (int i = 0; i < record.count(); ++i) {
        const QSqlField field = record.field(i);
        const int type = field.metaType().id();
        if ((type != QMetaType::QString && type != QMetaType::QByteArray) || isDigest(table, field.name()))
            continue;
        ColumnReport column;
        column.table = table;
        column.column = field.name();
        column.bytes = type == QMetaType::QByteArray;
        column.chosen = chosen(choices, table, field.name());
        column.upper = choices.upper.contains(key(table, field.name())) || choices.upper.contains(QStringLiteral("*"));
        columns << column;
    }
    return columns;
}

QString selectAll(const Database &d, const QString &table, const QList<ColumnReport> &columns)
{
    QStringList names;
    for (const ColumnReport &column : columns)
        names << Quoted(d, column.column);
    return QStringLiteral("SELECT %1 FROM %2").arg(names.join(u','), Quoted(d, table));
}

void guess(const Database &d, TableReport &report, const Choices &choices)
{
    QList<QList<QVariant>> samples(report.columns.size());
    QSqlQuery query(d.db);
    query.setForwardOnly(true);
    query.exec(selectAll(d, report.table, report.columns));
    for (int read = 0; read < choices.sampleSize && query.next(); ++read) {
        for (int i = 0; i < report.columns.size(); ++i) {
            if (!isEmpty(query.value(i)))
                samples[i] << query.value(i);
        }
    }
    for (int i = 0; i < report.columns.size(); ++i) {
        ColumnReport &column = report.columns[i];
        column.guess = GuessColumn(samples[i]);
        column.upper = column.upper || column.guess.upper;
        const QString given = key(column.table, column.column);
        column.given = choices.encodings.contains(given)
                       || (choices.encodings.contains(QStringLiteral("*")) && IsLegacyEncoding(column.guess.encoding));
        column.encoding = choices.encodings.contains(given) ? choices.encodings[given]
                          : column.given ? choices.encodings[QStringLiteral("*")]
                                         : column.guess.encoding;
    }
}

// The legacy encoding most certain values of the columns hold; Ascii for none.
TextEncoding mostHeld(const QList<const ColumnReport *> &columns)
{
    QMap<TextEncoding, int> held;
    for (const ColumnReport *column : columns) {
        for (TextEncoding e : {TextEncoding::Tcvn3, TextEncoding::Tcvn3Ansi, TextEncoding::Vni, TextEncoding::VniAnsi})
            held[e] += column->guess.certain.value(e);
    }
    TextEncoding most = TextEncoding::Ascii;
    for (auto h = held.cbegin(); h != held.cend(); ++h) {
        if (h.value() > held.value(most))
            most = h.key();
    }
    return most;
}

// A short column whose every value two readings make syllables of (five
// rows of "Toát", VNI for "Tốt") is read as the rest of its table holds, or
// of the database where the table holds no legacy text.
void readShortColumnsAsTheRest(QList<TableReport> &tables)
{
    constexpr int ShortColumn = 20;
    QList<const ColumnReport *> all;
    for (const TableReport &table : tables) {
        for (const ColumnReport &column : table.columns)
            all << &column;
    }
    const TextEncoding inDatabase = mostHeld(all);
    for (TableReport &table : tables) {
        QList<const ColumnReport *> columns;
        for (const ColumnReport &column : table.columns)
            columns << &column;
        const TextEncoding inTable = mostHeld(columns);
        const TextEncoding rest = inTable != TextEncoding::Ascii ? inTable : inDatabase;
        for (ColumnReport &column : table.columns) {
            const ColumnGuess &guess = column.guess;
            const int certain = std::accumulate(guess.certain.cbegin(), guess.certain.cend(), 0);
            if (column.given || rest == TextEncoding::Ascii || guess.uncertain == 0 || certain > 0
                || guess.uncertain > ShortColumn || guess.readableAs.value(rest) != guess.uncertain)
                continue;
            column.encoding = rest;
            column.asTheRest = true;
        }
    }
}

void count(const Database &d, TableReport &report, const std::function<void(const QString &, qint64)> &progress)
{
    QSqlQuery query(d.db);
    query.setForwardOnly(true);
    query.exec(selectAll(d, report.table, report.columns));
    while (query.next()) {
        ++report.rows;
        for (int i = 0; i < report.columns.size(); ++i) {
            ColumnReport &column = report.columns[i];
            const QVariant value = query.value(i);
            if (isEmpty(value))
                continue;
            ++column.values;
            ValueRead read;
            const QVariant after = Converted(column, value, &read);
            column.unconvertible += read.unconvertible > 0 && !read.strayMarks();
            const QString before = shown(value), now = shown(after);
            if (read.how == ValueReading::Own)
                column.ownReading.add(before, now);
            else if (read.how == ValueReading::Runs)
                column.runs.add(before, now);
            else if (read.how == ValueReading::Ambiguous)
                column.ambiguous.add(before, now);
            if (read.strayMarks())
                column.strayMarks.add(before, now);
            if (after == value)
                continue;
            ++column.changing;
            if (column.samples.size() < SamplesShown)
                column.samples.append({before, now});
        }
        if (report.rows % 10000 == 0)
            progress(report.table, 10000);
    }
    progress(report.table, report.rows % 10000);
}

bool isAscii(const QVariant &value)
{
    if (value.typeId() == QMetaType::QByteArray) {
        const QByteArray bytes = value.toByteArray();
        return std::all_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    }
    const QString text = value.toString();
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
}

// Text as the column is written: a BLOB that stays bytes gets UTF-8.
QVariant written(const ColumnReport &column, const QVariant &value, const QString &text)
{
    if (!column.bytes || BecomesText(column))
        return text;
    const QByteArray utf8 = text.toUtf8();
    return utf8 == value.toByteArray() ? value : QVariant(utf8);
}

} // namespace

bool ValueRead::strayMarks() const
{
    return unconvertible > 0 && (encoding == TextEncoding::Vni || encoding == TextEncoding::VniAnsi);
}

void ValueKind::add(const QString &before, const QString &after)
{
    if (++count <= SamplesShown)
        samples.append({before, after});
}

bool Converts(const ColumnReport &column)
{
    return column.chosen && column.encoding != TextEncoding::Binary;
}

bool BecomesText(const ColumnReport &column)
{
    return column.bytes && Converts(column) && IsLegacyEncoding(column.encoding);
}

QVariant Converted(const ColumnReport &column, const QVariant &value, ValueRead *read)
{
    ValueRead local;
    ValueRead &out = read ? *read : local;
    out = {};
    if (value.isNull() || !Converts(column) || isAscii(value))
        return value;
    const auto as = [&](TextEncoding encoding, bool upper) {
        out.how = column.given || encoding == column.encoding ? ValueReading::Column : ValueReading::Own;
        out.encoding = encoding;
        out.unconvertible = 0;
        return written(column, value, ToUnicode(value, encoding, upper, &out.unconvertible));
    };
    if (column.given)
        return as(column.encoding, column.upper);
    if (value.typeId() == QMetaType::QString && !IsAnsiText(value.toString()))
        return as(TextEncoding::Unicode, false);   // letters beyond Windows-1252: Unicode already
    // The column's reading, where it makes syllables of every word.
    if (IsLegacyEncoding(column.encoding) || column.encoding == TextEncoding::Unicode) {
        qint32 unconvertible = 0;
        const QString text = ToUnicode(value, column.encoding, column.upper, &unconvertible);
        if (ReadsAsVietnamese(text, unconvertible)) {
            out = {ValueReading::Column, column.encoding, unconvertible};
            return written(column, value, text);
        }
    }
    // Else its own reading where only that one makes syllables of every
    // word, a TCVN3 run and a VNI run, or its best reading.
    const EncodingGuess guess = GuessEncoding(value);
    if (guess.certain() && guess.score == 1)
        return as(guess.encoding, guess.upper);
    if (const std::optional<QString> runs = ReadRuns(value)) {
        out.how = ValueReading::Runs;
        return written(column, value, *runs);
    }
    if (guess.score < 0.5)
        return value;   // no reading makes Vietnamese of it
    if (guess.certain())
        return as(guess.encoding, guess.upper);
    if (column.encoding != TextEncoding::Mixed && (column.encoding == guess.encoding || column.encoding == guess.alternative))
        return as(column.encoding, column.upper);
    out.how = ValueReading::Ambiguous;
    return value;
}

QStringList ColumnNotes(const ColumnReport &column)
{
    QStringList notes;
    const QString name = column.table + u'.' + column.column;
    const auto note = [&](const ValueKind &kind, const char *vietnamese, const char *english) {
        if (kind.count == 0)
            return;
        QStringList samples;
        for (const auto &[before, after] : kind.samples)
            samples << (before == after ? before : before + QStringLiteral(" → ") + after);
        notes << Say(vietnamese, english).arg(name).arg(kind.count) + QStringLiteral(": ") + samples.join(QStringLiteral("; "));
    };
    note(column.ownReading, "Cột %1: %2 giá trị đọc theo mã riêng của chúng, không theo mã của cột",
         "Column %1: %2 value(s) read in their own encoding, not the column's");
    note(column.runs, "Cột %1: %2 giá trị có một đoạn TCVN3 và một đoạn VNI, chuyển từng đoạn",
         "Column %1: %2 value(s) hold a TCVN3 run and a VNI run, converted run by run");
    note(column.strayMarks, "Cột %1: %2 giá trị có dấu VNI gõ trước nguyên âm (không gắn vào chữ nào), đã bỏ dấu đó",
         "Column %1: %2 value(s) held a VNI mark typed before its vowel (on no letter), dropped");
    note(column.ambiguous, "Cột %1: %2 giá trị đọc được cả hai mã nên để nguyên; hãy chỉ định --encoding %1=MÃ",
         "Column %1: %2 value(s) read either way and are left; give --encoding %1=ENCODING");
    if (column.encoding == TextEncoding::Mixed && column.ambiguous.count == 0) {
        notes << Say("Cột %1 chứa cả TCVN3 và VNI: mỗi giá trị được đọc theo mã của nó.",
                     "Column %1 holds both TCVN3 and VNI: each value is read in its own.")
                     .arg(name);
    }
    if (column.asTheRest) {
        notes << Say("Cột %1 ngắn, mọi giá trị đọc được hai cách: đọc theo mã %2 như phần còn lại của dữ liệu.",
                     "Column %1 is short and each value reads two ways: read as %2, as the rest of the data is.")
                     .arg(name, EncodingName(column.encoding));
    }
    return notes;
}

QList<TableReport> ScanDatabase(const Database &d, const Choices &choices,
                                const std::function<void(const QString &, qint64)> &progress)
{
    QList<TableReport> tables;
    for (const QString &table : DataTables(d)) {
        TableReport report;
        report.table = table;
        report.columns = textColumns(d, table, choices);
        if (!report.columns.isEmpty())
            guess(d, report, choices);
        tables << report;
    }
    readShortColumnsAsTheRest(tables);
    for (TableReport &report : tables) {
        if (!report.columns.isEmpty()) {
            count(d, report, progress);
        } else {
            QSqlQuery rows(QStringLiteral("SELECT COUNT(*) FROM ") + Quoted(d, report.table), d.db);
            report.rows = rows.next() ? rows.value(0).toLongLong() : 0;
        }
    }
    return tables;
}

} // namespace zolt::migrate
