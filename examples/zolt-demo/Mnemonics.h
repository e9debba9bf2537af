// SPDX-License-Identifier: MIT
#pragma once

#include <QChar>
#include <QString>

class QWidget;

// The letter that reaches an item's mnemonic, as the menus match typed
// letters: case and marks aside ("&Đăng" gives "d"); null when the caption
// has none ("&&" is a plain "&").
QChar MnemonicKey(const QString &caption);

// Captions read from the database (Menu, SubMenu) come without mnemonics:
// each item of the menu or bar that has none gets the first letter of one of
// its words, else any letter of it, whose key no other item has.
void GiveMnemonics(QWidget *menu);
