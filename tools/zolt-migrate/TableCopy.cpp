// SPDX-License-Identifier: MIT
#include "TableCopy.h"

#include "Language.h"
#include "RowConversion.h"
#include "TableChecksum.h"

#include <zolt/Error.h>
#include <zolt/Schema.h>

#include <QSqlError>
#include <QSqlField>
#include <QSqlIndex>
#include <QSqlQuery>

#include <algorithm>

namespace zolt::migrate {

namespace {

QString existingTable(const Database &d, const QString &table)
{
    const QStringList tables = d.db.tables(QSql::Tables);
    const auto found = std::find_if(tables.begin(), tables.end(),
                                    [&](const QString &t) { return t.compare(table, Qt::CaseInsensitive) == 0; });
    return found == tables.end() ? QString() : *found;
}

// A BLOB converted from a legacy encoding becomes text in the target.
bool becomesText(const TableReport &table, const QString &column)
{
    return std::any_of(table.columns.begin(), table.columns.end(),
                       [&](const ColumnReport &c) { return c.column == column && BecomesText(c); });
}

bool run(const Database &d, const QString &sql, QString *error)
{
    QSqlQuery query(d.db);
    if (query.exec(sql))
        return true;
    *error = sql + QStringLiteral(": ") + query.lastError().text();
    return false;
}

bool createTable(const Database &source, const Database &target, const TableReport &table, QString *error)
{
    const QSqlRecord record = source.db.record(table.table);
    const QSqlIndex key = source.db.primaryIndex(table.table);
    QStringList columns;
    for (int i = 0; i < record.count(); ++i) {
        columns << Quoted(target, MadeName(target, record.fieldName(i))) + u' '
                       + ColumnType(target, record.field(i), becomesText(table, record.fieldName(i)),
                                    key.contains(record.fieldName(i)));
    }
    if (!key.isEmpty()) {
        QStringList names;
        for (int i = 0; i < key.count(); ++i)
            names << Quoted(target, MadeName(target, key.fieldName(i)));
        columns << QStringLiteral("PRIMARY KEY (%1)").arg(names.join(u','));
    }
    const QString made = Quoted(target, MadeName(target, table.table));
    // MariaDB's text as the library's tables have it: utf8mb4, case-blind, marks and blanks counting.
    const QString options = target.engine == Engine::MariaDB
        ? QStringLiteral(" DEFAULT CHARSET = utf8mb4 COLLATE = utf8mb4_uca1400_nopad_as_ci") : QString();
    if (!run(target, QStringLiteral("CREATE TABLE %1 (%2)%3").arg(made, columns.join(u','), options), error))
        return false;
    // Index names are the database's (PostgreSQL's the schema's): each takes its table's name first.
    for (const TableIndex &index : SecondaryIndexes(source, table.table)) {
        QStringList names;
        for (const QString &column : index.columns)
            names << Quoted(target, MadeName(target, column));
        const QString name = Quoted(target, MadeName(target, table.table + u'_' + index.name));
        if (!run(target, QStringLiteral("CREATE %1INDEX %2 ON %3 (%4)")
                             .arg(index.unique ? QStringLiteral("UNIQUE ") : QString(), name, made, names.join(u',')),
                 error))
            return false;
    }
    return true;
}

// The library's tables in the target come from its schema; columns the source
// has beyond them (the rights columns of Groups, one per menu bar) are added.
bool addMissingColumns(const Database &source, const Database &target, const TableReport &table,
                       const QString &targetTable, QString *error)
{
    const QSqlRecord have = target.db.record(targetTable);
    const QSqlRecord want = source.db.record(table.table);
    for (int i = 0; i < want.count(); ++i) {
        if (have.indexOf(want.fieldName(i)) >= 0)
            continue;
        const QString type = ColumnType(target, want.field(i), becomesText(table, want.fieldName(i)));
        if (!run(target,
                 QStringLiteral("ALTER TABLE %1 ADD COLUMN %2 %3")
                     .arg(Quoted(target, targetTable), Quoted(target, MadeName(target, want.fieldName(i))), type),
                 error))
            return false;
    }
    return true;
}

QString insertInto(const Database &target, const QString &targetTable, const QSqlRecord &columns)
{
    const QSqlRecord have = target.db.record(targetTable);
    QStringList names;
    for (int i = 0; i < columns.count(); ++i)
        names << Quoted(target, have.fieldName(have.indexOf(columns.fieldName(i))));
    return QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
        .arg(Quoted(target, targetTable), names.join(u','), QStringList(names.size(), QStringLiteral("?")).join(u','));
}

bool copyRows(const Database &source, const Database &target, const TableReport &table, const QString &targetTable,
              const QString &unicodeFont, const RowsDone &done, QStringList *notes, QString *error)
{
    QSqlQuery read(source.db);
    read.setForwardOnly(true);
    if (!read.exec(QStringLiteral("SELECT * FROM ") + Quoted(source, table.table))) {
        *error = read.lastError().text();
        return false;
    }
    RowConversion conversion(table, read.record(), unicodeFont);
    QSqlQuery write(target.db);
    if (!target.db.transaction() || !write.prepare(insertInto(target, targetTable, read.record()))) {
        *error = write.lastError().text() + target.db.lastError().text();
        return false;
    }
    QList<QVariant> values(read.record().count());
    qint64 rows = 0;
    qint32 unconvertible = 0;
    while (read.next()) {
        for (int i = 0; i < values.size(); ++i)
            values[i] = read.value(i);
        if (conversion.isSchemaVersionRow(values))
            continue;
        conversion.apply(values, &unconvertible);
        for (int i = 0; i < values.size(); ++i)
            write.bindValue(i, values[i]);
        if (!write.exec()) {
            *error = Say("Bảng %1, dòng %2: %3", "Table %1, row %2: %3")
                         .arg(table.table)
                         .arg(rows + 1)
                         .arg(write.lastError().text());
            target.db.rollback();
            return false;
        }
        if (++rows % 10000 == 0)
            done(table.table, 10000);
    }
    done(table.table, rows % 10000);
    if (!target.db.commit()) {
        *error = target.db.lastError().text();
        return false;
    }
    if (!conversion.fontNote().isEmpty())
        *notes << conversion.fontNote();
    return true;
}

} // namespace

bool CopyTable(const Database &source, const Database &target, const TableReport &table, const QString &unicodeFont,
               const RowsDone &done, QString *targetTable, QStringList *notes, QString *error)
{
    *targetTable = existingTable(target, table.table);
    // Rows already there would be doubled, or would collide with the copied ones.
    if (!targetTable->isEmpty() && SumTable(target, *targetTable, {}).rows > 0) {
        *error = Say("Bảng %1 ở đích đã có dữ liệu; hãy chuyển vào một cơ sở dữ liệu mới.",
                     "Table %1 of the target holds rows already; convert into a new database.")
                     .arg(*targetTable);
        return false;
    }
    const bool made = targetTable->isEmpty() ? createTable(source, target, table, error)
                                             : addMissingColumns(source, target, table, *targetTable, error);
    if (!made)
        return false;
    if (targetTable->isEmpty())
        *targetTable = existingTable(target, table.table);
    return copyRows(source, target, table, *targetTable, unicodeFont, done, notes, error);
}

bool CopyTables(const Database &source, const Database &target, const QList<TableReport> &tables,
                const QString &unicodeFont, const RowsDone &done, Report *report, QString *error)
{
    if (target.engine == Engine::PostgreSQL && !run(target, QStringLiteral("CREATE EXTENSION IF NOT EXISTS citext"), error))
        return false;
    if (std::any_of(tables.begin(), tables.end(), [](const TableReport &t) { return IsLibraryTable(t.table); })) {
        try {
            report->notes << CreateTables(target.db);
        } catch (const Error &e) {
            *error = e.description();
            return false;
        }
    }
    for (const TableReport &table : tables) {
        QString targetTable;
        if (!CopyTable(source, target, table, unicodeFont, done, &targetTable, &report->notes, error))
            return false;
        const QSqlRecord summed = SummedColumns(source.db.record(table.table));
        const TableSum before = SumTable(source, table.table, summed);
        const TableSum after = SumTable(target, targetTable, summed);
        report->checks << TableCheck{table.table, before.rows, after.rows, before.sum, after.sum};
    }
    return true;
}

} // namespace zolt::migrate
