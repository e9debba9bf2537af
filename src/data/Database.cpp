// SPDX-License-Identifier: MIT
#include "data/Database.h"

#include "data/Conversions.h"

#include <zolt/Error.h>

#include <QRegularExpression>
#include <QTime>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>

namespace zolt {

QString CurrentConnectionString;

namespace {

QString &currentConnectionName()
{
    static QString name;
    return name;
}

// An ODBC data source may well be the original engine, which reads #dates#.
bool readsHashDates(const QSqlDatabase &db)
{
    return db.driverName() == QLatin1String("QODBC");
}

// The ISO text of one #...# literal's contents, or nothing when it is no date.
std::optional<QString> isoDate(const QString &literal)
{
    static const QRegularExpression pattern(QStringLiteral(
        R"(^\s*(\d{1,2})/(\d{1,2})/(\d{1,4})(?:\s+(\d{1,2}):(\d{2})(?::(\d{2}))?)?\s*$)"));
    const QRegularExpressionMatch m = pattern.match(literal);
    if (!m.hasMatch())
        return std::nullopt;
    const auto date = MakeDate(m.captured(2).toInt(), m.captured(1).toInt(), m.captured(3));
    if (!date)
        return std::nullopt;
    QString iso = date->toString(QStringLiteral("yyyy-MM-dd"));
    if (m.hasCaptured(4)) {
        const QTime time(m.captured(4).toInt(), m.captured(5).toInt(), m.captured(6).toInt());
        if (!time.isValid())
            return std::nullopt;
        iso += QLatin1Char(' ') + time.toString(QStringLiteral("HH:mm:ss"));
    }
    return iso;
}

} // namespace

QSqlDatabase CurrentConnection()
{
    return QSqlDatabase::database(currentConnectionName(), false);
}

void SetCurrentConnection(const QSqlDatabase &connection)
{
    currentConnectionName() = connection.connectionName();
}

void UseConnection(const QSqlDatabase &connection)
{
    if (!connection.isValid())
        throw Error(Error::TypeMismatch);
    SetCurrentConnection(connection);
    CurrentConnectionString = ConnectionString(connection);
}

QString ConnectionString(const QSqlDatabase &db)
{
    QStringList parts = {QStringLiteral("Driver=") + db.driverName(), QStringLiteral("Database=") + db.databaseName()};
    if (!db.hostName().isEmpty())
        parts << QStringLiteral("Server=") + db.hostName();
    if (!db.userName().isEmpty())
        parts << QStringLiteral("User=") + db.userName();
    return parts.join(QLatin1Char(';'));
}

QString RewriteDateLiterals(const QString &sql)
{
    QString out;
    out.reserve(sql.size());
    qsizetype i = 0;
    while (i < sql.size()) {
        const QChar c = sql.at(i);
        if (c == QLatin1Char('\'') || c == QLatin1Char('"')) {
            // Quoted text is copied whole; a doubled quote stays inside it.
            qsizetype end = i + 1;
            while (end < sql.size()) {
                if (sql.at(end) == c) {
                    if (end + 1 < sql.size() && sql.at(end + 1) == c) {
                        end += 2;
                        continue;
                    }
                    break;
                }
                ++end;
            }
            out += sql.mid(i, end - i + 1);
            i = end + 1;
            continue;
        }
        if (c == QLatin1Char('#')) {
            const qsizetype close = sql.indexOf(QLatin1Char('#'), i + 1);
            if (close > 0) {
                if (const auto iso = isoDate(sql.mid(i + 1, close - i - 1))) {
                    // A quoted literal right beside another would merge with it.
                    const auto isQuote = [](QChar q) { return q == QLatin1Char('\'') || q == QLatin1Char('"'); };
                    if (!out.isEmpty() && isQuote(out.back()))
                        out += QLatin1Char(' ');
                    out += QLatin1Char('\'') + *iso + QLatin1Char('\'');
                    if (close + 1 < sql.size() && isQuote(sql.at(close + 1)))
                        out += QLatin1Char(' ');
                    i = close + 1;
                    continue;
                }
            }
        }
        out += c;
        ++i;
    }
    return out;
}

QString DriverSql(const QSqlDatabase &db, const QString &sql)
{
    return readsHashDates(db) ? sql : RewriteDateLiterals(sql);
}

bool BreaksQuotedLiteral(const QSqlDatabase &db, const QString &text)
{
    const bool backslashEscapes = db.driverName() == QLatin1String("QMYSQL")
                                  || db.driverName() == QLatin1String("QMARIADB");
    return text.contains(QLatin1Char('\'')) || text.contains(QChar(0))
           || (backslashEscapes && text.contains(QLatin1Char('\\')));
}

void Execute(const QString &sql, const QSqlDatabase &db)
{
    if (!db.isOpen())
        throw Error(Error::DatabaseFailure, QStringLiteral("Operation is not allowed when the object is closed."));
    QSqlQuery query(db);
    if (!query.exec(DriverSql(db, sql)))
        throw Error(Error::DatabaseFailure, query.lastError().text());
}

} // namespace zolt
