// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// The password digest that table [User] stores in its column Password.

#include <zolt/zolt_export.h>

#include <QString>

namespace zolt {

/// The numeric digest stored for a password: the upper-cased characters
/// weighted by powers of 4, the first character by 1 ("admin" gives 26209).
/// Case-blind by design, and different passwords may share a digest; stored
/// digests depend on exactly this. 0 for an empty password or one holding a
/// character outside 32..127. zolt::Error 6 when the digest overflows (only
/// for passwords of hundreds of characters).
ZOLT_EXPORT double EncodePassword(const QString &password);

} // namespace zolt
