#pragma once

// List rows that carry a numeric key as their item data (Qt::UserRole).

#include <QString>

class QListWidget;

namespace zolt {

// Appends a row with the text and the key.
void AddListItem(QListWidget *list, qint32 itemData, const QString &text);

// Replaces the text of the current row; without a current row nothing changes.
void SetListText(QListWidget *list, const QString &text);

// Removes every selected row and returns their keys in row order joined by ","
// ("" when none was selected); count receives the number of rows removed.
QString TakeSelected(QListWidget *list, qint32 &count);

// The key of a row.
qint32 ListItemData(const QListWidget *list, int row);

} // namespace zolt
