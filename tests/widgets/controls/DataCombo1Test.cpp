// SPDX-License-Identifier: MIT

#include "DialogSupport.h"
#include "TestSupport.h"

#include <zolt/DataCombo1.h>
#include <zolt/Error.h>

#include <QComboBox>
#include <QSignalSpy>
#include <QTest>

using namespace zolt;
using namespace Qt::StringLiterals;

namespace {

// A shown combo of three fields.
class DataCombo1Test : public ::testing::Test {
protected:
    void SetUp() override
    {
        for (const auto &[data, text] : {std::pair{u"Ma"_s, u"Mã hàng"_s}, {u"Ten"_s, u"Tên hàng"_s}, {u"Gia"_s, u"Giá bán"_s}}) {
            combo.AddItem(text);
            combo.SetItemData(combo.NewIndex(), data);
        }
        test::showActive(&combo);
    }
    DataCombo1 combo;
    QComboBox *cmb1 = combo.Cmb1();
};

} // namespace

TEST_F(DataCombo1Test, ItemsAndTheirDataStayInStep)
{
    EXPECT_EQ(combo.Value(), "");   // adding selects nothing
    combo.SetValue(u"ten"_s);       // without regard to case
    EXPECT_EQ(combo.ListIndex1(), 1);
    EXPECT_EQ(combo.Text(), "Tên hàng");
    combo.AddItem(u"Đơn vị"_s, 0);
    EXPECT_EQ(combo.ListIndex(), 2);    // the selection stays on its item
    EXPECT_EQ(combo.Value(), "Ten");
    combo.RemoveItem(-1);
    combo.RemoveItem(2);
    EXPECT_EQ(combo.ListIndex(), -1);   // its item is gone
    EXPECT_EQ(combo.ItemData(2), "Gia");
    combo.SetText(u"giá bán"_s);
    EXPECT_EQ(combo.Value(), "Gia");
    combo.SetValue(u"Không có"_s);
    EXPECT_EQ(combo.ListIndex(), -1);
    for (const auto &bad : std::initializer_list<std::function<void()>>{
             [&] { combo.ItemData(3); }, [&] { combo.AddItem(u"B"_s, 5); }, [&] { combo.RemoveItem(3); },
             [&] { combo.SetList(-2, {}); }})
        EXPECT_EQ(test::errorNumberOf(bad), Error::InvalidPropertyIndex);
    EXPECT_EQ(test::errorNumberOf([&] { combo.SetListIndex(3); }), Error::InvalidPropertyValue);
}

TEST_F(DataCombo1Test, ClickOnEverySelectionChangeAndDeleteClearsIt)
{
    QSignalSpy clicks(&combo, &DataCombo1::Click);
    combo.SetListIndex(0);
    QTest::keyClick(cmb1, Qt::Key_Down);
    combo.SetValue(u"Gia"_s);
    combo.AddItem(u"Mới"_s, 0);   // moves the selection silently
    EXPECT_EQ(clicks.count(), 3);
    QTest::keyClick(cmb1, Qt::Key_Delete, Qt::ShiftModifier);
    EXPECT_EQ(combo.Value(), "Gia");
    QTest::keyClick(cmb1, Qt::Key_Delete);
    EXPECT_EQ(combo.Value(), "");
}

TEST_F(DataCombo1Test, KeyAndMouseEventsReachTheForm)
{
    combo.SetListIndex(0);
    QList<int> downs, presses, ups;
    QObject::connect(&combo, &DataCombo1::KeyDown, [&](int &code, int shift) {
        downs << code << shift;
        if (code == 40)
            code = 0;   // swallow Down
    });
    QObject::connect(&combo, &DataCombo1::KeyPress, [&](int &ascii) { presses << ascii; });
    QObject::connect(&combo, &DataCombo1::KeyUp, [&](int &code, int shift) { ups << code << shift; });
    QTest::keyClick(cmb1, Qt::Key_Down);
    EXPECT_EQ(combo.ListIndex(), 0);
    QTest::keyClick(cmb1, Qt::Key_G);
    QTest::keyClick(cmb1, Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(downs, (QList<int>{40, 0, 71, 0, 17, 2, 13, 2}));
    EXPECT_EQ(presses, (QList<int>{'g', 13}));
    EXPECT_EQ(ups, (QList<int>{40, 0, 71, 0, 13, 2, 17, 0}));

    QList<float> mouse;
    QObject::connect(&combo, &DataCombo1::MouseDown, [&](int button, int shift, float x, float y) {
        mouse << float(button) << float(shift) << x << y;
    });
    QObject::connect(&combo, &DataCombo1::MouseUp, [&](int button, int, float, float) { mouse << float(button); });
    QTest::mouseClick(cmb1, Qt::LeftButton, Qt::ControlModifier, QPoint(4, 5));
    EXPECT_EQ(mouse, (QList<float>{1, 2, 60, 75, 1}));   // positions in twips
}

TEST_F(DataCombo1Test, HeightFollowsTheInnerCombosFont)
{
    QFont big = combo.Font();
    big.setPointSize(28);
    cmb1->setFont(big);   // as the dialog set-up gives it
    QTest::qWait(1);
    EXPECT_EQ(cmb1->geometry(), QRect(0, 0, combo.width(), cmb1->sizeHint().height()));
    EXPECT_EQ(combo.height(), cmb1->height());
}

TEST(DataCombo1, PropertyBagKeepsItsAsymmetries)
{
    QWidget container;
    container.setFont(QFont(u"DejaVu Serif"_s, 11));
    DataCombo1 combo(&container);
    combo.ReadProperties({});
    EXPECT_EQ(combo.BackColor(), qint32(0x80000005u));
    EXPECT_EQ(combo.Font().family(), "DejaVu Serif");
    combo.ReadProperties({{u"BackColor"_s, 0x0000FF}, {u"Enabled"_s, false}, {u"BorderStyle"_s, 1}, {u"Text"_s, u"ignored"_s}});
    EXPECT_EQ(combo.Cmb1()->palette().color(QPalette::Base), QColor(255, 0, 0));
    EXPECT_FALSE(combo.Enabled());
    EXPECT_EQ(combo.BorderStyle(), 1);
    EXPECT_EQ(combo.Text(), "");
    combo.AddItem(u"Tên"_s);
    combo.SetItemData(0, u"Ten"_s);
    combo.SetValue(u"Ten"_s);
    QVariantMap bag;
    combo.WriteProperties(bag);
    EXPECT_EQ(bag, (QVariantMap{{u"BackColor"_s, 0x0000FF}, {u"Enabled"_s, false}, {u"Text"_s, u"Tên"_s},
                                {u"Value"_s, u"Ten"_s}, {u"ItemData"_s, u"Ten"_s}}));
}
