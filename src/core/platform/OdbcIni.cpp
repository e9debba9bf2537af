// SPDX-License-Identifier: MIT
#include "core/platform/OdbcIni.h"

#include "core/platform/IniFile.h"

#include <zolt/Enums.h>

#include <QDir>

#include <algorithm>

namespace zolt {

namespace {

const QString OdbcIniPath = QStringLiteral("SOFTWARE\\ODBC\\ODBC.INI");
const QString DataSources = QStringLiteral("ODBC Data Sources");
const QString Missing = QStringLiteral("\x01");   // an entry's text that no file holds
const QString Driver = QStringLiteral("Driver");
// A data source's own "Driver" value as the registry held it. unixODBC's
// "Driver" entry names the driver it loads: the one "ODBC Data Sources" gives,
// unless the data source names one itself.
const QString RegistryDriver = QStringLiteral("RegistryDriver");

struct Entry {
    QString section;
    QString name;
};

// The section and entry name a key's value is kept under.
Entry entryOf(const QString &subkey, const QString &name)
{
    if (subkey.compare(DataSources, Qt::CaseInsensitive) == 0)
        return {name, Driver};
    const qsizetype slash = subkey.indexOf(QLatin1Char('\\'));
    if (slash < 0)
        return {subkey, name};
    return {subkey.left(slash), subkey.mid(slash + 1) + QLatin1Char('\\') + name};
}

// unixODBC's file of the root's data sources: the system's in $ODBCSYSINI
// (by default /etc), the user's at $ODBCINI (by default ~/.odbc.ini).
QString iniPath(qint32 root)
{
    if (root == HK_LOCAL_MACHINE)
        return qEnvironmentVariable("ODBCSYSINI", QStringLiteral("/etc")) + QStringLiteral("/odbc.ini");
    return qEnvironmentVariable("ODBCINI", QDir::homePath() + QStringLiteral("/.odbc.ini"));
}

// A data source's own "Driver" value (not one of a subkey's).
bool isDataSourceDriver(const QString &subkey, const QString &name)
{
    return name.compare(Driver, Qt::CaseInsensitive) == 0 && !subkey.contains(QLatin1Char('\\'))
        && subkey.compare(DataSources, Qt::CaseInsensitive) != 0;
}

} // namespace

bool OdbcPlainText(const QString &text, bool isName)
{
    static const QString lineBreaks = QStringLiteral("\n\r") + QChar(0);
    static const QString structure = QStringLiteral("[]=");
    return std::none_of(text.begin(), text.end(), [isName](QChar c) {
        return lineBreaks.contains(c) || (isName && structure.contains(c));
    });
}

std::optional<QString> OdbcIniSubkey(qint32 root, const QString &path)
{
    if (root != HK_LOCAL_MACHINE && root != HK_CURRENT_USER)
        return std::nullopt;
    if (!path.startsWith(OdbcIniPath + QLatin1Char('\\'), Qt::CaseInsensitive))
        return std::nullopt;
    return path.mid(OdbcIniPath.size() + 1);
}

qint32 OdbcOpenKey(qint32 root, const QString &subkey)
{
    if (subkey.compare(DataSources, Qt::CaseInsensitive) == 0)
        return RegSuccess;
    return ProfileSectionExists(entryOf(subkey, QString()).section, iniPath(root)) ? RegSuccess : RegNotFound;
}

qint32 OdbcQueryValue(qint32 root, const QString &subkey, const QString &name, RegValue &value)
{
    const Entry e = entryOf(subkey, name);
    QString text = Missing;
    if (isDataSourceDriver(subkey, name))
        text = ReadProfileString(e.section, RegistryDriver, Missing, iniPath(root));
    if (text == Missing)
        text = ReadProfileString(e.section, e.name, Missing, iniPath(root));
    if (text == Missing)
        return RegNotFound;
    value = {RegSz, text.toUtf8()};
    return RegSuccess;
}

qint32 OdbcSetValue(qint32 root, const QString &subkey, const QString &name, const QString &text)
{
    if (!OdbcPlainText(subkey, true) || !OdbcPlainText(name, true))
        return RegBadPathname;
    if (!OdbcPlainText(text, false))
        return RegInvalidParameter;
    // Written like every initialisation file: under a lock, replaced whole.
    const Entry e = entryOf(subkey, name);
    const QString path = iniPath(root);
    const auto write = [&](const QString &entry) { return WriteProfileString(e.section, entry, text, path); };
    bool written = true;
    if (isDataSourceDriver(subkey, name)) {
        written = write(RegistryDriver) && (text.isEmpty() || write(Driver));
    } else if (subkey.compare(DataSources, Qt::CaseInsensitive) != 0
               || ReadProfileString(e.section, RegistryDriver, QString(), path).isEmpty()) {
        written = write(e.name);
    }
    return written ? RegSuccess : RegAccessDenied;
}

} // namespace zolt
