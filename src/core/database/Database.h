// SPDX-License-Identifier: MIT
#pragma once

// The host's connection, kept library-wide, and the one path by which
// statements reach it.

#include <zolt/DriverSql.h>

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>

#include <functional>

namespace zolt {

// The connection every query of the library runs on. Public entry points
// replace it with the host's; the library never opens or closes it. Only the
// connection's name is kept, never a copy, so that the host can remove its
// connection when it is done.
QSqlDatabase CurrentConnection();
// Also makes an SQLite connection compare text without regard to case.
void SetCurrentConnection(const QSqlDatabase &connection);
// What every public entry point does with the connection it is handed: a
// QSqlDatabase without a driver raises zolt::Error 13 before anything shows;
// otherwise it becomes CurrentConnection, described in CurrentConnectionString.
void UseConnection(const QSqlDatabase &connection);
// The description of CurrentConnection, where an entry point keeps it.
extern QString CurrentConnectionString;
// A connection described as "Driver=...;Database=...", with its server and
// user when it has them; never its password.
QString ConnectionString(const QSqlDatabase &db);

// Rewrites every #m/d/y# (optionally with a time) outside quoted text into
// 'yyyy-mm-dd' (or 'yyyy-mm-dd hh:mm:ss'); month first, as the original engine
// reads such literals. A literal that is no date is left as it stands.
QString RewriteDateLiterals(const QString &sql);

// True when text, put unescaped between apostrophes, would end the literal
// early: it holds an apostrophe or a NUL. Such text never reaches the database.
bool BreaksQuotedLiteral(const QString &text);

// Runs a statement already in the engine's dialect on the query's connection;
// the one place where the library's statements reach a driver (and the
// category zolt.sql hears of them).
bool RunStatement(QSqlQuery &query, const QString &sql);

// What a statement on a connection that is not open is told, as the original
// runtime said it.
QString ClosedConnectionText();

// Runs an INSERT, UPDATE or DELETE on db and returns the number of rows it
// touched; a failure raises zolt::Error with the database failure number and
// the driver's message, or Error::ServerUnreachable (never repeated: the
// clerk is told and may try again) when the server went away.
qint64 Execute(const QString &sql, const QSqlDatabase &db = CurrentConnection());

// Runs an INSERT that adds nothing where a row with the same unique key
// exists (another desk's, say), on engines that can say so in the statement;
// true when the row was added. Elsewhere the duplicate's error is raised.
bool InsertUnlessPresent(const QString &sql, const QSqlDatabase &db = CurrentConnection());

// A statement of the library run on db: a read is run once more on a
// connection opened again after its server went away. The failure number
// (0 when it ran, Error::DatabaseFailure or Error::ServerUnreachable) and the
// text to show for it.
struct LibraryStatement {
    QSqlQuery query;
    qint32 number = 0;
    QString errorText;
    QString nativeErrorCode;   // the engine's own code of the failure
};
enum class Repeat { Read, Never };
LibraryStatement RunLibraryStatement(QSqlDatabase db, const QString &sql, Repeat repeat, bool forwardOnly = false);

// What is done on a connection opened again after its server went away,
// before the statement that found it gone runs again (the logon of a locked
// server's session, which went with the old connection).
void SetReopenedNotice(void (*notice)(const QSqlDatabase &db));

// How a dialog's read tells the clerk that the server is away: the widgets
// part installs a message box; without it nothing is shown.
void SetServerAwayNotice(void (*notice)(const QString &text));
void NoticeServerAway(const QString &text);

// Runs work in one transaction where the engine has them; a failure (a
// zolt::Error or any other exception) rolls it back and goes on to the caller.
// SQLite takes the file's write lock at the start, so that two desks setting
// up at once wait for each other instead of failing half-way.
void InTransaction(QSqlDatabase db, const std::function<void()> &work);

} // namespace zolt
