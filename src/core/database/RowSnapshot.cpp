// SPDX-License-Identifier: MIT
#include "core/database/RowSnapshot.h"

#include "core/base/Conversions.h"
#include "core/database/SqlFunc.h"

#include <zolt/Error.h>

namespace zolt {

void RowSnapshot::Take(const Recordset &rs, const QStringList &columns)
{
    m_values.clear();
    for (const QString &column : columns) {
        // A column this table does not have is not compared.
        for (int position = 0; position < rs.FieldCount(); ++position) {
            if (rs.FieldName(position).compare(column, Qt::CaseInsensitive) == 0)
                m_values.append({column, rs.Value(position)});
        }
    }
}

void RowSnapshot::Wrote(const QList<std::pair<QString, QVariant>> &values)
{
    for (const auto &[column, value] : values) {
        for (auto &kept : m_values) {
            if (kept.first.compare(column, Qt::CaseInsensitive) == 0)
                kept.second = value;
        }
    }
}

QVariant RowSnapshot::Value(const QString &column) const
{
    for (const auto &[name, value] : m_values) {
        if (name.compare(column, Qt::CaseInsensitive) == 0)
            return value;
    }
    return {};
}

QString RowSnapshot::StillHolds() const
{
    QString condition;
    for (const auto &[column, value] : m_values) {
        condition += QStringLiteral(" And [") + column + u']';
        if (value.isNull())
            condition += QStringLiteral(" Is Null");
        else if (value.typeId() == QMetaType::Double)
            condition += u'=' + DoubleToText(value.toDouble());   // as the library writes them
        else if (value.typeId() == QMetaType::QString)
            condition += u'=' + SqlValue(value, QStringLiteral("S"));
        else
            condition += u'=' + QString::number(value.toLongLong());
    }
    return condition;
}

} // namespace zolt
