// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// What the library does with the host's connection when its server goes away.

#include <zolt/zolt_export.h>

namespace zolt {

/// On by default: when a statement fails because the server went away (a
/// restart, a network cut), the library closes the host's connection and opens
/// it again with the same settings, once per statement, and runs a read once
/// more; a write is never run again but reported, so that the clerk can try
/// again. While the server stays away every call tries again, so the first call
/// after it is back works. Session settings made by statements (SET ...) do not
/// survive; give them as connect options. Off: a connection whose server went
/// away stays closed until the host opens it.
ZOLT_EXPORT void ReopenLostConnections(bool on);

} // namespace zolt
