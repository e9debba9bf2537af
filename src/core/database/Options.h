// SPDX-License-Identifier: MIT
#pragma once

// The settings store in the table Options, and the largest key of a table.

#include <zolt/Options.h>

#include <QSqlDatabase>
#include <QString>

namespace zolt {

// Whether the library's connection is to a server locked by zolt-server
// (PostgreSQL; its setting Config/DatabaseLock names the desks' role): its
// desks change the library's tables only through the server's functions.
bool ServerLocked();

// The setting that lets typed text without marks find marked text: on unless
// the option Config/AccentBlindSearch of db is "0".
bool AccentBlindSearchOn(const QSqlDatabase &db);

// Stores the value by update-or-insert (insert only, with isNew set); the
// description is written when not empty. On a locked server through its
// function, which lets only an administrator write section Config. A
// failure raises zolt::Error.
void SaveOption(const QString &section, const QString &key, const QString &value,
                const QString &description, qint32 isNew);

// The largest value of the field in the table as a whole number; 0 when the
// table is empty or the read fails.
qint32 GetMaxValue(const QString &table, const QString &field, const QSqlDatabase &connection);

} // namespace zolt
