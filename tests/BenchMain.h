// SPDX-License-Identifier: MIT
#pragma once

// Every benchmark runs beside its baseline, the same work done the plainest
// way; after the run each declared ratio is printed as "ratio <name> <value>",
// the benchmark's time over its baseline's.

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>

#include <functional>

namespace zolt::bench {

// An SQLite file in a temporary folder, filled once per name by fill (in one
// transaction) and open for the rest of the run.
QSqlDatabase Database(const QString &name, const std::function<void(QSqlQuery &)> &fill);

struct Ratio {
    Ratio(const char *name, const char *measured, const char *baseline);
};

} // namespace zolt::bench
