// SPDX-License-Identifier: MIT
#include "platform/OdbcIni.h"

#include "platform/IniFile.h"

#include <zolt/Enums.h>

#include <QDir>

#include <algorithm>

namespace zolt {

namespace {

const QString OdbcIniPath = QStringLiteral("SOFTWARE\\ODBC\\ODBC.INI");
const QString DataSources = QStringLiteral("ODBC Data Sources");
const QString Missing = QStringLiteral("\x01");   // an entry's text that no file holds

struct Entry {
    QString section;
    QString name;
};

// The section and entry name a key's value is kept under.
Entry entryOf(const QString &subkey, const QString &name)
{
    if (subkey.compare(DataSources, Qt::CaseInsensitive) == 0)
        return {name, QStringLiteral("Driver")};
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
    const QString text = ReadProfileString(e.section, e.name, Missing, iniPath(root));
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
    return WriteProfileString(e.section, e.name, text, iniPath(root)) ? RegSuccess : RegAccessDenied;
}

} // namespace zolt
