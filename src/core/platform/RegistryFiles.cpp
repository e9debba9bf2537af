// SPDX-License-Identifier: MIT
#include "core/platform/RegistryFiles.h"

#include "core/base/Conversions.h"
#include "core/base/Logging.h"
#include "core/platform/StoreLock.h"

#include <zolt/Enums.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>
#include <QUrl>

#include <fcntl.h>
#include <unistd.h>

#include <optional>

namespace zolt {

namespace {

const QString ValuesFile = QStringLiteral("values");
constexpr qsizetype NameMax = 255;   // bytes of one name, as the file systems allow

// The folder of a key name: case-folded ("Σ" and "ς" are one key) and
// percent-encoded, so that "/", NUL and control characters stay inside the
// name. A name that would read as ".", "..", the lock, the values file or
// its temporary copies has its first character encoded too: every name maps
// inside its parent and to no other key.
QString folderName(const QString &part)
{
    QString name = QString::fromLatin1(QUrl::toPercentEncoding(part.toCaseFolded(), " "));
    if (name.startsWith(QLatin1Char('.')) || name.startsWith(ValuesFile))
        name = QString::fromLatin1(QUrl::toPercentEncoding(name.left(1), {}, name.left(1).toLatin1())) + name.mid(1);
    return name;
}

std::optional<QString> rootFolder(qint32 root)
{
    const char *name = nullptr;
    switch (root) {
    case HK_CURRENT_USER: {
        const QString user = qEnvironmentVariable("ZOLT_USER_REGISTRY",
            QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
                + QStringLiteral("/zolt/registry"));
        return user + QStringLiteral("/HKEY_CURRENT_USER");
    }
    case HK_CLASSES_ROOT: name = "HKEY_CLASSES_ROOT"; break;
    case HK_LOCAL_MACHINE: name = "HKEY_LOCAL_MACHINE"; break;
    case HK_USERS: name = "HKEY_USERS"; break;
    case HK_PERFORMANCE_DATA: name = "HKEY_PERFORMANCE_DATA"; break;
    case HK_CURRENT_CONFIG: name = "HKEY_CURRENT_CONFIG"; break;
    case HK_DYN_DATA: name = "HKEY_DYN_DATA"; break;
    default: return std::nullopt;
    }
    return qEnvironmentVariable("ZOLT_MACHINE_REGISTRY", QStringLiteral("/etc/zolt/registry"))
           + QLatin1Char('/') + QLatin1String(name);
}

// The key's folder, or the status that says why there is none.
qint32 keyFolder(qint32 root, const QString &path, QString &folder)
{
    const auto base = rootFolder(root);
    if (!base)
        return RegInvalidHandle;
    folder = *base;
    if (path.isEmpty())
        return RegSuccess;
    for (const QString &part : path.split(QLatin1Char('\\'))) {
        const QString name = folderName(part);
        if (part.isEmpty() || name.size() > NameMax)
            return RegBadPathname;
        folder += QLatin1Char('/') + name;
    }
    return RegSuccess;
}

bool writable(const QString &folder)
{
    return ::access(QFile::encodeName(folder).constData(), W_OK) == 0;
}

struct NamedValue {
    QString name;
    RegValue value;
};

// One value a line: type, name (percent-encoded), data (hex).
QList<NamedValue> readValues(const QString &folder)
{
    QList<NamedValue> values;
    QFile file(folder + QLatin1Char('/') + ValuesFile);
    if (!file.open(QIODevice::ReadOnly))
        return values;
    for (const QByteArray &line : file.readAll().split('\n')) {
        const QList<QByteArray> fields = line.split('\t');
        if (fields.size() == 3)
            values.append({QUrl::fromPercentEncoding(fields[1]),
                           {fields[0].toInt(), QByteArray::fromHex(fields[2])}});
    }
    return values;
}

bool writeValues(const QString &folder, const QList<NamedValue> &values)
{
    QByteArray text;
    for (const NamedValue &v : values)
        text += QByteArray::number(v.value.type) + '\t' + QUrl::toPercentEncoding(v.name) + '\t'
                + v.value.data.toHex() + '\n';
    QSaveFile file(folder + QLatin1Char('/') + ValuesFile);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size() || !file.commit()) {
        qCDebug(zoltStore) << "not written:" << file.fileName() << file.errorString();
        return false;
    }
    qCDebug(zoltStore) << "written:" << file.fileName() << values.size() << "values";
    // The rename itself must reach the disk before the write counts as done.
    const int dir = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY);
    if (dir >= 0) {
        ::fsync(dir);
        ::close(dir);
    }
    return true;
}

} // namespace

qint32 FileOpenKey(qint32 root, const QString &path, bool forWriting)
{
    QString folder;
    if (const qint32 status = keyFolder(root, path, folder))
        return status;
    if (!QFileInfo(folder).isDir())
        return RegNotFound;
    return forWriting && !writable(folder) ? RegAccessDenied : RegSuccess;
}

qint32 FileCreateKey(qint32 root, const QString &path)
{
    QString folder;
    if (const qint32 status = keyFolder(root, path, folder))
        return status;
    if (!QFileInfo(folder).isDir() && !QDir().mkpath(folder))
        return RegAccessDenied;
    return writable(folder) ? RegSuccess : RegAccessDenied;
}

qint32 FileQueryValue(qint32 root, const QString &path, const QString &name, RegValue &value)
{
    QString folder;
    if (const qint32 status = FileOpenKey(root, path, false))
        return status;
    keyFolder(root, path, folder);
    for (const NamedValue &v : readValues(folder)) {
        if (SameText(v.name, name)) {
            value = v.value;
            return RegSuccess;
        }
    }
    return RegNotFound;
}

qint32 FileSetValue(qint32 root, const QString &path, const QString &name, const RegValue &value)
{
    QString folder;
    if (const qint32 status = FileOpenKey(root, path, true))
        return status;
    keyFolder(root, path, folder);
    const auto lock = LockForWrite(folder + QStringLiteral("/.lock"));
    if (!lock)
        return RegAccessDenied;
    QList<NamedValue> values = readValues(folder);
    const auto existing = std::find_if(values.begin(), values.end(),
                                       [&](const NamedValue &v) { return SameText(v.name, name); });
    if (existing != values.end())
        existing->value = value;
    else
        values.append({name, value});
    return writeValues(folder, values) ? RegSuccess : RegAccessDenied;
}

} // namespace zolt
