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
    bool lowerCaseTables = false;     // tells table names apart by case: they go quoted, in lower case
};

// PostgreSQL reads backslash escapes in quoted text only with this setting off.
bool standardConformingStrings(const QSqlDatabase &db)
{
    QSqlQuery query(db);
    return !RunStatement(query, QStringLiteral("SHOW standard_conforming_strings")) || !query.next()
        || query.value(0).toString() != QLatin1String("off");
}

// MySQL and MariaDB read backslash escapes in quoted text unless the
// session's sql_mode holds NO_BACKSLASH_ESCAPES.
bool noBackslashEscapes(const QSqlDatabase &db)
{
    QSqlQuery query(db);
    return RunStatement(query, QStringLiteral("SELECT @@SESSION.sql_mode")) && query.next()
        && query.value(0).toString().contains(QLatin1String("NO_BACKSLASH_ESCAPES"));
}

Dialect dialectOf(const QSqlDatabase &db, bool statementHasBackslash)
{
    switch (db.driver() ? db.driver()->dbmsType() : QSqlDriver::UnknownDbms) {
    case QSqlDriver::PostgreSQL:
        return {false, u'"', u'"', true, statementHasBackslash && !standardConformingStrings(db)};
    case QSqlDriver::MySqlServer:
        return {false, u'`', u'`', true, statementHasBackslash && !noBackslashEscapes(db), true};
    case QSqlDriver::UnknownDbms:
        // An ODBC data source of no known server may well be the original engine.
        return {db.driverName() == QLatin1String("QODBC")};
    default:
        return {};   // SQLite and SQL Server read [names]; dates go as ISO text
    }
}

