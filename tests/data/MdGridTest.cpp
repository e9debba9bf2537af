#include "data/MdGrid.h"

#include <QListWidget>

#include <gtest/gtest.h>

using namespace zolt;

namespace {

void fill(QListWidget &list, std::initializer_list<qint32> keys)
{
    for (qint32 key : keys)
        AddListItem(&list, key, QStringLiteral("Nhóm %1").arg(key));
}

} // namespace

TEST(MdGrid, RowsCarryTheirKeys)
{
    QListWidget list;
    fill(list, {5, 7, 9});
    ASSERT_EQ(list.count(), 3);
    EXPECT_EQ(list.item(2)->text(), "Nhóm 9");
    EXPECT_EQ(ListItemData(&list, 1), 7);
    EXPECT_EQ(ListItemData(&list, 3), 0);

    list.setCurrentRow(1);
    SetListText(&list, QStringLiteral("Kế toán"));
    EXPECT_EQ(list.item(1)->text(), "Kế toán");
    EXPECT_EQ(ListItemData(&list, 1), 7);

    list.setCurrentRow(-1);
    SetListText(&list, QStringLiteral("x"));   // no current row: nothing to replace
    EXPECT_EQ(list.item(0)->text(), "Nhóm 5");
}

TEST(MdGrid, TakeSelectedRemovesSelectedRowsInOrder)
{
    QListWidget list;
    list.setSelectionMode(QAbstractItemView::MultiSelection);
    fill(list, {1, 7, 3, 9, 5});
    list.item(3)->setSelected(true);
    list.item(1)->setSelected(true);

    qint32 count = -1;
    EXPECT_EQ(TakeSelected(&list, count), "7,9");
    EXPECT_EQ(count, 2);
    ASSERT_EQ(list.count(), 3);
    EXPECT_EQ(ListItemData(&list, 0), 1);
    EXPECT_EQ(ListItemData(&list, 1), 3);
    EXPECT_EQ(ListItemData(&list, 2), 5);

    // Adjacent selected rows: the row that moves up is looked at too.
    list.item(0)->setSelected(true);
    list.item(1)->setSelected(true);
    EXPECT_EQ(TakeSelected(&list, count), "1,3");
    EXPECT_EQ(count, 2);
    EXPECT_EQ(list.count(), 1);

    EXPECT_EQ(TakeSelected(&list, count), "");
    EXPECT_EQ(count, 0);
    EXPECT_EQ(list.count(), 1);
}
