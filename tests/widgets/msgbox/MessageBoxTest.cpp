// SPDX-License-Identifier: MIT
#include "widgets/msgbox/MdlMsg.h"

#include "DialogSupport.h"

#include <zolt/Enums.h>
#include <zolt/MessageBox.h>
#include <zolt/clsLogon.h>

#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>

using namespace zolt;
using namespace Qt::StringLiterals;
using test::child;

namespace {

// Shows the message box and acts on it with real events once it is up.
QString showAnd(const std::function<void(QWidget &)> &act, const QString &message, qint32 button,
                qint32 icon = 0, bool rightToLeft = false)
{
    test::whenModalShows([act](QWidget *box) { act(*box); });
    return ShowMgBox(message, button, u"Kế toán"_s, icon, rightToLeft);
}

QPushButton *button(QWidget &box, int i) { return child<QPushButton>(&box, i == 0 ? "Cmd1" : i == 1 ? "Cmd2" : "Cmd3"); }
QLabel *label(QWidget &box, const char *name) { return child<QLabel>(&box, name); }
void click(QWidget &box, int i) { QTest::mouseClick(button(box, i), Qt::LeftButton); }
void key(QWidget &box, Qt::Key k, Qt::KeyboardModifiers m = {}) { QTest::keyClick(box.focusWidget(), k, m); }

// The visible captions left to right, checking that the row is centred, free
// of overlaps, whole, and between the message and the dialog's bottom.
QStringList tidyRow(QWidget &box)
{
    QList<QPushButton *> row;
    for (int i : {0, 1, 2})
        if (button(box, i)->isVisible())
            row << button(box, i);
    std::sort(row.begin(), row.end(), [](auto *a, auto *b) { return a->x() < b->x(); });
    EXPECT_LE(std::abs(row.first()->x() - (box.width() - row.last()->geometry().right() - 1)), 8);
    QStringList captions;
    for (QPushButton *b : row) {
        EXPECT_TRUE(captions.isEmpty() || b->x() > row[captions.size() - 1]->geometry().right());
        EXPECT_TRUE(b->y() >= label(box, "Message")->geometry().bottom() && b->geometry().bottom() <= box.height());
        EXPECT_GE(b->width(), b->sizeHint().width());
        captions << b->text();
    }
    return captions;
}

} // namespace

TEST(MessageBox, EveryButtonSetShowsItsCaptionsAndAnswers)
{
    const QString sets[][2] = {   // the captions, and what each button answers
        {u"Đồ&ng ý"_s, u"1"_s}, {u"Đồ&ng ý|&Bỏ qua"_s, u"1|0"_s}, {u"Bỏ &dở|&Thử lại|&Bác bỏ"_s, u"3|0|0"_s},
        {u"&Có|&Không|&Bỏ qua"_s, u"6|0|0"_s}, {u"&Có|&Không"_s, u"6|0"_s}, {u"&Thử lại|&Bỏ qua"_s, u"4|0"_s},
        {u"Đồ&ng ý|&Bỏ qua|&Thử lại"_s, u"-"_s} /* other values keep the designed buttons */};
    for (qint32 set = 0; set < 7; ++set) {
        const QStringList answers = sets[set][1].split(u'|');
        for (int pressed = 0; pressed < answers.size(); ++pressed) {
            const QString answer = showAnd([&](QWidget &box) {
                EXPECT_EQ(tidyRow(box), sets[set][0].split(u'|')) << set;
                click(box, pressed);
            }, u"Bạn có muốn ghi lại chứng từ này không?"_s, set);
            EXPECT_TRUE(set == 6 || answer == answers[pressed]) << set << pressed;
        }
    }
}

TEST(MessageBox, TagsDecodeAsTheirTablesSay)
{
    for (const auto &[tag, code] : {std::pair{"OK", 1}, {"NO", 7}, {"IGN", 5}, {"ok", 0}})
        EXPECT_EQ(MessageBox::GetReturn1(QLatin1String(tag)), code);
    const std::tuple<QString, const char *, qint32> byCaption[] = {
        {u"CAN"_s, "", 0} /* a tag is no caption */, {{}, "ABO", 5} /* the last match wins */, {{}, "NO", 0},
        {{}, "NO ", 7}, {u"x &Không y"_s, "", 7}, {u"&Có &Bác bỏ"_s, "", 5}, {u"&có"_s, "", 0} /* case counts */};
    for (const auto &[caption, tag, code] : byCaption)
        EXPECT_EQ(MessageBox::GetReturn(caption, QLatin1String(tag)), code) << tag;
}

