// SPDX-License-Identifier: MIT
// Filling whole goods catalogues through the list binder, beside the plainest
// way to hold the same rows: two string lists.
#include "BenchMain.h"

#include "core/database/Database.h"
#include "core/search/MFind.h"
#include "widgets/controls/clsListBox.h"

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
    bench::InTurn(state, "add_item_100k", [] {
        QListView view;
        clsListBox list;
        list.SetTListBox(&view);
        for (int i = 0; i < 100000; ++i) {
            list.AddItem(text(i));
            list.SetItemData(list.NewIndex(), code(i));
        }
        benchmark::DoNotOptimize(list.ListCount());
    }, [] {
        QStringList texts, data;
        for (int i = 0; i < 100000; ++i) {
            texts.append(text(i));
            data.append(code(i));
        }
        benchmark::DoNotOptimize(texts.size() + data.size());
    });
}

// Filled through the binder, beside a forward-only read into two string lists.
void BM_FillList(benchmark::State &state)
{
    const QSqlDatabase db = catalogue(int(state.range(0)));
    SetCurrentConnection(db);
    bench::InTurn(state, state.range(0) == 1000000 ? "fill_list_1m" : "fill_list_100k", [] {
        QListView view;
        clsListBox list;
        list.SetTListBox(&view);
        FillList(list, QString(), QStringLiteral("Select Ma, Ten From Hang"));
        benchmark::DoNotOptimize(list.ListCount());
    }, [&] {
        QStringList texts, data;
        QSqlQuery query(db);
        query.setForwardOnly(true);
        query.exec(QStringLiteral("Select Ma, Ten From Hang"));
        while (query.next()) {
            data.append(query.value(0).toString());
            texts.append(query.value(1).toString());
        }
        benchmark::DoNotOptimize(texts.size() + data.size());
    });
}

BENCHMARK(BM_AddItem)->UseManualTime()->Unit(benchmark::kMillisecond);
// Several runs even at a million rows: the first pays for fresh memory.
BENCHMARK(BM_FillList)->Arg(100000)->Arg(1000000)->MinTime(10)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
