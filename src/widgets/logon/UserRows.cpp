// SPDX-License-Identifier: MIT
#include "widgets/logon/UserRows.h"

#include "core/base/Conversions.h"
#include "core/database/Recordset.h"
#include "core/search/MFind.h"

#include <QColor>
#include <QIcon>

namespace zolt {

bool UserRows::append(const QString &sql, QString *error)
{
    m_runs.append({sql, {}, false});
    if (readPage(m_runs.last(), rowCount(), error))
        return true;
    m_runs.removeLast();
    return false;
}

bool UserRows::readPage(Run &run, int first, QString *error)
{
    Recordset rs;
    if (OpenQuery(rs, PageStatement(run.sql, PageRows, int(run.rows.size())), Cursor::ForwardOnly) != 0) {
        *error = rs.LastErrorText();
        return false;
    }
    QList<Row> rows;
    if (HasRows(rs)) {
        const int code = rs.FieldPosition(QStringLiteral("Code"));
        const int name = rs.FieldPosition(QStringLiteral("Name"));
        const int description = rs.FieldPosition(QStringLiteral("Dec"));
        for (; !rs.Eof(); rs.MoveNext())
            rows.append({NullToStr(rs.Value(name)), NullToStr(rs.Value(description)), NullToStr(rs.Value(code))});
    }
    run.done = rows.size() < PageRows;
    if (!rows.isEmpty()) {
        const int end = first + int(run.rows.size());
        beginInsertRows({}, end, end + int(rows.size()) - 1);
        run.rows += rows;
        endInsertRows();
    }
    return true;
}

int UserRows::rowCount(const QModelIndex &parent) const
{
    if (parent.isValid())
        return 0;
    int rows = 0;
    for (const Run &run : m_runs)
        rows += int(run.rows.size());
    return rows;
}

std::pair<UserRows::Run *, int> UserRows::unfinished()
{
    int first = 0;
    for (Run &run : m_runs) {
        if (!run.done)
            return {&run, first};
        first += int(run.rows.size());
    }
    return {nullptr, first};
}

bool UserRows::canFetchMore(const QModelIndex &parent) const
{
    return !parent.isValid() && const_cast<UserRows *>(this)->unfinished().first;
}

// A page the database cannot give now (the server away: the clerk was told)
// is asked for again when the view next reaches the end.
void UserRows::fetchMore(const QModelIndex &parent)
{
    QString error;
    if (const auto [run, first] = unfinished(); run && !parent.isValid())
        readPage(*run, first, &error);
}

bool UserRows::holdsOne()
{
    while (rowCount() < 2 && canFetchMore({})) {
        const int before = rowCount();
        fetchMore({});
        if (rowCount() == before && canFetchMore({}))
            break;   // the server is away: judge by the rows read
    }
    return rowCount() == 1;
}

std::pair<UserRows::Run *, int> UserRows::find(int row)
{
    for (Run &run : m_runs) {
        if (row < run.rows.size())
            return {&run, row};
        row -= int(run.rows.size());
    }
    return {nullptr, 0};
}

const UserRows::Row &UserRows::at(int row) const
{
    const auto [run, place] = const_cast<UserRows *>(this)->find(row);
    return run->rows[place];
}

QVariant UserRows::data(const QModelIndex &index, int role) const
{
    static const QIcon ic1(QStringLiteral(":/zolt/ic1.png"));
    if (role == Qt::DisplayRole)
        return at(index.row())[index.column()];
    if (role == Qt::DecorationRole && index.column() == NameColumn)
        return ic1;
    // A user whose name waits after too many refused logons stands out.
    const bool waiting = m_waiting.contains(at(index.row())[NameColumn].toCaseFolded());
    if (waiting && role == Qt::ForegroundRole)
        return QColor(Qt::darkRed);
    if (waiting && role == Qt::ToolTipRole)
        return tr("Đang phải chờ vì đăng nhập sai quá số lần cho phép");
    return {};
}

QVariant UserRows::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return section == NameColumn ? tr("Tên") : section == DescriptionColumn ? tr("Diễn giải") : tr("Mã số");
}

void UserRows::setWaiting(const QSet<QString> &names)
{
    m_waiting = names;
    if (rowCount() > 0)
        emit dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
}

void UserRows::setText(int row, Column column, const QString &text)
{
    const auto [run, place] = find(row);
    run->rows[place][column] = text;
    emit dataChanged(index(row, column), index(row, column));
}

// The run's query no longer gives the row, so the run's next page starts
// one row earlier: at the number of its rows still held.
void UserRows::remove(int row)
{
    const auto [run, place] = find(row);
    beginRemoveRows({}, row, row);
    run->rows.removeAt(place);
    endRemoveRows();
}

} // namespace zolt
