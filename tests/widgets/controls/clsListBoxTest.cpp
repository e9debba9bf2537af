// SPDX-License-Identifier: MIT
#include "core/search/MFind.h"
#include "widgets/controls/clsListBox.h"

#include "DialogSupport.h"
#include "TestSupport.h"

#include <zolt/DataCombo1.h>
#include <zolt/Error.h>

#include <QComboBox>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

using namespace zolt;
using namespace Qt::StringLiterals;

namespace {

void fillGoods(clsListBox &list)
{
    for (const auto &[data, text] : {std::pair{u"TR02"_s, u"Trà xanh"_s}, {u"ABC"_s, u"Bánh quy"_s}, {u"CF01"_s, u"Cà phê"_s}}) {
        list.AddItem(text);
        list.SetItemData(list.NewIndex(), data);
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
    list.SetValue(u"abc"_s);   // without regard to case
    EXPECT_EQ(list.Text(), "Bánh quy");
    list.SetValue(u"none"_s);
    EXPECT_EQ(list.ListIndex(), -1);
    list.AddItem(u"Đường"_s, 0);
    EXPECT_EQ(list.Items(), (QStringList{{}, u"TR02"_s, u"ABC"_s, u"CF01"_s}));
    list.SetListIndex(2);
    list.RemoveItem(-1);
    list.RemoveItem(0);
    EXPECT_EQ(list.Value(), "ABC");
    list.RemoveItem(1);
    EXPECT_EQ(list.ListIndex(), -1);   // its row is gone
    for (const auto &bad : std::initializer_list<std::function<void()>>{
             [&] { list.ItemData(2); }, [&] { list.SetItemData(-1, {}); }, [&] { list.AddItem({}, 3); },
             [&] { list.RemoveItem(2); }})
        EXPECT_EQ(test::errorNumberOf(bad), Error::InvalidPropertyIndex);
    list.SetText(u"CÀ PHÊ"_s);
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
    EXPECT_EQ(list.Items(), (QStringList{u"ABC"_s, u"CF01"_s, u"TR02"_s}));
    EXPECT_EQ(test::errorNumberOf([] { QLineEdit edit; clsListBox().SetTListBox(&edit); }), Error::TypeMismatch);
}

TEST(clsListBox, TellsWhenTheUserLeftWithAnotherText)
{
    QWidget form;
    auto *layout = new QVBoxLayout(&form);
    auto *combo = new QComboBox(&form);
    combo->setEditable(true);
    layout->addWidget(combo);
    layout->addWidget(new QLineEdit(&form));
    clsListBox list;
    list.SetTListBox(combo);
    fillGoods(list);
    list.SetListIndex(2);
    test::showActive(&form);
    QSignalSpy changed(&list, &clsListBox::TextChanged);
    for (const auto &[typed, raised] : {std::pair{u"CÀ PHÊ"_s, 0} /* case aside, no change */, {u"Sữa"_s, 1}}) {
        combo->setFocus();
        combo->lineEdit()->selectAll();
        test::typeText(combo->lineEdit(), typed);
        QTest::keyClick(combo, Qt::Key_Tab);
        EXPECT_FALSE(combo->hasFocus());
        EXPECT_EQ(changed.count(), raised) << typed.toStdString();
    }
}

class FillListTest : public ::testing::TestWithParam<test::Engine> {};
INSTANTIATE_TEST_SUITE_P(Engines, FillListTest, ::testing::ValuesIn(test::Engines), test::EngineName);

TEST_P(FillListTest, FillsAnyItemDataListAndKeepsTheSelectionWhileItsRowExists)
{
    test::TempDatabase db(GetParam());
    db.exec(u"Create Table LstFld(code Integer, [Name] Text, [Desc] Text)"_s);
    db.exec(u"Insert Into LstFld Values(2, 'Ten', 'Tên hàng'), (1, 'Ma', 'Mã hàng'), (3, 'Gia', 'Giá')"_s);
    const QString fields = u"Select [Name],[Desc] From LstFld"_s;
    DataCombo1 combo;
    FillList(combo, u"[code]"_s, fields);
    EXPECT_EQ(combo.ListIndex(), -1);   // nothing was selected before the fill
    combo.SetListIndex(2);
    FillList(combo, u"[code]"_s, fields);
    EXPECT_EQ(combo.Value(), "Gia");
    EXPECT_EQ(combo.List(0), "Mã hàng");
    FillList(combo, {}, u"Select [Name] From Missing"_s);
    EXPECT_EQ(combo.ListCount(), 3);    // a failing query leaves the list
    FillList(combo, {}, u"Select [Name] From LstFld"_s);
    EXPECT_EQ(combo.ListCount(), 0);    // no second column: as far as it got

    QListView view;
    clsListBox list;
    list.SetTListBox(&view);
    fillGoods(list);
    list.SetListIndex(2);
    FillList(list, u"[code] Desc"_s, fields + u" Where code<3"_s);
    EXPECT_EQ(list.Value(), "Ten");     // the row is gone: the first is selected
}
