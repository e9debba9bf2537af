#include "controls/clsListBox.h"

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
    const char *goods[][2] = {{"ABC", "Bánh quy"}, {"CF01", "Cà phê"}, {"TR02", "Trà xanh"}};
    for (const auto &g : goods) {
        list.AddItem(QString::fromUtf8(g[1]));
        list.SetItemData(list.NewIndex(), QString::fromUtf8(g[0]));
    }
}

template <typename Control>
void expectBinderContract()
{
    Control control;
    clsListBox list;
    list.SetTListBox(&control);
    fillGoods(list);
    EXPECT_EQ(list.ListCount(), 3);
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(list.Value(), "");

    list.SetValue(QStringLiteral("abc"));   // without regard to case
    EXPECT_EQ(list.ListIndex(), 0);
    EXPECT_EQ(list.Text(), "Bánh quy");
    list.SetValue(QStringLiteral("none"));
    EXPECT_EQ(list.ListIndex(), -1);

    list.AddItem(QStringLiteral("Đường"), 0);
    EXPECT_EQ(list.NewIndex(), 0);
    EXPECT_EQ(list.Items(), (QStringList{QString(), QStringLiteral("ABC"), QStringLiteral("CF01"),
                                         QStringLiteral("TR02")}));
    EXPECT_EQ(list.List(0), "Đường");

    list.SetListIndex(2);
    EXPECT_EQ(list.Value(), "CF01");
    list.RemoveItem(-1);
    list.RemoveItem(0);
    EXPECT_EQ(list.ListCount(), 3);
    EXPECT_EQ(list.ItemData(0), "ABC");
    EXPECT_THROW(list.ItemData(3), Error);
    EXPECT_THROW(list.SetItemData(-1, QStringLiteral("x")), Error);

    list.SetList(1, QStringLiteral("Cà phê sữa"));
    EXPECT_EQ(list.List(1), "Cà phê sữa");
    list.SetText(QStringLiteral("TRÀ XANH"));
    EXPECT_EQ(list.Value(), "TR02");

    list.Clear();
    EXPECT_EQ(list.ListCount(), 0);
    EXPECT_TRUE(list.Items().isEmpty());
}

} // namespace

TEST(clsListBox, BindsAListWidget) { expectBinderContract<QListWidget>(); }
TEST(clsListBox, BindsAListView) { expectBinderContract<QListView>(); }
TEST(clsListBox, BindsAComboBox) { expectBinderContract<QComboBox>(); }

TEST(clsListBox, OnlyListsCanBeBound)
{
    QLineEdit edit;
    clsListBox list;
    try {
        list.SetTListBox(&edit);
        FAIL() << "a line edit was bound";
    } catch (const Error &e) {
        EXPECT_EQ(e.number(), Error::TypeMismatch);
    }
}

TEST(clsListBox, FindStringIgnoresCase)
{
    const QStringList items{QStringLiteral("a"), QStringLiteral("Đức"), QStringLiteral("ĐỨC")};
    EXPECT_EQ(clsListBox::FindString(items, QStringLiteral("đức")), 1);
    EXPECT_EQ(clsListBox::FindString(items, QStringLiteral("A")), 0);
    EXPECT_EQ(clsListBox::FindString(items, QStringLiteral("b")), -1);
    EXPECT_EQ(clsListBox::FindString(QStringList(), QStringLiteral("b")), -1);
}

namespace {

class ListForm : public QWidget {
public:
    ListForm()
    {
        auto *layout = new QVBoxLayout(this);
        combo = new QComboBox(this);
        combo->setEditable(true);
        list = new QListWidget(this);
        edit = new QLineEdit(this);
        layout->addWidget(combo);
        layout->addWidget(list);
        layout->addWidget(edit);
        comboBinder.SetTListBox(combo);
        listBinder.SetTListBox(list);
        fillGoods(comboBinder);
        fillGoods(listBinder);
        show();
        activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(this));
    }
    QComboBox *combo;
    QListWidget *list;
    QLineEdit *edit;
    clsListBox comboBinder;
    clsListBox listBinder;
};

} // namespace

TEST(clsListBox, TellsWhenTheUserLeftWithAnotherText)
{
    ListForm form;
    QSignalSpy listChanged(&form.listBinder, &clsListBox::TextChanged);
    form.list->setFocus();
    form.listBinder.SetListIndex(0);
    QTest::keyClick(form.list, Qt::Key_Down);
    QTest::keyClick(form.list, Qt::Key_Tab);
    EXPECT_TRUE(form.edit->hasFocus());
    EXPECT_EQ(listChanged.count(), 1);
    EXPECT_EQ(form.listBinder.Value(), "CF01");

    // Entering and leaving without a change says nothing.
    form.list->setFocus();
    QTest::keyClick(form.list, Qt::Key_Tab);
    EXPECT_EQ(listChanged.count(), 1);
}

TEST(clsListBox, RetypingTheSameTextInAnotherCaseIsNoChange)
{
    ListForm form;
    form.edit->setFocus();
    form.comboBinder.SetListIndex(1);
    QSignalSpy comboChanged(&form.comboBinder, &clsListBox::TextChanged);
    form.combo->setFocus();
    QLineEdit *typed = form.combo->lineEdit();
    typed->selectAll();
    test::typeText(typed, QStringLiteral("CÀ PHÊ"));
    form.edit->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(comboChanged.count(), 0);

    form.combo->setFocus();
    typed->selectAll();
    test::typeText(typed, QStringLiteral("Sữa"));
    form.edit->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(comboChanged.count(), 1);
    test::saveScreenshot(&form, QStringLiteral("list-binder"));
}
