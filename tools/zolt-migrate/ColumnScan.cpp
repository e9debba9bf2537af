// SPDX-License-Identifier: MIT
#include "ColumnScan.h"

#include "Language.h"

#include <QSqlField>
#include <QSqlQuery>

namespace zolt::migrate {

namespace {

constexpr int SamplesShown = 3;

bool isLegacy(TextEncoding e)
{
    return e == TextEncoding::Tcvn3 || e == TextEncoding::Tcvn3Ansi || e == TextEncoding::Vni
        || e == TextEncoding::VniAnsi;
}

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
        column.encoding = choices.encodings.contains(given) ? choices.encodings[given]
                          : choices.encodings.contains(QStringLiteral("*")) && isLegacy(column.guess.encoding)
                              ? choices.encodings[QStringLiteral("*")]
                              : column.guess.encoding;
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
            qint32 unconvertible = 0;
            const QVariant after = Converted(column, value, &unconvertible);
            column.unconvertible += unconvertible > 0;
            if (after != value) {
                ++column.changing;
                if (column.samples.size() < SamplesShown)
                    column.samples.append({shown(value), after.toString()});
            }
        }
        if (report.rows % 10000 == 0)
            progress(report.table, 10000);
    }
    progress(report.table, report.rows % 10000);
}

} // namespace

bool Converts(const ColumnReport &column)
{
    return column.chosen && (isLegacy(column.encoding) || column.encoding == TextEncoding::Unicode);
}

QVariant Converted(const ColumnReport &column, const QVariant &value, qint32 *unconvertible)
{
    if (value.isNull() || !Converts(column))
        return value;
    const QString text = ToUnicode(value, column.encoding, column.upper, unconvertible);
    // A BLOB of Unicode text stays bytes: UTF-8.
    if (column.bytes && !isLegacy(column.encoding))
        return text.toUtf8() == value.toByteArray() ? value : QVariant(text.toUtf8());
    return text;
}

QString MixedNote(const ColumnReport &column)
{
    if (column.encoding != TextEncoding::Mixed)
        return {};
    QStringList counts;
    for (auto count = column.guess.counts.cbegin(); count != column.guess.counts.cend(); ++count)
        counts << EncodingName(count.key()) + u' ' + QString::number(count.value());
    return Say("Cột %1.%2 chứa nhiều mã (%3) nên không được chuyển; hãy chỉ định --encoding %1.%2=MÃ.",
               "Column %1.%2 holds several encodings (%3) and is not converted; give --encoding %1.%2=ENCODING.")
        .arg(column.table, column.column, counts.join(QStringLiteral(", ")));
}

QList<TableReport> ScanDatabase(const Database &d, const Choices &choices,
                                const std::function<void(const QString &, qint64)> &progress)
{
    QList<TableReport> tables;
    for (const QString &table : DataTables(d)) {
        TableReport report;
        report.table = table;
        report.columns = textColumns(d, table, choices);
        if (!report.columns.isEmpty()) {
            guess(d, report, choices);
            count(d, report, progress);
        } else {
            QSqlQuery rows(QStringLiteral("SELECT COUNT(*) FROM ") + Quoted(d, table), d.db);
            report.rows = rows.next() ? rows.value(0).toLongLong() : 0;
        }
        tables << report;
    }
    return tables;
}

} // namespace zolt::migrate
