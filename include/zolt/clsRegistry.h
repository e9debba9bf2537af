// SPDX-License-Identifier: MIT
#pragma once

#include <zolt/Enums.h>
#include <zolt/zolt_export.h>

#include <QString>
#include <QVariant>

#include <memory>
#include <optional>

namespace zolt {

/// Registry values and ODBC data sources. Roots are the classic predefined
/// keys (zolt::REGToolRootTypes). Off Windows the registry is the library's
/// own store, and the keys under SOFTWARE\ODBC\ODBC.INI are unixODBC's data
/// sources: system ones under HK_LOCAL_MACHINE, the user's under HK_CURRENT_USER.
class ZOLT_EXPORT clsRegistry {
public:
    clsRegistry();
    ~clsRegistry();
    clsRegistry(const clsRegistry &) = delete;
    clsRegistry &operator=(const clsRegistry &) = delete;

    /// Reads a text (REG_SZ) or number (REG_DWORD, as signed decimal text) into
    /// ValueData; false, with ValueData untouched, when the key name is not
    /// valid, the key or value is missing, access is refused, or the value does
    /// not fit 1024 bytes.
    bool GetKeyValue(qint32 KeyRoot, const QString &KeyName, const QString &ValueName, QString &ValueData);

    /// Writes a text value, creating the key as needed; the status of the write
    /// (0 success, 5 access denied ...).
    qint32 WriteRegEdit(qint32 hKeyReg, const QString &KeyName, const QString &KeyWord, const QString &StValue);

    /// Registers a SQL Server data source on the machine; always an empty Variant.
    QVariant Create_DSN(const QString &DSN, const QString &Desc, const QString &Dtb, const QString &Svr,
                        const QString &Drv);

    /// Registers an Excel workbook data source on the machine; DrID "790"
    /// when missing or empty. Always an empty Variant.
    QVariant Create_DSN_EXL(const QString &DSN, const QString &DefaultDir, const QString &DBQ,
                            const QString &FIL, const std::optional<QString> &DrID = std::nullopt);

private:
    struct Private;
    const std::unique_ptr<Private> d;
};

} // namespace zolt
