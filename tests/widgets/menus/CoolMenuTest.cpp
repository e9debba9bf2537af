// SPDX-License-Identifier: MIT
#include "widgets/menus/CMyItemDatas.h"
#include "widgets/menus/mCoolMenu.h"
#include "widgets/menus/WndCoolMenu.h"

#include "DialogSupport.h"
#include "TestSupport.h"

#include <zolt/HelpCallBack.h>
#include <zolt/clsCoolMenu.h>

#include <QActionGroup>
#include <QHash>
#include <QMainWindow>
#include <QMenuBar>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>
#include <cmath>

using namespace zolt;
using namespace Qt::StringLiterals;

namespace {

// A sales window's menus: shortcuts, a picture from the image list, a
// disabled item, an item without help, a check, radio marks, a submenu.
struct SalesWindow {
    QMainWindow window;
    QMenu *file = window.menuBar()->addMenu(u"&Tệp"_s);
    QMenu *recent = new QMenu(u"Gần đâ&y"_s, file);
    QAction *open = file->addAction(u"&Mở chứng từ"_s);
    QAction *save = file->addAction(u"&Lưu"_s);
    QAction *print = file->addAction(u"&In"_s);
    QAction *close = file->addAction(u"Đó&ng"_s);
    QAction *toolbar = file->addAction(u"&Thanh công cụ"_s);
    QAction *list = file->addAction(u"&Danh sách"_s);
    QAction *detail = file->addAction(u"&Đầy đủ"_s);
    HelpCallBack help;
    clsCoolMenu menus;

    SalesWindow()
    {
        open->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_O));
        open->setStatusTip(u"Mở một chứng từ đã lưu"_s);
        save->setProperty("iButton", 0);
        save->setStatusTip(u"Lưu chứng từ"_s);
        print->setEnabled(false);
        print->setIcon(pictureOf(Qt::darkRed));
        print->setStatusTip(u"In chứng từ"_s);
        toolbar->setCheckable(true);
        toolbar->setChecked(true);
        auto *view = new QActionGroup(file);
        for (QAction *mark : {list, detail}) {
            mark->setCheckable(true);
            view->addAction(mark);
        }
        list->setChecked(true);
        file->insertSeparator(toolbar);
        recent->addAction(u"Hoá đơn 0001"_s);
        file->addMenu(recent);
        window.resize(400, 300);
    }
    bool install() { return menus.Install(&window, &help, {pictureOf(Qt::darkGreen)}); }

    static QIcon pictureOf(Qt::GlobalColor colour)
    {
        QPixmap pixmap(16, 16);
        pixmap.fill(colour);
        return QIcon(pixmap);
    }
};

// The menu as it shows at a place of the screen, pixel for pixel.
QImage shown(QMenu *menu)
{
    menu->popup(QPoint(20, 20));
    EXPECT_TRUE(QTest::qWaitForWindowExposed(menu));
    const QImage picture = menu->grab().toImage();
    menu->hide();
    return picture;
}

void hover(QMenu *menu, QAction *action)
{
    QTest::mouseMove(menu, QPoint(-20, -20));   // outside: no item
    QTest::mouseMove(menu, menu->actionGeometry(action).center());
}

} // namespace

TEST(CoolMenu, InstallAndUninstallKeepTheirContract)
{
    clsCoolMenu menus;
    EXPECT_FALSE(menus.Uninstall(nullptr));
    EXPECT_TRUE(menus.Install(nullptr));
    EXPECT_EQ(ItemDatas(), nullptr);   // nothing was built
    QWidget never;
    EXPECT_FALSE(menus.Uninstall(&never));
    EXPECT_EQ(menus.FontSize(&never), 0);
    EXPECT_EQ(menus.FontName(&never, u"Arial"_s), QString());
    EXPECT_FALSE(menus.FullSelect(&never));

    SalesWindow sales;
    EXPECT_TRUE(sales.install());
    WndCoolMenu *wnd = InstalledWindow(&sales.window);
    ASSERT_NE(wnd, nullptr);
    EXPECT_EQ(wnd->SCMainMenu, WndCoolMenu::NoMenuBar);
    EXPECT_EQ(test::errorNumberOf([&] { sales.install(); }), 457);
    EXPECT_EQ(InstalledWindow(&sales.window), wnd);

    EXPECT_TRUE(sales.menus.Uninstall(&sales.window));
    EXPECT_EQ(ItemDatas(), nullptr);   // the last window took the module's state with it
    EXPECT_FALSE(sales.menus.Uninstall(&sales.window));
    EXPECT_TRUE(sales.install());
    EXPECT_NE(ItemDatas(), nullptr);
    EXPECT_TRUE(sales.menus.Uninstall(&sales.window));
}

