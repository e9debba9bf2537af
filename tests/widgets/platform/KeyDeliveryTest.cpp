// SPDX-License-Identifier: MIT
#include "widgets/desktop/General.h"
#include "widgets/platform/KeyDelivery.h"

#include "DialogSupport.h"

#include <zolt/Tesmir.h>

#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

using namespace zolt;

// Every stroke is recorded and still reaches the window: two line edits and
// a button with the mnemonic Alt+L.
TEST(KeyDelivery, StrokesReachTheFocusedWindowAsAKeyboardsWould)
{
    std::vector<std::pair<qint32, qint32>> strokes;
    const KeySink previous = SetKeySink([&](qint32 key, qint32 event) {
        strokes.emplace_back(key, event);
        DeliverKeyStroke(key, event);
    });
    QWidget form;
    auto *layout = new QVBoxLayout(&form);
    QLineEdit *edits[] = {new QLineEdit(&form), new QLineEdit(&form)};
    auto *button = new QPushButton(QStringLiteral("&Lưu"), &form);
    for (QWidget *w : {static_cast<QWidget *>(edits[0]), static_cast<QWidget *>(edits[1]), static_cast<QWidget *>(button)})
        layout->addWidget(w);
    test::showActive(&form);
    const Tesmir tesmir;

    edits[0]->setFocus();
    PressKey('A', 0);
    tesmir.ESendKey(VkShift, KeyStrokeDown);   // held across strokes
    PressKey('X', 0);
    tesmir.ESendKey(VkShift, KeyStrokeUp);
    PressKey(VkTab, 0);
    EXPECT_TRUE(edits[1]->hasFocus());
    PressKey(VkTab, 1);                          // Shift+Tab arrives as Backtab
    EXPECT_TRUE(edits[0]->hasFocus());
    tesmir.ESendKey(0x100 | VkTab, KeyStrokeDown);   // only the low byte names the key
    EXPECT_TRUE(edits[1]->hasFocus());
    EXPECT_EQ(edits[0]->text(), "aX");

    QSignalSpy clicked(button, &QPushButton::clicked);
    PressKey('L', 3);
    EXPECT_TRUE(QTest::qWaitFor([&] { return clicked.count() == 1; }));
    strokes.clear();
    PressKey(VkReturn, 2);
    PressKey(VkReturn, 7);   // four or more: code 0 stands in for the modifier
    EXPECT_EQ(strokes, (decltype(strokes){{17, 0}, {13, 0}, {13, 2}, {17, 2}, {0, 0}, {13, 0}, {13, 2}, {0, 2}}));
    SetKeySink(previous);
    ReleaseModifiers();
}
