#include "controls/DataCombo1.h"

#include "TestSupport.h"

#include <zolt/Error.h>

#include <QComboBox>
#include <QLineEdit>
#include <QMetaClassInfo>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

using namespace zolt;

namespace {

// A small form with a combo of three fields and a line edit after it.
class ComboForm : public QWidget {
public:
    ComboForm()
    {
        auto *layout = new QVBoxLayout(this);
        combo = new DataCombo1(this);
        const char *names[][2] = {{"Ma", "Mã hàng"}, {"Ten", "Tên hàng"}, {"Gia", "Giá bán"}};
        for (const auto &name : names) {
            combo->AddItem(QString::fromUtf8(name[1]));
            combo->SetItemData(combo->NewIndex(), QString::fromUtf8(name[0]));
        }
        edit = new QLineEdit(this);
        layout->addWidget(combo);
        layout->addWidget(edit);
        resize(240, 80);
        show();
        activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(this));
        combo->Cmb1()->setFocus();
    }
    DataCombo1 *combo;
    QLineEdit *edit;
};

} // namespace

TEST(DataCombo1, ItemsAndTheirDataStayInStep)
{
    DataCombo1 combo;
    combo.AddItem(QStringLiteral("A"));
    combo.SetItemData(combo.NewIndex(), QStringLiteral("x"));
    EXPECT_EQ(combo.ListIndex(), -1);   // adding selects nothing
    EXPECT_EQ(combo.Value(), "");
    combo.SetListIndex(0);
    EXPECT_EQ(combo.Value(), "x");

    combo.AddItem(QStringLiteral("Z"), 0);
    EXPECT_EQ(combo.NewIndex(), 0);
    EXPECT_EQ(combo.ItemData(0), "");
    EXPECT_EQ(combo.ItemData(1), "x");
    EXPECT_EQ(combo.ListIndex(), 1);    // the selection stays on "A"
    EXPECT_EQ(combo.Value(), "x");

    combo.RemoveItem(-1);
    EXPECT_EQ(combo.ListCount(), 2);
    combo.RemoveItem(0);
    EXPECT_EQ(combo.ListCount(), 1);
    EXPECT_EQ(combo.List(0), "A");
    EXPECT_EQ(combo.ItemData(0), "x");

    combo.Clear();
    EXPECT_EQ(combo.ListCount(), 0);
    EXPECT_EQ(combo.Value(), "");
}

TEST(DataCombo1, ValueSelectsTheItemThatCarriesIt)
{
    ComboForm form;
    DataCombo1 &combo = *form.combo;
    combo.SetValue(QStringLiteral("ten"));
    EXPECT_EQ(combo.ListIndex(), 1);
    EXPECT_EQ(combo.ListIndex1(), 1);
    EXPECT_EQ(combo.Text(), "Tên hàng");
    combo.SetValue(QStringLiteral("Không có"));
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_EQ(combo.Value(), "");
    combo.SetText(QStringLiteral("giá bán"));
    EXPECT_EQ(combo.Value(), "Gia");
}

TEST(DataCombo1, BadIndexesRaise)
{
    DataCombo1 combo;
    combo.AddItem(QStringLiteral("A"));
    EXPECT_THROW(combo.ItemData(1), Error);
    EXPECT_THROW(combo.SetListIndex(1), Error);
    EXPECT_THROW(combo.SetListIndex(-2), Error);
    EXPECT_THROW(combo.AddItem(QStringLiteral("B"), 5), Error);
    EXPECT_THROW(combo.RemoveItem(3), Error);
    EXPECT_EQ(combo.ListCount(), 1);
}

TEST(DataCombo1, ClickOnEverySelectionChange)
{
    ComboForm form;
    DataCombo1 &combo = *form.combo;
    QSignalSpy clicks(&combo, &DataCombo1::Click);
    combo.SetListIndex(0);
    EXPECT_EQ(clicks.count(), 1);
    QTest::keyClick(combo.Cmb1(), Qt::Key_Down);
    EXPECT_EQ(combo.ListIndex(), 1);
    EXPECT_EQ(clicks.count(), 2);
    combo.SetValue(QStringLiteral("Gia"));
    EXPECT_EQ(clicks.count(), 3);
    combo.AddItem(QStringLiteral("Mới"), 0);   // moves the selection silently
    EXPECT_EQ(clicks.count(), 3);
    test::saveScreenshot(&form, QStringLiteral("data-combo"));
}

TEST(DataCombo1, DeleteWithoutModifiersClearsTheSelection)
{
    ComboForm form;
    DataCombo1 &combo = *form.combo;
    combo.SetListIndex(2);
    QTest::keyClick(combo.Cmb1(), Qt::Key_Delete, Qt::ShiftModifier);
    EXPECT_EQ(combo.ListIndex(), 2);
    QTest::keyClick(combo.Cmb1(), Qt::Key_Delete);
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_EQ(combo.Value(), "");
}