TEST(CoolMenu, StyleSettingsReadBackAndRefuseWhatDoesNotConvert)
{
    SalesWindow sales;
    sales.install();
    clsCoolMenu &m = sales.menus;
    QWidget *w = &sales.window;
    const QColor highlight = w->palette().color(QPalette::Highlight);
    EXPECT_EQ(m.FontSize(w), 8);
    EXPECT_EQ(m.SelectColor(w), highlight.red() | highlight.green() << 8 | highlight.blue() << 16);
    EXPECT_EQ(m.FontName(w), QString());
    EXPECT_EQ(m.ForeColor(w), 0);
    EXPECT_TRUE(m.ColorEmbossed(w) && m.FullSelect(w) && m.ComplexChecks(w));
    EXPECT_FALSE(m.RightToLeft(w));

    EXPECT_EQ(m.FontSize(w, u"10.5"_s), 10);   // half to even
    EXPECT_EQ(m.FontSize(w, u"mười"_s), 0);
    EXPECT_EQ(m.FontSize(w, 1e12), 0);
    EXPECT_EQ(m.FontSize(w), 10);
    EXPECT_EQ(m.ForeColor(w, 255), 255);
    EXPECT_TRUE(m.RightToLeft(w, u"True"_s));
    EXPECT_FALSE(m.FullSelect(w, 0));
    EXPECT_FALSE(m.ComplexChecks(w, u"có"_s));
    EXPECT_TRUE(m.ComplexChecks(w));
    EXPECT_EQ(m.FontName(w, u"DejaVu Serif"_s), u"DejaVu Serif"_s);
    EXPECT_EQ(InstalledWindow(w)->MenuFont.family(), u"DejaVu Serif"_s);
    EXPECT_EQ(InstalledWindow(w)->MenuFont.pointSize(), 10);
    EXPECT_EQ(sales.window.menuBar()->layoutDirection(), Qt::RightToLeft);
}

TEST(CoolMenu, APopupIsConvertedOnceJustBeforeItShows)
{
    SalesWindow sales;
    sales.install();
    WndCoolMenu *wnd = InstalledWindow(&sales.window);
    EXPECT_TRUE(wnd->IsConverted(sales.window.menuBar()));
    EXPECT_EQ(wnd->CountMenuHeads(), 1);
    EXPECT_FALSE(wnd->IsConverted(sales.file));
    EXPECT_EQ(ItemDatas()->Item(sales.open), nullptr);

    QStyle *styleAtShow = nullptr;   // before Qt measures the menu
    QObject::connect(sales.file, &QMenu::aboutToShow, sales.file, [&] { styleAtShow = sales.file->style(); });
    shown(sales.file);
    const qsizetype items = ItemDatas()->Count();
    shown(sales.file);
    EXPECT_EQ(ItemDatas()->Count(), items);
    EXPECT_TRUE(styleAtShow && wnd->IsConverted(sales.file) && styleAtShow == sales.file->style());
    EXPECT_EQ(wnd->MainPopedIndex, QString());   // closed again

    const CMyItemData *save = ItemDatas()->Item(sales.save);
    ASSERT_NE(save, nullptr);
    EXPECT_EQ(save->iButton, 0);
    EXPECT_EQ(save->sMenuText, u"&Lưu"_s);
    EXPECT_TRUE(ItemDatas()->Item(sales.toolbar)->bAsCheck);
    EXPECT_TRUE(ItemDatas()->Item(sales.detail)->bAsMark);
    EXPECT_TRUE(ItemDatas()->Item(sales.recent->menuAction())->bTrueSub);
    EXPECT_FALSE(wnd->IsConverted(sales.recent));   // until it opens

    sales.save->setStatusTip(u"Ghi lại"_s);   // the item follows its action
    EXPECT_EQ(ItemDatas()->Item(sales.save)->sMenuHelp, u"Ghi lại"_s);
}

