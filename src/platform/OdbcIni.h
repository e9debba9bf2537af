// SPDX-License-Identifier: MIT
#pragma once

// The keys under SOFTWARE\ODBC\ODBC.INI, kept by unixODBC: under the local
// machine its system data sources, under the current user its user data
// sources. Key ODBC.INI\<DSN> is the data source's section; a key below it
// (<DSN>\Engines\Excel) keeps its values in that section as entries named
// "Engines\Excel\<value>". The entry <DSN> of key "ODBC Data Sources" names
// the data source's driver, which unixODBC keeps as the section's "Driver".

#include "platform/Registry.h"

#include <optional>

namespace zolt {

// The part of path below SOFTWARE\ODBC\ODBC.INI when root and path lie in
// unixODBC's keeping ("" for ODBC.INI itself); nothing otherwise.
std::optional<QString> OdbcIniSubkey(qint32 root, const QString &path);

qint32 OdbcOpenKey(qint32 root, const QString &subkey);
qint32 OdbcQueryValue(qint32 root, const QString &subkey, const QString &name, RegValue &value);
qint32 OdbcSetValue(qint32 root, const QString &subkey, const QString &name, const QString &text);

} // namespace zolt
