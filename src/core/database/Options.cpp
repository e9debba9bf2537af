// SPDX-License-Identifier: MIT
#include "core/database/Options.h"

#include "core/base/Conversions.h"
#include "core/base/Logging.h"
#include "core/database/Database.h"
#include "core/database/Recordset.h"
#include "core/database/SqlFunc.h"

#include <zolt/Error.h>

#include <QSqlDriver>

namespace zolt {

namespace {

QString keyCondition(const QString &section, const QString &key)
{
    return QStringLiteral(" Where [Section]=") + SqlValue(section, QStringLiteral("S"))
           + QStringLiteral(" And KeyName=") + SqlValue(key, QStringLiteral("S"));
}

// 1 when the option's row exists, 0 when not, or the error number of the query
// (a server away is told once, by the write that follows).
qint32 optionExists(const QString &section, const QString &key)
{
    Recordset rs;
    const qint32 n = rs.Open(QStringLiteral("Select * From Options") + keyCondition(section, key), CurrentConnection());
    return n != 0 ? n : (rs.Eof() ? 0 : 1);
}

QString insertOption(const QString &section, const QString &key, const QString &value,
                     const QString &description)
{
    const QString sql = QStringLiteral("Insert Into Options([Section],KeyName,KeyValue) Values(")
                        + SqlValue(section, QStringLiteral("S")) + QLatin1Char(',')
                        + SqlValue(key, QStringLiteral("S")) + QLatin1Char(',')
                        + SqlValue(value, QStringLiteral("S")) + QLatin1Char(')');
    return description.isEmpty() ? sql : AddValues(sql, QStringLiteral("Description"), description);
}

QString updateOption(const QString &section, const QString &key, const QString &value,
                     const QString &description)
{
    const QString sql = QStringLiteral("Update Options Set KeyValue=") + SqlValue(value, QStringLiteral("S"))
                        + QLatin1Char(' ') + keyCondition(section, key);
    return description.isEmpty() ? sql : AddSet(sql, QStringLiteral("Description"), description);
}

} // namespace

QString ReadOption(const QString &section, const QString &key, const QString &defaultValue)
{
    return ReadOption(section, key, defaultValue, CurrentConnection());
}

QString ReadOption(const QString &section, const QString &key, const QString &defaultValue, const QSqlDatabase &db)
{
    QString value;
    try {
        Recordset rs;
        if (rs.Open(QStringLiteral("Select * From [Options]") + keyCondition(section, key), db, Cursor::ForwardOnly) == 0
            && !rs.Eof())
            value = NullToStr(rs.Value(QStringLiteral("KeyValue")));
    } catch (const Error &e) {
        LogIgnored("A setting read as missing", e);   // a read that fails is a missing value
    }
    return value.isEmpty() ? defaultValue : value;
}

bool ServerLocked()
{
    const QSqlDatabase db = CurrentConnection();
    return db.isOpen() && db.driver() && db.driver()->dbmsType() == QSqlDriver::PostgreSQL
           && !ReadOption(QStringLiteral("Config"), QStringLiteral("DatabaseLock"), QString(), db).isEmpty();
}

bool AccentBlindSearchOn(const QSqlDatabase &db)
{
    return ReadOption(QStringLiteral("Config"), QStringLiteral("AccentBlindSearch"), QString(), db) != u'0';
}

void SaveOption(const QString &section, const QString &key, const QString &value,
                const QString &description, qint32 isNew)
{
    if (ServerLocked()) {
        const auto text = [](const QString &t) { return SqlValue(t, QStringLiteral("S")); };
        return void(Execute(QStringLiteral("Select zolt_set_option(%1, %2, %3, %4, %5)")
                                .arg(text(section), text(key), text(value),
                                     description.isEmpty() ? QStringLiteral("Null") : text(StoredWithBlank(description)),
                                     isNew ? QStringLiteral("true") : QStringLiteral("false"))));
    }
    if (isNew)
        return void(Execute(insertOption(section, key, value, description)));   // refused where the row exists
    // A failed existence query leaves its number: a negative one (the
    // database's) inserts, a positive one updates. A row another desk added
    // since the query is updated rather than added twice.
    if (optionExists(section, key) < 1 && InsertUnlessPresent(insertOption(section, key, value, description)))
        return;
    Execute(updateOption(section, key, value, description));
}

qint32 GetMaxValue(const QString &table, const QString &field, const QSqlDatabase &connection)
{
    try {
        Recordset rs;
        // A name the caller has bracketed already is not bracketed twice.
        const QString from = table.startsWith(QLatin1Char('[')) ? table : u'[' + table + u']';
        // Engines put Nulls first or last when sorting; none is the largest.
        const QString sql = QStringLiteral("Select  [") + field + QStringLiteral("]  from ") + from
                            + QStringLiteral(" Where [") + field + QStringLiteral("] Is Not Null Order by [") + field
                            + QLatin1Char(']');
        if (rs.Open(sql, connection) != 0 || rs.Eof())
            return 0;
        rs.MoveLast();
        return LngVal(rs.Value(0));
    } catch (const Error &e) {
        LogIgnored("No largest value read", e);
        return 0;
    }
}

} // namespace zolt
