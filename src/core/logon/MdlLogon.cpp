// SPDX-License-Identifier: MIT
#include "core/logon/MdlLogon.h"

#include <zolt/Error.h>

#include <cmath>

namespace zolt {

double EncodePassword(const QString &password)
{
    // Each character's code in the 8-bit code page, upper-cased there: a
    // character beyond 127 (or none) gives no digest, before any case change
    // could turn it into others ("ß" into "SS").
    for (const QChar c : password) {
        if (c.unicode() < 32 || c.unicode() > 127)
            return 0.0;
    }
    double digest = 0.0;
    for (auto c = password.crbegin(); c != password.crend(); ++c)
        digest = digest * 4.0 + QChar::toUpper(c->unicode());
    if (!std::isfinite(digest))
        throw Error(Error::Overflow);
    return digest;
}

} // namespace zolt
