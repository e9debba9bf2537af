// SPDX-License-Identifier: MIT
#pragma once

// The menus of installed windows: the records of the windows, the data of
// their converted items, and the handlers of the menu events that each
// window's record routes here.
//
// Qt plays the old window procedure's part: an event filter on the window,
// its menu bar and its menus sees their events first (WindowProc), and the
// library's style measures and draws the items of converted menus. A popup
// is converted once, just before it first shows.

#include <QIcon>
#include <QList>
#include <QString>

class QAction;
class QEvent;
class QMenu;
class QObject;
class QWidget;

namespace zolt {

class CMyItemDatas;
class HelpCallBack;
class WndCoolMenu;

bool Install(QWidget *wndHandle, HelpCallBack *HelpObj, const QList<QIcon> &ilHandle);
bool Uninstall(QWidget *wndHandle);
void MDIChildMenu(QWidget *hWnd);

// The record of an installed window; nullptr for any other.
WndCoolMenu *InstalledWindow(const QWidget *hWnd);
// The data of every converted item; nullptr while no window is installed.
const CMyItemDatas *ItemDatas();

// Handles an event of an installed window, its menu bar or one of its menus;
// true when the library answered it and Qt must not see it.
bool WindowProc(WndCoolMenu &wnd, QObject *watched, QEvent *event);

// Converts the items of a menu or menu bar and watches their submenus.
void ConvertMenu(WndCoolMenu &wnd, QWidget *menu, bool mainMenu);
// A watched popup is about to show.
void OnInitPopup(WndCoolMenu &wnd, QMenu *popup);
// An item was highlighted: raises its help.
void OnMenuSelect(WndCoolMenu &wnd, QWidget *menu, QAction *item);
// A popup closed: when none is open any more, raises empty help.
void OnMenusClosed(WndCoolMenu &wnd);
// A character was typed in an open menu: selects or runs the item whose
// mnemonic it is; false when it is no item's.
bool OnMenuChar(QMenu *menu, const QString &character);

// The caption as a user reads it: "&" marks gone, "&&" read as "&".
QString ReadableCaption(const QString &caption);

} // namespace zolt
