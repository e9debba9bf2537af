// SPDX-License-Identifier: MIT
#include "data/General.h"
#include "platform/KeyDelivery.h"

#include "DialogSupport.h"

#include <zolt/Tesmir.h>

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

#include <utility>
#include <vector>

using namespace zolt;

namespace {

using Strokes = std::vector<std::pair<qint32, qint32>>;

// Records every stroke and still lets it reach the window; a form of three
// line edits and a button with the mnemonic Alt+L.
class KeyDeliveryTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        m_previous = SetKeySink([this](qint32 key, qint32 event) {
            strokes.emplace_back(key, event);
            DeliverKeyStroke(key, event);
        });
        auto *layout = new QVBoxLayout(&form);
        for (QLineEdit *&edit : edits)
            layout->addWidget(edit = new QLineEdit(&form));
        layout->addWidget(button = new QPushButton(QStringLiteral("&Lưu"), &form));
    }
    void TearDown() override
    {
        SetKeySink(m_previous);
        ReleaseModifiers();
    }
    Strokes strokes;
    QWidget form;
    QLineEdit *edits[3] = {};
    QPushButton *button = nullptr;

private:
    KeySink m_previous;
};

} // namespace

TEST_F(KeyDeliveryTest, GuiPhimSendsTheModifierAroundTheKey)
{
    const Tesmir tesmir;
    tesmir.Gui_Phim(VkTab, 1);
    tesmir.Gui_Phim('A', 2);
    tesmir.Gui_Phim('A', 3);
    tesmir.Gui_Phim(VkReturn, -1);
    PressKey(VkReturn, 7);   // four or more: code 0 stands in for the modifier
    EXPECT_EQ(strokes, (Strokes{{16, 0}, {9, 0}, {9, 2}, {16, 2}, {17, 0}, {65, 0}, {65, 2}, {17, 2},
                                {18, 0}, {65, 0}, {65, 2}, {18, 2}, {13, 0}, {13, 2},
                                {0, 0}, {13, 0}, {13, 2}, {0, 2}}));
}

TEST_F(KeyDeliveryTest, TabAndShiftTabMoveTheFocus)
{
    test::showActive(&form);
    edits[1]->setFocus();
    PressKey(VkTab, 0);
    EXPECT_TRUE(edits[2]->hasFocus());
    PressKey(VkTab, 1);
    PressKey(VkTab, 1);
    EXPECT_TRUE(edits[0]->hasFocus());
    Tesmir().ESendKey(0x100 | VkTab, 0);   // only the low byte names the key
    EXPECT_TRUE(edits[1]->hasFocus());
}

TEST_F(KeyDeliveryTest, LettersTypeHeldModifiersStayAndAltPressesMnemonics)
{
    test::showActive(&form);
    edits[0]->setFocus();
    const Tesmir tesmir;
    PressKey('A', 0);
    PressKey('7', 0);
    tesmir.ESendKey(VkShift, 0);   // held across strokes
    PressKey('X', 0);
    PressKey('Y', 0);
    tesmir.ESendKey(VkShift, 2);
    PressKey('Z', 0);
    EXPECT_EQ(edits[0]->text(), "a7XYz");

    QSignalSpy clicked(button, &QPushButton::clicked);
    PressKey('L', 3);
    EXPECT_TRUE(QTest::qWaitFor([&] { return clicked.count() == 1; }));
    EXPECT_EQ(edits[0]->text(), "a7XYz");   // the Alt stroke typed nothing
}

TEST_F(KeyDeliveryTest, WithoutAFocusedWindowNothingHappens)
{
    QApplication::setActiveWindow(nullptr);
    PressKey(VkTab, 1);
    EXPECT_EQ(strokes.size(), 4u);
}
