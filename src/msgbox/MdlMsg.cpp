// SPDX-License-Identifier: MIT
#include "msgbox/MdlMsg.h"

#include "msgbox/MessageBox.h"

#include <QGuiApplication>
#include <QPointer>

namespace zolt {

QString ShowMgBox(const QString &Message, qint32 Button, QString &Title, qint32 icon, bool RightToLeft)
{
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
