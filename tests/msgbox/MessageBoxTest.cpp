#include "msgbox/MdlMsg.h"
#include "msgbox/MessageBox.h"

#include "TestSupport.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

using namespace zolt;

namespace {

using Action = std::function<void(MessageBox &)>;

// Shows the message box and acts on it with real events once it is up.
QString showAnd(const Action &act, const QString &message, qint32 button, QString title = QStringLiteral("Kế toán"),
                qint32 icon = 0, bool rightToLeft = false)
{
    test::whenModalShows([act](QWidget *dialog) {
        auto *box = qobject_cast<MessageBox *>(dialog);
        ASSERT_NE(box, nullptr);
        act(*box);
    });
    return ShowMgBox(message, button, title, icon, rightToLeft);
}

void click(QPushButton *button)
{
    QTest::mouseClick(button, Qt::LeftButton);
}

QList<QPushButton *> visibleButtons(const MessageBox &box)
{
    QList<QPushButton *> shown;
    for (QPushButton *b : {box.Cmd1, box.Cmd2, box.Cmd3}) {
        if (b->isVisible())
            shown << b;
    }
    std::sort(shown.begin(), shown.end(), [](auto *a, auto *b) { return a->x() < b->x(); });
    return shown;
}

// The row is centred, inside the dialog, free of overlaps, under the message.
void expectTidyRow(const MessageBox &box)
{
    const QList<QPushButton *> row = visibleButtons(box);
    ASSERT_FALSE(row.isEmpty());
    const int left = row.first()->x();
    const int right = box.width() - (row.last()->x() + row.last()->width());
    EXPECT_LE(std::abs(left - right), 8) << left << " " << right;
    EXPECT_GT(left, 0);
    for (int i = 1; i < row.size(); ++i)
        EXPECT_GT(row[i]->x(), row[i - 1]->x() + row[i - 1]->width());
    for (QPushButton *b : row) {
        EXPECT_GE(b->y(), box.Message->geometry().bottom());
        EXPECT_GE(b->y(), box.micon->geometry().bottom());
        EXPECT_LE(b->geometry().bottom(), box.height());
        EXPECT_GE(b->width(), b->sizeHint().width()) << b->text().toStdString();
    }
    EXPECT_LE(box.Message->geometry().right(), box.width());
}

struct SetCase {
    qint32 set;
    QStringList captions;     // Cmd1, Cmd2, Cmd3 as shown
    QStringList answers;      // what each button answers
};

const SetCase Sets[] = {
    {0, {QStringLiteral("Đồ&ng ý")}, {QStringLiteral("1")}},
    {1, {QStringLiteral("Đồ&ng ý"), QStringLiteral("&Bỏ qua")}, {QStringLiteral("1"), QStringLiteral("0")}},
    {2, {QStringLiteral("Bỏ &dở"), QStringLiteral("&Thử lại"), QStringLiteral("&Bác bỏ")},
     {QStringLiteral("3"), QStringLiteral("0"), QStringLiteral("0")}},
    {3, {QStringLiteral("&Có"), QStringLiteral("&Không"), QStringLiteral("&Bỏ qua")},
     {QStringLiteral("6"), QStringLiteral("0"), QStringLiteral("0")}},
    {4, {QStringLiteral("&Có"), QStringLiteral("&Không")}, {QStringLiteral("6"), QStringLiteral("0")}},
    {5, {QStringLiteral("&Thử lại"), QStringLiteral("&Bỏ qua")}, {QStringLiteral("4"), QStringLiteral("0")}},
};

} // namespace

TEST(MessageBox, EveryButtonSetShowsItsCaptionsAndAnswers)
{
    for (const SetCase &c : Sets) {
        for (int pressed = 0; pressed < c.captions.size(); ++pressed) {
            const QString answer = showAnd([&](MessageBox &box) {
                const QList<QPushButton *> row = visibleButtons(box);
                ASSERT_EQ(row.size(), c.captions.size()) << c.set;
                QStringList shown;
                for (QPushButton *b : {box.Cmd1, box.Cmd2, box.Cmd3}) {
                    if (b->isVisible())
                        shown << b->text();
                }
                EXPECT_EQ(shown, c.captions) << c.set;
                EXPECT_EQ(row.first(), box.Cmd1);
                expectTidyRow(box);
                if (pressed == 0)
                    test::saveScreenshot(&box, QStringLiteral("message-box-set-%1").arg(c.set));
                click((QPushButton *[]){box.Cmd1, box.Cmd2, box.Cmd3}[pressed]);
            }, QStringLiteral("Bạn có muốn ghi lại chứng từ này không?"), c.set, QStringLiteral("Kế toán"), 32);
            EXPECT_EQ(answer, c.answers[pressed]) << "set " << c.set << " button " << pressed;
        }
    }
}

