// SPDX-License-Identifier: MIT
#include "platform/OdbcIni.h"

#include <zolt/Enums.h>

#include <QFile>

#include <algorithm>

#include <odbcinst.h>

namespace zolt {

namespace {

const QString OdbcIniPath = QStringLiteral("SOFTWARE\\ODBC\\ODBC.INI");
const QString DataSources = QStringLiteral("ODBC Data Sources");
const char *const IniFile = "odbc.ini";
const char *const Missing = "\x01";   // an entry's text that unixODBC never holds

struct Entry {
    QByteArray section;
    QByteArray name;
};

// The section and entry name a key's value is kept under.
Entry entryOf(const QString &subkey, const QString &name)
{
    if (subkey.compare(DataSources, Qt::CaseInsensitive) == 0)
        return {name.toUtf8(), QByteArrayLiteral("Driver")};
    const qsizetype slash = subkey.indexOf(QLatin1Char('\\'));
    if (slash < 0)
        return {subkey.toUtf8(), name.toUtf8()};
    return {subkey.left(slash).toUtf8(), (subkey.mid(slash + 1) + QLatin1Char('\\') + name).toUtf8()};
}

// Reads and writes go to the system or the user data sources for as long as it lives.
class ConfigMode {
public:
    explicit ConfigMode(qint32 root)
    {
        SQLGetConfigMode(&m_previous);
        SQLSetConfigMode(root == HK_LOCAL_MACHINE ? ODBC_SYSTEM_DSN : ODBC_USER_DSN);
    }
    ~ConfigMode() { SQLSetConfigMode(m_previous); }

private:
    UWORD m_previous = ODBC_BOTH_DSN;
};

// unixODBC writes into an existing system file only; one that may be made is made.
void ensureSystemFile()
{
    const QString folder = qEnvironmentVariable("ODBCSYSINI", QStringLiteral("/etc"));
    QFile file(folder + QStringLiteral("/odbc.ini"));
    if (!file.exists())
        file.open(QIODevice::Append);
}

std::optional<QByteArray> entry(const Entry &e)
{
    char text[4096];
    SQLGetPrivateProfileString(e.section.constData(), e.name.constData(), Missing, text, sizeof text, IniFile);
    if (qstrcmp(text, Missing) == 0)
        return std::nullopt;
    return QByteArray(text);
}

bool sectionExists(const QByteArray &section)
{
    char names[4096] = {};
    return SQLGetPrivateProfileString(section.constData(), nullptr, "", names, sizeof names, IniFile) > 0;
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
    if (path.compare(OdbcIniPath, Qt::CaseInsensitive) == 0)
        return QString();
    if (!path.startsWith(OdbcIniPath + QLatin1Char('\\'), Qt::CaseInsensitive))
        return std::nullopt;
    return path.mid(OdbcIniPath.size() + 1);
}

qint32 OdbcOpenKey(qint32 root, const QString &subkey)
{
    if (subkey.isEmpty() || subkey.compare(DataSources, Qt::CaseInsensitive) == 0)
        return RegSuccess;
    const ConfigMode mode(root);
    return sectionExists(entryOf(subkey, QString()).section) ? RegSuccess : RegNotFound;
}

qint32 OdbcQueryValue(qint32 root, const QString &subkey, const QString &name, RegValue &value)
{
    const ConfigMode mode(root);
    const auto text = entry(entryOf(subkey, name));
    if (!text)
        return RegNotFound;
    value = {RegSz, *text};
    return RegSuccess;
}

qint32 OdbcSetValue(qint32 root, const QString &subkey, const QString &name, const QString &text)
{
    if (subkey.isEmpty())
        return RegAccessDenied;   // ODBC.INI itself holds data sources, not values
    if (!OdbcPlainText(subkey, true) || !OdbcPlainText(name, true))
        return RegBadPathname;
    if (!OdbcPlainText(text, false))
        return RegInvalidParameter;
    const ConfigMode mode(root);
    if (root == HK_LOCAL_MACHINE)
        ensureSystemFile();
    const Entry e = entryOf(subkey, name);
    return SQLWritePrivateProfileString(e.section.constData(), e.name.constData(),
                                        text.toUtf8().constData(), IniFile)
               ? RegSuccess : RegAccessDenied;
}

} // namespace zolt
