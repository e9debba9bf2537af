// SPDX-License-Identifier: MIT
#include "core/platform/Registry.h"

#include "core/platform/OdbcIni.h"
#include "core/platform/RegistryFiles.h"

#include <QtEndian>

namespace zolt {

namespace {

bool isText(qint32 type)
{
    return type == RegSz;
}

} // namespace

qint32 RegOpenKey(qint32 root, const QString &path, bool forWriting)
{
    if (const auto subkey = OdbcIniSubkey(root, path))
        return OdbcOpenKey(root, *subkey);
    return FileOpenKey(root, path, forWriting);
}

qint32 RegCreateKey(qint32 root, const QString &path)
{
    if (OdbcIniSubkey(root, path))
        return RegSuccess;   // a data source comes into being with its first value
    return FileCreateKey(root, path);
}

qint32 RegQueryValue(qint32 root, const QString &path, const QString &name, qint32 bufferSize,
                     RegValue &value)
{
    RegValue found;
    const auto subkey = OdbcIniSubkey(root, path);
    const qint32 status = subkey ? OdbcQueryValue(root, *subkey, name, found)
                                 : FileQueryValue(root, path, name, found);
    if (status != RegSuccess)
        return status;
    // Text is handed over with its terminating zero, which needs room as well,
    // and takes a byte a character, as in the 8-bit code page it was kept in.
    if (isText(found.type) && !found.data.endsWith('\0'))
        found.data.append('\0');
    const qsizetype size = isText(found.type) ? QString::fromUtf8(found.data).size() : found.data.size();
    if (size > bufferSize)
        return RegMoreData;
    value = found;
    return RegSuccess;
}

qint32 RegSetValue(qint32 root, const QString &path, const QString &name, const RegValue &value)
{
    if (const auto subkey = OdbcIniSubkey(root, path))
        return OdbcSetValue(root, *subkey, name, QString::fromUtf8(value.data));
    return FileSetValue(root, path, name, value);
}

RegValue RegText(const QString &text)
{
    return {RegSz, text.toUtf8()};
}

RegValue RegNumber(quint32 number)
{
    QByteArray bytes(4, '\0');
    qToLittleEndian(number, bytes.data());
    return {RegDword, bytes};
}

} // namespace zolt
