// SPDX-License-Identifier: MIT
#pragma once

// A forward and backward readable result of one SELECT, with the record-set
// operations the library's modules use.

#include "core/database/Database.h"

#include <QSqlQuery>
#include <QSqlRecord>
#include <QString>
#include <QVariant>

#include <optional>

namespace zolt {

// A bare table name, bracketed or not, as the statement that selects all of
// that table's rows in its column order; anything else is a statement already.
QString SelectStatement(const QString &source);
// One page of its rows: rows of them from offset on (Limit and Offset), for
// lists that read as they show.
QString PageStatement(const QString &source, int rows, int offset);

// How a record set moves: anywhere, or only on (which keeps no copy of the
// rows passed: a list of a million rows is read once, not held twice).
enum class Cursor { Scrollable, ForwardOnly };

class Recordset {
public:
    // Opens the SELECT on db (the library's connection by default); returns 0,
    // or the database failure number when the statement could not run. A bare
    // table name ("Menu", "[Groups]") opens all of that table's rows.
    qint32 Open(const QString &sql, const QSqlDatabase &db = CurrentConnection(), Cursor cursor = Cursor::Scrollable);
    void Close();

    bool IsOpen() const { return m_query.has_value(); }
    // True when there is no current row: past the last, or none at all.
    bool Eof() const { return !m_onRow; }
    QString LastErrorText() const { return m_errorText; }

    void MoveFirst();
    void MoveNext();
    void MoveLast();

    // The current row's value of a column; a database Null is a null QVariant.
    // Error 3021 when there is no current row, 3265 for an unknown column.
    QVariant Value(const QString &column) const;
    QVariant Value(int position) const;
    QString FieldName(int position) const;
    // The position of a column by name, for reading many rows by position;
    // 3265 for an unknown column.
    int FieldPosition(const QString &column) const;
    int FieldCount() const;

private:
    const QSqlQuery &query() const;
    QSqlQuery &query();

    std::optional<QSqlQuery> m_query;
    QSqlRecord m_record;   // the columns, looked up once per open rather than per value
    int m_fieldCount = 0;
    bool m_onRow = false;
    QString m_errorText;
};

// Opens sql on the library's connection; 0, or the error number of the open.
// A server that is away is also told to the clerk. A list that reads its rows
// once, in order, opens forward only; nothing else may run on the connection
// until it has read them (a server hands such rows over one by one).
qint32 OpenQuery(Recordset &rs, const QString &sql, Cursor cursor = Cursor::Scrollable);
// True when the record set has a current row.
bool HasRows(const Recordset &rs);
// The number of rows; leaves the record set on its first row.
qint32 CountRecords(Recordset &rs);

} // namespace zolt
