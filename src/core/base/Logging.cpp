// SPDX-License-Identifier: MIT
#include "core/base/Logging.h"

#include <zolt/Error.h>

namespace zolt {

Q_LOGGING_CATEGORY(zoltSql, "zolt.sql", QtWarningMsg)
Q_LOGGING_CATEGORY(zoltStore, "zolt.store", QtWarningMsg)
Q_LOGGING_CATEGORY(zoltErrors, "zolt.errors", QtInfoMsg)

void LogIgnored(const char *what, const Error &error)
{
    qCInfo(zoltErrors).noquote() << what << "(error" << error.number() << "):" << error.description();
}

} // namespace zolt
