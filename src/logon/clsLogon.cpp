// SPDX-License-Identifier: MIT
#include <zolt/clsLogon.h>

#include "data/Database.h"
#include "data/General.h"
#include "logon/FmGrp.h"
#include "logon/FrmInput.h"
#include "logon/FrmLogon.h"
#include "logon/FrmMenu.h"
#include "msgbox/MdlMsg.h"


namespace zolt {

struct clsLogon::Private {};

clsLogon::clsLogon()
    : d(std::make_unique<Private>())
{
}

clsLogon::~clsLogon() = default;

qint32 clsLogon::ShowLogon(const QSqlDatabase &Connection)
{
    UseConnection(Connection);
    FrmLogon logon;
    logon.exec();
    return logon.UserCode;
}

void clsLogon::UserManager(const QSqlDatabase &Connection)
{
    UseConnection(Connection);
    FrmMenu users;
    users.exec();
}

void clsLogon::ShowUser(const QSqlDatabase &Connection, const QString &UserName)
{
    UseConnection(Connection);
    FrmInput editor;
    editor.FieldsEnabled = false;
    editor.EditMode = true;
    editor.UserName = UserName;
    editor.PreLoad();
    editor.exec();
}

void clsLogon::ShowGroup(const QSqlDatabase &Connection)
{
    UseConnection(Connection);
    FmGrp groups;
    groups.exec();
}

QString clsLogon::MgBox(const QString &Message, qint32 Button, QString &Title, qint32 icon, bool RightToLeft)
{
    return ShowMgBox(Message, Button, Title, icon, RightToLeft);
}

QString clsLogon::MgBox(const QString &Message, qint32 Button, const QString &Title, qint32 icon,
                        bool RightToLeft)
{
    return ShowMgBox(Message, Button, Title, icon, RightToLeft);
}

QString clsLogon::MgBox(const QString &Message, qint32 Button)
{
    return ShowMgBox(Message, Button);
}

void clsLogon::SetDfFont(const QString &F1)
{
    DefaultFontName = F1;
}

} // namespace zolt
