// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace zolt {

// The numeric digest stored for a password: the upper-cased characters
// weighted by powers of 4, the first character by 1. Case-blind by design, and
// different passwords may share a digest; stored digests depend on exactly
// this. 0 for an empty password or one holding a character outside 32..127.
// Error 6 when the digest overflows (only for passwords of hundreds of characters).
double EncodePassword(const QString &password);

} // namespace zolt
