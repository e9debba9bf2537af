// SPDX-License-Identifier: MIT
#include "core/database/Database.h"

#include "core/base/Conversions.h"
#include "core/base/Logging.h"
#include "core/database/CaseBlindText.h"
#include "core/database/SqlLexer.h"

#include <zolt/Connection.h>
#include <zolt/Error.h>

#include <QCoreApplication>
#include <QRegularExpression>
#include <QSet>
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
    const auto isQuote = [](QChar q) { return q == u'\'' || q == u'"'; };
    QString out;
    out.reserve(sql.size() + 8);
    for (const SqlPiece &piece : SqlPieces(sql)) {
        QString text = sql.mid(piece.begin, piece.end - piece.begin);
        switch (piece.kind) {
        case SqlPieceKind::Quoted:
        case SqlPieceKind::Unclosed:
            // The library's quoting doubles double quotes too; the text typed had one.
            text.replace(QStringLiteral("\"\""), QStringLiteral("\""));
            if (dialect.backslashEscapes)
                text.replace(u'\\', QStringLiteral("\\\\"));
            break;
        case SqlPieceKind::Bracketed:
            if (dialect.open != u'[') {
                const QString name = text.mid(1, text.size() - 2);
                text = dialect.open + (dialect.lowerCaseNames ? name.toLower() : name) + dialect.close;
            }
            break;
        case SqlPieceKind::Date:
            if (const auto iso = isoDate(text.mid(1, text.size() - 2)); iso && !dialect.hashDates) {
                // A quoted literal right beside another would merge with it.
                const bool quoteBefore = !out.isEmpty() && isQuote(out.back());
                const bool quoteAfter = piece.end < sql.size() && isQuote(sql.at(piece.end));
                text = (quoteBefore ? QStringLiteral(" '") : QStringLiteral("'")) + *iso
                       + (quoteAfter ? QStringLiteral("' ") : QStringLiteral("'"));
            }
            break;
        default:
            break;
        }
        out += text;
    }
    return out;
}

QString unreachableText()
{
    return QCoreApplication::translate(
        "zolt::Database", "Không kết nối được với máy chủ cơ sở dữ liệu. Hãy kiểm tra mạng hoặc máy chủ rồi thử lại.");
}

QString interruptedText()
{
    return QCoreApplication::translate("zolt::Database", "Kết nối với máy chủ cơ sở dữ liệu vừa bị gián đoạn nên dữ liệu "
                                                         "có thể chưa được ghi. Hãy kiểm tra rồi ghi lại.");
}

bool reopenAllowed = true;
void (*reopenedNotice)(const QSqlDatabase &) = nullptr;

// The connections (by name) whose server went away and that could not be
// opened again yet: the library tries again at their next use. A connection
// the host closed itself is not among them and stays closed.
QSet<QString> &lostConnections()
{
    static QSet<QString> names;
    return names;
}

// True when db's server no longer answers. The driver closes a PostgreSQL
// connection itself once it notices; an ODBC one must be asked. A server
// that answers with an error (a transaction already failed, say) is there.
bool serverGone(const QSqlDatabase &db)
{
    if (!db.driver() || db.driver()->dbmsType() == QSqlDriver::SQLite)
        return false;   // a file does not go away between statements
    if (!db.isOpen())
        return true;
    QSqlQuery probe(db);
    return !probe.exec(QStringLiteral("Select 1")) && !probe.lastError().nativeErrorCode().startsWith(QLatin1String("25"));
}

// Opens db again after its server went away; true when it is open.
bool reopen(QSqlDatabase db)
{
    if (!reopenAllowed)
        return false;
    db.close();
    const bool opened = db.open();
    if (opened)
        lostConnections().remove(db.connectionName());
    else
        lostConnections().insert(db.connectionName());
    qCDebug(zoltSql).noquote() << (opened ? "opened again:" : "could not open again:") << db.connectionName();
    if (opened && reopenedNotice)
        reopenedNotice(db);
    return opened;
}

void (*serverAwayNotice)(const QString &) = nullptr;

} // namespace

QString ClosedConnectionText()
{
    return QStringLiteral("Operation is not allowed when the object is closed.");
}

void SetReopenedNotice(void (*notice)(const QSqlDatabase &db))
{
    reopenedNotice = notice;
}

void SetServerAwayNotice(void (*notice)(const QString &text))
{
    serverAwayNotice = notice;
}

void NoticeServerAway(const QString &text)
{
    if (serverAwayNotice)
        serverAwayNotice(text);
}

void ReopenLostConnections(bool on)
{
    reopenAllowed = on;
}

LibraryStatement RunLibraryStatement(QSqlDatabase db, const QString &sql, Repeat repeat, bool forwardOnly)
{
    if (!db.isOpen()) {
        if (!lostConnections().contains(db.connectionName()))
            return {QSqlQuery(db), Error::DatabaseFailure, ClosedConnectionText()};
        if (!reopen(db))
            return {QSqlQuery(db), Error::ServerUnreachable, unreachableText()};
    }
    QSqlQuery query(db);
    query.setForwardOnly(forwardOnly);
    if (RunStatement(query, sql))
        return {std::move(query), 0, QString()};
    if (!serverGone(db))
        return {QSqlQuery(db), Error::DatabaseFailure, query.lastError().text()};
    if (!reopen(db))
        return {QSqlQuery(db), Error::ServerUnreachable, unreachableText()};
    if (repeat == Repeat::Never)
        return {QSqlQuery(db), Error::ServerUnreachable, interruptedText()};
    QSqlQuery again(db);
    again.setForwardOnly(forwardOnly);
    if (RunStatement(again, sql))
        return {std::move(again), 0, QString()};
    return {QSqlQuery(db), Error::DatabaseFailure, again.lastError().text()};
}

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
    const LibraryStatement run = RunLibraryStatement(db, DriverSql(db, sql), Repeat::Never);
    if (run.number != 0)
        throw Error(run.number, run.errorText);
    return run.query.numRowsAffected();
}

bool InsertUnlessPresent(const QString &sql, const QSqlDatabase &db)
{
    const auto engine = db.driver() ? db.driver()->dbmsType() : QSqlDriver::UnknownDbms;
    if (engine != QSqlDriver::SQLite && engine != QSqlDriver::PostgreSQL)
        return Execute(sql, db) > 0;
    return Execute(sql + QStringLiteral(" ON CONFLICT DO NOTHING"), db) > 0;
}

bool RunStatement(QSqlQuery &query, const QString &sql)
{
    qCDebug(zoltSql).noquote() << sql;
    const bool ran = query.exec(sql);
    if (!ran)
        qCDebug(zoltSql).noquote() << "failed:" << query.lastError().text();
    return ran;
}

void InTransaction(QSqlDatabase db, const std::function<void()> &work)
{
    const bool sqlite = db.driver()->dbmsType() == QSqlDriver::SQLite;
    const bool transaction = db.driver()->hasFeature(QSqlDriver::Transactions)
                             && (sqlite ? QSqlQuery(db).exec(QStringLiteral("BEGIN IMMEDIATE")) : db.transaction());
    try {
        work();
    } catch (...) {
        if (transaction)
            db.rollback();
        throw;
    }
    if (transaction && !db.commit())
        throw Error(Error::DatabaseFailure, db.lastError().text());
}

} // namespace zolt
