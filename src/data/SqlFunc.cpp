// SPDX-License-Identifier: MIT
#include "data/SqlFunc.h"

#include "data/Conversions.h"

#include <zolt/Error.h>

namespace zolt {

bool DateQuoteFlag = false;

namespace {

QString doubled(QString text, QChar quote)
{
    return text.replace(quote, QString(2, quote));
}

// 1-based position of the last ")" at or before position p; the scan fails
// with error 5 when it runs off the front of the text, as the character test
// comes before the position test.
int closingParenthesisAtOrBefore(const QString &text, int p)
{
    while (true) {
        if (p < 1)
            throw Error(Error::InvalidArgument);
        if (text.at(p - 1) == QLatin1Char(')'))
            return p;
        --p;
    }
}

} // namespace

QString FixQuote(const QVariant &value)
{
    return doubled(doubled(VariantToText(value), QLatin1Char('\'')), QLatin1Char('"'));
}

QString SqlQuote(const QString &value, qint32 kind)
{
    switch (kind) {
    case 3:
        return IsNumeric(value) ? value : QStringLiteral("1");
    case 8: {
        const QString literal = QLatin1Char('#') + value + QLatin1Char('#');
        return IsDate(literal) ? literal : QStringLiteral("1");
    }
    case 10:
        return QLatin1Char('\'') + FixQuote(value) + QStringLiteral(" '");
    default:
        return QStringLiteral("1");
    }
}

QString AddValues(const QString &sql, const QString &column, const QString &value)
{
    QString s = sql;
    const int valuesAt = InStr(UCase(s), QStringLiteral("VALUES"));
    if (valuesAt > 0) {
        const int p = closingParenthesisAtOrBefore(s, valuesAt);
        s = s.left(p - 1) + QLatin1Char(',') + column + s.mid(p - 1);
    } else {
        s.clear();
    }
    const int q = closingParenthesisAtOrBefore(s, s.size());
    return s.left(q - 1) + QLatin1Char(',') + SqlQuote(value, 10) + s.mid(q - 1);
}

QString AddSet(const QString &sql, const QString &column, const QString &value)
{
    const int p = InStr(UCase(sql), QStringLiteral("SET"));
    if (p == 0)
        return QString();
    return sql.left(p + 3) + column + QLatin1Char('=') + SqlQuote(value, 10) + QLatin1Char(',')
           + sql.mid(p + 3);
}

QString SqlValue(const QVariant &value, const QString &code)
{
    const QString c = UCase(code);
    if (c == QLatin1String("N"))
        return QString::number(static_cast<qint64>(NumVal(value)));
    if (c == QLatin1String("D")) {
        const QChar delimiter = DateQuoteFlag ? QLatin1Char('\'') : QLatin1Char('#');
        return delimiter + VariantToText(value) + delimiter;
    }
    if (c == QLatin1String("S") || c.isEmpty())
        return QLatin1Char('\'') + FixQuote(value) + QLatin1Char('\'');
    if (c == QLatin1String("LR"))
        return QLatin1Char('\'') + FixQuote(value) + QStringLiteral("%'");
    if (c == QLatin1String("LL") || c == QLatin1String("LA"))
        return QStringLiteral("'%") + FixQuote(value) + QStringLiteral("%'");
    return QString();
}

} // namespace zolt
