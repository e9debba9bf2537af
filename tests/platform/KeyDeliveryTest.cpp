#include "data/General.h"
#include "platform/KeyDelivery.h"

#include <zolt/Tesmir.h>

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <QWidget>

#include <gtest/gtest.h>

#include <utility>
#include <vector>

using namespace zolt;

namespace {

using Strokes = std::vector<std::pair<qint32, qint32>>;

// Records every stroke and still lets it reach the window.
class RecordingSink {
public:
    RecordingSink()
    {
        m_previous = SetKeySink([this](qint32 key, qint32 event) {
            strokes.emplace_back(key, event);
            DeliverKeyStroke(key, event);
        });
    }
    ~RecordingSink()
    {
        SetKeySink(m_previous);
        ReleaseModifiers();
    }
    Strokes strokes;

private:
    KeySink m_previous;
};

// A window of three line edits and a button with the mnemonic Alt+L.
class Form : public QWidget {
public:
    Form()
    {
        auto *layout = new QVBoxLayout(this);
        for (int i = 0; i < 3; ++i) {
            edits[i] = new QLineEdit(this);
            edits[i]->setObjectName(QStringLiteral("Txt%1").arg(i));
            layout->addWidget(edits[i]);
        }
        button = new QPushButton(QStringLiteral("&Lưu"), this);
        layout->addWidget(button);
        show();
        activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(this));
    }
    QLineEdit *edits[3] = {};
    QPushButton *button = nullptr;
};

} // namespace

TEST(GuiPhim, SendsTheModifierAroundTheKey)
{
    RecordingSink sink;
    Tesmir tesmir;
    tesmir.Gui_Phim(9, 1);
    EXPECT_EQ(sink.strokes, (Strokes{{16, 0}, {9, 0}, {9, 2}, {16, 2}}));

    sink.strokes.clear();
    tesmir.Gui_Phim(65, 2);
    tesmir.Gui_Phim(65, 3);
    EXPECT_EQ(sink.strokes, (Strokes{{17, 0}, {65, 0}, {65, 2}, {17, 2},
                                     {18, 0}, {65, 0}, {65, 2}, {18, 2}}));

    sink.strokes.clear();
    tesmir.Gui_Phim(13, 0);
    tesmir.Gui_Phim(13, -1);
    PressKey(13, 7);   // four or more: code 0 stands in for the modifier
    EXPECT_EQ(sink.strokes, (Strokes{{13, 0}, {13, 2}, {13, 0}, {13, 2},
                                     {0, 0}, {13, 0}, {13, 2}, {0, 2}}));
}

TEST(GuiPhim, TabMovesTheFocusAndShiftTabMovesItBack)
{
    RecordingSink sink;
    Form form;
    form.edits[1]->setFocus();
    ASSERT_TRUE(form.edits[1]->hasFocus());

    PressKey(9, 0);
    EXPECT_TRUE(form.edits[2]->hasFocus());
    PressKey(9, 1);
    EXPECT_TRUE(form.edits[1]->hasFocus());
    PressKey(9, 1);
    EXPECT_TRUE(form.edits[0]->hasFocus());
    // Only the low byte of the code names the key.
    Tesmir().ESendKey(0x100 | 9, 0);
    Tesmir().ESendKey(0x100 | 9, 2);
    EXPECT_TRUE(form.edits[1]->hasFocus());
}

TEST(GuiPhim, LettersTypeTextAndAltLettersPressMnemonics)
{
    RecordingSink sink;
    Form form;
    form.edits[0]->setFocus();
    PressKey('A', 0);
    PressKey('B', 1);
    PressKey('7', 0);
    EXPECT_EQ(form.edits[0]->text(), "aB7");

    QSignalSpy clicked(form.button, &QPushButton::clicked);
    PressKey('L', 3);
    // A mnemonic clicks its button the way a mouse would, after a short press.
    EXPECT_TRUE(QTest::qWaitFor([&] { return clicked.count() == 1; }));
    EXPECT_EQ(form.edits[0]->text(), "aB7");   // the Alt stroke typed nothing
}

TEST(GuiPhim, ModifiersStayDownUntilReleased)
{
    RecordingSink sink;
    Form form;
    form.edits[0]->setFocus();
    Tesmir tesmir;
    tesmir.ESendKey(16, 0);   // Shift down, held across strokes
    tesmir.Gui_Phim('X', 0);
    tesmir.Gui_Phim('Y', 0);
    tesmir.ESendKey(16, 2);
    tesmir.Gui_Phim('Z', 0);
    EXPECT_EQ(form.edits[0]->text(), "XYz");
}

TEST(GuiPhim, WithoutAFocusedWindowNothingHappens)
{
    RecordingSink sink;
    QApplication::setActiveWindow(nullptr);
    PressKey(9, 1);
    PressKey(0, 0);
    EXPECT_EQ(sink.strokes.size(), 6u);
}
