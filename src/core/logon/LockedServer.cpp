// SPDX-License-Identifier: MIT
#include "core/logon/LockedServer.h"

#include "core/base/Conversions.h"
#include "core/base/Logging.h"
#include "core/database/Database.h"
#include "core/database/Options.h"
#include "core/database/SqlFunc.h"
#include "core/logon/MdlLogon.h"

#include <zolt/Error.h>

#include <QHash>
#include <QRegularExpression>

namespace zolt {

namespace {

QString text(const QString &value)
{
    return SqlValue(value, QStringLiteral("S"));
}

// A value the dialog read, Null where the row held none (the server compares both).
QString readText(const QString &value)
{
    return value.isNull() ? QStringLiteral("Null") : text(value);
}

// Arrays as literals: the library's brackets name columns, so none is
// written ("integer ARRAY" is PostgreSQL's "integer[]").
QString numbers(const QList<qint32> &values)
{
    QStringList items;
    for (const qint32 value : values)
        items << QString::number(value);
    return u"'{"_qs + items.join(u',') + u"}'::integer ARRAY"_qs;
}

QString texts(const QStringList &values)
{
    QStringList items;
    for (QString value : values)
        items << u'"' + value.replace(u'\\', u"\\\\"_qs).replace(u'"', u"\\\""_qs) + u'"';
    return text(u'{' + items.join(u',') + u'}') + u"::text ARRAY"_qs;
}

QString password(const NewPassword &password)
{
    return DoubleToText(password.digest) + u',' + (password.proof.isEmpty() ? QStringLiteral("Null") : text(password.proof));
}

// The server's sentence for a refusal, without what the driver wraps it in.
QString serverReason(const QString &text)
{
    static const QRegularExpression reason(QStringLiteral(R"(ERROR:\s+([^\n]*?);?(\n|$))"));
    const QRegularExpressionMatch found = reason.match(text);
    return found.hasMatch() ? found.captured(1) : text;
}

// A call of the server's functions, run once: they write, and a lost
// connection must not run one twice. The row it gives.
QSqlQuery callRow(const QString &sql)
{
    const QSqlDatabase db = CurrentConnection();
    LibraryStatement run = RunLibraryStatement(db, DriverSql(db, sql), Repeat::Never, true);
    if (run.number != 0)
        throw Error(run.number, serverReason(run.errorText));
    run.query.next();
    return std::move(run.query);
}

QVariant call(const QString &sql)
{
    return callRow(sql).value(0);
}

// Each connection's logon, so that one opened again after its server went
// away is the same user's session again.
struct Logon {
    QString name, proof, desk;
};
QHash<QString, Logon> &logons()
{
    static QHash<QString, Logon> logons;
    return logons;
}

QString logonCall(const Logon &logon)
{
    return QStringLiteral("Select code, wait From zolt_logon(%1, %2, %3)").arg(text(logon.name), text(logon.proof), text(logon.desk));
}

void logOnAgain(const QSqlDatabase &db)
{
    const auto found = logons().constFind(db.connectionName());
    if (found == logons().cend())
        return;
    QSqlQuery query(db);
    RunStatement(query, DriverSql(db, logonCall(*found)));
}

const bool reopenedNoticeInstalled = (SetReopenedNotice(logOnAgain), true);

} // namespace

QString ReadableUsers(const QString &sql)
{
    return ServerLocked() ? QString(sql).replace(sql.indexOf(u'*'), 1, QStringLiteral("Code,[Name],[Dec],IdGroup")) : sql;
}

LockedLogonResult LockedLogon(const QString &name, const QString &password, const PasswordPolicy &policy,
                              const QString &desk)
{
    const QSqlQuery how = callRow(QStringLiteral("Select kind, params From zolt_logon_params(%1)").arg(text(name)));
    const bool strong = how.value(0).toString() == QLatin1String("argon2id");
    Logon logon{name, QString(), desk};
    try {
        logon.proof = strong ? DerivedHash(password, policy, how.value(1).toString()) : DoubleToText(EncodePassword(password));
    } catch (const Error &e) {
        if (e.number() != Error::Overflow)
            throw;   // too long to have a digest: proves nothing, and is refused as any wrong password
    }
    const QSqlQuery answer = callRow(logonCall(logon));
    const LockedLogonResult result{answer.value(0).toInt(), answer.value(1).toLongLong()};
    const QString connection = CurrentConnection().connectionName();
    logons().remove(connection);
    if (result.code == 0)
        return result;
    logons().insert(connection, logon);
    // The legacy digest gives way to a hash at the first logon it opens.
    if (!strong && policy.strong) {
        try {
            LockedSetOwnPassword(LockedPassword(password, policy));
        } catch (const Error &e) {
            // an upgrade that fails changes nothing: the digest still opens the account
            LogIgnored("A legacy digest kept, not made a hash", e);
        }
    }
    return result;
}

qint32 LockedSessionUser()
{
    return call(QStringLiteral("Select zolt_session_user()")).toInt();
}

NewPassword LockedPassword(const QString &password, const PasswordPolicy &policy)
{
    if (policy.strong)
        return {NoDigest, NewPasswordProof(password, policy)};
    return {EncodePassword(password), QString()};
}

void LockedSetOwnPassword(const NewPassword &password)
{
    call(QStringLiteral("Select zolt_set_own_password(%1)").arg(zolt::password(password)));
}

qint32 LockedAddUser(const QString &name, const QString &description, qint32 group, const NewPassword &password)
{
    return call(QStringLiteral("Select zolt_add_user(%1, %2, %3, %4)")
                    .arg(text(name), text(description), QString::number(group), zolt::password(password)))
        .toInt();
}

qint64 LockedUpdateUser(const QString &old, const QString &name, const QString &description, qint32 group,
                        const QString &readDescription, qint32 readGroup, const std::optional<NewPassword> &password)
{
    return call(QStringLiteral("Select zolt_update_user(%1, %2, %3, %4, %5, %6, %7)")
                    .arg(text(old), text(name), text(description), QString::number(group),
                         readText(readDescription),
                         QString::number(readGroup), password ? zolt::password(*password) : QStringLiteral("Null, Null")))
        .toLongLong();
}

qint64 LockedDeleteUser(const QString &name)
{
    return call(QStringLiteral("Select zolt_delete_user(%1)").arg(text(name))).toLongLong();
}

void LockedReleaseUser(const QString &name)
{
    call(QStringLiteral("Select zolt_release_user(%1)").arg(text(name)));
}

qint32 LockedAddGroup(const QString &name, const QString &description)
{
    return call(QStringLiteral("Select zolt_add_group(%1, %2)").arg(text(name), text(description))).toInt();
}

qint64 LockedUpdateGroup(qint32 code, const QString &name, const QString &description, const QString &readName,
                         const QString &readDescription)
{
    return call(QStringLiteral("Select zolt_update_group(%1, %2, %3, %4, %5)")
                    .arg(QString::number(code), text(name), text(description),
                         readText(readName),
                         readText(readDescription)))
        .toLongLong();
}

qint64 LockedDeleteGroups(const QList<qint32> &codes)
{
    return call(QStringLiteral("Select zolt_delete_groups(%1)").arg(numbers(codes))).toLongLong();
}

qint64 LockedSetRights(qint32 group, const QStringList &columns, const QList<qint32> &rights, const QList<qint32> &read)
{
    return call(QStringLiteral("Select zolt_set_rights(%1, %2, %3, %4)")
                    .arg(QString::number(group), texts(columns), numbers(rights), numbers(read)))
        .toLongLong();
}

} // namespace zolt
