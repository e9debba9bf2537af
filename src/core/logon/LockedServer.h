// SPDX-License-Identifier: MIT
#pragma once

// A desk's side of a locked server (zolt-server lock, PostgreSQL): the
// desk's account reads what the dialogs show and changes the library's
// tables only through the server's functions, each of which checks who
// logged on in the session. The dialogs call these in place of their own
// statements when ServerLocked().

#include "core/database/Options.h"
#include "core/logon/PasswordStore.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace zolt {

// The Part's query of every column of [User] (sql holds its "*"), or on a
// locked server the columns its desks may read: Code, Name, Dec, IdGroup.
QString ReadableUsers(const QString &sql);

struct LockedLogonResult {
    qint32 code = 0;   // the user logged on, 0 when refused
    qint64 wait = 0;   // seconds the name must still wait
};
// Logs the session on as name: the server checks the proof of the password
// (its legacy digest, or the hash derived here with the salt and parameters
// it keeps), counts refusals, records the attempt, and from then on knows the
// session as that user, also once a lost connection is opened again. With
// the strong store, a legacy digest that opened the account gives way to a hash.
LockedLogonResult LockedLogon(const QString &name, const QString &password, const PasswordPolicy &policy,
                              const QString &desk);

// The code of the user the session is logged on as; 0 for none.
qint32 LockedSessionUser();

// A password as the server stores it: the digest (NoDigest with the strong
// store), and the derived hash with its salt (none with the legacy one).
struct NewPassword {
    double digest = 0;
    QString proof;
};
NewPassword LockedPassword(const QString &password, const PasswordPolicy &policy);

// The writes of the dialogs, each checked by the server: zolt::Error with
// the server's reason when refused. Rows touched, where a write compares.
void LockedSetOwnPassword(const NewPassword &password);
qint32 LockedAddUser(const QString &name, const QString &description, qint32 group, const NewPassword &password);
qint64 LockedUpdateUser(const QString &old, const QString &name, const QString &description, qint32 group,
                        const QString &readDescription, qint32 readGroup, const std::optional<NewPassword> &password);
qint64 LockedDeleteUser(const QString &name);
void LockedReleaseUser(const QString &name);
qint32 LockedAddGroup(const QString &name, const QString &description);
qint64 LockedUpdateGroup(qint32 code, const QString &name, const QString &description, const QString &readName,
                         const QString &readDescription);
qint64 LockedDeleteGroups(const QList<qint32> &codes);
qint64 LockedSetRights(qint32 group, const QStringList &columns, const QList<qint32> &rights, const QList<qint32> &read);
} // namespace zolt
