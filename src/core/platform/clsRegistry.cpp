// SPDX-License-Identifier: MIT
#include <zolt/clsRegistry.h>

#include "core/base/Conversions.h"
#include "core/platform/OdbcIni.h"
#include "core/platform/Registry.h"

#include <zolt/Enums.h>
#include <zolt/Error.h>

#include <algorithm>
#include <utility>

namespace zolt {

namespace {

constexpr qint32 BufferSize = 1024;
const QString OdbcIni = QStringLiteral("SOFTWARE\\ODBC\\ODBC.INI\\");
const QString DataSources = OdbcIni + QStringLiteral("ODBC Data Sources");
const QString ExcelDriver = QStringLiteral("Microsoft Excel Driver (*.xls)");

using Values = std::initializer_list<std::pair<const char *, QString>>;

bool ValidKeyName(const QString &KeyName)
{
    return !KeyName.startsWith(QLatin1Char('\\')) && !KeyName.endsWith(QLatin1Char('\\'))
           && !KeyName.contains(QStringLiteral("\\\\"));
}

void CheckStatus(qint32 status)
{
    if (status != 0)
        throw Error(Error::InvalidArgument);
}

// The value's bytes as the registry handed them: a final zero is dropped.
QByteArray keptBytes(const QByteArray &data)
{
    return data.endsWith('\0') ? data.chopped(1) : data;
}

// A number's bytes, last to first, read as one hexadecimal number of at most
// 32 bits, signed: all bits set is -1.
QString dwordText(const QByteArray &bytes)
{
    QByteArray hex;
    for (auto b = bytes.crbegin(); b != bytes.crend(); ++b)
        hex += QByteArray(1, *b).toHex().toUpper();
    return QString::number(qint32(hex.right(8).toULongLong(nullptr, 16)));
}

// Writes values under a key, without looking at the statuses.
void writeAll(qint32 root, const QString &key, Values values)
{
    RegCreateKey(root, key);
    for (const auto &[name, text] : values)
        RegSetValue(root, key, QLatin1String(name), RegText(text));
}

// A registration whose texts would change the files' structure writes nothing.
bool registrable(const QString &dsn, std::initializer_list<QString> values)
{
    return OdbcPlainText(dsn, true)
           && std::all_of(values.begin(), values.end(), [](const QString &v) { return OdbcPlainText(v, false); });
}

} // namespace

struct clsRegistry::Private {};

clsRegistry::clsRegistry()
    : d(std::make_unique<Private>())
{
}

clsRegistry::~clsRegistry() = default;

bool clsRegistry::GetKeyValue(qint32 KeyRoot, const QString &KeyName, const QString &ValueName,
                              QString &ValueData)
{
    if (!ValidKeyName(KeyName))
        return false;
    try {
        CheckStatus(RegOpenKey(KeyRoot, KeyName, true));
        RegValue value;
        CheckStatus(RegQueryValue(KeyRoot, KeyName, ValueName, BufferSize, value));
        const QByteArray kept = keptBytes(value.data);
        if (value.type == RegSz)
            ValueData = QString::fromUtf8(kept);
        else if (value.type == RegDword)
            ValueData = dwordText(kept);
        return true;
    } catch (const Error &) {
        return false;
    }
}

qint32 clsRegistry::WriteRegEdit(qint32 hKeyReg, const QString &KeyName, const QString &KeyWord,
                                 const QString &StValue)
{
    if (RegOpenKey(hKeyReg, KeyName, true) > 0) {
        const qint32 created = RegCreateKey(hKeyReg, KeyName);
        if (created != RegSuccess)
            return created;
    }
    return RegSetValue(hKeyReg, KeyName, KeyWord, RegText(StValue));
}

QVariant clsRegistry::Create_DSN(const QString &DSN, const QString &Desc, const QString &Dtb,
                                 const QString &Svr, const QString &Drv)
{
    if (!registrable(DSN, {Desc, Dtb, Svr, Drv}))
        return QVariant();
    writeAll(HK_LOCAL_MACHINE, OdbcIni + DSN,
             {{"Database", Dtb}, {"Description", Desc}, {"Driver", QString()},
              {"LastUser", QStringLiteral("sa")}, {"Server", Svr}, {"AnsiNPW", QStringLiteral("No")}});
    writeAll(HK_LOCAL_MACHINE, DataSources, {{DSN.toUtf8().constData(), Drv}});
    return QVariant();
}

QVariant clsRegistry::Create_DSN_EXL(const QString &DSN, const QString &DefaultDir, const QString &DBQ,
                                     const QString &FIL, const std::optional<QString> &DrID)
{
    const QString driverId = DrID.value_or(QString()).isEmpty() ? QStringLiteral("790") : *DrID;
    if (!registrable(DSN, {DefaultDir, DBQ, FIL, driverId}))
        return QVariant();
    writeAll(HK_LOCAL_MACHINE, OdbcIni + DSN,
             {{"DBQ", DBQ}, {"Description", QStringLiteral("Qo")}, {"DefaultDir", DefaultDir},
              {"DRIVER", ExcelDriver}, {"DriverId", driverId}, {"FIL", FIL},
              {"UID", QStringLiteral("admin")}, {"SafeTransactions", QStringLiteral("0")},
              {"ReadOnly", QStringLiteral("1")}, {"PageTimeout", QStringLiteral("5")},
              {"MaxBufferSize", QStringLiteral("512")}});
    writeAll(HK_LOCAL_MACHINE, OdbcIni + DSN + QStringLiteral("\\Engines\\Excel"),
             {{"FirstRowHasNames", QStringLiteral("01")}, {"ImplicitCommitSync", QStringLiteral("Yes")},
              {"Threads", QStringLiteral("3")}, {"UserCommitSync", QStringLiteral("Yes")}});
    writeAll(HK_LOCAL_MACHINE, DataSources, {{DSN.toUtf8().constData(), ExcelDriver}});
    return QVariant();
}

} // namespace zolt
