// SPDX-License-Identifier: MIT
#pragma once

// Lists whose rows carry a whole number (a group's or a user's code) as their
// item data. The number sits in the row of the control's own model under
// ItemDataRole, so it moves with its row, whatever sorts the list. Lists that
// carry a string of item data instead follow ItemDataList.

#include <QString>

class QComboBox;
class QListWidget;

namespace zolt {

constexpr int ItemDataRole = Qt::UserRole;

// Appends a row with the text and the key.
void AddListItem(QListWidget *list, qint32 itemData, const QString &text);

// Replaces the text of the current row; without a current row nothing changes.
void SetListText(QListWidget *list, const QString &text);

// Removes every selected row and returns their keys in row order joined by ","
// ("" when none was selected); count receives the number of rows removed.
QString TakeSelected(QListWidget *list, qint32 &count);

// The key of a row; 0 for a row that does not exist.
qint32 ListItemData(const QListWidget *list, int row);

// Index of the first row whose key equals value; -1 when none.
int FindItemData(const QListWidget *list, qint32 value);
int FindItemData(const QComboBox *list, qint32 value);

// The key of the current row; 0 when no row is current.
qint32 SelectedItemData(const QListWidget *list);
qint32 SelectedItemData(const QComboBox *list);

} // namespace zolt
