// SPDX-License-Identifier: MIT
#include "ServerLock.h"

#include <zolt/Error.h>
#include <zolt/Schema.h>

#include <QFile>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlField>
#include <QSqlQuery>

namespace zolt::server {

namespace {

const QString LibraryTables =
    QStringLiteral("'user', 'groups', 'menu', 'submenu', 'options', 'lstfld', 'operator', 'logonfailures', 'logonlog'");

bool run(const QSqlDatabase &db, const QString &sql, QString *error)
{
    QSqlQuery query(db);
    if (query.exec(sql))
        return true;
    *error = query.lastError().text();
    return false;
}

QString literal(const QSqlDatabase &db, const QString &text)
{
    QSqlField field(QString(), QMetaType(QMetaType::QString));
    field.setValue(text);
    return db.driver()->formatValue(field);
}

// The script of the resource, its placeholders filled, run statement by statement.
bool runScript(const QSqlDatabase &db, const QString &resource, const QString &deskRole, QString *error)
{
    QSqlQuery schema(QStringLiteral("SELECT current_schema(), (SELECT n.nspname FROM pg_extension e JOIN pg_namespace n "
                                    "ON n.oid = e.extnamespace WHERE e.extname = 'citext')"),
                     db);
    if (!schema.next()) {
        *error = schema.lastError().text();
        return false;
    }
    const auto identifier = [&](const QString &name) { return db.driver()->escapeIdentifier(name, QSqlDriver::TableName); };
    QFile file(resource);
    file.open(QIODevice::ReadOnly);
    const QString script = QString::fromUtf8(file.readAll())
                               .replace(QStringLiteral("@schema@"), identifier(schema.value(0).toString()))
                               .replace(QStringLiteral("@extensions@"), identifier(schema.value(1).toString()))
                               .replace(QStringLiteral("@desk_literal@"), literal(db, deskRole))
                               .replace(QStringLiteral("@desk@"), identifier(deskRole));
    for (const QString &statement : ScriptStatements(script)) {
        if (!run(db, statement, error))
            return false;
    }
    return true;
}

// The library's tables and functions belong to this role: it takes those it
// may take. (A function another role could replace would run with this
// role's rights when the lock's functions write the tables.)
bool ownLibrary(const QSqlDatabase &db, QString *error)
{
    QSqlQuery others(db);
    others.exec(QStringLiteral("SELECT 'TABLE', format('%I', tablename) FROM pg_tables WHERE schemaname = current_schema() "
                               "AND tablename IN (%1) AND tableowner <> current_user "
                               "UNION ALL SELECT 'FUNCTION', p.oid::regprocedure::text FROM pg_proc p JOIN pg_namespace n ON n.oid = p.pronamespace "
                               "WHERE n.nspname = current_schema() AND p.proname LIKE 'zolt\\_%' "
                               "AND pg_get_userbyid(p.proowner) <> current_user")
                    .arg(LibraryTables));
    while (others.next()) {
        const QString object = others.value(0).toString() + u' ' + others.value(1).toString();
        if (!run(db, QStringLiteral("ALTER %1 OWNER TO CURRENT_USER").arg(object), error)) {
            *error = QStringLiteral("The %1 belongs to another role, which this one cannot take it from (as the server's "
                                    "superuser, REASSIGN OWNED BY that role TO this one): %2").arg(object, *error);
            return false;
        }
    }
    return true;
}

bool inTransaction(QSqlDatabase db, const std::function<bool()> &work, QString *error)
{
    if (!db.transaction()) {
        *error = db.lastError().text();
        return false;
    }
    if (!work()) {
        db.rollback();
        return false;
    }
    if (!db.commit()) {
        *error = db.lastError().text();
        return false;
    }
    return true;
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

bool Lock(const QSqlDatabase &db, const QString &deskRole, QString *error)
{
    if (!runScript(db, QStringLiteral(":/zolt-server/lock-checks-postgresql.sql"), deskRole, error))
        return false;
    try {
        if (const QStringList duplicates = CreateTables(db); !duplicates.isEmpty()) {
            *error = QStringLiteral("Rows break the unique keys the lock needs; put them right first:\n") + duplicates.join(u'\n');
            return false;
        }
    } catch (const Error &e) {
        *error = e.description();
        return false;
    }
    return inTransaction(db, [&] {
        return run(db,
                   QStringLiteral("DO $$ BEGIN IF NOT EXISTS (SELECT 1 FROM pg_roles WHERE rolname = %1) THEN "
                                  "CREATE ROLE %2 NOLOGIN; END IF; END $$")
                       .arg(literal(db, deskRole), db.driver()->escapeIdentifier(deskRole, QSqlDriver::TableName)),
                   error)
               && ownLibrary(db, error) && runScript(db, QStringLiteral(":/zolt-server/lock-postgresql.sql"), deskRole, error);
    }, error);
}

bool Unlock(const QSqlDatabase &db, const QString &deskRole, QString *error)
{
    return inTransaction(db, [&] { return runScript(db, QStringLiteral(":/zolt-server/unlock-postgresql.sql"), deskRole, error); },
                         error);
}

} // namespace zolt::server
