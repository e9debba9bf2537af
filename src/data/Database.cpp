// SPDX-License-Identifier: MIT
#include "data/Database.h"

#include "data/CaseBlindText.h"
#include "data/Conversions.h"
#include "data/Logging.h"

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

// How an engine reads what the library writes in the original engine's dialect.
struct Dialect {
    bool hashDates = false;           // reads #m/d/y# literals itself
    QChar open = u'[', close = u']';  // quotes a [bracketed] name so
    bool lowerCaseNames = false;      // quoted names in lower case, as it folds plain ones
    bool backslashEscapes = false;    // reads backslash escapes inside quoted text
};

// PostgreSQL reads backslash escapes in quoted text only with this setting off.
bool standardConformingStrings(const QSqlDatabase &db)
{
    QSqlQuery query(db);
    return !RunStatement(query, QStringLiteral("SHOW standard_conforming_strings")) || !query.next()
        || query.value(0).toString() != QLatin1String("off");
}

Dialect dialectOf(const QSqlDatabase &db, bool statementHasBackslash)
{
    switch (db.driver() ? db.driver()->dbmsType() : QSqlDriver::UnknownDbms) {
    case QSqlDriver::PostgreSQL:
        return {false, u'"', u'"', true, statementHasBackslash && !standardConformingStrings(db)};
    case QSqlDriver::MySqlServer:
        return {false, u'`', u'`', false, true};
    case QSqlDriver::UnknownDbms:
        // An ODBC data source of no known server may well be the original engine.
        return {db.driverName() == QLatin1String("QODBC")};
    default:
        return {};   // SQLite and SQL Server read [names]; dates go as ISO text
    }
}

// The statement in the engine's dialect: quoted text copied (inside
// apostrophes a doubled double quote made one, backslashes doubled where the
// engine reads escapes), [names] quoted as the engine quotes
// names, #m/d/y# literals as ISO text where the engine lacks them.
QString adapt(const QString &sql, const Dialect &dialect)
{
    QString out;
    out.reserve(sql.size() + 8);
    qsizetype i = 0;
    while (i < sql.size()) {
        const QChar c = sql.at(i);
        if (c == u'\'' || c == u'"') {
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
            QString quoted = sql.mid(i, end - i + 1);
            if (c == u'\'') {
                // The library's quoting doubles double quotes too; the text
                // typed had one.
                quoted.replace(QStringLiteral("\"\""), QStringLiteral("\""));
                if (dialect.backslashEscapes)
                    quoted.replace(u'\\', QStringLiteral("\\\\"));
            }
            out += quoted;
            i = end + 1;
            continue;
        }
        if (c == u'[' && dialect.open != u'[') {
            const qsizetype close = sql.indexOf(u']', i + 1);
            if (close > 0) {
                const QString name = sql.mid(i + 1, close - i - 1);
                out += dialect.open + (dialect.lowerCaseNames ? name.toLower() : name) + dialect.close;
                i = close + 1;
                continue;
            }
        }
        if (c == u'#' && !dialect.hashDates) {
            const qsizetype close = sql.indexOf(u'#', i + 1);
            if (close > 0) {
                if (const auto iso = isoDate(sql.mid(i + 1, close - i - 1))) {
                    // A quoted literal right beside another would merge with it.
                    const auto isQuote = [](QChar q) { return q == u'\'' || q == u'"'; };
                    if (!out.isEmpty() && isQuote(out.back()))
                        out += u' ';
                    out += u'\'' + *iso + u'\'';
                    if (close + 1 < sql.size() && isQuote(sql.at(close + 1)))
                        out += u' ';
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

} // namespace

QSqlDatabase CurrentConnection()
{
    return QSqlDatabase::database(currentConnectionName(), false);
}

void SetCurrentConnection(const QSqlDatabase &connection)
{
    currentConnectionName() = connection.connectionName();
    RegisterCaseBlindText(connection);
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
    return adapt(sql, Dialect());
}

QString DriverSql(const QSqlDatabase &db, const QString &sql)
{
    return adapt(sql, dialectOf(db, sql.contains(u'\\')));
}

bool BreaksQuotedLiteral(const QString &text)
{
    return text.contains(u'\'') || text.contains(QChar(0));
}

qint64 Execute(const QString &sql, const QSqlDatabase &db)
{
    if (!db.isOpen())
        throw Error(Error::DatabaseFailure, QStringLiteral("Operation is not allowed when the object is closed."));
    QSqlQuery query(db);
    if (!RunStatement(query, DriverSql(db, sql)))
        throw Error(Error::DatabaseFailure, query.lastError().text());
    return query.numRowsAffected();
}

bool RunStatement(QSqlQuery &query, const QString &sql)
{
    qCDebug(zoltSql).noquote() << sql;
    const bool ran = query.exec(sql);
    if (!ran)
        qCDebug(zoltSql).noquote() << "failed:" << query.lastError().text();
    return ran;
}

} // namespace zolt
