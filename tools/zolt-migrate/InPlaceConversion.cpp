// SPDX-License-Identifier: MIT
#include "InPlaceConversion.h"

#include "Language.h"
#include "RowConversion.h"

#include <QDateTime>
#include <QFile>
#include <QSqlError>
#include <QSqlIndex>
#include <QSqlQuery>

#include <algorithm>
#include <cstdio>

namespace zolt::migrate {

namespace {

bool run(QSqlQuery &query, const QString &sql, QString *error)
{
    if (query.exec(sql))
        return true;
    *error = sql + QStringLiteral(": ") + query.lastError().text();
    return false;
}

// The journal: one row per table converted, and the backup's name.
bool openJournal(const Database &d, QStringList *done, QString *backup, QString *error)
{
    QSqlQuery query(d.db);
    if (!d.db.tables().contains(JournalTable, Qt::CaseInsensitive))
        return true;
    if (!run(query, QStringLiteral("SELECT tbl, backup FROM ") + JournalTable, error))
        return false;
    while (query.next()) {
        *done << query.value(0).toString();
        if (!query.value(1).toString().isEmpty())
            *backup = query.value(1).toString();
    }
    return true;
}

// A copy of the whole file, written under a name of its own and renamed
// over the backup when whole, before the journal exists: a run stopped
// before that point starts again from the beginning, and replaces the
// backup it may have left with the same data.
bool backUpFile(const Database &d, QString *backup, QString *error)
{
    const QString name = d.db.databaseName() + QStringLiteral(".before-migrate");
    const QString partial = name + QStringLiteral(".part");
    QFile::remove(partial);
    QSqlQuery query(d.db);
    query.prepare(QStringLiteral("VACUUM INTO ?"));
    query.addBindValue(partial);
    if (!query.exec() || std::rename(QFile::encodeName(partial).constData(), QFile::encodeName(name).constData()) != 0) {
        *error = Say("Không sao lưu được vào %1: %2", "Cannot back up into %1: %2").arg(name, query.lastError().text());
        return false;
    }
    *backup = name;
    return true;
}

bool startJournal(const Database &d, const QString &backup, QString *error)
{
    QSqlQuery query(d.db);
    if (!run(query, QStringLiteral("CREATE TABLE %1 (tbl TEXT, backup TEXT, done_at TEXT)").arg(JournalTable), error))
        return false;
    query.prepare(QStringLiteral("INSERT INTO %1 (tbl, backup) VALUES ('', ?)").arg(JournalTable));
    query.addBindValue(backup);
    if (!query.exec()) {
        *error = query.lastError().text();
        return false;
    }
    return true;
}

// What picks out a row for its update: SQLite's rowid, else the primary key,
// else PostgreSQL's row address.
QStringList rowKey(const Database &d, const QString &table)
{
    if (d.engine == Engine::SQLite)
        return {QStringLiteral("rowid")};
    const QSqlIndex key = d.db.primaryIndex(table);
    QStringList names;
    for (int i = 0; i < key.count(); ++i)
        names << Quoted(d, key.fieldName(i));
    if (names.isEmpty() && d.engine == Engine::PostgreSQL)
        names << QStringLiteral("ctid");
    return names;
}

bool convertTable(const Database &d, const TableReport &table, const QString &unicodeFont, const RowsDone &done,
                  Report *report, QString *error)
{
    const QStringList key = rowKey(d, table.table);
    if (key.isEmpty()) {
        *error = Say("Bảng %1 không có khoá chính để sửa từng dòng.", "Table %1 has no primary key to update rows by.")
                     .arg(table.table);
        return false;
    }
    const QString quoted = Quoted(d, table.table);
    QSqlQuery query(d.db);
    if (!d.db.transaction()) {
        *error = d.db.lastError().text();
        return false;
    }
    if (d.engine != Engine::SQLite) {
        const QString backup = Quoted(d, BackupPrefix + table.table);
        if (!run(query, QStringLiteral("CREATE TABLE %1 AS SELECT * FROM %2").arg(backup, quoted), error))
            return d.db.rollback(), false;
        report->notes << Say("Bản sao của bảng %1: %2", "Copy of table %1: %2").arg(table.table, backup);
    }
    QStringList keyText;
    for (const QString &k : key)
        keyText << (k == QLatin1String("ctid") ? QStringLiteral("ctid::text") : k);
    query.setForwardOnly(true);
    if (!run(query, QStringLiteral("SELECT %1, * FROM %2").arg(keyText.join(u','), quoted), error))
        return d.db.rollback(), false;
    // The row's own columns follow its key.
    QSqlRecord columns = query.record();
    for (int i = 0; i < key.size(); ++i)
        columns.remove(0);
    RowConversion conversion(table, columns, unicodeFont);
    QStringList sets, wheres;
    for (int i = 0; i < columns.count(); ++i)
        sets << Quoted(d, columns.fieldName(i)) + QStringLiteral("=?");
    for (const QString &k : key)
        wheres << (k == QLatin1String("ctid") ? QStringLiteral("ctid=?::tid") : k + QStringLiteral("=?"));
    // Every row is read before the first write: a read on a server goes on
    // row by row and would be cut short by another statement.
    QList<QList<QVariant>> rows;
    while (query.next()) {
        QList<QVariant> row(query.record().count());
        for (int i = 0; i < row.size(); ++i)
            row[i] = query.value(i);
        rows << row;
    }
    query.finish();
    QSqlQuery update(d.db);
    update.prepare(QStringLiteral("UPDATE %1 SET %2 WHERE %3").arg(quoted, sets.join(u','), wheres.join(QStringLiteral(" AND "))));
    qint32 unconvertible = 0;
    qint64 read = 0;
    for (QList<QVariant> &row : rows) {
        QList<QVariant> values = row.mid(key.size());
        const QList<QVariant> before = values;
        conversion.apply(values, &unconvertible);
        if (values != before) {
            for (int i = 0; i < values.size(); ++i)
                update.bindValue(i, values[i]);
            for (int i = 0; i < key.size(); ++i)
                update.bindValue(int(values.size()) + i, row[i]);
            if (!update.exec()) {
                *error = Say("Bảng %1: %2", "Table %1: %2").arg(table.table, update.lastError().text());
                return d.db.rollback(), false;
            }
        }
        if (++read % 10000 == 0)
            done(table.table, 10000);
    }
    done(table.table, read % 10000);
    query.prepare(QStringLiteral("INSERT INTO %1 (tbl, done_at) VALUES (?, ?)").arg(JournalTable));
    query.addBindValue(table.table);
    query.addBindValue(QDateTime::currentDateTime().toString(Qt::ISODate));
    if (!query.exec() || !d.db.commit()) {
        *error = query.lastError().text() + d.db.lastError().text();
        return d.db.rollback(), false;
    }
    if (!conversion.fontNote().isEmpty())
        report->notes << conversion.fontNote();
    return true;
}

bool touches(const TableReport &table)
{
    return std::any_of(table.columns.begin(), table.columns.end(), [](const ColumnReport &c) { return Converts(c); })
        || table.table.compare(QLatin1String("Options"), Qt::CaseInsensitive) == 0;
}

} // namespace

bool ConvertInPlace(const Database &d, const QList<TableReport> &tables, const QString &unicodeFont,
                    const RowsDone &done, Report *report, QString *error)
{
    QStringList converted;
    QString backup;
    if (!openJournal(d, &converted, &backup, error))
        return false;
    const bool resumed = d.db.tables().contains(JournalTable, Qt::CaseInsensitive);
    if (!resumed) {
        if (d.engine == Engine::SQLite && !backUpFile(d, &backup, error))
            return false;
        if (!startJournal(d, backup, error))
            return false;
    }
    if (!backup.isEmpty())
        report->notes << Say("Bản sao lưu: %1", "Backup: %1").arg(backup);
    for (const TableReport &table : tables) {
        if (converted.contains(table.table, Qt::CaseInsensitive)) {
            report->notes << Say("Bảng %1 đã được chuyển ở lần chạy trước; bỏ qua.",
                                 "Table %1 was converted by an earlier run; left as it is.")
                                 .arg(table.table);
            continue;
        }
        if (touches(table) && !convertTable(d, table, unicodeFont, done, report, error))
            return false;
    }
    return true;
}

} // namespace zolt::migrate
