// SPDX-License-Identifier: MIT
#pragma once

// What the library can tell a host's developer: statements and stores off by
// default, switched on with QT_LOGGING_RULES="zolt.sql.debug=true;zolt.store.debug=true";
// the errors it goes on past always.

#include <QLoggingCategory>

namespace zolt {

class Error;

// Every statement the library runs, as the engine received it, and its failures.
Q_DECLARE_LOGGING_CATEGORY(zoltSql)
// Every write to the registry store, initialisation files and data-source files.
Q_DECLARE_LOGGING_CATEGORY(zoltStore)
// Every error the library goes on past (a read that can show less, a record
// it could not write), on by default: no error passes without a word.
Q_DECLARE_LOGGING_CATEGORY(zoltErrors)

// Tells zolt.errors what was done without, and why.
void LogIgnored(const char *what, const Error &error);

} // namespace zolt
