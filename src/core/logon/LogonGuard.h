// SPDX-License-Identifier: MIT
#pragma once

// Limits on logon attempts and a record of them, both off by default (the
// original logon kept no count). With Config/LogonAttempts N above 0, a name
// refused N times waits Config/LogonWaitSeconds (30) before its next try, the
// wait doubling with each further refusal up to Config/LogonWaitMax (900);
// the count lives in the table LogonFailures, so every desk sees it, and a
// successful logon or an administrator clears it. Unknown names count too.
// With Config/LogonLogDays D above 0, each attempt is written to LogonLog
// (time, name typed, desk, result; never a password) and kept D days.

#include <QString>

namespace zolt {

struct LogonLimits {
    qint32 attempts = 0;     // refusals before a wait; 0: no limit
    qint32 firstWait = 30;   // seconds
    qint32 maxWait = 900;
    qint32 logDays = 0;      // 0: no record
};

// The limits the options of the library's connection set.
LogonLimits ReadLogonLimits();

// Seconds the name must still wait before its next try; 0 when it may try.
qint64 SecondsToWait(const QString &name, const LogonLimits &limits);
// A refused logon of the name is counted; two desks counting at once both count.
void CountRefusal(const QString &name, const LogonLimits &limits);
// The name may try again at once: its count is cleared.
void ClearRefusals(const QString &name);

// What the clerk reads while the name waits: "… chờ 2 phút 5 giây nữa …".
QString WaitMessage(qint64 seconds);

// Writes one attempt to the record, and drops what is older than it keeps;
// result is "accepted", "refused", "waiting" or "failure".
void RecordLogon(const QString &name, const QString &result, const LogonLimits &limits);

} // namespace zolt
