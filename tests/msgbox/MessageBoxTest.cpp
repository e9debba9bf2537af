// SPDX-License-Identifier: MIT
#include "msgbox/MdlMsg.h"
#include "msgbox/MessageBox.h"

#include "DialogSupport.h"

#include <zolt/Enums.h>

#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

using namespace zolt;
using test::child;

namespace {

// Shows the message box and acts on it with real events once it is up.
QString showAnd(const std::function<void(QWidget &)> &act, const QString &message, qint32 button,
                qint32 icon = 0, bool rightToLeft = false)
{
    test::whenModalShows([act](QWidget *box) { act(*box); });
    return ShowMgBox(message, button, QStringLiteral("Kế toán"), icon, rightToLeft);
}

QPushButton *button(QWidget &box, int i) { return child<QPushButton>(&box, i == 0 ? "Cmd1" : i == 1 ? "Cmd2" : "Cmd3"); }
QLabel *label(QWidget &box, const char *name) { return child<QLabel>(&box, name); }
void click(QWidget &box, int i) { QTest::mouseClick(button(box, i), Qt::LeftButton); }
void key(QWidget &box, Qt::Key k) { QTest::keyClick(box.focusWidget(), k); }

// The visible captions left to right; the row centred, free of overlaps, inside the dialog, under the message.
QStringList tidyRow(QWidget &box)
{
    QList<QPushButton *> row;
    for (int i = 0; i < 3; ++i) {
        if (button(box, i)->isVisible())
            row << button(box, i);
    }
    std::sort(row.begin(), row.end(), [](auto *a, auto *b) { return a->x() < b->x(); });
    EXPECT_LE(std::abs(row.first()->x() - (box.width() - row.last()->geometry().right() - 1)), 8);
    QStringList captions;
    for (int i = 0; i < row.size(); ++i) {
        EXPECT_TRUE(i == 0 || row[i]->x() > row[i - 1]->geometry().right());
        EXPECT_GE(row[i]->y(), label(box, "Message")->geometry().bottom());
        EXPECT_LE(row[i]->geometry().bottom(), box.height());
        EXPECT_GE(row[i]->width(), row[i]->sizeHint().width());
        captions << row[i]->text();
    }
    EXPECT_LE(label(box, "Message")->geometry().right(), box.width());
    return captions;
}

} // namespace

TEST(MessageBox, EveryButtonSetShowsItsCaptionsAndAnswers)
{
    const char *const sets[][2] = {   // the captions, and what each button answers
        {"Đồ&ng ý", "1"}, {"Đồ&ng ý|&Bỏ qua", "1|0"}, {"Bỏ &dở|&Thử lại|&Bác bỏ", "3|0|0"},
        {"&Có|&Không|&Bỏ qua", "6|0|0"}, {"&Có|&Không", "6|0"}, {"&Thử lại|&Bỏ qua", "4|0"},
        {"Đồ&ng ý|&Bỏ qua|&Thử lại", "-"} /* other values keep the designed buttons */};
    for (qint32 set = 0; set < 7; ++set) {
        const QStringList captions = QString::fromUtf8(sets[set][0]).split(QLatin1Char('|'));
        const QStringList answers = QString::fromUtf8(sets[set][1]).split(QLatin1Char('|'));
        for (int pressed = 0; pressed < answers.size(); ++pressed) {
            const QString answer = showAnd([&](QWidget &box) {
                EXPECT_EQ(tidyRow(box), captions) << set;
                click(box, pressed);
            }, QStringLiteral("Bạn có muốn ghi lại chứng từ này không?"), set);
            if (set < 6)
                EXPECT_EQ(answer, answers[pressed]) << set << pressed;
        }
    }
}

TEST(MessageBox, TagsDecodeAsTheirTablesSay)
{
    for (const auto &[tag, code] : {std::pair{"OK", 1}, {"NO", 7}, {"IGN", 5}, {"ok", 0}})
        EXPECT_EQ(MessageBox::GetReturn1(QLatin1String(tag)), code);
    const std::tuple<const char *, const char *, qint32> byCaption[] = {
        {"CAN", "", 0} /* a tag is no caption */, {"", "ABO", 5} /* the last match wins */, {"", "NO", 0},
        {"", "NO ", 7}, {"x &Không y", "", 7}, {"&Có &Bác bỏ", "", 5}, {"&có", "", 0} /* case counts */};
    for (const auto &[caption, tag, code] : byCaption)
        EXPECT_EQ(MessageBox::GetReturn(QString::fromUtf8(caption), QLatin1String(tag)), code) << caption << tag;
}

