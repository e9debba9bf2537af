// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// The settings store in the host's table Options (Section, KeyName, KeyValue,
/// Description), and the settings every dialog of the library applies.

#include <zolt/zolt_export.h>

#include <QSqlDatabase>
#include <QString>

class QWidget;

namespace zolt {

/// The stored value of (section, key), or defaultValue when there is no row,
/// the value is Null or empty, or the read fails; on the library's connection
/// (the one last handed to an entry point) unless another one is named.
///@{
ZOLT_EXPORT QString ReadOption(const QString &section, const QString &key, const QString &defaultValue);
ZOLT_EXPORT QString ReadOption(const QString &section, const QString &key, const QString &defaultValue,
                               const QSqlDatabase &db);
///@}

/// Stores the value by update-or-insert (insert only with isNew set) on the
/// library's connection; the description is written when not empty. 0 on
/// success; on failure the user is told ("Không thể lưu được khoá…") and the
/// error number is returned.
ZOLT_EXPORT qint32 WriteOption(const QString &section, const QString &key, const QString &value,
                               const QString &description, qint32 isNew);

/// What every dialog of the library does when it loads: gives each control the
/// font of Config / DefaultFont (else "VK Sans Serif") and, above 8, the size
/// of Config / DefaultFontSize, and centres the window now and whenever it is
/// shown (on its owner's window, else its screen, never beyond the screen).
ZOLT_EXPORT void ApplyFormSettings(QWidget *form);

} // namespace zolt
