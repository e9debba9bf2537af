// SPDX-License-Identifier: MIT
#pragma once

// The lock on a PostgreSQL database of the library (lock-postgresql.sql),
// taken and taken away by the role that owns the library's tables.

#include <QSqlDatabase>
#include <QString>
#include <QStringList>

namespace zolt::server {

// Makes the library's tables current, the desk role (without a login: desks
// log in as members of it), the functions, the privileges and the setting by
// which the library knows the lock, in one transaction. Safe to run again.
// zolt::Error with the reason when it cannot (nothing changed then).
void Lock(const QSqlDatabase &db, const QString &deskRole);

// Gives the desk role its writes back and drops the functions but those
// that tell the session's user and group (a host's policies may read them).
void Unlock(const QSqlDatabase &db, const QString &deskRole);

// The statements of a script whose statements end a line with ";", a
// function's body between $$ read whole.
QStringList ScriptStatements(const QString &script);

} // namespace zolt::server