TEST(CoolMenu, HighlightRaisesTheItemsHelpByMouseAndKeyboard)
{
    SalesWindow sales;
    sales.install();
    QSignalSpy help(&sales.help, &HelpCallBack::MenuHelp);
    sales.file->popup(QPoint(20, 20));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(sales.file));

    hover(sales.file, sales.print);
    QTest::keyClick(sales.file, Qt::Key_Down);   // to "Đóng", which has no help
    hover(sales.file, sales.open);
    ASSERT_EQ(help.size(), 3);
    EXPECT_EQ(help.at(0), (QVariantList{u"In"_s, u"In chứng từ"_s, false}));
    EXPECT_EQ(help.at(1), (QVariantList{u"Đóng"_s, QString(), true}));
    EXPECT_EQ(help.at(2), (QVariantList{u"Mở chứng từ"_s, u"Mở một chứng từ đã lưu"_s, true}));
    QTest::keyClick(sales.file, Qt::Key_Escape);   // closed: the help goes
    ASSERT_TRUE(QTest::qWaitFor([&] { return help.size() == 4; }, 1000));
    EXPECT_EQ(help.at(3), (QVariantList{QString(), QString(), true}));
}

// The usual accessibility guidance: text at least 4.5 times as bright as its
// background, or the other way round.
double contrast(QRgb a, QRgb b)
{
    const auto luminance = [](QRgb c) {
        const auto linear = [](int v) {
            const double f = v / 255.0;
            return f <= 0.03928 ? f / 12.92 : std::pow((f + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(qRed(c)) + 0.7152 * linear(qGreen(c)) + 0.0722 * linear(qBlue(c));
    };
    const double la = luminance(a), lb = luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

// The caption of an item as it shows highlighted (past the picture).
QImage highlightedCaption(QMenu *menu, QAction *item)
{
    menu->popup(QPoint(20, 20));
    EXPECT_TRUE(QTest::qWaitForWindowExposed(menu));
    menu->setActiveAction(item);
    const QRect place = menu->actionGeometry(item);
    const QImage caption = menu->grab(place.adjusted(place.width() / 4, 0, 0, 0)).toImage();
    menu->hide();
    return caption;
}

// A disabled item, highlighted so that its help shows, still reads against
// the selection, whatever colour the selection is, and can be told from an
// enabled one.
TEST(CoolMenu, AHighlightedDisabledItemReadsAgainstTheSelectionAndLooksDisabled)
{
    for (const QColor selection : {QColor(0x30, 0x8c, 0xc6), QColor(0x00, 0x00, 0x80), QColor(0xff, 0xd7, 0x00)}) {
        SalesWindow sales;
        QPalette palette = sales.window.palette();
        palette.setColor(QPalette::Highlight, selection);
        sales.window.setPalette(palette);
        sales.install();
        const QImage disabled = highlightedCaption(sales.file, sales.print);
        QHash<QRgb, int> colours;   // the band is the colour most of the caption's place has
        for (int y = 0; y < disabled.height(); ++y) {
            for (int x = 0; x < disabled.width(); ++x)
                ++colours[disabled.pixel(x, y)];
        }
        const QRgb band = std::max_element(colours.keyValueBegin(), colours.keyValueEnd(),
                                           [](auto a, auto b) { return a.second < b.second; })->first;
        double best = 1;
        for (auto [colour, count] : colours.asKeyValueRange())
            best = std::max(best, contrast(colour, band));
        EXPECT_GE(best, 4.5) << selection.name().toStdString();
        sales.print->setEnabled(true);
        const QImage enabled = highlightedCaption(sales.file, sales.print);
        // Visibly: pixels apart by a third of the way in a colour of their own.
        int differing = 0;
        for (int y = 0; y < std::min(disabled.height(), enabled.height()); ++y) {
            for (int x = 0; x < std::min(disabled.width(), enabled.width()); ++x) {
                const QRgb a = disabled.pixel(x, y), b = enabled.pixel(x, y);
                differing += std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                                       std::abs(qBlue(a) - qBlue(b))}) > 85;
            }
        }
        EXPECT_GT(differing, 40) << selection.name().toStdString();
    }
}

TEST(CoolMenu, ATypedLetterRunsOrSelectsTheItemsWhoseMnemonicItIs)
{
    SalesWindow sales;
    sales.install();
    QSignalSpy closed(sales.close, &QAction::triggered);
    sales.file->popup(QPoint(20, 20));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(sales.file));
    QTest::keyClick(sales.file, Qt::Key_D, Qt::NoModifier);   // "d": Danh sách and Đầy đủ, accents aside
    EXPECT_EQ(sales.file->activeAction(), sales.list);
    QTest::sendKeyEvent(QTest::Click, sales.file, Qt::Key_unknown, u"D"_s, Qt::ShiftModifier);
    EXPECT_EQ(sales.file->activeAction(), sales.detail);
    QTest::sendKeyEvent(QTest::Click, sales.file, Qt::Key_unknown, u"đ"_s, Qt::NoModifier);   // only Đầy đủ
    EXPECT_TRUE(sales.detail->isChecked());
    EXPECT_FALSE(sales.file->isVisible());

    sales.file->popup(QPoint(20, 20));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(sales.file));
    QTest::keyClick(sales.file, Qt::Key_N);
    EXPECT_EQ(closed.size(), 1);
}

