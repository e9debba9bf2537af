// SPDX-License-Identifier: MIT
#include "widgets/menus/CMyItemDatas.h"

namespace zolt {

CMyItemData &CMyItemDatas::Add(const QAction *sKey)
{
    return m_items[sKey] = CMyItemData();
}

const CMyItemData *CMyItemDatas::Item(const QAction *vntIndexKey) const
{
    const auto found = m_items.constFind(vntIndexKey);
    return found == m_items.cend() ? nullptr : &*found;
}

void CMyItemDatas::Remove(const QAction *vntIndexKey)
{
    m_items.remove(vntIndexKey);
}

} // namespace zolt
