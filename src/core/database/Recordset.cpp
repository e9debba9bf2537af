// SPDX-License-Identifier: MIT
#include "core/database/Recordset.h"

#include <zolt/Error.h>

#include <QRegularExpression>
#include <QSqlError>
#include <QSqlRecord>

namespace zolt {

QString SelectStatement(const QString &source)
{
    static const QRegularExpression tableName(QStringLiteral(R"(^\s*(\[[^\]]+\]|\w+)\s*$)"));
    const QRegularExpressionMatch m = tableName.match(source);
    return m.hasMatch() ? QStringLiteral("Select * From ") + m.captured(1) : source;
}

QString PageStatement(const QString &source, int rows, int offset)
{
    return SelectStatement(source) + QStringLiteral(" Limit %1 Offset %2").arg(rows).arg(offset);
}

qint32 Recordset::Open(const QString &sql, const QSqlDatabase &db, Cursor cursor)
{
    Close();
    LibraryStatement run = RunLibraryStatement(db, DriverSql(db, SelectStatement(sql)), Repeat::Read,
                                               cursor == Cursor::ForwardOnly);
    m_errorText = run.errorText;
    if (run.number != 0)
        return run.number;
    m_record = run.query.record();
    m_fieldCount = m_record.count();
    m_query.emplace(std::move(run.query));
    m_onRow = m_query->first();
    return 0;
}

void Recordset::Close()
{
    m_query.reset();
    m_record.clear();
    m_fieldCount = 0;
    m_onRow = false;
}

const QSqlQuery &Recordset::query() const
{
    if (!m_query)
        throw Error(Error::DatabaseFailure, ClosedConnectionText());
    return *m_query;
}

QSqlQuery &Recordset::query()
{
    if (!m_query)
        throw Error(Error::DatabaseFailure, ClosedConnectionText());
    return *m_query;
}

void Recordset::MoveFirst()
{
    m_onRow = query().first();
}

void Recordset::MoveNext()
{
    if (!m_onRow)
        throw Error(Error::NoCurrentRecord);
    m_onRow = query().next();
}

void Recordset::MoveLast()
{
    m_onRow = query().last();
}

QVariant Recordset::Value(const QString &column) const
{
    return Value(FieldPosition(column));
}

int Recordset::FieldPosition(const QString &column) const
{
    query();   // a closed record set has no columns to look for
    const int position = m_record.indexOf(column);
    if (position < 0)
        throw Error(Error::ItemNotFound);
    return position;
}

QVariant Recordset::Value(int position) const
{
    // Checked here rather than through query() and FieldCount(): this is read
    // once a column a row.
    if (!m_query)
        throw Error(Error::DatabaseFailure, ClosedConnectionText());
    if (position < 0 || position >= m_fieldCount)
        throw Error(Error::ItemNotFound);
    if (!m_onRow)
        throw Error(Error::NoCurrentRecord);
    QVariant value = m_query->value(position);
    if (value.isNull())
        value = QVariant();   // a database Null, whatever the driver's type
    return value;             // one return of one object: no copy of every value read
}

QString Recordset::FieldName(int position) const
{
    if (position < 0 || position >= FieldCount())
        throw Error(Error::ItemNotFound);
    return m_record.fieldName(position);
}

int Recordset::FieldCount() const
{
    query();
    return m_record.count();
}

qint32 OpenQuery(Recordset &rs, const QString &sql, Cursor cursor)
{
    const qint32 n = rs.Open(sql, CurrentConnection(), cursor);
    if (n == Error::ServerUnreachable)
        NoticeServerAway(rs.LastErrorText());   // rather than an empty list
    return n;
}

bool HasRows(const Recordset &rs)
{
    return !rs.Eof();
}

qint32 CountRecords(Recordset &rs)
{
    qint32 count = 0;
    for (rs.MoveFirst(); !rs.Eof(); rs.MoveNext())
        ++count;
    rs.MoveFirst();
    return count;
}

} // namespace zolt