TEST(DataCombo1, KeyEventsReachTheFormAndMaySwallowTheKey)
{
    ComboForm form;
    DataCombo1 &combo = *form.combo;
    combo.SetListIndex(0);
    QList<int> downs, presses, ups;
    QObject::connect(&combo, &DataCombo1::KeyDown, [&](int &code, int shift) {
        downs << code << shift;
        if (code == 40)
            code = 0;   // swallow Down
    });
    QObject::connect(&combo, &DataCombo1::KeyPress, [&](int &ascii) { presses << ascii; });
    QObject::connect(&combo, &DataCombo1::KeyUp, [&](int &code, int shift) { ups << code << shift; });

    QTest::keyClick(combo.Cmb1(), Qt::Key_Down);
    EXPECT_EQ(combo.ListIndex(), 0);
    QTest::keyClick(combo.Cmb1(), Qt::Key_G);
    QTest::keyClick(combo.Cmb1(), Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(downs, (QList<int>{40, 0, 71, 0, 17, 2, 13, 2}));
    EXPECT_EQ(presses, (QList<int>{'g', 13}));
    EXPECT_EQ(ups, (QList<int>{40, 0, 71, 0, 13, 2, 17, 0}));
}

TEST(DataCombo1, MouseEventsInTwips)
{
    ComboForm form;
    DataCombo1 &combo = *form.combo;
    QList<QList<float>> downs;
    QObject::connect(&combo, &DataCombo1::MouseDown, [&](int button, int shift, float x, float y) {
        downs << QList<float>{float(button), float(shift), x, y};
    });
    QSignalSpy ups(&combo, &DataCombo1::MouseUp);
    QTest::mouseClick(combo.Cmb1(), Qt::LeftButton, Qt::ControlModifier, QPoint(4, 5));
    ASSERT_EQ(downs.size(), 1);
    EXPECT_EQ(downs[0], (QList<float>{1, 2, 60, 75}));
    EXPECT_GE(ups.count(), 0);
}

TEST(DataCombo1, ResizeFollowsTheInnerCombo)
{
    DataCombo1 combo;
    combo.resize(300, 200);
    combo.show();
    EXPECT_EQ(combo.height(), combo.Cmb1()->sizeHint().height());
    EXPECT_EQ(combo.Cmb1()->geometry(), QRect(0, 0, 300, combo.height()));
    QFont big = combo.Font();
    big.setPointSize(20);
    combo.SetFont(big);
    EXPECT_EQ(combo.height(), combo.Cmb1()->sizeHint().height());
    // A font given straight to the inner combo, as the dialog set-up does.
    big.setPointSize(28);
    combo.Cmb1()->setFont(big);
    QTest::qWait(1);
    EXPECT_EQ(combo.height(), combo.Cmb1()->sizeHint().height());
    EXPECT_EQ(combo.Cmb1()->height(), combo.height());
    EXPECT_FALSE(combo.findChild<QComboBox *>(QStringLiteral("Cmb2"))->isVisibleTo(&combo));
}

TEST(DataCombo1, PropertyBagKeepsItsAsymmetries)
{
    QWidget container;
    QFont ambient(QStringLiteral("DejaVu Serif"), 11);
    container.setFont(ambient);
    DataCombo1 combo(&container);

    combo.ReadProperties(QVariantMap{});
    EXPECT_EQ(combo.BackColor(), qint32(0x80000005u));
    EXPECT_EQ(combo.ForeColor(), qint32(0x80000008u));
    EXPECT_TRUE(combo.Enabled());
    EXPECT_EQ(combo.Font().family(), "DejaVu Serif");

    combo.ReadProperties({{QStringLiteral("BackColor"), 0x0000FF},
                          {QStringLiteral("Enabled"), false},
                          {QStringLiteral("BorderStyle"), 1},
                          {QStringLiteral("Text"), QStringLiteral("ignored")},
                          {QStringLiteral("Value"), QStringLiteral("ignored")}});
    EXPECT_EQ(combo.BackColor(), 0x0000FF);
    EXPECT_EQ(combo.Cmb1()->palette().color(QPalette::Base), QColor(255, 0, 0));
    EXPECT_FALSE(combo.Enabled());
    EXPECT_EQ(combo.BorderStyle(), 1);
    EXPECT_EQ(combo.Text(), "");

    combo.AddItem(QStringLiteral("Tên"));
    combo.SetItemData(0, QStringLiteral("Ten"));
    combo.SetValue(QStringLiteral("Ten"));
    QVariantMap bag;
    combo.WriteProperties(bag);
    EXPECT_EQ(bag.value(QStringLiteral("BackColor")), 0x0000FF);
    EXPECT_EQ(bag.value(QStringLiteral("Enabled")), false);
    EXPECT_FALSE(bag.contains(QStringLiteral("BorderStyle")));
    EXPECT_FALSE(bag.contains(QStringLiteral("ForeColor")));   // at its default
    EXPECT_EQ(bag.value(QStringLiteral("Text")), "Tên");
    EXPECT_EQ(bag.value(QStringLiteral("Value")), "Ten");
    EXPECT_EQ(bag.value(QStringLiteral("ItemData")), "Ten");
}

TEST(DataCombo1, RegisteredUnderItsProgrammaticIdentifier)
{
    const QMetaObject &meta = DataCombo1::staticMetaObject;
    const int index = meta.indexOfClassInfo("ProgId");
    ASSERT_GE(index, 0);
    EXPECT_STREQ(meta.classInfo(index).value(), "ZOLT.DataCombo1");
}
