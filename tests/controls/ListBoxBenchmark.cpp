// SPDX-License-Identifier: MIT
// Filling whole goods catalogues through the list binder, beside the plainest
// way to hold the same rows: two string lists.
#include "BenchMain.h"

#include "controls/clsListBox.h"
#include "data/Database.h"
#include "search/MFind.h"

#include <QListView>
#include <QSqlQuery>

#include <benchmark/benchmark.h>

using namespace zolt;

namespace {

QString text(int i) { return QStringLiteral("Mặt hàng số %1").arg(i); }
QString code(int i) { return QStringLiteral("MH%1").arg(i, 7, 10, QLatin1Char('0')); }

// A catalogue of rows goods in an SQLite file, made once per size.
QSqlDatabase catalogue(int rows)
{
    return bench::Database(QStringLiteral("goods%1").arg(rows), [rows](QSqlQuery &query) {
        query.exec(QStringLiteral("Create Table Hang(Ma Text, Ten Text)"));
        query.prepare(QStringLiteral("Insert Into Hang Values(?, ?)"));
        for (int i = 0; i < rows; ++i) {
            query.addBindValue(code(i));
            query.addBindValue(text(i));
            query.exec();
        }
    });
}

void BM_AddItem(benchmark::State &state)
{
    for (auto _ : state) {
        QListView view;
        clsListBox list;
        list.SetTListBox(&view);
        for (int i = 0; i < state.range(0); ++i) {
            list.AddItem(text(i));
            list.SetItemData(list.NewIndex(), code(i));
        }
        benchmark::DoNotOptimize(list.ListCount());
    }
}

void BM_StringListPair(benchmark::State &state)
{
    for (auto _ : state) {
        QStringList texts, data;
        for (int i = 0; i < state.range(0); ++i) {
            texts.append(text(i));
            data.append(code(i));
        }
        benchmark::DoNotOptimize(texts.size() + data.size());
    }
}

void BM_FillList(benchmark::State &state)
{
    SetCurrentConnection(catalogue(int(state.range(0))));
    for (auto _ : state) {
        QListView view;
        clsListBox list;
        list.SetTListBox(&view);
        FillList(list, QString(), QStringLiteral("Select Ma, Ten From Hang"));
        benchmark::DoNotOptimize(list.ListCount());
    }
}

void BM_QueryRead(benchmark::State &state)
{
    const QSqlDatabase db = catalogue(int(state.range(0)));
    for (auto _ : state) {
        QStringList texts, data;
        QSqlQuery query(db);
        query.exec(QStringLiteral("Select Ma, Ten From Hang"));
        while (query.next()) {
            data.append(query.value(0).toString());
            texts.append(query.value(1).toString());
        }
        benchmark::DoNotOptimize(texts.size() + data.size());
    }
}

BENCHMARK(BM_AddItem)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_StringListPair)->Arg(100000)->Unit(benchmark::kMillisecond);
// Several runs even at a million rows: the first pays for fresh memory.
BENCHMARK(BM_FillList)->Arg(100000)->Arg(1000000)->MinTime(3)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_QueryRead)->Arg(100000)->Arg(1000000)->MinTime(3)->Unit(benchmark::kMillisecond);

const bench::Ratio ratios[] = {
    {"add_item_100k", "BM_AddItem/100000", "BM_StringListPair/100000"},
    {"fill_list_100k", "BM_FillList/100000/min_time:3.000", "BM_QueryRead/100000/min_time:3.000"},
    {"fill_list_1m", "BM_FillList/1000000/min_time:3.000", "BM_QueryRead/1000000/min_time:3.000"},
};

} // namespace
