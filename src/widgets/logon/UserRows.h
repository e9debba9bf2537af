// SPDX-License-Identifier: MIT
#pragma once

// The users of the user list, read as they are shown. Each query the list is
// given becomes a run of rows, read a page at a time (the query with Limit
// and Offset, so that no statement stays open between pages) when the view
// scrolls to its end, as a view over QSqlQueryModel reads: a list of a large
// firm opens as fast as such a view, and holds only the pages it has shown.

#include <QAbstractTableModel>
#include <QSet>

#include <array>

namespace zolt {

class UserRows : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { NameColumn, DescriptionColumn, CodeColumn, ColumnCount };
    using Row = std::array<QString, ColumnCount>;

    using QAbstractTableModel::QAbstractTableModel;

    // Appends the rows of the query (columns Code, Name, Dec), reading its
    // first page; false with the reason in *error when that read fails.
    bool append(const QString &sql, QString *error);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override { return parent.isValid() ? 0 : ColumnCount; }
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    bool canFetchMore(const QModelIndex &parent) const override;
    void fetchMore(const QModelIndex &parent) override;

    // Whether the list holds one user only, reading on as far as it takes to tell.
    bool holdsOne();

    // The names, case folded, that wait before their next logon.
    void setWaiting(const QSet<QString> &names);

    const Row &at(int row) const;
    void setText(int row, Column column, const QString &text);
    // The row's user was deleted.
    void remove(int row);

private:
    static constexpr int PageRows = 256;

    struct Run {
        QString sql;
        QList<Row> rows;    // read so far
        bool done = false;  // a page came back short: the query gave all it has
    };
    // The first run with rows still to read, and where its rows end in the list.
    std::pair<Run *, int> unfinished();
    // Reads the run's next page; false with the reason in *error.
    bool readPage(Run &run, int first, QString *error);
    std::pair<Run *, int> find(int row);

    QList<Run> m_runs;
    QSet<QString> m_waiting;
};

} // namespace zolt
