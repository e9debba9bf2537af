// SPDX-License-Identifier: MIT
#include "data/MdGrid.h"

#include <QComboBox>
#include <QListWidget>

#include <gtest/gtest.h>

using namespace zolt;

TEST(MdGrid, RowsCarryTheirKeysWhereverTheyGo)
{
    QListWidget list;
    list.setSortingEnabled(true);   // the keys move with their rows
    list.setSelectionMode(QAbstractItemView::MultiSelection);
    for (qint32 key : {5, 9, 7, 1, 3})
        AddListItem(&list, key, QStringLiteral("Nhóm %1").arg(key));
    EXPECT_EQ(ListItemData(&list, 4), 9);
    EXPECT_EQ(ListItemData(&list, 5), 0);
    EXPECT_EQ(FindItemData(&list, 7), 3);
    EXPECT_EQ(FindItemData(&list, 8), -1);
    EXPECT_EQ(SelectedItemData(&list), 0);
    list.setCurrentRow(3);
    SetListText(&list, QStringLiteral("Kế toán"));
    EXPECT_EQ(SelectedItemData(&list), 7);
    EXPECT_EQ(list.item(FindItemData(&list, 7))->text(), "Kế toán");

    QComboBox combo;
    for (qint32 key : {10, 20, 30})
        combo.addItem(QStringLiteral("Nhóm %1").arg(key), key);
    EXPECT_EQ(FindItemData(&combo, 30), 2);
    combo.setCurrentIndex(1);
    EXPECT_EQ(SelectedItemData(&combo), 20);
}

TEST(MdGrid, TakeSelectedRemovesSelectedRowsInOrder)
{
    QListWidget list;
    list.setSelectionMode(QAbstractItemView::MultiSelection);
    for (qint32 key : {1, 7, 3, 9, 5})
        AddListItem(&list, key, QString::number(key));
    for (int row : {3, 1, 2})   // adjacent rows: the row that moves up is looked at too
        list.item(row)->setSelected(true);
    qint32 count = -1;
    EXPECT_EQ(TakeSelected(&list, count), "7,3,9");
    EXPECT_EQ(count, 3);
    EXPECT_EQ(ListItemData(&list, 1), 5);
    EXPECT_EQ(TakeSelected(&list, count), "");
    EXPECT_EQ(count, 0);
}
