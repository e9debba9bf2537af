// SPDX-License-Identifier: MIT
#include "core/logon/LogonGuard.h"

#include "core/database/Database.h"
#include "core/database/Options.h"
#include "core/database/Recordset.h"
#include "core/database/SqlFunc.h"

#include <zolt/Error.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QSysInfo>

#include <algorithm>

namespace zolt {

namespace {

qint32 option(const char *key, qint32 fallback)
{
    bool ok = false;
    const qint32 value = ReadOption(QStringLiteral("Config"), QLatin1String(key), QString()).toInt(&ok);
    return ok && value >= 0 ? value : fallback;
}

QString nameIs(const QString &name)
{
    return QStringLiteral(" Where [Name]=") + SqlValue(name, QStringLiteral("S"));
}

qint64 now()
{
    return QDateTime::currentSecsSinceEpoch();
}

// The wait after the given number of refusals.
qint64 waitAfter(qint32 refusals, const LogonLimits &limits)
{
    if (refusals < limits.attempts)
        return 0;
    const int doublings = std::min(refusals - limits.attempts, 20);
    return std::min<qint64>(qint64(limits.firstWait) << doublings, limits.maxWait);
}

} // namespace

LogonLimits ReadLogonLimits()
{
    LogonLimits limits;
    limits.attempts = option("LogonAttempts", 0);
    limits.firstWait = option("LogonWaitSeconds", limits.firstWait);
    limits.maxWait = option("LogonWaitMax", limits.maxWait);
    limits.logDays = option("LogonLogDays", 0);
    return limits;
}

qint64 SecondsToWait(const QString &name, const LogonLimits &limits)
{
    if (limits.attempts <= 0)
        return 0;
    Recordset rs;
    if (rs.Open(QStringLiteral("Select WaitUntil From LogonFailures") + nameIs(name)) != 0 || rs.Eof())
        return 0;
    return std::max<qint64>(0, rs.Value(0).toLongLong() - now());
}

void CountRefusal(const QString &name, const LogonLimits &limits)
{
    if (limits.attempts <= 0)
        return;
    // Compare and set: a desk that counted meanwhile makes this one read again.
    for (int attempt = 0; attempt < 50; ++attempt) {
        Recordset rs;
        rs.Open(QStringLiteral("Select Refusals From LogonFailures") + nameIs(name));
        if (rs.Eof()) {
            try {
                Execute(QStringLiteral("Insert Into LogonFailures([Name],Refusals,WaitUntil) Values(")
                        + SqlValue(name, QStringLiteral("S")) + QStringLiteral(",1,")
                        + QString::number(now() + waitAfter(1, limits)) + u')');
                return;
            } catch (const Error &) {
                continue;   // another desk inserted it first
            }
        }
        const qint32 refusals = rs.Value(0).toInt();
        if (Execute(QStringLiteral("Update LogonFailures Set Refusals=%1,WaitUntil=%2").arg(refusals + 1)
                        .arg(now() + waitAfter(refusals + 1, limits))
                    + nameIs(name) + QStringLiteral(" And Refusals=") + QString::number(refusals)) == 1)
            return;
    }
}

void ClearRefusals(const QString &name)
{
    Execute(QStringLiteral("Delete From LogonFailures") + nameIs(name));
}

QString WaitMessage(qint64 seconds)
{
    const auto words = [](const char *text, qint64 n = -1) {
        return QCoreApplication::translate("zolt::LogonGuard", text, nullptr, int(n));
    };
    const QString minutes = words(QT_TRANSLATE_N_NOOP("zolt::LogonGuard", "%n phút"), seconds / 60);
    const QString rest = words(QT_TRANSLATE_N_NOOP("zolt::LogonGuard", "%n giây"), seconds % 60);
    const QString span = seconds < 60 ? rest : seconds % 60 == 0 ? minutes : minutes + u' ' + rest;
    return words(QT_TRANSLATE_NOOP("zolt::LogonGuard", "Đã nhập sai quá số lần cho phép. Hãy chờ %1 nữa rồi đăng nhập lại."))
        .arg(span);
}

void RecordLogon(const QString &name, const QString &result, const LogonLimits &limits)
{
    if (limits.logDays <= 0)
        return;
    const QDateTime at = QDateTime::currentDateTime();
    Execute(QStringLiteral("Insert Into LogonLog(At,[Name],Desk,Result) Values(")
            + SqlValue(at.toString(Qt::ISODate), QStringLiteral("S")) + u','
            + SqlValue(name, QStringLiteral("S")) + u',' + SqlValue(QSysInfo::machineHostName(), QStringLiteral("S")) + u','
            + SqlValue(result, QStringLiteral("S")) + u')');
    Execute(QStringLiteral("Delete From LogonLog Where At < ")
            + SqlValue(at.addDays(-limits.logDays).toString(Qt::ISODate), QStringLiteral("S")));
}

} // namespace zolt
