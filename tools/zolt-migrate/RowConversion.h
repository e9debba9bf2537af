// SPDX-License-Identifier: MIT
#pragma once

// A table's rows as a conversion writes them: the columns its scan chose in
// Unicode, and the library's font setting moved off a font of the old
// encodings.

#include "ColumnScan.h"

#include <QSqlRecord>

namespace zolt::migrate {

// The font setting names a font drawn for TCVN3 or VNI bytes (".VnTime",
// "VK Sans Serif", "VNI-Times"), useless for Unicode text.
bool IsLegacyFont(const QString &name);

class RowConversion {
public:
    // Rows of the table come with the columns of record, in its order.
    RowConversion(const TableReport &table, const QSqlRecord &record, const QString &unicodeFont);

    // Converts the row's values; counts bytes without meaning in *unconvertible.
    void apply(QList<QVariant> &values, qint32 *unconvertible);
    // The library's own row in Options that every database keeps for itself:
    // the version of its tables.
    bool isSchemaVersionRow(const QList<QVariant> &values) const;
    // What the report says when the font setting was replaced; "" when it was not.
    QString fontNote() const;

private:
    bool isSetting(const QList<QVariant> &values, QLatin1String key) const;

    QList<std::pair<int, const ColumnReport *>> m_columns;
    bool m_options;
    int m_section;
    int m_key;
    int m_value;
    QString m_font;
    bool m_fontChanged = false;
};

} // namespace zolt::migrate
