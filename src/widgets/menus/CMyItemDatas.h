// SPDX-License-Identifier: MIT
#pragma once

// The data of every converted menu item of every installed window, keyed by
// the item's action.

#include "widgets/menus/CMyItemData.h"

#include <QHash>

class QAction;

namespace zolt {

class CMyItemDatas {
public:
    // A new item under that key (replacing one kept there), to be filled in.
    CMyItemData &Add(const QAction *sKey);
    // The item kept under that key; nullptr when there is none.
    const CMyItemData *Item(const QAction *vntIndexKey) const;
    qsizetype Count() const { return m_items.size(); }
    void Remove(const QAction *vntIndexKey);

private:
    QHash<const QAction *, CMyItemData> m_items;
};

} // namespace zolt
