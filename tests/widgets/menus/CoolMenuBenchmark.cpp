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

// A window with a menu of 1,000 items, made untimed before each showing.
std::unique_ptr<QMainWindow> menuWindow()
{
    auto window = std::make_unique<QMainWindow>();
    QMenu *menu = window->menuBar()->addMenu(QStringLiteral("&Danh mục"));
    for (int i = 0; i < 1000; ++i) {
        QAction *item = menu->addAction(QStringLiteral("Mặt hàng số %1").arg(i));
        item->setStatusTip(QStringLiteral("Xem mặt hàng số %1").arg(i));
    }
    return window;
}

// The menu shown and painted for the first time.
void paint(QMainWindow *window)
{
    QMenu *menu = window->menuBar()->actions().first()->menu();
    menu->popup(QPoint(0, 0));
    benchmark::DoNotOptimize(menu->grab());
    menu->hide();
}

// Installing the library and painting, beside painting as Qt draws it.
void BM_CoolMenu(benchmark::State &state)
{
    HelpCallBack help;
    clsCoolMenu menus;
    std::unique_ptr<QMainWindow> window;
    bench::InTurn(state, "menu_1000_items", [&] {
        menus.Install(window.get(), &help);
        paint(window.get());
    }, [&] { paint(window.get()); }, [&] {
        if (window)
            menus.Uninstall(window.get());
        window = menuWindow();
    });
    menus.Uninstall(window.get());
}

BENCHMARK(BM_CoolMenu)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
