// SPDX-License-Identifier: MIT
#pragma once

// The groups of the groups dialog, read as they are shown: the dialog's query
// a page at a time (with Limit and Offset, so that no statement stays open
// between pages) when the view reaches the end, as a view over
// QSqlQueryModel reads. Groups added in the dialog follow the query's rows.
// Each row's text is "name-description", its item data the group's code.

#include <QAbstractListModel>

namespace zolt {

class GroupRows : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;

    // Replaces the rows by those of the query (columns Code, Name, Des) when
    // it has any; the number of the failure, or 0. A query without rows
    // leaves the list as it was.
    qint32 load(const QString &sql);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    bool canFetchMore(const QModelIndex &parent) const override;
    void fetchMore(const QModelIndex &parent) override;

    // Reads on to the end, as a selection of every group needs.
    void fetchAll();
    // The row of the group of that code, reading on until it comes; -1 when none.
    int find(qint32 code);
    qint32 code(int row) const;

    void append(qint32 code, const QString &text);
    void setText(int row, const QString &text);
    // Takes the rows out (their groups are being deleted); the query's next
    // page then starts that many rows earlier.
    void remove(QList<int> rows);

private:
    static constexpr int PageRows = 64;   // a few times what the list shows: the first page opens it
    struct Row {
        qint32 code;
        QString text;
    };
    qint32 readPage(QList<Row> *rows) const;

    QString m_sql;
    QList<Row> m_rows;      // the query's rows read so far, then those added here
    int m_fromQuery = 0;    // how many of them come from the query
    bool m_done = true;     // the query gave all it has
};

} // namespace zolt
