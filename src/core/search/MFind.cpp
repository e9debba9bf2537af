// SPDX-License-Identifier: MIT
#include "core/search/MFind.h"

#include "core/base/Conversions.h"
#include "core/base/Logging.h"
#include "core/database/SqlFunc.h"
#include "core/search/ItemDataList.h"

#include <zolt/Error.h>

#include <QRegularExpression>

#include <algorithm>

namespace zolt {

thread_local QStringList FieldRelation;
thread_local QList<qint32> FieldType;

namespace {

// One number as the screen shows numbers: "." between thousands, "," before
// decimals ("490.000", "1.234.567,5", "-5"); its SQL text, or "" when the
// text is no such number.
QString shownNumberSql(const QString &text)
{
    static const QRegularExpression shown(QStringLiteral(R"(^\s*([+-]?)(\d{1,3}(?:\.\d{3})+|\d+)(?:,(\d+))?\s*$)"));
    const QRegularExpressionMatch m = shown.match(text);
    if (!m.hasMatch())
        return QString();
    const QString whole = m.captured(1) + m.captured(2).remove(QLatin1Char('.'));
    return m.hasCaptured(3) ? whole + QLatin1Char('.') + m.captured(3) : whole;
}

QString textLiteral(const QString &predicate, const QString &value)
{
    const QString escaped = EscapeQuotes(value);
    if (predicate == QLatin1String("LIKE"))
        return QLatin1Char('\'') + escaped + QStringLiteral("%'");
    if (predicate == QLatin1String("IN"))
        return QStringLiteral("('") + QString(escaped).replace(QLatin1Char(','), QStringLiteral("','"))
               + QStringLiteral("')");
    return QLatin1Char('\'') + escaped + QLatin1Char('\'');
}

QString twoDigits(const QString &part)
{
    return part.size() == 1 ? QLatin1Char('0') + part : part;
}

} // namespace

std::optional<QStringList> TypedNumbers(const QString &predicate, const QString &value)
{
    QStringList items = UCase(predicate) == QLatin1String("IN") ? value.split(QLatin1Char(',')) : QStringList{value};
    for (QString &item : items) {
        item = shownNumberSql(item);
        if (item.isEmpty())
            return std::nullopt;
    }
    return items;
}

void FillList(ItemDataList &list, const QString &order, QString sql)
{
    if (!order.isEmpty())
        sql += QStringLiteral(" Order By ") + order;
    Recordset rs;
    if (OpenQuery(rs, sql, Cursor::ForwardOnly) != 0)
        return;
    QStringList texts, data;
    bool whole = true;
    try {
        ReadRows(rs, texts, data);
    } catch (const Error &e) {
        LogIgnored("A list filled as far as its rows were read", e);
        whole = false;
    }
    // Read to the end before the list changes: its Click may run a query of its own.
    rs.Close();
    const int remembered = list.ListIndex();
    list.Clear();
    list.AppendItems(texts, data);
    if (whole)
        list.SetListIndex(remembered < list.ListCount() ? remembered : 0);
}

void ReadRows(Recordset &rs, QStringList &texts, QStringList &data)
{
    for (; !rs.Eof(); rs.MoveNext()) {
        texts.append(NullToStr(rs.Value(1)));   // the text first: a single column is no list
        data.append(NullToStr(rs.Value(0)));
    }
}

void LoadFieldInfo(QString sql, const QString &order)
{
    try {
        const int from = sql.indexOf(QStringLiteral(" FROM "), 0, Qt::CaseInsensitive);
        Recordset count;
        if (from < 0 || OpenQuery(count, QStringLiteral("SELECT COUNT(*) FROM ") + sql.mid(from + 6)) != 0)
            return;
        const qint32 n = HasRows(count) ? LngVal(count.Value(0)) : 0;

        sql += QStringLiteral(" Order By ") + order;
        Recordset rs;
        if (OpenQuery(rs, sql) != 0)
            return;
        FieldRelation = QStringList(n + 1);
        FieldType = QList<qint32>(n + 1, 0);
        for (int k = 0; !rs.Eof() && k <= n; rs.MoveNext(), ++k) {
            FieldRelation[k] = NullToStr(rs.Value(QStringLiteral("Relation")));
            FieldType[k] = LngVal(rs.Value(QStringLiteral("Type")));
        }
    } catch (const Error &e) {
        LogIgnored("The search fields read as far as they could be", e);
    }
}

QString FormatValue(int type, const QString &predicate, const QString &value)
{
    const QString op = UCase(predicate);
    switch (type) {
    case UncheckedNumberType: case NumberType: case NumberType13:
        if (const auto numbers = TypedNumbers(op, value))
            return op == QLatin1String("IN") ? QLatin1Char('(') + numbers->join(QLatin1Char(',')) + QLatin1Char(')')
                                             : numbers->front();
        return QString();
    case DateType:
        return QLatin1Char('#') + FormatDate(value) + QLatin1Char('#');
    case TextType: case TextType11:
        return textLiteral(op, value);
    default:
        return QString();
    }
}

QString FormatDate(const QString &value)
{
    if (!IsDate(value))
        return QString();
    QString text = value.trimmed();
    if (text.startsWith(QLatin1Char('#')))
        text = text.mid(1, text.size() - 2);
    const QStringList parts = text.split(QLatin1Char('/'));
    const QString day = twoDigits(parts[0].trimmed());
    const QString month = twoDigits(parts[1].trimmed());
    const QString year = parts[2].trimmed().rightJustified(4, QLatin1Char('0'));
    // The database reads the literal month first.
    return month + QLatin1Char('/') + day + QLatin1Char('/') + year;
}

QString EscapeQuotes(const QString &value)
{
    return FixQuote(value);
}

int CountOf(const QString &text, const QString &pattern)
{
    if (text.isEmpty() || pattern.isEmpty())
        return 0;
    int count = 0;
    for (qsizetype at = text.indexOf(pattern); at >= 0; at = text.indexOf(pattern, at + pattern.size()))
        ++count;
    return count;
}

} // namespace zolt
