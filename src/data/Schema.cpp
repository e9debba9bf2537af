// SPDX-License-Identifier: MIT
#include <zolt/Schema.h>

#include "data/Conversions.h"
#include "data/Database.h"
#include "data/Options.h"
#include "data/Recordset.h"
#include "data/SqlFunc.h"
#include "logon/MdlLogon.h"

#include <zolt/Error.h>

#include <QFile>
#include <QStringList>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>

namespace zolt {

namespace {

// The script that creates the tables of version 1 on the engine, as shipped.
QString scriptFor(const QSqlDatabase &db)
{
    switch (db.driver() ? db.driver()->dbmsType() : QSqlDriver::UnknownDbms) {
    case QSqlDriver::SQLite: return QStringLiteral(":/zolt/schema/zolt-sqlite.sql");
    case QSqlDriver::PostgreSQL: return QStringLiteral(":/zolt/schema/zolt-postgresql.sql");
    default: throw Error(Error::DatabaseFailure, QStringLiteral("ZOLT has no tables for the engine of ") + db.driverName());
    }
}

// The statements of a script whose every statement ends its line with ";".
QStringList statementsOf(const QString &script)
{
    QStringList statements;
    QString current;
    for (const QString &line : script.split(u'\n')) {
        const QString trimmed = line.trimmed();
        if (trimmed.startsWith(QLatin1String("--")) || trimmed.isEmpty())
            continue;
        current += line + u'\n';
        if (trimmed.endsWith(u';')) {
            statements << current.trimmed().chopped(1);
            current.clear();
        }
    }
    return statements;
}

// Runs a statement written in the engine's own dialect.
void runNative(const QSqlDatabase &db, const QString &sql)
{
    QSqlQuery query(db);
    if (!RunStatement(query, sql))
        throw Error(Error::DatabaseFailure, query.lastError().text());
}

// Each step brings the tables from the version before it to its own.
void toVersion1(const QSqlDatabase &db)
{
    QFile script(scriptFor(db));
    script.open(QIODevice::ReadOnly);
    for (const QString &statement : statementsOf(QString::fromUtf8(script.readAll())))
        runNative(db, statement);
}

// The strong password store's column (Config/PasswordStore "argon2id").
void toVersion2(const QSqlDatabase &)
{
    Execute(QStringLiteral("ALTER TABLE [User] ADD COLUMN PasswordHash TEXT"));
}

// The count of refused logons per name and the record of logons.
void toVersion3(const QSqlDatabase &db)
{
    const QString text = db.driver()->dbmsType() == QSqlDriver::PostgreSQL ? QStringLiteral("CITEXT")
                                                                          : QStringLiteral("TEXT COLLATE NOCASE");
    Execute(QStringLiteral("CREATE TABLE LogonFailures ([Name] %1 PRIMARY KEY, Refusals INTEGER, WaitUntil BIGINT)").arg(text));
    Execute(QStringLiteral("CREATE TABLE LogonLog (At %1, [Name] %1, Desk %1, Result %1)").arg(text));
    Execute(QStringLiteral("CREATE INDEX LogonLogAt ON LogonLog (At)"));
}

// The user list's members of a group are read by IdGroup.
void toVersion4(const QSqlDatabase &)
{
    Execute(QStringLiteral("CREATE INDEX UserGroup ON [User] (IdGroup)"));
}

using Step = void (*)(const QSqlDatabase &);
const Step Steps[SchemaVersion] = {toVersion1, toVersion2, toVersion3, toVersion4};

// What must be unique so that several desks cannot add the same row twice:
// user names, compared as the logon compares them (the columns' case-blind
// text), and one row per setting. Groups may share names.
struct UniqueKey {
    const char *index, *table, *columns, *what;
};
const UniqueKey UniqueKeys[] = {
    {"UserName", "[User]", "[Name]", "Người sử dụng trùng tên"},
    {"OptionKey", "Options", "[Section],KeyName", "Thiết lập trùng khoá"},
};

// Makes each unique key that is missing; a key that rows already break is not
// made, and those rows are reported (never deleted): a later call makes it
// once they are put right.
QStringList makeUniqueKeys()
{
    QStringList report;
    for (const UniqueKey &key : UniqueKeys) {
        const QString columns = QString::fromLatin1(key.columns);
        Recordset rs;
        if (const qint32 n = rs.Open(QStringLiteral("Select %1, Count(*) From %2 Group By %1 Having Count(*) > 1")
                                         .arg(columns, QLatin1String(key.table)));
            n != 0)
            throw Error(n, rs.LastErrorText());
        if (rs.Eof()) {
            Execute(QStringLiteral("CREATE UNIQUE INDEX IF NOT EXISTS %1 ON %2 (%3)")
                        .arg(QLatin1String(key.index), QLatin1String(key.table), columns));
            continue;
        }
        for (; !rs.Eof(); rs.MoveNext()) {
            QStringList values;
            for (int column = 0; column + 1 < rs.FieldCount(); ++column)
                values << NullToStr(rs.Value(column));
            report << QStringLiteral("%1: %2 (%3 dòng)")
                          .arg(QString::fromUtf8(key.what), values.join(QStringLiteral(" / ")), rs.Value(rs.FieldCount() - 1).toString());
        }
    }
    return report;
}

bool isSQLite(const QSqlDatabase &db)
{
    return db.driver()->dbmsType() == QSqlDriver::SQLite;
}

// Runs work in one transaction where the engine has them; a failure rolls back.
// SQLite takes the file's write lock at the start, so that two desks setting
// up at once wait for each other instead of failing half-way.
template <typename Work>
void inTransaction(QSqlDatabase db, Work work)
{
    const bool transaction = db.driver()->hasFeature(QSqlDriver::Transactions)
                             && (isSQLite(db) ? QSqlQuery(db).exec(QStringLiteral("BEGIN IMMEDIATE")) : db.transaction());
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

bool exists(const QString &sql)
{
    Recordset rs;
    if (const qint32 n = rs.Open(sql); n != 0)
        throw Error(n, rs.LastErrorText());
    return !rs.Eof();
}

// The comparisons the search wizard offers for each value type.
struct OperatorRow {
    qint32 type;
    const char *name, *words;
};
const OperatorRow Operators[] = {
    {10, "LIKE", "Bắt đầu bằng"}, {10, "=", "Bằng"}, {10, "<>", "Khác"}, {10, "IN", "Thuộc danh sách"},
    {11, "=", "Bằng"}, {11, "LIKE", "Bắt đầu bằng"}, {11, "IN", "Thuộc danh sách"},
    {1, "=", "Bằng"}, {1, "IN", "Thuộc danh sách"},
    {3, "=", "Bằng"}, {3, ">", "Lớn hơn"}, {3, ">=", "Từ"}, {3, "<", "Nhỏ hơn"}, {3, "<=", "Đến"}, {3, "<>", "Khác"},
    {13, "=", "Bằng"}, {13, ">", "Lớn hơn"}, {13, "<", "Nhỏ hơn"},
    {8, "=", "Đúng ngày"}, {8, ">=", "Từ ngày"}, {8, "<=", "Đến ngày"}, {8, ">", "Sau ngày"}, {8, "<", "Trước ngày"},
};

void seedOperators()
{
    Recordset codes;
    codes.Open(QStringLiteral("Select Max(Code) From [Operator]"));
    qint32 code = codes.Eof() ? 0 : codes.Value(0).toInt();
    qint32 typeSeeded = -1;
    for (const OperatorRow &row : Operators) {
        if (row.type != typeSeeded
            && exists(QStringLiteral("Select * From [Operator] Where [Type]=%1").arg(row.type)))
            continue;
        typeSeeded = row.type;
        Execute(QStringLiteral("Insert Into [Operator](Code,[Name],Des,[Type]) Values(%1,%2,%3,%4)")
                    .arg(++code)
                    .arg(SqlValue(QLatin1String(row.name), QStringLiteral("S")),
                         SqlValue(QString::fromUtf8(row.words), QStringLiteral("S")))
                    .arg(row.type));
    }
}

void seedGroup(qint32 code, const QString &name, const QString &description)
{
    if (!exists(QStringLiteral("Select * From [Groups] Where Code=%1").arg(code)))
        Execute(QStringLiteral("Insert Into [Groups](Code,[Name],Des) Values(%1,%2,%3)")
                    .arg(code)
                    .arg(SqlValue(name, QStringLiteral("S")), SqlValue(description, QStringLiteral("S"))));
}

} // namespace

qint32 TablesVersion(const QSqlDatabase &db)
{
    return ReadOption(QStringLiteral("Config"), QStringLiteral("SchemaVersion"), QStringLiteral("0"), db).toInt();
}

QStringList CreateTables(const QSqlDatabase &db)
{
    UseConnection(db);
    if (!db.isOpen())
        throw Error(Error::DatabaseFailure, ClosedConnectionText());
    scriptFor(db);   // an engine without tables fails before anything runs
    // Several desks on one file read while another writes (a file on one
    // machine; see the guide). The mode stays with the file: a desk that has
    // it open in a transaction only delays it to a later call.
    if (isSQLite(db))
        QSqlQuery(db).exec(QStringLiteral("PRAGMA journal_mode=WAL"));
    // Read first: on PostgreSQL a failed read (no Options yet) would end the transaction.
    const qint32 from = TablesVersion(db);
    // A locked server's tables are its owner's to make (zolt-server lock does).
    if (ServerLocked()) {
        if (from < SchemaVersion)
            throw Error(Error::DatabaseFailure, QStringLiteral("Các bảng của máy chủ đã khoá cần nâng cấp: người quản lý máy "
                                                               "chủ chạy lại zolt-server lock."));
        return {};
    }
    QStringList report;
    inTransaction(db, [&] {
        for (qint32 version = from; version < SchemaVersion; ++version)
            Steps[version](db);
        if (from < SchemaVersion)
            SaveOption(QStringLiteral("Config"), QStringLiteral("SchemaVersion"), QString::number(SchemaVersion),
                       QStringLiteral("Phiên bản các bảng của ZOLT"), 0);
        report = makeUniqueKeys();
    });
    return report;
}

void SeedTables(const QSqlDatabase &db, const QString &adminName, const QString &adminPassword)
{
    UseConnection(db);
    if (BreaksQuotedLiteral(adminName))
        throw Error(Error::InvalidArgument, QStringLiteral("A user's name holds no apostrophe"));
    if (ServerLocked())
        return;   // a locked server was seeded before its owner locked it
    inTransaction(db, [&] {
        seedOperators();
        seedGroup(1, QStringLiteral("Quản trị hệ thống"), QStringLiteral("Mọi quyền"));
        seedGroup(8, QStringLiteral("Người sử dụng"), QStringLiteral("Nhóm của người sử dụng mới"));
        if (!exists(QStringLiteral("Select * From [User] Where [Name]=") + SqlValue(adminName, QStringLiteral("S"))))
            Execute(QStringLiteral("Insert Into [User]([Name],[Dec],IdGroup,[Password]) Values(%1,%2,1,%3)")
                        .arg(SqlValue(adminName, QStringLiteral("S")), SqlValue(QStringLiteral("Quản trị viên"), QStringLiteral("S")),
                             DoubleToText(EncodePassword(adminPassword))));
    });
}

} // namespace zolt
