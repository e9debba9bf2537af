// SPDX-License-Identifier: MIT
#include "widgets/desktop/MdGrid.h"

#include <QComboBox>
#include <QListWidget>

namespace zolt {

namespace {

qint32 keyAt(const QAbstractItemModel *model, int row)
{
    return row >= 0 && row < model->rowCount() ? model->index(row, 0).data(ItemDataRole).toInt() : 0;
}

int findKey(const QAbstractItemModel *model, qint32 value)
{
    for (int row = 0; row < model->rowCount(); ++row) {
        if (keyAt(model, row) == value)
            return row;
    }
    return -1;
}

} // namespace

void AddListItem(QListWidget *list, qint32 itemData, const QString &text)
{
    auto *item = new QListWidgetItem(text);
    item->setData(ItemDataRole, itemData);   // before the list has it: no change to announce
    list->addItem(item);
}

void SetListText(QListWidget *list, const QString &text)
{
    if (QListWidgetItem *item = list->item(list->currentRow()))
        item->setText(text);
}

QString TakeSelected(QListWidget *list, qint32 &count)
{
    QStringList keys;
    count = 0;
    int row = 0;
    while (row < list->count()) {
        if (list->item(row)->isSelected()) {
            keys << QString::number(ListItemData(list, row));
            delete list->takeItem(row);   // the next row moves up into this one
            ++count;
        } else {
            ++row;
        }
    }
    return keys.join(QLatin1Char(','));
}

qint32 ListItemData(const QListWidget *list, int row)
{
    return keyAt(list->model(), row);
}

int FindItemData(const QListWidget *list, qint32 value)
{
    return findKey(list->model(), value);
}

int FindItemData(const QComboBox *list, qint32 value)
{
    return findKey(list->model(), value);
}

qint32 SelectedItemData(const QListWidget *list)
{
    return keyAt(list->model(), list->currentRow());
}

qint32 SelectedItemData(const QComboBox *list)
{
    return keyAt(list->model(), list->currentIndex());
}

} // namespace zolt