TEST(MessageBox, ClosingWithoutAButtonReturnsThePreviousAnswer)
{
    const auto escape = [](QWidget &box) { key(box, Qt::Key_Escape); };
    MessageBox::ReturnValue.clear();   // as no answer was ever given
    EXPECT_EQ(showAnd(escape, QStringLiteral("Lần đầu"), vbYesNo), "");
    EXPECT_EQ(showAnd([](QWidget &box) { click(box, 0); }, QStringLiteral("Có?"), vbYesNo), "6");
    EXPECT_EQ(showAnd(escape, QStringLiteral("Thoát"), vbOKOnly), "6");
    QString title;   // an empty title becomes the application's and is written back
    test::whenModalShows([](QWidget *box) { click(*box, 0); });
    ShowMgBox(QStringLiteral("Đã lưu"), 0, title);
    EXPECT_EQ(title, "ZOLT Tests");
}

TEST(MessageBox, TheKeyboardAnswersAsTheFocusAndTheLettersSay)
{
    const auto focusedThenEnter = [](int focused) {
        return [focused](QWidget &box) {
            EXPECT_TRUE(button(box, focused)->hasFocus());
            key(box, Qt::Key_Return);
        };
    };
    // A request to correct something has Yes focused; otherwise the second button is.
    EXPECT_EQ(showAnd(focusedThenEnter(0), QStringLiteral("Bạn có muốn sửa lại không?"), vbYesNo), "6");
    EXPECT_EQ(showAnd(focusedThenEnter(1), QStringLiteral("Bạn có muốn xoá không?"), vbYesNo), "0");
    EXPECT_EQ(showAnd(focusedThenEnter(1), QStringLiteral("Bạn có muốn sửa lại không?"), vbYesNoCancel), "0");
    EXPECT_EQ(showAnd([](QWidget &box) {   // Tab goes round the visible buttons in that order
        key(box, Qt::Key_Tab);
        EXPECT_TRUE(button(box, 2)->hasFocus());
        key(box, Qt::Key_Tab);
        EXPECT_TRUE(button(box, 0)->hasFocus());
        QTest::keyClick(box.focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
        key(box, Qt::Key_Return);
    }, QStringLiteral("Lưu thay đổi?"), vbYesNoCancel), "0");
    // A button's letter typed without Alt presses it; other letters do nothing.
    EXPECT_EQ(showAnd([](QWidget &box) { key(box, Qt::Key_K); }, QStringLiteral("Tiếp tục?"), vbYesNo), "0");
    EXPECT_EQ(showAnd([](QWidget &box) { key(box, Qt::Key_D); }, QStringLiteral("Lỗi đọc đĩa"), vbAbortRetryIgnore), "3");
    EXPECT_EQ(showAnd([](QWidget &box) {
        key(box, Qt::Key_X);
        QTest::qWait(200);
        key(box, Qt::Key_C);
    }, QStringLiteral("Tiếp tục?"), vbYesNo), "6");
}

TEST(MessageBox, IconsByNumberAndTheDesignedOneOtherwise)
{
    for (const auto &[icon, store] : {std::pair{vbCritical, "stop"}, {vbQuestion, "q"}, {vbExclamation, "Ex"},
                                      {vbInformation, "Info"}, {IconValue(0), "Info"}, {IconValue(17), "Info"}}) {
        showAnd([icon = icon, store = store](QWidget &box) {
            EXPECT_EQ(label(box, "micon")->pixmap().toImage(), label(box, store)->pixmap().toImage()) << icon;
            EXPECT_LT(label(box, "micon")->geometry().right(), label(box, "Message")->x());
            click(box, 0);
        }, QStringLiteral("Biểu tượng"), 0, icon);
    }
}

TEST(MessageBox, LongMessagesGrowTheDialogWhichDrawsItsOwnFrameAndMovesByItsBand)
{
    QSize small;
    showAnd([&](QWidget &box) {
        small = box.size();
        QLabel *band = label(box, "Label5");
        EXPECT_EQ(band->geometry(), QRect(0, 0, box.width(), band->height()));
        EXPECT_EQ(child(&box, "Line3")->x(), box.width() - 1);
        EXPECT_EQ(child(&box, "Line4")->y(), box.height() - 1);
        const QPoint before = box.pos();
        QTest::mousePress(band, Qt::LeftButton, Qt::NoModifier, QPoint(40, 5));
        QTest::mouseMove(band, QPoint(90, 25));
        QTest::mouseRelease(band, Qt::LeftButton, Qt::NoModifier, QPoint(90, 25));
        EXPECT_EQ(box.pos() - before, QPoint(50, 20));
        click(box, 0);
    }, QStringLiteral("Ngắn"), 0);
    showAnd([&](QWidget &box) {
        EXPECT_GT(box.width(), small.width());
        EXPECT_LT(box.width(), 800);   // too long for one line: it wraps
        EXPECT_GT(box.height(), small.height());
        tidyRow(box);
        click(box, 0);
    }, QStringLiteral("Không thể lưu chứng từ vì kỳ kế toán đã khoá sổ. ").repeated(6), vbOKCancel);
    showAnd([](QWidget &box) {
        EXPECT_EQ(box.layoutDirection(), Qt::RightToLeft);
        EXPECT_TRUE(label(box, "Message")->alignment() & Qt::AlignRight);
        click(box, 0);
    }, QStringLiteral("Phải sang trái"), 0, 0, true);
}
