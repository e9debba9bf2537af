// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// Menu rights as the groups dialog stores them: in the group's row of table
/// Groups, one whole-number column per menu bar (the columns after Des, in the
/// order of table Menu), each a bit mask over that bar's sub-menus (in the
/// order of SubMenu.ID). Bit i set: the group may use sub-menu i.

#include <zolt/zolt_export.h>

#include <QVariant>

namespace zolt {

/// Bit Pos (0 = least significant) of Value: 1 or 0. A value of 0 or below,
/// or a database Null, has no bit set. A value that is not a number raises
/// zolt::Error 13; one beyond the 32-bit range, error 6.
ZOLT_EXPORT quint8 GetBit(const QVariant &Value, qint32 Pos);

} // namespace zolt