// A plain name as an engine that tells tables apart by case reads it: the
// name of a table (the one after FROM, JOIN, INTO, UPDATE, TABLE or VIEW) quoted
// in lower case, as the library's tables are made there; the column name Dec,
// which such an engine reserves, quoted. tableNext says whether a table's
// name comes next.
QString engineName(const QString &name, const Dialect &dialect, bool &tableNext)
{
    static const QStringList introducers = {QStringLiteral("FROM"), QStringLiteral("JOIN"), QStringLiteral("INTO"),
                                            QStringLiteral("UPDATE"), QStringLiteral("TABLE"), QStringLiteral("VIEW")};
    static const QStringList skipped = {QStringLiteral("IF"), QStringLiteral("NOT"), QStringLiteral("EXISTS"),
                                       QStringLiteral("ON")};   // CREATE TABLE IF NOT EXISTS t, BEFORE UPDATE ON t
    const QString upper = name.toUpper();
    if (introducers.contains(upper)) {
        tableNext = true;
        return name;
    }
    if (tableNext && !skipped.contains(upper)) {
        tableNext = false;
        return dialect.open + name.toLower() + dialect.close;
    }
    return upper == QLatin1String("DEC") ? dialect.open + name + dialect.close : name;
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
    bool tableNext = false;   // the next name is a table's
    for (const SqlPiece &piece : SqlPieces(sql)) {
        QString text = sql.mid(piece.begin, piece.end - piece.begin);
        if (dialect.lowerCaseTables && piece.kind == SqlPieceKind::Name)
            text = engineName(text, dialect, tableNext);
        else if (piece.kind != SqlPieceKind::Space)
            tableNext = false;   // a bracketed table, or no table: "FROM (SELECT …"
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

// MySQL and MariaDB tell an UPDATE's rows changed, not matched, unless the
// connection was opened with CLIENT_FOUND_ROWS: a row saved again as it was
// would read as changed elsewhere to a compare and set.
bool countsChangedRowsOnly(const QSqlDatabase &db)
{
    return db.driver() && db.driver()->dbmsType() == QSqlDriver::MySqlServer
        && !db.connectOptions().contains(QLatin1String("CLIENT_FOUND_ROWS"));
}

// The rows an UPDATE (written as the library writes its SQL) matches, counted
// with its own WHERE: what an engine that counts changed rows only would
// have told. 0 for any other statement.
qint64 matchedRows(const QString &sql, const QSqlDatabase &db)
{
    const QList<SqlPiece> pieces = SqlPieces(sql);
    const auto word = [&](const SqlPiece &piece, QLatin1String name) {
        return piece.kind == SqlPieceKind::Name && QStringView(sql).mid(piece.begin, piece.end - piece.begin).compare(name, Qt::CaseInsensitive) == 0;
    };
    qsizetype i = 0;
    while (i < pieces.size() && pieces[i].kind == SqlPieceKind::Space)
        ++i;
    if (i + 2 >= pieces.size() || !word(pieces[i], QLatin1String("UPDATE")))
        return 0;
    const SqlPiece table = pieces[i + 2];
    QString where = QStringLiteral("1=1");
    int depth = 0;
    for (qsizetype k = i + 3; k < pieces.size(); ++k) {
        const QChar c = sql.at(pieces[k].begin);
        depth += pieces[k].kind == SqlPieceKind::Symbol ? (c == u'(') - (c == u')') : 0;
        if (depth == 0 && word(pieces[k], QLatin1String("WHERE"))) {
            where = sql.mid(pieces[k].end);
            break;
        }
    }
    LibraryStatement count = RunLibraryStatement(
        db, DriverSql(db, QStringLiteral("SELECT COUNT(*) FROM ") + sql.mid(table.begin, table.end - table.begin) + QStringLiteral(" WHERE ") + where),
        Repeat::Read);
    return count.number == 0 && count.query.next() ? count.query.value(0).toLongLong() : 0;
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
            return {QSqlQuery(db), Error::DatabaseFailure, ClosedConnectionText(), QString()};
        if (!reopen(db))
            return {QSqlQuery(db), Error::ServerUnreachable, unreachableText(), QString()};
    }
    QSqlQuery query(db);
    query.setForwardOnly(forwardOnly);
    if (RunStatement(query, sql))
        return {std::move(query), 0, QString(), QString()};
    if (!serverGone(db))
        return {QSqlQuery(db), Error::DatabaseFailure, query.lastError().text(), query.lastError().nativeErrorCode()};
    if (!reopen(db))
        return {QSqlQuery(db), Error::ServerUnreachable, unreachableText(), QString()};
    if (repeat == Repeat::Never)
        return {QSqlQuery(db), Error::ServerUnreachable, interruptedText(), QString()};
    QSqlQuery again(db);
    again.setForwardOnly(forwardOnly);
    if (RunStatement(again, sql))
        return {std::move(again), 0, QString(), QString()};
    return {QSqlQuery(db), Error::DatabaseFailure, again.lastError().text(), again.lastError().nativeErrorCode()};
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
    const qint64 rows = run.query.numRowsAffected();
    if (rows != 0 || !countsChangedRowsOnly(db))
        return rows;
    return matchedRows(sql, db);
}

bool InsertUnlessPresent(const QString &sql, const QSqlDatabase &db)
{
    switch (db.driver() ? db.driver()->dbmsType() : QSqlDriver::UnknownDbms) {
    case QSqlDriver::SQLite:
    case QSqlDriver::PostgreSQL:
        return Execute(sql + QStringLiteral(" ON CONFLICT DO NOTHING"), db) > 0;
    case QSqlDriver::MySqlServer: {
        // Its INSERT IGNORE would let other faults pass too (a text cut short):
        // only a duplicate key (1062) means the row is there.
        const LibraryStatement run = RunLibraryStatement(db, DriverSql(db, sql), Repeat::Never);
        if (run.number != 0 && run.nativeErrorCode != QLatin1String("1062"))
            throw Error(run.number, run.errorText);
        return run.number == 0 && run.query.numRowsAffected() > 0;
    }
    default:
        return Execute(sql, db) > 0;
    }
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
