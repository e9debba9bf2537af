// SPDX-License-Identifier: MIT
#pragma once

// The values of a row as a dialog read them, so that a write goes through
// only while the row still holds them (compare and set in one statement):
// when another desk changed or deleted the row in between, the write touches
// nothing and the clerk can be told.

#include "core/database/Recordset.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <utility>

namespace zolt {

class RowSnapshot {
public:
    // Keeps the current row's values of those of columns that rs has.
    void Take(const Recordset &rs, const QStringList &columns);
    void Clear() { m_values.clear(); }
    // After a write that went through: the row now holds these values, and
    // the next write compares against them (a column not kept stays unkept).
    void Wrote(const QList<std::pair<QString, QVariant>> &values);
    // True when no row was read: nothing may be written on its strength.
    bool IsEmpty() const { return m_values.isEmpty(); }
    // " And [column]=value" for each value kept ("Is Null" for a Null).
    QString StillHolds() const;
    // The value kept of the column; Null when none is kept.
    QVariant Value(const QString &column) const;

private:
    QList<std::pair<QString, QVariant>> m_values;
};

} // namespace zolt