TEST(MessageBox, TagsDecodeAsTheirTablesSay)
{
    EXPECT_EQ(MessageBox::GetReturn1(QStringLiteral("OK")), 1);
    EXPECT_EQ(MessageBox::GetReturn1(QStringLiteral("NO")), 7);
    EXPECT_EQ(MessageBox::GetReturn1(QStringLiteral("IGN")), 5);
    EXPECT_EQ(MessageBox::GetReturn1(QStringLiteral("ok")), 0);
    EXPECT_EQ(MessageBox::GetReturn(QStringLiteral("CAN")), 0);          // a tag is no caption
    EXPECT_EQ(MessageBox::GetReturn(QString(), QStringLiteral("ABO")), 5);   // the last match wins
    EXPECT_EQ(MessageBox::GetReturn(QString(), QStringLiteral("NO")), 0);
    EXPECT_EQ(MessageBox::GetReturn(QString(), QStringLiteral("NO ")), 7);
    EXPECT_EQ(MessageBox::GetReturn(QStringLiteral("x &Không y")), 7);
    EXPECT_EQ(MessageBox::GetReturn(QStringLiteral("&Có &Bác bỏ")), 5);
    EXPECT_EQ(MessageBox::GetReturn(QStringLiteral("&có")), 0);         // case counts
}

TEST(MessageBox, OtherButtonValuesKeepTheDesignedButtons)
{
    for (qint32 set : {6, -1}) {
        showAnd([](MessageBox &box) {
            EXPECT_EQ(visibleButtons(box).size(), 3);
            EXPECT_EQ(MessageBox::Tag(box.Cmd1), "OK");
            EXPECT_EQ(MessageBox::Tag(box.Cmd2), "CAN");
            EXPECT_EQ(MessageBox::Tag(box.Cmd3), "RET");
            expectTidyRow(box);
            click(box.Cmd1);
        }, QStringLiteral("Giá trị khác"), set);
    }
}

TEST(MessageBox, ClosingWithoutAButtonReturnsThePreviousAnswer)
{
    const auto escape = [](MessageBox &box) { QTest::keyClick(box.focusWidget(), Qt::Key_Escape); };
    EXPECT_EQ(showAnd(escape, QStringLiteral("Lần đầu"), 4), "");
    EXPECT_EQ(showAnd([](MessageBox &box) { click(box.Cmd1); }, QStringLiteral("Có?"), 4), "6");
    EXPECT_EQ(showAnd(escape, QStringLiteral("Thoát"), 0), "6");
    EXPECT_EQ(showAnd([](MessageBox &box) { click(box.Cmd2); }, QStringLiteral("Không?"), 4), "0");
    EXPECT_EQ(showAnd([](MessageBox &box) { box.reject(); }, QStringLiteral("Đóng"), 1), "0");
}

