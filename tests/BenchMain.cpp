// SPDX-License-Identifier: MIT
#include "BenchMain.h"

#include <QApplication>
#include <QFile>
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

// The rise of the peak over the size before, and the process's whole peak.
struct Peak {
    double rise = 0;
    double whole = 0;
};

struct Held {
    Peak library;
    Peak baseline;
    qint64 rows = 0;
};

std::map<std::string, Held> &memory()
{
    static std::map<std::string, Held> values;
    return values;
}

// A size in KiB from /proc/self/status ("VmRSS", "VmHWM").
qint64 statusKiB(const char *field)
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith(field))
            return line.mid(qstrlen(field) + 1).trimmed().split(' ').value(0).toLongLong();
    }
    return 0;
}

Peak peakBytes(const std::function<void()> &work)
{
    malloc_trim(0);
    QFile clear(QStringLiteral("/proc/self/clear_refs"));
    if (clear.open(QIODevice::WriteOnly))
        clear.write("5");   // the peak resident size starts again from the present one
    clear.close();
    const qint64 before = statusKiB("VmRSS:");
    work();
    const qint64 peak = statusKiB("VmHWM:");
    return {double(peak - before) * 1024, double(peak) * 1024};
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

void Memory(const std::string &name, const std::function<void()> &library, const std::function<void()> &baseline,
            qint64 rows)
{
    memory()[name] = {peakBytes(library), peakBytes(baseline), rows};
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
        // Two decimals, or two significant digits for a ratio far below one.
        const auto shown = [](double value) { return QString::number(value, value >= 0.1 ? 'f' : 'g', 2).toStdString(); };
        std::printf("ratio %s %s min %s max %s rounds %zu\n", name.c_str(), shown(values[values.size() / 2]).c_str(),
                    shown(values.front()).c_str(), shown(values.back()).c_str(), values.size());
    }
    for (const auto &[name, held] : zolt::bench::memory()) {
        std::printf("memory %s library %.1f MB (process %.1f MB) baseline %.1f MB (process %.1f MB) process ratio %.2f\n",
                    name.c_str(), held.library.rise / 1e6, held.library.whole / 1e6, held.baseline.rise / 1e6,
                    held.baseline.whole / 1e6, held.library.whole / std::max(1.0, held.baseline.whole));
        if (held.rows > 0)
            std::printf("bytes_a_row %s %.0f\n", name.c_str(), held.library.rise / double(held.rows));
    }
    benchmark::Shutdown();
    return 0;
}
