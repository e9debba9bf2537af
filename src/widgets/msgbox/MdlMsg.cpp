// SPDX-License-Identifier: MIT
#include "widgets/msgbox/MdlMsg.h"

#include "core/database/Database.h"

#include <zolt/MessageBox.h>

#include <QApplication>
#include <QPointer>
#include <QTimer>

namespace zolt {

namespace {

// Shows the box; the answer code of the button it was left by, 0 for none.
qint32 showBox(const QString &Message, qint32 Button, QString &Title, qint32 icon, bool RightToLeft, QWidget *parent)
{
    // A box without an owner has none to hand the keyboard back to: the
    // window that had it gets it again.
    const QPointer<QWidget> previous = QApplication::activeWindow();
    QPointer<MessageBox> box = new MessageBox(parent);
    if (Title.isEmpty())
        Title = QGuiApplication::applicationDisplayName();
    box->SetMessage(Message);
    box->SetTitle(Title);
    box->SetRightToLeft(RightToLeft);
    box->SetButtons(Button);
    box->SetIcon(icon);
    box->exec();
    const qint32 pressed = box ? box->PressedAnswer : 0;
    delete box;
    if (previous)
        previous->activateWindow();
    return pressed;
}

} // namespace

QString ShowMgBox(const QString &Message, qint32 Button, QString &Title, qint32 icon, bool RightToLeft, QWidget *parent)
{
    showBox(Message, Button, Title, icon, RightToLeft, parent);
    return MessageBox::ReturnValue;
}

QString ShowMgBox(const QString &Message, qint32 Button, const QString &Title, qint32 icon, bool RightToLeft,
                  QWidget *parent)
{
    QString title = Title;
    return ShowMgBox(Message, Button, title, icon, RightToLeft, parent);
}

QString ShowMgBox(const QString &Message, qint32 Button)
{
    QString title;
    return ShowMgBox(Message, Button, title);
}

namespace {

// One message for one action: a dialog that reads several tables while the
// server is away says so once, not once a table; the clerk's next action,
// in a later turn of the event loop, is told again.
void tellServerAway(const QString &text)
{
    static bool told = false;
    if (told)
        return;
    told = true;
    ShowMgBox(text, 0, QCoreApplication::translate("zolt::MdlMsg", "Lỗi kết nối"), 16);
    QTimer::singleShot(0, [] { told = false; });
}

const bool serverAwayNoticeInstalled = (SetServerAwayNotice(tellServerAway), true);

} // namespace

qint32 ShowMgBoxAnswer(const QString &Message, qint32 Button, const QString &Title, qint32 icon, QWidget *parent)
{
    QString title = Title;
    return showBox(Message, Button, title, icon, false, parent);
}

} // namespace zolt