// The bar itself only after MDIChildMenu; its drop-downs whenever they open.
TEST(CoolMenu, AReplacedMenuBarIsConvertedOnlyAfterMDIChildMenu)
{
    SalesWindow sales;
    sales.install();
    WndCoolMenu *wnd = InstalledWindow(&sales.window);
    const auto replaceBar = [&] {
        auto *bar = new QMenuBar;
        bar->addMenu(u"&Chứng từ"_s)->addAction(u"&Hoá đơn"_s);
        sales.window.setMenuBar(bar);
        sales.window.show();
        QCoreApplication::sendPostedEvents();
        QTest::qWait(10);
        return bar;
    };
    QMenuBar *second = replaceBar();
    EXPECT_FALSE(wnd->IsConverted(second));
    QMenu *vouchers = second->actions().at(0)->menu();
    QMenu *later = second->addMenu(u"&Kho"_s);
    later->addAction(u"&Nhập kho"_s);
    for (QMenu *popup : {vouchers, later}) {
        popup->popup(QPoint(20, 20));
        ASSERT_TRUE(QTest::qWaitForWindowExposed(popup));
        EXPECT_TRUE(wnd->IsConverted(popup));
        popup->hide();
    }
    QWidget document(&sales.window);
    sales.menus.MDIChildMenu(&document);
    EXPECT_EQ(wnd->SCMainMenu, qintptr(sales.window.menuBar()));
    QMenuBar *third = replaceBar();
    EXPECT_TRUE(wnd->IsConverted(third));
    EXPECT_EQ(wnd->SCMainMenu, WndCoolMenu::NoMenuBar);
    EXPECT_FALSE(wnd->IsConverted(replaceBar()));
}

TEST(CoolMenu, EverySettingShowsAndUninstallGivesTheMenuItsOwnLookBack)
{
    SalesWindow sales;
    const QImage before = shown(sales.file);
    sales.install();
    const QImage cool = shown(sales.file);
    EXPECT_NE(cool, before);
    clsCoolMenu &m = sales.menus;
    QWidget *w = &sales.window;
    const std::function<void(bool)> settings[] = {
        [&](bool on) { m.FontName(w, on ? u"DejaVu Serif"_s : QString()); },
        [&](bool on) { m.FontSize(w, on ? 11 : 8); },
        [&](bool on) { m.ForeColor(w, on ? 0xC00000 : 0); },
        [&](bool on) { m.ComplexChecks(w, !on); },
        [&](bool on) { m.ColorEmbossed(w, !on); },
        [&](bool on) { m.RightToLeft(w, on); },
    };
    for (const auto &setting : settings) {
        setting(true);
        EXPECT_NE(shown(sales.file), cool);
        setting(false);
        EXPECT_EQ(shown(sales.file), cool);
    }
    sales.file->popup(QPoint(20, 20));   // the selection, full or behind the caption only
    ASSERT_TRUE(QTest::qWaitForWindowExposed(sales.file));
    hover(sales.file, sales.save);
    const QImage full = sales.file->grab().toImage();
    m.SelectColor(w, 0x00FF00);
    const QImage green = sales.file->grab().toImage();
    m.FullSelect(w, false);
    EXPECT_NE(sales.file->grab().toImage(), green);
    EXPECT_NE(green, full);
    sales.file->hide();

    EXPECT_TRUE(m.Uninstall(w));
    EXPECT_EQ(shown(sales.file), before);
}

TEST(CoolMenu, AHundredWindowsInstallAndUninstall)
{
    std::vector<std::unique_ptr<SalesWindow>> windows(100);
    for (auto &sales : windows) {
        sales = std::make_unique<SalesWindow>();
        sales->install();
        shown(sales->file);
    }
    for (auto &sales : windows)
        EXPECT_TRUE(sales->menus.Uninstall(&sales->window));
    EXPECT_EQ(ItemDatas(), nullptr);
    // A window destroyed while installed takes its record with it.
    auto gone = std::make_unique<SalesWindow>();
    QWidget *window = &gone->window;
    gone->install();
    gone.reset();
    EXPECT_EQ(InstalledWindow(window), nullptr);
}
