// SPDX-License-Identifier: MIT
#include "core/database/SqlFunc.h"

#include "core/base/Conversions.h"

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

bool isWordCharacter(QChar c)
{
    return c.isLetterOrNumber() || c == QLatin1Char('_');
}

// 1-based position of the first whole-word keyword in sql, without regard to
// case; 0 when there is none. The position is one in sql itself: the text is
// never upper-cased first, which can lengthen it ("ß" becomes "SS").
int keywordAt(const QString &sql, QLatin1String keyword)
{
    for (qsizetype at = sql.indexOf(keyword, 0, Qt::CaseInsensitive); at >= 0;
         at = sql.indexOf(keyword, at + 1, Qt::CaseInsensitive)) {
        const qsizetype end = at + keyword.size();
        if ((at == 0 || !isWordCharacter(sql.at(at - 1))) && (end == sql.size() || !isWordCharacter(sql.at(end))))
            return int(at + 1);
    }
    return 0;
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
        return QLatin1Char('\'') + FixQuote(StoredWithBlank(value)) + QLatin1Char('\'');
    default:
        return QStringLiteral("1");
    }
}

QString AddValues(const QString &sql, const QString &column, const QString &value)
{
    QString s = sql;
    const int valuesAt = keywordAt(s, QLatin1String("VALUES"));
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
    const int p = keywordAt(sql, QLatin1String("SET"));
    if (p == 0)
        return QString();
    return sql.left(p + 3) + column + QLatin1Char('=') + SqlQuote(value, 10) + QLatin1Char(',')
           + sql.mid(p + 3);
}

QString StoredWithBlank(const QString &typed)
{
    return typed + u' ';
}

QString WithoutAddedBlank(const QString &stored)
{
    return stored.endsWith(u' ') ? stored.chopped(1) : stored;
}

QString SqlValue(const QVariant &value, const QString &code)
{
    const QString c = UCase(code);
    if (c == QLatin1String("N"))
        return QString::number(static_cast<qint64>(NumVal(value)));
    if (c == QLatin1String("D")) {
        // Only a date goes between the delimiters; anything else gives "##",
        // which no database reads, so the statement fails without the text.
        const QString text = VariantToText(value);
        if (!IsDate(text))
            return QStringLiteral("##");
        const QChar delimiter = DateQuoteFlag ? QLatin1Char('\'') : QLatin1Char('#');
        return delimiter + text + delimiter;
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
