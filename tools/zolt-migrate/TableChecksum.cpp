// SPDX-License-Identifier: MIT
#include "TableChecksum.h"

#include "RowConversion.h"

#include <QDateTime>
#include <QSqlField>
#include <QSqlQuery>

namespace zolt::migrate {

namespace {

// The same value reads the same from every engine: whole numbers without a
// fraction, other numbers to 15 digits, dates and times in ISO form.
QByteArray canonical(const QVariant &value)
{
    if (value.isNull())
        return QByteArrayLiteral("\x01");
    switch (value.typeId()) {
    case QMetaType::Double:
    case QMetaType::Float: {
        const double d = value.toDouble();
        return d == double(qint64(d)) ? QByteArray::number(qint64(d)) : QByteArray::number(d, 'g', 15);
    }
    case QMetaType::Bool: return value.toBool() ? "1" : "0";
    case QMetaType::QDate: return value.toDate().toString(Qt::ISODate).toUtf8();
    case QMetaType::QDateTime: return value.toDateTime().toString(Qt::ISODate).toUtf8();
    default: return value.toString().toUtf8();
    }
}

quint64 fnv1a(const QByteArray &bytes, quint64 hash)
{
    for (const char c : bytes) {
        hash ^= static_cast<unsigned char>(c);
        hash *= 1099511628211ULL;
    }
    return hash;
}

} // namespace

QSqlRecord SummedColumns(const QSqlRecord &record)
{
    QSqlRecord columns;
    for (int i = 0; i < record.count(); ++i) {
        const int type = record.field(i).metaType().id();
        if (type != QMetaType::QString && type != QMetaType::QByteArray)
            columns.append(record.field(i));
    }
    return columns;
}

TableSum SumTable(const Database &d, const QString &table, const QSqlRecord &columns)
{
    QSqlQuery query(d.db);
    query.setForwardOnly(true);
    query.exec(QStringLiteral("SELECT * FROM ") + Quoted(d, table));
    const QSqlRecord record = query.record();
    QList<std::pair<int, QMetaType>> summed;   // each column's place here, and its type
    for (int i = 0; i < columns.count(); ++i)
        summed.append({record.indexOf(columns.fieldName(i)), columns.field(i).metaType()});
    const RowConversion rows(TableReport{table, 0, {}}, record, {});
    QList<QVariant> values(record.count());
    TableSum sum;
    quint64 total = 0;
    while (query.next()) {
        for (int i = 0; i < values.size(); ++i)
            values[i] = query.value(i);
        if (rows.isSchemaVersionRow(values))
            continue;
        ++sum.rows;
        quint64 hash = 14695981039346656037ULL;
        for (const auto &[position, type] : summed) {
            QVariant value = position < 0 ? QVariant() : values[position];
            if (!value.isNull() && value.metaType() != type)
                value.convert(type);
            hash = fnv1a(position < 0 ? QByteArrayLiteral("\x02") : canonical(value), hash);
            hash = fnv1a(QByteArrayLiteral("\x1f"), hash);
        }
        total += hash;   // a sum, so that the order of rows does not matter
    }
    sum.sum = QString::number(total, 16);
    return sum;
}

} // namespace zolt::migrate
