// SPDX-License-Identifier: MIT
// Installing the library on a window and painting a menu of 1,000 items for
// the first time, beside painting the same menu as Qt draws it.
#include "BenchMain.h"

#include <zolt/HelpCallBack.h>
#include <zolt/clsCoolMenu.h>

#include <QMainWindow>
#include <QMenuBar>

#include <benchmark/benchmark.h>

using namespace zolt;

namespace {

void paintMenu(benchmark::State &state, bool cool)
{
    HelpCallBack help;
    clsCoolMenu menus;
    for (auto _ : state) {
        state.PauseTiming();
        auto window = std::make_unique<QMainWindow>();
        QMenu *menu = window->menuBar()->addMenu(QStringLiteral("&Danh mục"));
        for (int i = 0; i < 1000; ++i) {
            QAction *item = menu->addAction(QStringLiteral("Mặt hàng số %1").arg(i));
            item->setStatusTip(QStringLiteral("Xem mặt hàng số %1").arg(i));
        }
        state.ResumeTiming();
        if (cool)
            menus.Install(window.get(), &help);
        menu->popup(QPoint(0, 0));
        benchmark::DoNotOptimize(menu->grab());
        state.PauseTiming();
        menu->hide();
        menus.Uninstall(window.get());
        window.reset();
        state.ResumeTiming();
    }
}

void BM_CoolMenu(benchmark::State &state) { paintMenu(state, true); }
void BM_QtMenu(benchmark::State &state) { paintMenu(state, false); }

BENCHMARK(BM_CoolMenu)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_QtMenu)->Unit(benchmark::kMillisecond);

const bench::Ratio ratios[] = {{"menu_1000_items", "BM_CoolMenu", "BM_QtMenu"}};

} // namespace
