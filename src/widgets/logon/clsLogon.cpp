// SPDX-License-Identifier: MIT
#include <zolt/clsLogon.h>

#include "core/database/Database.h"
#include "widgets/desktop/General.h"
#include "widgets/logon/FmGrp.h"
#include "widgets/logon/FrmInput.h"
#include "widgets/logon/FrmLogon.h"
#include "widgets/logon/FrmMenu.h"
#include "widgets/msgbox/MdlMsg.h"

namespace zolt {

struct clsLogon::Private {};

clsLogon::clsLogon()
    : d(std::make_unique<Private>())
{
}

clsLogon::~clsLogon() = default;

qint32 clsLogon::ShowLogon(const QSqlDatabase &Connection, QWidget *parent)
{
    UseConnection(Connection);
    FrmLogon logon(parent);
    logon.exec();
    return logon.UserCode;
}

void clsLogon::UserManager(const QSqlDatabase &Connection, QWidget *parent)
{
    UseConnection(Connection);
    FrmMenu users(parent);
    users.exec();
}

void clsLogon::ShowUser(const QSqlDatabase &Connection, const QString &UserName, QWidget *parent)
{
    UseConnection(Connection);
    FrmInput editor(parent);
    editor.FieldsEnabled = false;
    editor.EditMode = true;
    editor.UserName = UserName;
    editor.PreLoad();
    editor.exec();
}

void clsLogon::ShowGroup(const QSqlDatabase &Connection, QWidget *parent)
{
    UseConnection(Connection);
    FmGrp groups(parent);
    groups.exec();
}

QString clsLogon::MgBox(const QString &Message, qint32 Button, QString &Title, qint32 icon, bool RightToLeft,
                        QWidget *parent)
{
    return ShowMgBox(Message, Button, Title, icon, RightToLeft, parent);
}

QString clsLogon::MgBox(const QString &Message, qint32 Button, const QString &Title, qint32 icon,
                        bool RightToLeft, QWidget *parent)
{
    return ShowMgBox(Message, Button, Title, icon, RightToLeft, parent);
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
