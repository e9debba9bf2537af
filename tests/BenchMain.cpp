// SPDX-License-Identifier: MIT
#include "BenchMain.h"

#include <QApplication>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <malloc.h>
#include <map>
#include <string>
#include <vector>

namespace zolt::bench {

namespace {

// Each ratio's values, one per iteration of the last run of its benchmark.
std::map<std::string, std::vector<double>> &ratios()
{
    static std::map<std::string, std::vector<double>> values;
    return values;
}

double seconds(const std::function<void()> &work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

} // namespace

QSqlDatabase Database(const QString &name, const std::function<void(QSqlQuery &)> &fill)
{
    static QTemporaryDir dir;
    if (QSqlDatabase::contains(name))
        return QSqlDatabase::database(name);
    QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), name);
    db.setDatabaseName(dir.filePath(name));
    db.open();
    QSqlQuery query(db);
    db.transaction();
    fill(query);
    db.commit();
    return db;
}

void InTurn(benchmark::State &state, const std::string &name, const std::function<void()> &library,
            const std::function<void()> &baseline, const std::function<void()> &prepare)
{
    const auto timed = [&](const std::function<void()> &work) {
        if (prepare)
            prepare();
        return seconds(work);
    };
    std::vector<double> &values = ratios()[name];
    values.clear();   // benchmark runs a benchmark more than once to find its iterations: the last run counts
    bool libraryFirst = true;
    double ourTotal = 0, plainTotal = 0;
    for (auto _ : state) {
        double ours = 0, plain = 0;
        if (libraryFirst) {
            ours = timed(library);
            plain = timed(baseline);
        } else {
            plain = timed(baseline);
            ours = timed(library);
        }
        libraryFirst = !libraryFirst;
        state.SetIterationTime(ours + plain);   // a fast library beside a slow baseline still ends
        ourTotal += ours;
        plainTotal += plain;
        values.push_back(ours / plain);
    }
    state.counters["library_ms"] = benchmark::Counter(ourTotal * 1000, benchmark::Counter::kAvgIterations);
    state.counters["baseline_ms"] = benchmark::Counter(plainTotal * 1000, benchmark::Counter::kAvgIterations);
}

} // namespace zolt::bench

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // Fixed allocator thresholds: otherwise glibc tunes them to what ran
    // before, and a benchmark's time depends on its neighbours.
    mallopt(M_MMAP_THRESHOLD, 64 << 20);
    mallopt(M_TRIM_THRESHOLD, 256 << 20);
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::ConsoleReporter reporter(benchmark::ConsoleReporter::OO_Tabular);   // no colours before the ratio lines
    benchmark::RunSpecifiedBenchmarks(&reporter);
    for (auto &[name, values] : zolt::bench::ratios()) {
        if (values.empty())
            continue;
        std::sort(values.begin(), values.end());
        std::printf("ratio %s %.2f min %.2f max %.2f rounds %zu\n", name.c_str(), values[values.size() / 2], values.front(),
                    values.back(), values.size());
    }
    benchmark::Shutdown();
    return 0;
}