TEST(MessageBox, AskingToCorrectSomethingFocusesYes)
{
    // Enter presses the focused button.
    const auto enter = [](MessageBox &box) { QTest::keyClick(box.focusWidget(), Qt::Key_Return); };
    EXPECT_EQ(showAnd([&](MessageBox &box) {
        EXPECT_TRUE(box.Cmd1->hasFocus());
        enter(box);
    }, QStringLiteral("Bạn có muốn sửa lại không?"), 4), "6");
    EXPECT_EQ(showAnd([&](MessageBox &box) {
        EXPECT_TRUE(box.Cmd2->hasFocus());
        enter(box);
    }, QStringLiteral("Bạn có muốn xoá không?"), 4), "0");
    EXPECT_EQ(showAnd([&](MessageBox &box) {
        EXPECT_TRUE(box.Cmd2->hasFocus());   // only the Yes/No set follows the rule
        enter(box);
    }, QStringLiteral("Bạn có muốn sửa lại không?"), 3), "0");
    EXPECT_EQ(showAnd([&](MessageBox &box) { enter(box); }, QStringLiteral("Xong"), 0), "1");
    // Tab goes round the visible buttons in that order.
    EXPECT_EQ(showAnd([&](MessageBox &box) {
        QTest::keyClick(box.focusWidget(), Qt::Key_Tab);
        EXPECT_TRUE(box.Cmd3->hasFocus());
        QTest::keyClick(box.focusWidget(), Qt::Key_Tab);
        EXPECT_TRUE(box.Cmd1->hasFocus());
        QTest::keyClick(box.focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_TRUE(box.Cmd3->hasFocus());
        enter(box);
    }, QStringLiteral("Lưu thay đổi?"), 3), "0");
}

TEST(MessageBox, LettersPressTheirButtonsWithoutAlt)
{
    const auto type = [](Qt::Key key, const char *text) {
        return [key, text](MessageBox &box) { QTest::keyClick(box.focusWidget(), key, Qt::NoModifier); Q_UNUSED(text); };
    };
    EXPECT_EQ(showAnd(type(Qt::Key_K, "k"), QStringLiteral("Tiếp tục?"), 4), "0");
    EXPECT_EQ(showAnd(type(Qt::Key_C, "c"), QStringLiteral("Tiếp tục?"), 4), "6");
    EXPECT_EQ(showAnd(type(Qt::Key_D, "d"), QStringLiteral("Lỗi đọc đĩa"), 2), "3");
    EXPECT_EQ(showAnd([](MessageBox &box) {
        QTest::keyClick(box.focusWidget(), Qt::Key_X);    // no button's letter: nothing happens
        QTest::qWait(200);
        EXPECT_TRUE(box.isVisible());
        click(box.Cmd1);
    }, QStringLiteral("Tiếp tục?"), 4), "6");
}

TEST(MessageBox, EmptyTitleBecomesTheApplicationsAndIsWrittenBack)
{
    QString title;
    test::whenModalShows([](QWidget *dialog) {
        auto *box = static_cast<MessageBox *>(dialog);
        EXPECT_EQ(box->label4->text(), "ZOLT Tests");
        click(box->Cmd1);
    });
    ShowMgBox(QStringLiteral("Đã lưu"), 0, title);
    EXPECT_EQ(title, "ZOLT Tests");
}

TEST(MessageBox, IconsByNumberAndTheDesignedOneOtherwise)
{
    for (qint32 icon : {16, 32, 48, 64, 0, 17}) {
        showAnd([icon](MessageBox &box) {
            const QLabel *expected = icon == 16 ? box.stop : icon == 32 ? box.q : icon == 48 ? box.Ex : box.Info;
            EXPECT_EQ(box.micon->pixmap().toImage(), expected->pixmap().toImage()) << icon;
            EXPECT_EQ(box.micon->pixmap().width(), 32);
            EXPECT_LT(box.micon->geometry().right(), box.Message->x());
            if (icon == 16)
                test::saveScreenshot(&box, QStringLiteral("message-box-stop"));
            click(box.Cmd1);
        }, QStringLiteral("Biểu tượng"), 0, QStringLiteral("Login"), icon);
    }
}

TEST(MessageBox, LongAndMultiLineMessagesGrowTheDialog)
{
    int shortHeight = 0;
    int shortWidth = 0;
    showAnd([&](MessageBox &box) {
        shortHeight = box.height();
        shortWidth = box.width();
        click(box.Cmd1);
    }, QStringLiteral("Ngắn"), 0);
    showAnd([&](MessageBox &box) {
        EXPECT_GT(box.height(), shortHeight);
        expectTidyRow(box);
        test::saveScreenshot(&box, QStringLiteral("message-box-multiline"));
        click(box.Cmd1);
    }, QStringLiteral("Dòng thứ nhất\nDòng thứ hai\nDòng thứ ba\nDòng thứ tư"), 3);
    showAnd([&](MessageBox &box) {
        EXPECT_GT(box.width(), shortWidth);
        EXPECT_GT(box.height(), shortHeight);   // too long for one line: it wraps
        EXPECT_LT(box.width(), 800);
        expectTidyRow(box);
        test::saveScreenshot(&box, QStringLiteral("message-box-long"));
        click(box.Cmd1);
    }, QStringLiteral("Không thể lưu chứng từ vì kỳ kế toán đã khoá sổ. ").repeated(6), 1);
}

TEST(MessageBox, DrawsItsOwnFrameAndMovesByTheTitleBand)
{
    showAnd([](MessageBox &box) {
        EXPECT_EQ(box.Label5->geometry().topLeft(), QPoint(0, 0));
        EXPECT_EQ(box.Label5->width(), box.width());
        EXPECT_EQ(box.Line3->x(), box.width() - 1);
        EXPECT_EQ(box.Line4->y(), box.height() - 1);
        EXPECT_TRUE(box.Label5->geometry().contains(box.label4->geometry().center()));
        const QPoint before = box.pos();
        QTest::mousePress(box.Label5, Qt::LeftButton, Qt::NoModifier, QPoint(40, 5));
        QTest::mouseMove(box.Label5, QPoint(90, 25));
        QTest::mouseRelease(box.Label5, Qt::LeftButton, Qt::NoModifier, QPoint(90, 25));
        EXPECT_EQ(box.pos() - before, QPoint(50, 20));
        click(box.Cmd1);
    }, QStringLiteral("Kéo thả"), 0);
}

TEST(MessageBox, RightToLeftTurnsTheMessageAndTheDialog)
{
    showAnd([](MessageBox &box) {
        EXPECT_EQ(box.layoutDirection(), Qt::RightToLeft);
        EXPECT_TRUE(box.Message->alignment() & Qt::AlignRight);
        click(box.Cmd1);
    }, QStringLiteral("Phải sang trái"), 0, QStringLiteral("x"), 0, true);
    showAnd([](MessageBox &box) {
        EXPECT_EQ(box.layoutDirection(), Qt::LeftToRight);
        EXPECT_TRUE(box.Message->alignment() & Qt::AlignLeft);
        click(box.Cmd1);
    }, QStringLiteral("Trái sang phải"), 0);
}
