// SPDX-License-Identifier: MIT
#include "widgets/controls/ComboSelection.h"

#include "core/search/ItemDataList.h"

#include <QComboBox>
#include <QSignalBlocker>

namespace zolt {

void InsertKeepingSelection(QComboBox *combo, int at, const QString &text)
{
    CheckItemIndex(at, combo->count() + 1);
    const int selected = combo->currentIndex();
    const QSignalBlocker block(combo);
    combo->insertItem(at, text);
    combo->setCurrentIndex(selected >= at ? selected + 1 : selected);
}

void AppendKeepingSelection(QComboBox *combo, const QStringList &texts)
{
    const int selected = combo->currentIndex();
    const QSignalBlocker block(combo);
    combo->addItems(texts);
    combo->setCurrentIndex(selected);
}

void RemoveKeepingSelection(QComboBox *combo, int index)
{
    CheckItemIndex(index, combo->count());
    const int selected = combo->currentIndex();
    const QSignalBlocker block(combo);
    combo->removeItem(index);
    combo->setCurrentIndex(selected == index ? -1 : (selected > index ? selected - 1 : selected));
}

} // namespace zolt
