// SPDX-License-Identifier: MIT
#include "core/base/Conversions.h"

#include <zolt/Error.h>

#include <QMetaType>
#include <QRegularExpression>

#include <cfenv>
#include <cmath>
#include <cstdio>
#include <limits>

namespace zolt {

namespace {

// Digits of |value| rounded to 15 significant digits, trailing zeros dropped,
// and the decimal exponent of the first digit.
struct Significand {
    QString digits;
    int exponent = 0;
};

Significand significand(double magnitude)
{
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%.14e", magnitude);   // d.dddddddddddddde±XX
    const QString text = QString::fromLatin1(buffer);
    const int e = text.indexOf(QLatin1Char('e'));
    QString digits = text.left(e).remove(QLatin1Char('.'));
    while (digits.size() > 1 && digits.endsWith(QLatin1Char('0')))
        digits.chop(1);
    return {digits, text.mid(e + 1).toInt()};
}

QString plainForm(const Significand &s)
{
    if (s.exponent < 0)
        return QStringLiteral("0.") + QString(-s.exponent - 1, QLatin1Char('0')) + s.digits;
    const int wholeDigits = s.exponent + 1;
    if (s.digits.size() <= wholeDigits)
        return s.digits + QString(wholeDigits - s.digits.size(), QLatin1Char('0'));
    return s.digits.left(wholeDigits) + QLatin1Char('.') + s.digits.mid(wholeDigits);
}

QString exponentForm(const Significand &s)
{
    QString mantissa = s.digits.left(1);
    if (s.digits.size() > 1)
        mantissa += QLatin1Char('.') + s.digits.mid(1);
    const QChar sign = s.exponent < 0 ? QLatin1Char('-') : QLatin1Char('+');
    return mantissa + QLatin1Char('E') + sign
           + QString::number(std::abs(s.exponent)).rightJustified(2, QLatin1Char('0'));
}

const QRegularExpression &numericPattern()
{
    static const QRegularExpression pattern(QStringLiteral(
        R"(^\s*[+-]?(\d+(,\d+)*(\.\d*)?|\.\d+)([eE][+-]?\d+)?\s*$)"));
    return pattern;
}

bool isNumberType(const QVariant &value)
{
    switch (value.metaType().id()) {
    case QMetaType::Int: case QMetaType::UInt: case QMetaType::LongLong:
    case QMetaType::ULongLong: case QMetaType::Double: case QMetaType::Float:
    case QMetaType::Short: case QMetaType::UShort: case QMetaType::Long:
    case QMetaType::ULong: case QMetaType::Char: case QMetaType::SChar:
    case QMetaType::UChar: case QMetaType::Bool:
        return true;
    default:
        return false;
    }
}

} // namespace

QString DoubleToText(double value)
{
    if (!std::isfinite(value))
        throw Error(Error::Overflow);
    if (value == 0.0)
        return QStringLiteral("0");
    const Significand s = significand(std::abs(value));
    const QString body = (s.exponent >= -4 && s.exponent < 15) ? plainForm(s) : exponentForm(s);
    return value < 0 ? QLatin1Char('-') + body : body;
}

qint32 RoundToLong(double value)
{
    const int savedMode = std::fegetround();
    std::fesetround(FE_TONEAREST);
    const double rounded = std::nearbyint(value);   // half to even
    std::fesetround(savedMode);
    if (!(rounded >= std::numeric_limits<qint32>::min()
          && rounded <= std::numeric_limits<qint32>::max()))
        throw Error(Error::Overflow);
    return static_cast<qint32>(rounded);
}

bool IsNumeric(const QString &text)
{
    return numericPattern().match(text).hasMatch();
}

bool IsNumeric(const QVariant &value)
{
    if (value.isNull())
        return false;
    if (isNumberType(value))
        return true;
    return value.canConvert<QString>() && IsNumeric(value.toString());
}

double ToDouble(const QString &text)
{
    if (!IsNumeric(text))
        throw Error(Error::TypeMismatch);
    QString plain = text.trimmed();
    plain.remove(QLatin1Char(','));
    const double number = plain.toDouble();
    if (!std::isfinite(number))
        throw Error(Error::Overflow);   // "4e333" is numeric, but no Double holds it
    return number;
}

double ToDouble(const QVariant &value)
{
    if (value.metaType().id() == QMetaType::Bool)
        return value.toBool() ? -1.0 : 0.0;    // True is -1, as in the runtime
    if (!value.isNull() && isNumberType(value))
        return value.toDouble();
    if (value.isNull() || !value.canConvert<QString>())
        throw Error(Error::TypeMismatch);
    return ToDouble(value.toString());
}

std::optional<QDate> MakeDate(int day, int month, const QString &yearDigits)
{
    int year = yearDigits.toInt();
    if (year < 100)
        year += year < 30 ? 2000 : 1900;
    const QDate date(year, month, day);
    return date.isValid() ? std::optional<QDate>(date) : std::nullopt;
}

std::optional<QDate> ParseDayFirstDate(const QString &text)
{
    static const QRegularExpression pattern(
        QStringLiteral(R"(^\s*(#?)\s*(\d{1,2})/(\d{1,2})/(\d{1,4})\s*(#?)\s*$)"));
    const QRegularExpressionMatch m = pattern.match(text);
    if (!m.hasMatch() || m.captured(1) != m.captured(5))
        return std::nullopt;
    return MakeDate(m.captured(2).toInt(), m.captured(3).toInt(), m.captured(4));
}

bool IsDate(const QString &text)
{
    return ParseDayFirstDate(text).has_value();
}

QString VariantToText(const QVariant &value)
{
    if (value.isNull())
        return QString();
    switch (value.metaType().id()) {
    case QMetaType::Double:
    case QMetaType::Float:
        return DoubleToText(value.toDouble());
    case QMetaType::Bool:
        return value.toBool() ? QStringLiteral("True") : QStringLiteral("False");
    default:
        return value.toString();
    }
}

QString NullToStr(const QVariant &value)
{
    return VariantToText(value);
}

qint32 LngVal(const QVariant &value)
{
    return IsNumeric(value) ? RoundToLong(ToDouble(value)) : 0;
}

double NumVal(const QVariant &value)
{
    return LngVal(value);
}

QString UCase(const QString &text)
{
    return text.toUpper();
}

bool SameText(const QString &a, const QString &b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

QString Trim(const QString &text)
{
    qsizetype begin = 0;
    qsizetype end = text.size();
    while (begin < end && text.at(begin) == QLatin1Char(' '))
        ++begin;
    while (end > begin && text.at(end - 1) == QLatin1Char(' '))
        --end;
    return text.mid(begin, end - begin);
}

int InStr(int start, const QString &text, const QString &pattern)
{
    if (start < 1)
        throw Error(Error::InvalidArgument);
    if (start > text.size())
        return 0;
    return text.indexOf(pattern, start - 1) + 1;
}

QString Mid(const QString &text, int start, int length)
{
    if (start < 1)
        throw Error(Error::InvalidArgument);
    return text.mid(start - 1, length);
}

} // namespace zolt
