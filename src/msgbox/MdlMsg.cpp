// SPDX-License-Identifier: MIT
#include "msgbox/MdlMsg.h"

#include "msgbox/MessageBox.h"

#include <QApplication>
#include <QPointer>

namespace zolt {

QString ShowMgBox(const QString &Message, qint32 Button, QString &Title, qint32 icon, bool RightToLeft)
{
    // The box has no owner to hand the keyboard back to: the window that had it gets it again.
    const QPointer<QWidget> previous = QApplication::activeWindow();
    QPointer<MessageBox> box = new MessageBox;
    if (Title.isEmpty())
        Title = QGuiApplication::applicationDisplayName();
    box->SetMessage(Message);
    box->SetTitle(Title);
    box->SetRightToLeft(RightToLeft);
    box->SetButtons(Button);
    box->SetIcon(icon);
    box->exec();
    delete box;
    if (previous)
        previous->activateWindow();
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
