#include "data/MdGrid.h"

#include <QListWidget>

namespace zolt {

void AddListItem(QListWidget *list, qint32 itemData, const QString &text)
{
    auto *item = new QListWidgetItem(text, list);
    item->setData(Qt::UserRole, itemData);
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
    const QListWidgetItem *item = list->item(row);
    return item ? item->data(Qt::UserRole).toInt() : 0;
}

} // namespace zolt
