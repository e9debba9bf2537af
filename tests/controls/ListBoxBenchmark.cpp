// Filling and searching whole goods catalogues through the list binder.
#include "controls/clsListBox.h"

#include <QApplication>
#include <QListView>
#include <QListWidget>

#include <benchmark/benchmark.h>

using namespace zolt;

namespace {

constexpr int Rows = 100000;

template <typename View>
void fill(clsListBox &list)
{
    for (int i = 0; i < Rows; ++i) {
        list.AddItem(QStringLiteral("Mặt hàng số %1").arg(i));
        list.SetItemData(list.NewIndex(), QStringLiteral("MH%1").arg(i, 6, 10, QLatin1Char('0')));
    }
}

template <typename View>
void BM_Fill(benchmark::State &state)
{
    for (auto _ : state) {
        View view;
        view.setUniformItemSizes(true);
        clsListBox list;
        list.SetTListBox(&view);
        fill<View>(list);
        benchmark::DoNotOptimize(list.ListCount());
    }
    state.SetItemsProcessed(state.iterations() * Rows);
}

template <typename View>
void BM_FindLast(benchmark::State &state)
{
    View view;
    view.setUniformItemSizes(true);
    clsListBox list;
    list.SetTListBox(&view);
    fill<View>(list);
    for (auto _ : state) {
        list.SetValue(QStringLiteral("mh099999"));
        benchmark::DoNotOptimize(list.ListIndex());
    }
}

BENCHMARK(BM_Fill<QListView>)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Fill<QListWidget>)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FindLast<QListView>)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FindLast<QListWidget>)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
