// SPDX-License-Identifier: MIT
#include "controls/DataCombo1.h"
#include "controls/clsListBox.h"
#include "search/MFind.h"

#include "DialogSupport.h"
#include "TestSupport.h"

#include <zolt/Error.h>

#include <QComboBox>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

using namespace zolt;

namespace {

void fillGoods(clsListBox &list)
{
    const char *goods[][2] = {{"TR02", "Trà xanh"}, {"ABC", "Bánh quy"}, {"CF01", "Cà phê"}};
    for (const auto &g : goods) {
        list.AddItem(QString::fromUtf8(g[1]));
        list.SetItemData(list.NewIndex(), QString::fromUtf8(g[0]));
    }
}

template <typename Control>
class BinderContract : public ::testing::Test {};
using Controls = ::testing::Types<QListWidget, QListView, QComboBox>;
TYPED_TEST_SUITE(BinderContract, Controls);

} // namespace

TYPED_TEST(BinderContract, ItemDataTravelsWithItsText)
{
    TypeParam control;
    clsListBox list;
    list.SetTListBox(&control);
    fillGoods(list);
    EXPECT_EQ(list.ListIndex(), -1);
    list.SetValue(QStringLiteral("abc"));   // without regard to case
    EXPECT_EQ(list.Text(), "Bánh quy");
    list.SetValue(QStringLiteral("none"));
    EXPECT_EQ(list.ListIndex(), -1);
    list.AddItem(QStringLiteral("Đường"), 0);
    EXPECT_EQ(list.Items(), (QStringList{QString(), QStringLiteral("TR02"), QStringLiteral("ABC"), QStringLiteral("CF01")}));
    list.SetListIndex(2);
    list.RemoveItem(-1);
    list.RemoveItem(0);
    EXPECT_EQ(list.Value(), "ABC");
    list.RemoveItem(1);
    EXPECT_EQ(list.ListIndex(), -1);   // its row is gone
    for (const auto &bad : std::initializer_list<std::function<void()>>{
             [&] { list.ItemData(2); }, [&] { list.SetItemData(-1, QString()); },
             [&] { list.AddItem(QString(), 3); }, [&] { list.RemoveItem(2); }})
        EXPECT_EQ(test::errorNumberOf(bad), Error::InvalidPropertyIndex);
    list.SetText(QStringLiteral("CÀ PHÊ"));
    EXPECT_EQ(list.Value(), "CF01");
    list.Clear();
    EXPECT_TRUE(list.Items().isEmpty());
}

TEST(clsListBox, ASortingListKeepsEachRowsItemData)
{
    QListWidget control;
    control.setSortingEnabled(true);
    clsListBox list;
    list.SetTListBox(&control);
    fillGoods(list);
    EXPECT_EQ(list.NewIndex(), 1);   // "Cà phê" sorts between the other two
    for (int row = 0; row < 3; ++row)
        EXPECT_EQ(list.ItemData(row), (QStringList{QStringLiteral("ABC"), QStringLiteral("CF01"), QStringLiteral("TR02")}[row]));
    EXPECT_EQ(test::errorNumberOf([] { QLineEdit edit; clsListBox().SetTListBox(&edit); }), Error::TypeMismatch);
}

TEST(clsListBox, TellsWhenTheUserLeftWithAnotherText)
{
    QWidget form;
    auto *layout = new QVBoxLayout(&form);
    auto *combo = new QComboBox(&form);
    combo->setEditable(true);
    auto *edit = new QLineEdit(&form);
    layout->addWidget(combo);
    layout->addWidget(edit);
    clsListBox list;
    list.SetTListBox(combo);
    fillGoods(list);
    list.SetListIndex(2);
    test::showActive(&form);
    QSignalSpy changed(&list, &clsListBox::TextChanged);
    for (const auto &[typed, raised] : {std::pair{"CÀ PHÊ", 0}, {"Sữa", 1}}) {   // case aside, no change
        combo->setFocus();
        combo->lineEdit()->selectAll();
        test::typeText(combo->lineEdit(), QString::fromUtf8(typed));
        QTest::keyClick(combo, Qt::Key_Tab);
        EXPECT_TRUE(edit->hasFocus());
        EXPECT_EQ(changed.count(), raised) << typed;
    }
}

TEST(FillList, FillsAnyItemDataListAndKeepsTheSelectionWhileItsRowExists)
{
    test::TempDatabase db;
    db.exec(QStringLiteral("Create Table LstFld(code Integer, [Name] Text, [Desc] Text)"));
    db.exec(QStringLiteral("Insert Into LstFld Values(2, 'Ten', 'Tên hàng'), (1, 'Ma', 'Mã hàng'), (3, 'Gia', 'Giá')"));
    const QString fields = QStringLiteral("Select [Name],[Desc] From LstFld");
    DataCombo1 combo;
    FillList(combo, QStringLiteral("[code]"), fields);
    EXPECT_EQ(combo.ListIndex(), -1);   // nothing was selected before the fill
    combo.SetListIndex(2);
    FillList(combo, QStringLiteral("[code]"), fields);
    EXPECT_EQ(combo.Value(), "Gia");
    EXPECT_EQ(combo.List(0), "Mã hàng");
    FillList(combo, QString(), QStringLiteral("Select [Name] From Missing"));
    EXPECT_EQ(combo.ListCount(), 3);    // a failing query leaves the list
    FillList(combo, QString(), QStringLiteral("Select [Name] From LstFld"));
    EXPECT_EQ(combo.ListCount(), 0);    // no second column: as far as it got

    QListView view;
    clsListBox list;
    list.SetTListBox(&view);
    fillGoods(list);
    list.SetListIndex(2);
    FillList(list, QStringLiteral("[code] Desc"), fields + QStringLiteral(" Where code<3"));
    EXPECT_EQ(list.ListIndex(), 0);     // the row is gone: the first is selected
    EXPECT_EQ(list.Value(), "Ten");
}