TEST(MessageBox, ClosingWithoutAButtonReturnsThePreviousAnswer)
{
    const auto escape = [](QWidget &box) { key(box, Qt::Key_Escape); };
    MessageBox::ReturnValue.clear();   // as no answer was ever given
    EXPECT_EQ(showAnd(escape, u"Lần đầu"_s, vbYesNo), "");
    EXPECT_EQ(showAnd([](QWidget &box) { click(box, 0); }, u"Có?"_s, vbYesNo), "6");
    EXPECT_EQ(showAnd(escape, u"Thoát"_s, vbOKOnly), "6");
    QString title;   // an empty title becomes the application's and is written back
    test::whenModalShows([](QWidget *box) { click(*box, 0); });
    ShowMgBox(u"Đã lưu"_s, 0, title);
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
    EXPECT_EQ(showAnd(focusedThenEnter(0), u"Bạn có muốn sửa lại không?"_s, vbYesNo), "6");
    EXPECT_EQ(showAnd(focusedThenEnter(1), u"Bạn có muốn xoá không?"_s, vbYesNo), "0");
    EXPECT_EQ(showAnd(focusedThenEnter(1), u"Bạn có muốn sửa lại không?"_s, vbYesNoCancel), "0");
    EXPECT_EQ(showAnd([](QWidget &box) {   // Tab goes round the visible buttons in that order
        key(box, Qt::Key_Tab);
        key(box, Qt::Key_Tab);
        EXPECT_TRUE(button(box, 0)->hasFocus());
        key(box, Qt::Key_Backtab, Qt::ShiftModifier);
        key(box, Qt::Key_Return);
    }, u"Lưu thay đổi?"_s, vbYesNoCancel), "0");
    // A button's letter typed without Alt presses it; other letters do nothing.
    EXPECT_EQ(showAnd([](QWidget &box) { key(box, Qt::Key_K); }, u"Tiếp tục?"_s, vbYesNo), "0");
    EXPECT_EQ(showAnd([](QWidget &box) { key(box, Qt::Key_D); }, u"Lỗi đọc đĩa"_s, vbAbortRetryIgnore), "3");
    EXPECT_EQ(showAnd([](QWidget &box) { key(box, Qt::Key_X), QTest::qWait(200), key(box, Qt::Key_C); },
                      u"Tiếp tục?"_s, vbYesNo), "6");
}

TEST(MessageBox, IconsByNumberAndTheDesignedOneOtherwise)
{
    for (const auto &[icon, store] : {std::pair{vbCritical, "stop"}, {vbQuestion, "q"}, {vbExclamation, "Ex"},
                                      {vbInformation, "Info"}, {IconValue(0), "Info"}, {IconValue(17), "Info"}}) {
        showAnd([store = store](QWidget &box) {
            EXPECT_EQ(label(box, "micon")->pixmap().toImage(), label(box, store)->pixmap().toImage()) << store;
            EXPECT_LT(label(box, "micon")->geometry().right(), label(box, "Message")->x());
            click(box, 0);
        }, u"Biểu tượng"_s, 0, icon);
    }
}

