// SPDX-License-Identifier: MIT
#pragma once

// The registry off Windows: the same root keys, "\"-separated key paths
// matched without regard to case, named values and status codes. Keys under
// SOFTWARE\ODBC\ODBC.INI of the local machine and the current user are
// unixODBC's system and user data sources; every other key lives in the
// library's own store (RegistryFiles).

#include <QByteArray>
#include <QString>

namespace zolt {

enum RegStatus : qint32 {
    RegSuccess = 0,
    RegNotFound = 2,
    RegAccessDenied = 5,
    RegInvalidHandle = 6,
    RegInvalidParameter = 87,
    RegBadPathname = 161,
    RegMoreData = 234
};

enum RegType : qint32 { RegSz = 1, RegDword = 4 };

// A value as the registry keeps it: its type and its bytes (a REG_SZ as text
// without a terminating zero, a REG_DWORD as four bytes, low byte first).
struct RegValue {
    qint32 type = 0;
    QByteArray data;
};

// Opens an existing key; for writing, a key the process may not change
// answers RegAccessDenied.
qint32 RegOpenKey(qint32 root, const QString &path, bool forWriting);
// Opens a key, creating it and the keys above it as needed.
qint32 RegCreateKey(qint32 root, const QString &path);
// Reads a value into a buffer of bufferSize bytes: RegMoreData when it does
// not fit. Text comes back with its terminating zero, which needs room too.
qint32 RegQueryValue(qint32 root, const QString &path, const QString &name, qint32 bufferSize,
                     RegValue &value);
qint32 RegSetValue(qint32 root, const QString &path, const QString &name, const RegValue &value);

RegValue RegText(const QString &text);
RegValue RegNumber(quint32 number);

} // namespace zolt
