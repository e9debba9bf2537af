// SPDX-License-Identifier: MIT
#pragma once

// Every benchmark runs beside its baseline, the same work done the plainest
// way; after the run each declared ratio is printed as "ratio <name> <value>",
// the benchmark's time over its baseline's.

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>

#include <functional>
#include <string>

namespace zolt::bench {

// An SQLite file in a temporary folder, filled once per name by fill (in one
// transaction) and open for the rest of the run.
QSqlDatabase Database(const QString &name, const std::function<void(QSqlQuery &)> &fill);

struct Ratio {
    Ratio(const char *name, const char *measured, const char *baseline);
};

// A ratio a benchmark measured itself, timing its work and its baseline in
// turn within each iteration (where the two would drift apart if run one
// after the other, as on a shared server); the last run's value is printed.
void MeasuredRatio(const std::string &name, double ratio);

} // namespace zolt::bench
