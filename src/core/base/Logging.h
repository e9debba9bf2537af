// SPDX-License-Identifier: MIT
#pragma once

// What the library can tell a host's developer, off by default; switched on
// with QT_LOGGING_RULES="zolt.sql.debug=true;zolt.store.debug=true".

#include <QLoggingCategory>

namespace zolt {

// Every statement the library runs, as the engine received it, and its failures.
Q_DECLARE_LOGGING_CATEGORY(zoltSql)
// Every write to the registry store, initialisation files and data-source files.
Q_DECLARE_LOGGING_CATEGORY(zoltStore)

} // namespace zolt
