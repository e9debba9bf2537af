// SPDX-License-Identifier: MIT
#include "widgets/menus/mCoolMenu.h"

#include "core/text/PrefixMatcher.h"
#include "widgets/menus/CMyItemDatas.h"
#include "widgets/menus/WndCoolMenu.h"
#include "widgets/platform/OleColor.h"

#include <zolt/Error.h>

#include <QActionEvent>
#include <QActionGroup>
#include <QApplication>
#include <QLayout>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QTimer>

#include <map>
#include <memory>

namespace zolt {

namespace {

// Built by the first Install, released by the last Uninstall.
struct ModuleState {
    std::map<const QWidget *, std::unique_ptr<WndCoolMenu>> windows;
    CMyItemDatas items;
    QPointer<const QAction> selected;   // the item whose help was raised last, till a popup opens
};
std::unique_ptr<ModuleState> state;

QMenuBar *MenuBarOf(QWidget *window)
{
    if (auto *main = qobject_cast<QMainWindow *>(window))
        return qobject_cast<QMenuBar *>(main->menuWidget());
    return window->layout() ? qobject_cast<QMenuBar *>(window->layout()->menuBar()) : nullptr;
}

// The position of a menu bar's popup among the window's menu heads; "" for another menu.
QString HeadIndexOf(const WndCoolMenu &wnd, const QWidget *menu)
{
    for (int head = 0; head < wnd.CountMenuHeads(); ++head) {
        if (wnd.GetMenuHead(head) == menu)
            return QString::number(head);
    }
    return QString();
}

void ConvertItem(WndCoolMenu &wnd, QAction *action, bool mainMenu)
{
    CMyItemData &item = state->items.Add(action);
    wnd.Items().insert(action);
    const QString text = action->text();
    const QActionGroup *group = action->actionGroup();
    const bool exclusive = group && group->exclusionPolicy() != QActionGroup::ExclusionPolicy::None;
    item.sMenuText = text.left(text.indexOf(u'\t'));
    item.sMenuHelp = action->statusTip();
    item.bAsMark = action->isCheckable() && exclusive;
    item.bAsCheck = action->isCheckable() && !exclusive;
    item.bMainMenu = mainMenu;
    bool isIndex = false;
    const int picture = action->property("iButton").toInt(&isIndex);
    item.iButton = isIndex ? picture : -1;
    item.fType = action->isSeparator() ? MftSeparator : item.bAsMark ? MftRadioCheck : MftString;
    item.bTrueSub = action->menu() != nullptr;
    if (QMenu *submenu = action->menu()) {
        wnd.Watch(submenu);
        if (mainMenu && HeadIndexOf(wnd, submenu).isEmpty())
            wnd.AddMenuHead(submenu);
    }
}

// An action leaves a menu: its data goes unless another converted menu still shows it.
void ForgetItem(WndCoolMenu &wnd, QAction *action)
{
    for (const QObject *shownIn : action->associatedObjects()) {
        if (auto *menu = qobject_cast<const QWidget *>(shownIn); menu && wnd.IsConverted(menu))
            return;
    }
    state->items.Remove(action);
    wnd.Items().remove(action);
}

// Every drop-down of a bar that is not converted is still converted when it
// opens, as any popup of the window is.
void WatchPopupsOf(WndCoolMenu &wnd, QMenuBar *bar)
{
    wnd.Watch(bar);
    for (QAction *action : bar->actions()) {
        if (action->menu())
            wnd.Watch(action->menu());
    }
}

// A window whose document window put its own menu bar in place: the bar that
// replaced the recorded one is converted, once; any other new bar's popups
// are converted as they open.
void CheckMenuBar(WndCoolMenu &wnd)
{
    QMenuBar *bar = MenuBarOf(wnd.hWnd);
    if (bar && !wnd.IsWatched(bar))
        WatchPopupsOf(wnd, bar);
    if (wnd.SCMainMenu == qintptr(bar) || wnd.SCMainMenu == 0 || wnd.SCMainMenu == WndCoolMenu::NoMenuBar)
        return;
    wnd.SCMainMenu = WndCoolMenu::NoMenuBar;
    if (bar)
        ConvertMenu(wnd, bar, true);
}

// A character that may be a mnemonic: printable, typed with Shift at most.
bool IsMnemonicKey(const QKeyEvent &key)
{
    const QString text = key.text();
    return text.size() == 1 && text.at(0).isPrint() && !text.at(0).isSpace()
        && (key.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == 0;
}

// The character after the "&" that marks a caption's mnemonic; "" for none.
QString MnemonicOf(const QString &caption)
{
    for (qsizetype i = 0; i + 1 < caption.size(); ++i) {
        if (caption.at(i) != u'&')
            continue;
        if (caption.at(i + 1) != u'&')
            return caption.mid(i + 1, 1);
        ++i;
    }
    return QString();
}

} // namespace

bool Install(QWidget *wndHandle, HelpCallBack *HelpObj, const QList<QIcon> &ilHandle)
{
    if (!wndHandle)
        return true;
    if (InstalledWindow(wndHandle))
        throw Error(Error::DuplicateKey);
    if (!state)
        state = std::make_unique<ModuleState>();
    WndCoolMenu &wnd = *state->windows.emplace(wndHandle, std::make_unique<WndCoolMenu>(wndHandle)).first->second;
    wnd.SelectColor = QColorToOleColor(wndHandle->palette().color(QPalette::Active, QPalette::Highlight));
    wnd.ilHandle = ilHandle;
    wnd.HelpObj = HelpObj;
    wnd.SCMainMenu = WndCoolMenu::NoMenuBar;
    wndHandle->installEventFilter(&wnd);
    // A window destroyed while installed takes its record with it.
    QObject::connect(wndHandle, &QObject::destroyed, &wnd, [wndHandle] { Uninstall(wndHandle); });
    if (QMenuBar *bar = MenuBarOf(wndHandle))
        ConvertMenu(wnd, bar, true);
    return true;
}

bool Uninstall(QWidget *wndHandle)
{
    if (!state || !wndHandle)
        return false;
    const auto found = state->windows.find(wndHandle);
    if (found == state->windows.end())
        return false;
    for (const QAction *item : found->second->Items())
        state->items.Remove(item);
    state->windows.erase(found);
    if (state->windows.empty())
        state.reset();
    return true;
}

void MDIChildMenu(QWidget *hWnd)
{
    QWidget *frame = hWnd ? hWnd->window() : nullptr;
    if (WndCoolMenu *wnd = InstalledWindow(frame); wnd && wnd->SCMainMenu != 0)
        wnd->SCMainMenu = qintptr(MenuBarOf(frame));
}

WndCoolMenu *InstalledWindow(const QWidget *hWnd)
{
    if (!state)
        return nullptr;
    const auto found = state->windows.find(hWnd);
    return found == state->windows.end() ? nullptr : found->second.get();
}

const CMyItemDatas *ItemDatas()
{
    return state ? &state->items : nullptr;
}

bool WindowProc(WndCoolMenu &wnd, QObject *watched, QEvent *event)
{
    if (watched == wnd.hWnd) {
        if (event->type() == QEvent::Move || event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest)
            CheckMenuBar(wnd);
        return false;
    }
    auto *menu = static_cast<QWidget *>(watched);
    if (!wnd.IsConverted(menu)) {
        if (auto *bar = qobject_cast<QMenuBar *>(menu); bar && event->type() == QEvent::ActionAdded)
            WatchPopupsOf(wnd, bar);
        return false;
    }
    switch (event->type()) {
    case QEvent::StatusTip:
        return true;   // the help event takes the place of the status tips
    case QEvent::KeyPress: {
        auto *popup = qobject_cast<QMenu *>(menu);
        const auto *key = static_cast<QKeyEvent *>(event);
        return popup && IsMnemonicKey(*key) && OnMenuChar(popup, key->text());
    }
    case QEvent::ActionAdded:
    case QEvent::ActionChanged:
        ConvertItem(wnd, static_cast<QActionEvent *>(event)->action(), qobject_cast<QMenuBar *>(menu) != nullptr);
        break;
    case QEvent::ActionRemoved:
        ForgetItem(wnd, static_cast<QActionEvent *>(event)->action());
        break;
    case QEvent::Hide:
        if (const QString head = HeadIndexOf(wnd, menu); !head.isEmpty() && head == wnd.MainPopedIndex)
            wnd.MainPopedIndex.clear();
        if (qobject_cast<QMenu *>(menu))
            QTimer::singleShot(0, &wnd, [&wnd] { OnMenusClosed(wnd); });
        break;
    default:
        break;
    }
    return false;
}

void ConvertMenu(WndCoolMenu &wnd, QWidget *menu, bool mainMenu)
{
    const bool first = !wnd.IsConverted(menu);
    wnd.Convert(menu);
    for (QAction *action : menu->actions())
        ConvertItem(wnd, action, mainMenu);
    if (!first)
        return;
    if (auto *popup = qobject_cast<QMenu *>(menu))
        QObject::connect(popup, &QMenu::hovered, &wnd, [&wnd, popup](QAction *item) { OnMenuSelect(wnd, popup, item); });
    else if (auto *bar = qobject_cast<QMenuBar *>(menu))
        QObject::connect(bar, &QMenuBar::hovered, &wnd, [&wnd, bar](QAction *item) { OnMenuSelect(wnd, bar, item); });
}

void OnInitPopup(WndCoolMenu &wnd, QMenu *popup)
{
    state->selected = nullptr;
    if (!wnd.IsConverted(popup))
        ConvertMenu(wnd, popup, false);
    if (const QString head = HeadIndexOf(wnd, popup); !head.isEmpty())
        wnd.MainPopedIndex = head;
}

// Once the last popup has closed, no item is highlighted: its help goes.
void OnMenusClosed(WndCoolMenu &wnd)
{
    if (QApplication::activePopupWidget() || !state->selected)
        return;
    state->selected = nullptr;
    if (wnd.HelpObj)
        wnd.HelpObj->RaiseHelpEvent(QString(), QString(), true);
}

void OnMenuSelect(WndCoolMenu &wnd, QWidget *menu, QAction *item)
{
    // Qt tells every menu up to the bar, and again for each move over the
    // item; the item's own menu raises its help once.
    if (!wnd.HelpObj || state->selected == item || !menu->actions().contains(item))
        return;
    state->selected = item;
    if (const CMyItemData *data = state->items.Item(item))
        wnd.HelpObj->RaiseHelpEvent(ReadableCaption(data->sMenuText), data->sMenuHelp, item->isEnabled());
}

bool OnMenuChar(QMenu *menu, const QString &character)
{
    const PrefixMatcher typed(character, true);
    QList<QAction *> matches;
    for (QAction *action : menu->actions()) {
        const CMyItemData *item = state->items.Item(action);
        if (item && action->isVisible() && !action->isSeparator() && typed.Matches(MnemonicOf(item->sMenuText)))
            matches << action;
    }
    if (matches.isEmpty())
        return false;
    if (matches.size() > 1) {   // several share the letter: each press selects the next
        menu->setActiveAction(matches.at((matches.indexOf(menu->activeAction()) + 1) % matches.size()));
        return true;
    }
    menu->setActiveAction(matches.first());
    QKeyEvent run(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QCoreApplication::sendEvent(menu, &run);
    return true;
}

QString ReadableCaption(const QString &caption)
{
    QString readable;
    readable.reserve(caption.size());
    for (qsizetype i = 0; i < caption.size(); ++i) {
        if (caption.at(i) == u'&' && i + 1 < caption.size())
            ++i;
        readable += caption.at(i);
    }
    return readable;
}

} // namespace zolt
