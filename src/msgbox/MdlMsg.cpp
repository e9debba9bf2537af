#include "msgbox/MdlMsg.h"

#include "data/General.h"
#include "msgbox/MessageBox.h"

#include <QGuiApplication>
#include <QLabel>
#include <QPointer>
#include <QPushButton>

namespace zolt {

namespace {

struct ButtonLook {
    const char *caption;
    const char *tag;
};

struct ButtonSet {
    ButtonLook buttons[3];   // Cmd1, Cmd2, Cmd3; no caption: hidden
};

// The six sets of the system message box, by number. In set 2 the Ignore
// button carries the Abort tag: its answer is decoded as the others' are.
const ButtonSet Sets[] = {
    {{{"Đồ&ng ý", "OK"}, {nullptr, nullptr}, {nullptr, nullptr}}},
    {{{"Đồ&ng ý", "OK"}, {"&Bỏ qua", "CAN"}, {nullptr, nullptr}}},
    {{{"Bỏ &dở", "ABO"}, {"&Thử lại", "RET"}, {"&Bác bỏ", "ABO"}}},
    {{{"&Có", "YES"}, {"&Không", "NO"}, {"&Bỏ qua", "CAN"}}},
    {{{"&Có", "YES"}, {"&Không", "NO"}, {nullptr, nullptr}}},
    {{{"&Thử lại", "RET"}, {"&Bỏ qua", "CAN"}, {nullptr, nullptr}}},
};

int leftTw(const QWidget *w) { return ToTwips(w->x()); }
int widthTw(const QWidget *w) { return ToTwips(w->width()); }
void setLeftTw(QWidget *w, int twips) { w->move(ToPixels(twips), w->y()); }

void placeButtons(MessageBox &box, qint32 button)
{
    const ButtonSet &set = Sets[button];
    QPushButton *controls[] = {box.Cmd1, box.Cmd2, box.Cmd3};
    int visible = 0;
    for (int i = 0; i < 3; ++i) {
        const ButtonLook &look = set.buttons[i];
        controls[i]->setVisible(look.caption != nullptr);
        if (look.caption) {
            controls[i]->setText(QString::fromUtf8(look.caption));
            MessageBox::SetTag(controls[i], QString::fromUtf8(look.tag));
            ++visible;
        }
    }
    const int W = ToTwips(box.width());
    const int w1 = widthTw(box.Cmd1);
    const int w2 = widthTw(box.Cmd2);
    const int w3 = widthTw(box.Cmd3);
    if (visible == 1) {
        setLeftTw(box.Cmd1, (W - w1) / 2);
    } else if (visible == 2) {
        setLeftTw(box.Cmd1, (W - w1 - w2) / 2 - 50);
        setLeftTw(box.Cmd2, leftTw(box.Cmd1) + w1 + 100);
    } else {
        setLeftTw(box.Cmd1, (W - w1 - w2 - w3) / 2 - 50);
        setLeftTw(box.Cmd2, leftTw(box.Cmd1) + w1 + 50);
        setLeftTw(box.Cmd3, leftTw(box.Cmd2) + w2 + 50);
    }
    // A request to correct something is answered yes by default.
    if (button == 4 && box.Message->text().contains(QStringLiteral("sửa lại")))
        box.SetTabIndex(box.Cmd1, 0);
}

void placeIcon(MessageBox &box, qint32 icon)
{
    const QLabel *source = icon == 16 ? box.stop : icon == 32 ? box.q : icon == 48 ? box.Ex
                         : icon == 64 ? box.Info : nullptr;
    if (source)
        box.micon->setPixmap(source->pixmap());
}

void placeRows(MessageBox &box)
{
    const int top = ToTwips(box.Message->y()) + ToTwips(box.Message->height()) + 150;
    for (QPushButton *button : {box.Cmd1, box.Cmd2, box.Cmd3})
        button->move(button->x(), ToPixels(top));
    box.resize(box.width(), ToPixels(top + ToTwips(box.Cmd1->height()) + 150));
}

} // namespace

QString ShowMgBox(const QString &Message, qint32 Button, QString &Title, qint32 icon, bool RightToLeft)
{
    QPointer<MessageBox> box = new MessageBox;
    if (Title.isEmpty())
        Title = QGuiApplication::applicationDisplayName();
    box->SetMessage(Message);
    box->label4->setText(Title);
    box->resize(ToPixels(ToTwips(box->Message->x()) + ToTwips(box->Message->width()) + 100), box->height());

    box->Message->setLayoutDirection(RightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    box->Message->setAlignment((RightToLeft ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignTop);
    box->setLayoutDirection(RightToLeft ? Qt::RightToLeft : Qt::LeftToRight);

    if (Button >= 0 && Button <= 5)
        placeButtons(*box, Button);
    placeIcon(*box, icon);
    placeRows(*box);

    CentreOnScreen(box);
    box->FocusFirstButton();
    box->exec();
    delete box;
    return MessageBox::ReturnValue;
}

QString ShowMgBox(const QString &Message, qint32 Button, const QString &Title, qint32 icon, bool RightToLeft)
{
    QString title = Title;
    return ShowMgBox(Message, Button, title, icon, RightToLeft);
}

QString ShowMgBox(const QString &Message, qint32 Button)
{
    QString title;
    return ShowMgBox(Message, Button, title);
}

} // namespace zolt
