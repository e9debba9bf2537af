// SPDX-License-Identifier: MIT
#include "RowConversion.h"

#include "Language.h"

namespace zolt::migrate {

bool IsLegacyFont(const QString &name)
{
    const QString trimmed = name.trimmed();
    for (const char *prefix : {".Vn", "VK ", "VNI-", "VNI "}) {
        if (trimmed.startsWith(QLatin1String(prefix), Qt::CaseInsensitive))
            return true;
    }
    return false;
}

RowConversion::RowConversion(const TableReport &table, const QSqlRecord &record, const QString &unicodeFont)
    : m_options(table.table.compare(QLatin1String("Options"), Qt::CaseInsensitive) == 0)
    , m_section(record.indexOf(QStringLiteral("Section")))
    , m_key(record.indexOf(QStringLiteral("KeyName")))
    , m_value(record.indexOf(QStringLiteral("KeyValue")))
    , m_font(unicodeFont)
{
    for (const ColumnReport &column : table.columns) {
        const int i = record.indexOf(column.column);
        if (i >= 0 && Converts(column))
            m_columns.append({i, &column});
    }
    m_options = m_options && m_section >= 0 && m_key >= 0 && m_value >= 0;
}

void RowConversion::apply(QList<QVariant> &values, qint32 *unconvertible)
{
    for (const auto &[i, column] : m_columns) {
        ValueRead read;
        values[i] = Converted(*column, values[i], &read);
        *unconvertible += read.unconvertible;
    }
    if (isSetting(values, QLatin1String("DefaultFont")) && IsLegacyFont(values[m_value].toString())) {
        values[m_value] = m_font;
        m_fontChanged = true;
    }
}

QString RowConversion::fontNote() const
{
    if (!m_fontChanged)
        return {};
    return Say("Phông chữ của chương trình (Config/DefaultFont) đổi thành \"%1\".",
               "The library's font (Config/DefaultFont) became \"%1\".")
        .arg(m_font);
}

bool RowConversion::isSchemaVersionRow(const QList<QVariant> &values) const
{
    return isSetting(values, QLatin1String("SchemaVersion"));
}

bool RowConversion::isSetting(const QList<QVariant> &values, QLatin1String key) const
{
    return m_options && values[m_section].toString().compare(QLatin1String("Config"), Qt::CaseInsensitive) == 0
        && values[m_key].toString().compare(key, Qt::CaseInsensitive) == 0;
}

} // namespace zolt::migrate
