// SPDX-License-Identifier: MIT
#pragma once

// What the library draws for one menu item: read from its QAction when the
// item's menu is converted, and again whenever the action changes.

#include <QString>

namespace zolt {

// Item kinds as the classic menus flagged them.
enum MenuItemType : qint32 { MftString = 0x0, MftRadioCheck = 0x200, MftSeparator = 0x800 };

struct CMyItemData {
    bool bTrueSub = false;     // opens a submenu
    QString sMenuHelp;         // raised when the item is highlighted
    bool bAsMark = false;      // a radio mark: checkable within an exclusive group
    bool bAsCheck = false;     // a check mark
    bool bMainMenu = false;    // an item of the menu bar
    int iButton = -1;          // its picture in the window's image list; −1 for the action's own icon
    qint32 fType = MftString;
    QString sMenuText;         // the caption, "&" marking the mnemonic, without a "\t" part
};

} // namespace zolt
