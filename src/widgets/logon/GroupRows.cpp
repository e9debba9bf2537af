// SPDX-License-Identifier: MIT
#include "widgets/logon/GroupRows.h"

#include "core/base/Conversions.h"
#include "core/database/Recordset.h"
#include "core/database/SqlFunc.h"
#include "core/search/MFind.h"
#include "widgets/desktop/MdGrid.h"

#include <zolt/Error.h>

#include <algorithm>

namespace zolt {

qint32 GroupRows::readPage(QList<Row> *rows) const
{
    Recordset rs;
    if (const qint32 n = OpenQuery(rs, PageStatement(m_sql, PageRows, m_fromQuery), Cursor::ForwardOnly); n != 0)
        return n;
    try {
        const int code = rs.FieldPosition(QStringLiteral("Code"));
        const int name = rs.FieldPosition(QStringLiteral("Name"));
        const int description = rs.FieldPosition(QStringLiteral("Des"));
        for (; !rs.Eof(); rs.MoveNext())
            rows->append({LngVal(rs.Value(code)), NullToStr(rs.Value(name)) + u'-' + WithoutAddedBlank(NullToStr(rs.Value(description)))});
    } catch (const Error &e) {
        return e.number();
    }
    return 0;
}

qint32 GroupRows::load(const QString &sql)
{
    const QString before = m_sql;
    const int fromQuery = m_fromQuery;
    m_sql = sql;
    m_fromQuery = 0;
    QList<Row> rows;
    const qint32 n = readPage(&rows);
    if (rows.isEmpty()) {
        m_sql = before;
        m_fromQuery = fromQuery;
        return n;
    }
    beginResetModel();
    m_rows = rows;
    m_fromQuery = int(rows.size());
    m_done = rows.size() < PageRows;
    endResetModel();
    return n;
}

int GroupRows::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

QVariant GroupRows::data(const QModelIndex &index, int role) const
{
    if (role == Qt::DisplayRole)
        return m_rows[index.row()].text;
    if (role == ItemDataRole)
        return m_rows[index.row()].code;
    return {};
}

bool GroupRows::canFetchMore(const QModelIndex &parent) const
{
    return !parent.isValid() && !m_done;
}

// A page the database cannot give now is asked for again at the next end.
void GroupRows::fetchMore(const QModelIndex &parent)
{
    if (parent.isValid() || m_done)
        return;
    QList<Row> rows;
    if (readPage(&rows) != 0)
        return;
    m_done = rows.size() < PageRows;
    if (rows.isEmpty())
        return;
    beginInsertRows({}, m_fromQuery, m_fromQuery + int(rows.size()) - 1);
    m_rows.insert(m_fromQuery, rows.size(), Row{});
    std::copy(rows.begin(), rows.end(), m_rows.begin() + m_fromQuery);
    m_fromQuery += int(rows.size());
    endInsertRows();
}

void GroupRows::fetchAll()
{
    while (canFetchMore({})) {
        const int before = rowCount();
        fetchMore({});
        if (rowCount() == before && !m_done)
            return;   // the server is away
    }
}

int GroupRows::find(qint32 code)
{
    for (int row = 0;; ++row) {
        if (row == rowCount()) {
            if (!canFetchMore({}))
                return -1;
            fetchMore({});
            if (row == rowCount())
                return -1;
        }
        if (m_rows[row].code == code)
            return row;
    }
}

qint32 GroupRows::code(int row) const
{
    return row >= 0 && row < rowCount() ? m_rows[row].code : 0;
}

void GroupRows::append(qint32 code, const QString &text)
{
    beginInsertRows({}, rowCount(), rowCount());
    m_rows.append({code, text});
    endInsertRows();
}

void GroupRows::setText(int row, const QString &text)
{
    if (row < 0 || row >= rowCount())
        return;
    m_rows[row].text = text;
    emit dataChanged(index(row), index(row));
}

void GroupRows::remove(QList<int> rows)
{
    std::sort(rows.begin(), rows.end(), std::greater<>());
    for (const int row : rows) {
        beginRemoveRows({}, row, row);
        m_rows.removeAt(row);
        m_fromQuery -= row < m_fromQuery;
        endRemoveRows();
    }
}

} // namespace zolt