TEST(MessageBox, LongMessagesWrapTheDialogDrawsItsFrameAndMovesByItsBand)
{
    QSize small;
    showAnd([&](QWidget &box) {
        small = box.size();
        QLabel *band = label(box, "Label5");
        EXPECT_EQ(band->geometry(), QRect(0, 0, box.width(), band->height()));
        EXPECT_EQ(QPoint(child(&box, "Line3")->x(), child(&box, "Line4")->y()), QPoint(box.width() - 1, box.height() - 1));
        const QPoint before = box.pos();
        QTest::mousePress(band, Qt::LeftButton, {}, QPoint(40, 5));
        QTest::mouseMove(band, QPoint(90, 25));
        QTest::mouseRelease(band, Qt::LeftButton, {}, QPoint(90, 25));
        EXPECT_EQ(box.pos() - before, QPoint(50, 20));
        click(box, 0);
    }, u"Ngắn"_s, 0);
    showAnd([&](QWidget &box) {
        EXPECT_TRUE(box.width() > small.width() && box.width() < 800 && box.height() > small.height());
        tidyRow(box);
        EXPECT_EQ(box.layoutDirection(), Qt::RightToLeft);
        EXPECT_TRUE(label(box, "Message")->alignment() & Qt::AlignRight);
        click(box, 0);
    }, u"Không thể lưu chứng từ vì kỳ kế toán đã khoá sổ. "_s.repeated(6), vbOKCancel, 0, true);
}

// The typed calls: every button told apart, each kind with its icon, the
// box transient for the host's window.
TEST(MessageBox, TheTypedCallsTellEveryButtonApart)
{
    static_assert(std::is_same_v<decltype(MessageBox::question(nullptr, QString(), QString())), Answer>);
    QWidget owner;
    test::showActive(&owner);
    const std::pair<Buttons, QList<Answer>> sets[] = {
        {vbYesNoCancel, {Answer::Yes, Answer::No, Answer::Cancel}}, {vbAbortRetryIgnore, {Answer::Abort, Answer::Retry, Answer::Ignore}},
        {vbOKCancel, {Answer::OK, Answer::Cancel}}, {vbRetryCancel, {Answer::Retry, Answer::Cancel}}};
    for (const auto &[set, answers] : sets) {
        for (int i = 0; i < answers.size(); ++i) {
            test::whenModalShows([&](QWidget *box) {
                EXPECT_EQ(box->parentWidget(), &owner);
                click(*box, i);
            });
            EXPECT_EQ(MessageBox::warning(&owner, u"Kế toán"_s, u"Lưu chứng từ?"_s, set), answers[i]) << set << " " << i;
        }
    }
    const struct {
        std::function<Answer()> ask;
        const char *icon;   // the picture's name, as a screen reader reads it
    } kinds[] = {
        {[] { return MessageBox::information(nullptr, u"Kế toán"_s, u"Đã ghi."_s); }, "Thông báo"},
        {[] { return MessageBox::question(nullptr, u"Kế toán"_s, u"Ghi chứng từ?"_s); }, "Câu hỏi"},
        {[] { return MessageBox::warning(nullptr, u"Kế toán"_s, u"Chưa ghi."_s); }, "Cảnh báo"},
        {[] { return MessageBox::critical(nullptr, u"Kế toán"_s, u"Không ghi được."_s); }, "Lỗi"},
    };
    for (const auto &kind : kinds) {
        test::whenModalShows([&](QWidget *box) {
            EXPECT_EQ(label(*box, "micon")->accessibleName(), QString::fromUtf8(kind.icon));
            key(*box, Qt::Key_Escape);
        });
        EXPECT_EQ(kind.ask(), Answer::None);
    }
}

// Code ported from the original program calls MgBox with the enumerations as
// it did with numbers: the answer is text, and an empty title held in a
// variable comes back filled, as the classic box wrote it back.
TEST(MessageBox, TheLegacyCallWithTheEnumerationsAnswersTextAndWritesTheTitleBack)
{
    clsLogon logon;
    QString title;
    static_assert(std::is_same_v<decltype(logon.MgBox(QString(), vbYesNo, title, vbQuestion)), QString>);
    test::whenModalShows([](QWidget *box) { click(*box, 0); });
    EXPECT_EQ(logon.MgBox(u"Lưu chứng từ?"_s, vbYesNo, title, vbQuestion), u"6"_s);
    EXPECT_EQ(title, QGuiApplication::applicationDisplayName());
    EXPECT_FALSE(title.isEmpty());
    test::whenModalShows([](QWidget *box) { click(*box, 1); });
    EXPECT_EQ(logon.MgBox(u"Lưu chứng từ?"_s, vbYesNoCancel, u"Kế toán"_s, vbExclamation), u"0"_s);
}
