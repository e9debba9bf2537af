// SPDX-License-Identifier: MIT
#include <zolt/MenuRights.h>

#include "core/base/Conversions.h"

namespace zolt {

quint8 GetBit(const QVariant &Value, qint32 Pos)
{
    if (Value.isNull())
        return 0;
    // Whole-number division rounds to a 32-bit number first, half to even.
    double x = ToDouble(Value);
    for (qint32 i = 0; x > 0 && i < Pos; ++i)
        x = RoundToLong(x) / 2;
    return x > 0 ? quint8(RoundToLong(x) % 2) : 0;
}

} // namespace zolt
