// SPDX-License-Identifier: MIT
#pragma once

// The keys under SOFTWARE\ODBC\ODBC.INI, kept in unixODBC's files: under the
// local machine its system data sources, under the current user its user data
// sources. They are written like every initialisation file (under a lock,
// replaced whole), so a crash or a second writer loses no data source.
// Key ODBC.INI\<DSN> is the data source's section; a key below it
// (<DSN>\Engines\Excel) keeps its values in that section as entries named
// "Engines\Excel\<value>". The entry <DSN> of key "ODBC Data Sources" names
// the data source's driver, which unixODBC keeps as the section's "Driver".

#include "core/platform/Registry.h"

#include <optional>

namespace zolt {

// The part of path below SOFTWARE\ODBC\ODBC.INI when root and path lie in
// unixODBC's keeping; nothing otherwise. The ODBC.INI key itself is an
// ordinary key of the registry store.
std::optional<QString> OdbcIniSubkey(qint32 root, const QString &path);

// True when text may stand in unixODBC's files as it is: no line break or
// NUL, and in a name (isName) no "[", "]" or "=" either. Anything else would
// add or change another data source or entry.
bool OdbcPlainText(const QString &text, bool isName);

qint32 OdbcOpenKey(qint32 root, const QString &subkey);
qint32 OdbcQueryValue(qint32 root, const QString &subkey, const QString &name, RegValue &value);
// Status 161 for a name and 87 for a value that is not plain text: nothing is written.
qint32 OdbcSetValue(qint32 root, const QString &subkey, const QString &name, const QString &text);

} // namespace zolt
