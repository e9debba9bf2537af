// SPDX-License-Identifier: MIT
#include "logon/MdlLogon.h"

#include "data/Conversions.h"

#include <zolt/Error.h>

#include <cmath>

namespace zolt {

double EncodePassword(const QString &password)
{
    const QString upper = UCase(password);
    for (const QChar c : upper) {
        if (c.unicode() < 32 || c.unicode() > 127)
            return 0.0;
    }
    double digest = 0.0;
    for (auto c = upper.crbegin(); c != upper.crend(); ++c)
        digest = digest * 4.0 + c->unicode();
    if (!std::isfinite(digest))
        throw Error(Error::Overflow);
    return digest;
}

} // namespace zolt
