// SPDX-License-Identifier: MIT
#include "BenchMain.h"

#include <QApplication>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <array>
#include <cstdio>
#include <malloc.h>
#include <map>
#include <string>
#include <vector>

namespace zolt::bench {

namespace {

std::vector<std::array<const char *, 3>> &declared()
{
    static std::vector<std::array<const char *, 3>> ratios;   // name, measured, baseline
    return ratios;
}

// The console's report, and each benchmark's seconds per iteration.
class Reporter : public benchmark::ConsoleReporter {
public:
    Reporter()
        : ConsoleReporter(OO_Tabular)   // no colours: the ratio lines start their lines
    {
    }

    void ReportRuns(const std::vector<Run> &runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run &run : runs)
            seconds[run.benchmark_name()] = run.real_accumulated_time / double(run.iterations);
    }
    std::map<std::string, double> seconds;
};

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

std::map<std::string, double> &measured()
{
    static std::map<std::string, double> ratios;
    return ratios;
}

void MeasuredRatio(const std::string &name, double ratio)
{
    measured()[name] = ratio;
}

Ratio::Ratio(const char *name, const char *measured, const char *baseline)
{
    declared().push_back({name, measured, baseline});
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
    zolt::bench::Reporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    for (const auto &[name, measured, baseline] : zolt::bench::declared()) {
        if (reporter.seconds.count(measured) && reporter.seconds.count(baseline))
            std::printf("ratio %s %.2f\n", name, reporter.seconds[measured] / reporter.seconds[baseline]);
    }
    for (const auto &[name, ratio] : zolt::bench::measured())
        std::printf("ratio %s %.2f\n", name.c_str(), ratio);
    benchmark::Shutdown();
    return 0;
}
