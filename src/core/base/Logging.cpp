// SPDX-License-Identifier: MIT
#include "core/base/Logging.h"

namespace zolt {

Q_LOGGING_CATEGORY(zoltSql, "zolt.sql", QtWarningMsg)
Q_LOGGING_CATEGORY(zoltStore, "zolt.store", QtWarningMsg)

} // namespace zolt
