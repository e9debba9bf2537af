// SPDX-License-Identifier: MIT
#include "controls/DataCombo1.h"

#include "DialogSupport.h"
#include "TestSupport.h"

#include <zolt/Error.h>

#include <QComboBox>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

using namespace zolt;

namespace {

// A form with a combo of three fields and a line edit after it.
class DataCombo1Test : public ::testing::Test {
protected:
    void SetUp() override
    {
        auto *layout = new QVBoxLayout(&form);
        layout->addWidget(combo = new DataCombo1(&form));
        layout->addWidget(new QLineEdit(&form));
        const char *names[][2] = {{"Ma", "Mã hàng"}, {"Ten", "Tên hàng"}, {"Gia", "Giá bán"}};
        for (const auto &name : names) {
            combo->AddItem(QString::fromUtf8(name[1]));
            combo->SetItemData(combo->NewIndex(), QString::fromUtf8(name[0]));
        }
        test::showActive(&form);
        combo->Cmb1()->setFocus();
    }
    QWidget form;
    DataCombo1 *combo = nullptr;
};

} // namespace

TEST_F(DataCombo1Test, ItemsAndTheirDataStayInStep)
{
    EXPECT_EQ(combo->ListIndex(), -1);   // adding selects nothing
    EXPECT_EQ(combo->Value(), "");
    combo->SetValue(QStringLiteral("ten"));   // without regard to case
    EXPECT_EQ(combo->ListIndex1(), 1);
    EXPECT_EQ(combo->Text(), "Tên hàng");
    combo->AddItem(QStringLiteral("Đơn vị"), 0);
    EXPECT_EQ(combo->NewIndex(), 0);
    EXPECT_EQ(combo->ListIndex(), 2);    // the selection stays on its item
    EXPECT_EQ(combo->Value(), "Ten");
    combo->RemoveItem(-1);
    combo->RemoveItem(2);
    EXPECT_EQ(combo->ListIndex(), -1);   // its item is gone
    EXPECT_EQ(combo->ItemData(2), "Gia");
    combo->SetText(QStringLiteral("giá bán"));
    EXPECT_EQ(combo->Value(), "Gia");
    combo->SetValue(QStringLiteral("Không có"));
    EXPECT_EQ(combo->ListIndex(), -1);
    for (const auto &bad : std::initializer_list<std::function<void()>>{
             [&] { combo->ItemData(3); }, [&] { combo->AddItem(QStringLiteral("B"), 5); },
             [&] { combo->RemoveItem(3); }, [&] { combo->SetList(-2, QString()); }})
        EXPECT_EQ(test::errorNumberOf(bad), Error::InvalidPropertyIndex);
    EXPECT_THROW(combo->SetListIndex(3), Error);
    combo->Clear();
    EXPECT_EQ(combo->ListCount(), 0);
}

TEST_F(DataCombo1Test, ClickOnEverySelectionChangeAndDeleteClearsIt)
{
    QSignalSpy clicks(combo, &DataCombo1::Click);
    combo->SetListIndex(0);
    QTest::keyClick(combo->Cmb1(), Qt::Key_Down);
    combo->SetValue(QStringLiteral("Gia"));
    combo->AddItem(QStringLiteral("Mới"), 0);   // moves the selection silently
    EXPECT_EQ(clicks.count(), 3);
    QTest::keyClick(combo->Cmb1(), Qt::Key_Delete, Qt::ShiftModifier);
    EXPECT_EQ(combo->Value(), "Gia");
    QTest::keyClick(combo->Cmb1(), Qt::Key_Delete);
    EXPECT_EQ(combo->Value(), "");
}

TEST_F(DataCombo1Test, KeyAndMouseEventsReachTheForm)
{
    combo->SetListIndex(0);
    QList<int> downs, presses, ups;
    QObject::connect(combo, &DataCombo1::KeyDown, [&](int &code, int shift) {
        downs << code << shift;
        if (code == 40)
            code = 0;   // swallow Down
    });
    QObject::connect(combo, &DataCombo1::KeyPress, [&](int &ascii) { presses << ascii; });
    QObject::connect(combo, &DataCombo1::KeyUp, [&](int &code, int shift) { ups << code << shift; });
    QTest::keyClick(combo->Cmb1(), Qt::Key_Down);
    EXPECT_EQ(combo->ListIndex(), 0);
    QTest::keyClick(combo->Cmb1(), Qt::Key_G);
    QTest::keyClick(combo->Cmb1(), Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(downs, (QList<int>{40, 0, 71, 0, 17, 2, 13, 2}));
    EXPECT_EQ(presses, (QList<int>{'g', 13}));
    EXPECT_EQ(ups, (QList<int>{40, 0, 71, 0, 13, 2, 17, 0}));

    QList<float> mouse;
    QObject::connect(combo, &DataCombo1::MouseDown, [&](int button, int shift, float x, float y) {
        mouse << float(button) << float(shift) << x << y;
    });
    QObject::connect(combo, &DataCombo1::MouseUp, [&](int button, int, float, float) { mouse << float(button); });
    QTest::mouseClick(combo->Cmb1(), Qt::LeftButton, Qt::ControlModifier, QPoint(4, 5));
    EXPECT_EQ(mouse, (QList<float>{1, 2, 60, 75, 1}));   // positions in twips
}

TEST_F(DataCombo1Test, HeightFollowsTheInnerCombosFont)
{
    QFont big = combo->Font();
    big.setPointSize(28);
    combo->Cmb1()->setFont(big);   // as the dialog set-up gives it
    QTest::qWait(1);
    EXPECT_EQ(combo->Cmb1()->geometry(), QRect(0, 0, combo->width(), combo->Cmb1()->sizeHint().height()));
    EXPECT_EQ(combo->height(), combo->Cmb1()->height());
}

TEST(DataCombo1, PropertyBagKeepsItsAsymmetries)
{
    QWidget container;
    container.setFont(QFont(QStringLiteral("DejaVu Serif"), 11));
    DataCombo1 combo(&container);
    combo.ReadProperties(QVariantMap{});
    EXPECT_EQ(combo.BackColor(), qint32(0x80000005u));
    EXPECT_EQ(combo.Font().family(), "DejaVu Serif");
    combo.ReadProperties({{QStringLiteral("BackColor"), 0x0000FF}, {QStringLiteral("Enabled"), false},
                          {QStringLiteral("BorderStyle"), 1}, {QStringLiteral("Text"), QStringLiteral("ignored")}});
    EXPECT_EQ(combo.Cmb1()->palette().color(QPalette::Base), QColor(255, 0, 0));
    EXPECT_FALSE(combo.Enabled());
    EXPECT_EQ(combo.BorderStyle(), 1);
    EXPECT_EQ(combo.Text(), "");
    combo.AddItem(QStringLiteral("Tên"));
    combo.SetItemData(0, QStringLiteral("Ten"));
    combo.SetValue(QStringLiteral("Ten"));
    QVariantMap bag;
    combo.WriteProperties(bag);
    EXPECT_EQ(bag, (QVariantMap{{QStringLiteral("BackColor"), 0x0000FF}, {QStringLiteral("Enabled"), false},
                                {QStringLiteral("Text"), QStringLiteral("Tên")}, {QStringLiteral("Value"), QStringLiteral("Ten")},
                                {QStringLiteral("ItemData"), QStringLiteral("Ten")}}));
}
