// SPDX-License-Identifier: MIT
#pragma once

// Every benchmark times the library beside its baseline, the same work done
// the plainest way, and prints "ratio <name> <value>" with its spread: the
// library's time over the baseline's.

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>

#include <benchmark/benchmark.h>

#include <functional>
#include <string>

namespace zolt::bench {

// An SQLite file in a temporary folder, filled once per name by fill (in one
// transaction) and open for the rest of the run.
QSqlDatabase Database(const QString &name, const std::function<void(QSqlQuery &)> &fill);

// Times the library's work and its baseline in turn within each iteration
// (the first of the two alternating), so that both meet the same machine: a
// change of load moves both. Each iteration's ratio is kept; after the run
// "ratio <name> <median> min <min> max <max> rounds <n>" is printed. Register
// the benchmark with ->UseManualTime(): its time is the two together, and the
// counters library_ms and baseline_ms are each one's. prepare, when given,
// runs untimed before each of the two.
void InTurn(benchmark::State &state, const std::string &name, const std::function<void()> &library,
            const std::function<void()> &baseline, const std::function<void()> &prepare = {});

// The most memory each of the two holds at once, measured once after the
// timed rounds: the rise of the process's peak resident size (Linux's VmHWM,
// reset first) over its size before, freed memory given back to the system
// first, and the process's whole peak. After the ratios "memory <name>
// library <MB> (process <MB>) baseline <MB> (process <MB>) process ratio <r>"
// is printed, and with rows "bytes_a_row <name> <n>": the library's rise over
// the rows.
void Memory(const std::string &name, const std::function<void()> &library, const std::function<void()> &baseline,
            qint64 rows = 0);

} // namespace zolt::bench
