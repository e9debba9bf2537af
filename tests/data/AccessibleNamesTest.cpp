// SPDX-License-Identifier: MIT
// Every dialog of the library can be read by a screen reader: each control
// that takes the keyboard has a name (a label's buddy or its own).
#include "controls/FmSelHang.h"
#include "logon/FmGrp.h"
#include "logon/FrPms.h"
#include "logon/FrmInput.h"
#include "logon/FrmLogon.h"
#include "logon/FrmMenu.h"
#include "msgbox/MessageBox.h"
#include "search/FrmFind.h"

#include "DialogSupport.h"
#include "TestSupport.h"

#include <QAccessible>

using namespace zolt;
using namespace Qt::StringLiterals;

namespace {

// The focusable controls of a dialog that a screen reader could not name.
QStringList nameless(QWidget *dialog)
{
    QStringList missing;
    for (QWidget *control : dialog->findChildren<QWidget *>()) {
        if (!(control->focusPolicy() & Qt::TabFocus) || !control->isVisibleTo(dialog))
            continue;
        QAccessibleInterface *reader = QAccessible::queryAccessibleInterface(control);
        if (!reader || reader->text(QAccessible::Name).trimmed().isEmpty())
            missing << dialog->objectName() + u'.' + control->objectName() + u' ' + QLatin1String(control->metaObject()->className());
    }
    return missing;
}

} // namespace

TEST(AccessibleNames, EveryControlOfEveryDialogHasOne)
{
    test::TempDatabase db;
    db.createLibraryTables();
    db.exec(u"Insert Into Groups Values(1, 'Quản trị', 'Mọi quyền'), (8, 'Bán hàng', 'Quầy')"_s);
    db.exec(u"Insert Into [User] Values(1, 'admin', 'Quản trị viên', 26209, 1)"_s);
    db.exec(u"Insert Into Menu Values(1, 'Danh mục')"_s);
    db.exec(u"Insert Into SubMenu Values(1, 'Hàng hoá', 1)"_s);
    db.exec(u"Insert Into LstFld Values(1, 'Ten', 'Tên', 'Hang', 'Hang', 10)"_s);
    db.exec(u"Insert Into Operator Values(1, 'LIKE', 'Bắt đầu bằng', 10)"_s);

    FrmLogon logon;
    FrmMenu users;
    FrmInput editor;
    editor.PreLoad();
    FmGrp groups;
    FrPms rights(1);
    MessageBox message;
    message.SetButtons(3);
    FrmFind find;
    find.TableName = u"Hang"_s;
    find.Load();
    FmSelHang pick;
    pick.ListSql = u"Select Code, Name From Groups"_s;
    pick.Load();
    QStringList missing;
    for (QWidget *dialog : std::initializer_list<QWidget *>{&logon, &users, &editor, &groups, &rights, &message, &find, &pick}) {
        dialog->show();
        missing << nameless(dialog);
        dialog->hide();
    }
    EXPECT_EQ(missing, QStringList());
}
