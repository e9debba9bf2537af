// SPDX-License-Identifier: MIT
#include "ServerLock.h"

#include <zolt/Error.h>
#include <zolt/Schema.h>

#include <QFile>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlField>
#include <QSqlQuery>

#include <functional>

namespace zolt::server {

namespace {

const QString LibraryTables =
    QStringLiteral("'user', 'groups', 'menu', 'submenu', 'options', 'lstfld', 'operator', 'logonfailures', 'logonlog'");

QSqlQuery run(const QSqlDatabase &db, const QString &sql)
{
    QSqlQuery query(db);
    if (!query.exec(sql))
        throw Error(Error::DatabaseFailure, query.lastError().text());
    return query;
}

QString literal(const QSqlDatabase &db, const QString &text)
{
    QSqlField field(QString(), QMetaType(QMetaType::QString));
    field.setValue(text);
    return db.driver()->formatValue(field);
}

// The script of the resource, its placeholders filled, run statement by statement.
void runScript(const QSqlDatabase &db, const QString &resource, const QString &deskRole)
{
    QSqlQuery schema = run(db, QStringLiteral("SELECT current_schema(), (SELECT n.nspname FROM pg_extension e JOIN "
                                              "pg_namespace n ON n.oid = e.extnamespace WHERE e.extname = 'citext')"));
    schema.next();
    const auto identifier = [&](const QString &name) { return db.driver()->escapeIdentifier(name, QSqlDriver::TableName); };
    QFile file(resource);
    file.open(QIODevice::ReadOnly);
    const QString script = QString::fromUtf8(file.readAll())
                               .replace(QStringLiteral("@schema@"), identifier(schema.value(0).toString()))
                               .replace(QStringLiteral("@extensions@"), identifier(schema.value(1).toString()))
                               .replace(QStringLiteral("@desk_literal@"), literal(db, deskRole))
                               .replace(QStringLiteral("@desk@"), identifier(deskRole));
    for (const QString &statement : ScriptStatements(script))
        run(db, statement);
}

// The library's tables and functions belong to this role: it takes those it
// may take. (A function another role could replace would run with this
// role's rights when the lock's functions write the tables.)
void ownLibrary(const QSqlDatabase &db)
{
    QSqlQuery others = run(db, QStringLiteral("SELECT 'TABLE', format('%I', tablename) FROM pg_tables WHERE schemaname = "
                                              "current_schema() AND tablename IN (%1) AND tableowner <> current_user "
                                              "UNION ALL SELECT 'FUNCTION', p.oid::regprocedure::text FROM pg_proc p JOIN "
                                              "pg_namespace n ON n.oid = p.pronamespace WHERE n.nspname = current_schema() "
                                              "AND p.proname LIKE 'zolt\\_%' AND pg_get_userbyid(p.proowner) <> current_user")
                                   .arg(LibraryTables));
    while (others.next()) {
        const QString object = others.value(0).toString() + u' ' + others.value(1).toString();
        try {
            run(db, QStringLiteral("ALTER %1 OWNER TO CURRENT_USER").arg(object));
        } catch (const Error &e) {
            throw Error(e.number(), QStringLiteral("The %1 belongs to another role, which this one cannot take it from (as "
                                                   "the server's superuser, REASSIGN OWNED BY that role TO this one): %2")
                                        .arg(object, e.description()));
        }
    }
}

void inTransaction(QSqlDatabase db, const std::function<void()> &work)
{
    if (!db.transaction())
        throw Error(Error::DatabaseFailure, db.lastError().text());
    try {
        work();
    } catch (...) {
        db.rollback();
        throw;
    }
    if (!db.commit())
        throw Error(Error::DatabaseFailure, db.lastError().text());
}

} // namespace

QStringList ScriptStatements(const QString &script)
{
    QStringList statements;
    QString current;
    bool inBody = false;
    for (const QString &line : script.split(u'\n')) {
        if (!inBody && (line.trimmed().startsWith(QLatin1String("--")) || line.trimmed().isEmpty()))
            continue;
        current += line + u'\n';
        inBody ^= line.count(QLatin1String("$$")) % 2 == 1;
        if (!inBody && line.trimmed().endsWith(u';')) {
            statements << current.trimmed().chopped(1);
            current.clear();
        }
    }
    return statements;
}

void Lock(const QSqlDatabase &db, const QString &deskRole)
{
    runScript(db, QStringLiteral(":/zolt-server/lock-checks-postgresql.sql"), deskRole);
    if (const QStringList duplicates = CreateTables(db); !duplicates.isEmpty())
        throw Error(Error::DatabaseFailure,
                    QStringLiteral("Rows break the unique keys the lock needs; put them right first:\n") + duplicates.join(u'\n'));
    inTransaction(db, [&] {
        run(db, QStringLiteral("DO $$ BEGIN IF NOT EXISTS (SELECT 1 FROM pg_roles WHERE rolname = %1) THEN "
                               "CREATE ROLE %2 NOLOGIN; END IF; END $$")
                    .arg(literal(db, deskRole), db.driver()->escapeIdentifier(deskRole, QSqlDriver::TableName)));
        ownLibrary(db);
        runScript(db, QStringLiteral(":/zolt-server/lock-postgresql.sql"), deskRole);
    });
}

void Unlock(const QSqlDatabase &db, const QString &deskRole)
{
    inTransaction(db, [&] { runScript(db, QStringLiteral(":/zolt-server/unlock-postgresql.sql"), deskRole); });
}

} // namespace zolt::server
