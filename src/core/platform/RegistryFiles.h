// SPDX-License-Identifier: MIT
#pragma once

// The library's registry store: one folder per key, named after the key
// without regard to case, holding the key's values in one file. A value is
// written under a lock on its key by replacing that file whole and at once,
// so a crash leaves the old values or the new ones, and writers of different
// values never lose each other's.
//
// HKEY_CURRENT_USER lives in $ZOLT_USER_REGISTRY (by default
// ~/.config/zolt/registry); the machine-wide roots in $ZOLT_MACHINE_REGISTRY
// (by default /etc/zolt/registry), each in a folder of its own name.

#include "core/platform/Registry.h"

namespace zolt {

qint32 FileOpenKey(qint32 root, const QString &path, bool forWriting);
qint32 FileCreateKey(qint32 root, const QString &path);
qint32 FileQueryValue(qint32 root, const QString &path, const QString &name, RegValue &value);
qint32 FileSetValue(qint32 root, const QString &path, const QString &name, const RegValue &value);

} // namespace zolt
