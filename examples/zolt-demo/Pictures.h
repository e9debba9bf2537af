// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QList>

// The sales application's own pictures for its menus, drawn at 16 and 32
// pixels so that they stay sharp on a screen of twice the density. An item
// names its picture by its place in the list (the action's "iButton").
enum Picture : int { Goods, Person, People, Document, Chart, Key, Find, Filter, Again, Quit };

QList<QIcon> demoPictures();
