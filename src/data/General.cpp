#include "data/General.h"

#include "data/Conversions.h"

#include <zolt/Tesmir.h>

namespace zolt {

double NumVal(const QVariant &value)
{
    if (!IsNumeric(value))
        return 0.0;
    return RoundToLong(ToDouble(value));
}

void PressKey(qint32 Key, qint32 Shift)
{
    Tesmir().Gui_Phim(Key, Shift);
}

} // namespace zolt
