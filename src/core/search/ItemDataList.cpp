// SPDX-License-Identifier: MIT
#include "core/search/ItemDataList.h"

#include <zolt/Error.h>

namespace zolt {

void ItemDataList::AppendItems(const QStringList &texts, const QStringList &data)
{
    for (qsizetype i = 0; i < texts.size(); ++i) {
        AddItem(texts[i]);
        SetItemData(NewIndex(), data[i]);
    }
}

void CheckItemIndex(int index, int count)
{
    if (index < 0 || index >= count)
        throw Error(Error::InvalidPropertyIndex);
}

} // namespace zolt
