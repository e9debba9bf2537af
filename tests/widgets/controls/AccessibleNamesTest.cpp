// SPDX-License-Identifier: MIT
// Every dialog of the library can be read by a screen reader: each control
// that takes the keyboard has a name (a label's buddy or its own) that stays
// the field's whatever the control holds, and a message box is an alert.
#include "widgets/controls/FmSelHang.h"
#include "widgets/logon/FmGrp.h"
#include "widgets/logon/FrmInput.h"
#include "widgets/logon/FrmLogon.h"
#include "widgets/logon/FrmMenu.h"
#include "widgets/logon/FrPms.h"
#include "widgets/search/FrmFind.h"

#include "DialogSupport.h"
#include "TestSupport.h"

#include <zolt/Enums.h>
#include <zolt/MessageBox.h>

#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMap>

using namespace zolt;
using namespace Qt::StringLiterals;

namespace {

QAccessibleInterface *reader(QWidget *control)
{
    return QAccessible::queryAccessibleInterface(control);
}

// What a screen reader names each control of the dialog that takes the
// keyboard, or stands for one that does (a wrapper whose focus proxy it is).
QMap<QString, QString> names(QWidget *dialog)
{
    QMap<QString, QString> named;
    for (QWidget *control : dialog->findChildren<QWidget *>()) {
        const bool wrapper = control->focusProxy() && control->isAncestorOf(control->focusProxy());
        if (!(control->focusPolicy() & Qt::TabFocus) && !wrapper)
            continue;
        if (!control->isVisibleTo(dialog))
            continue;
        QString path = control->objectName();
        for (QWidget *up = control->parentWidget(); up && up != dialog; up = up->parentWidget())
            path = up->objectName() + u'.' + path;
        named.insert(dialog->objectName() + u'.' + path + u' ' + QLatin1String(control->metaObject()->className()),
                     reader(control) ? reader(control)->text(QAccessible::Name) : QString());
    }
    return named;
}

// Gives every box and list of the dialog another value.
void changeValues(QWidget *dialog)
{
    for (QComboBox *combo : dialog->findChildren<QComboBox *>()) {
        combo->addItem(u"Một giá trị khác"_s);
        combo->setCurrentIndex(combo->count() - 1);
    }
    for (QLineEdit *edit : dialog->findChildren<QLineEdit *>())
        edit->setText(u"Giá trị khác"_s);
}

QStringList labelsOf(QWidget *control)
{
    QStringList labels;
    for (const auto &[label, relation] : reader(control)->relations(QAccessible::Label))
        labels << label->text(QAccessible::Name);
    return labels;
}

class AccessibleNames : public ::testing::Test {
protected:
    void SetUp() override
    {
        db.createLibraryTables();
        db.exec(u"Insert Into Groups Values(1, 'Quản trị', 'Mọi quyền'), (8, 'Bán hàng', 'Quầy')"_s);
        db.exec(u"Insert Into [User] Values(1, 'admin', 'Quản trị viên', 26209, 1)"_s);
        db.exec(u"Insert Into Menu Values(1, 'Danh mục')"_s);
        db.exec(u"Insert Into SubMenu Values(1, 'Hàng hoá', 1)"_s);
        db.exec(u"Insert Into LstFld Values(1, 'Ten', 'Tên', 'Hang', 'Hang', 10), (2, 'Gia', 'Giá', 'Hang', Null, 3)"_s);
        db.exec(u"Insert Into Operator Values(1, 'LIKE', 'Bắt đầu bằng', 10), (2, '>', 'Lớn hơn', 3)"_s);
    }
    test::TempDatabase db;
};

} // namespace

TEST_F(AccessibleNames, EveryControlOfEveryDialogHasOneThatItsValueNeverChanges)
{
    FrmLogon logon;
    FrmMenu users;
    FrmInput editor;
    editor.PreLoad();
    FmGrp groups;
    FrPms rights(1);
    MessageBox message;
    message.SetButtons(vbYesNoCancel);
    FrmFind find;
    find.TableName = u"Hang"_s;
    find.Load();
    FmSelHang pick;
    pick.ListSql = u"Select Code, Name From Groups"_s;
    pick.Load();
    for (QWidget *dialog : std::initializer_list<QWidget *>{&logon, &users, &editor, &groups, &rights, &message, &find, &pick}) {
        dialog->show();
        const QMap<QString, QString> before = names(dialog);
        for (auto named = before.begin(); named != before.end(); ++named)
            EXPECT_FALSE(named.value().trimmed().isEmpty()) << named.key().toStdString();
        changeValues(dialog);
        EXPECT_EQ(names(dialog), before) << dialog->objectName().toStdString();
        dialog->hide();
    }
    EXPECT_EQ(reader(test::child(&logon, "Image1"))->text(QAccessible::Name), u"Hình đăng nhập"_s);
}

// The search rows are named by column and row, and told the column's heading
// as their label; the group box of the user editor by its label.
TEST_F(AccessibleNames, ControlsTellTheLabelsTheySitUnder)
{
    FrmFind find;
    find.TableName = u"Hang"_s;
    find.Load();
    QWidget *field = test::child(&find, "CmbFld(0)");
    QWidget *fieldBox = static_cast<QComboBox *>(test::child(field, "Cmb1"));
    EXPECT_EQ(reader(fieldBox)->text(QAccessible::Name), u"Trường dòng 1"_s);
    EXPECT_EQ(reader(fieldBox)->text(QAccessible::Value), u"Tên"_s);
    EXPECT_EQ(reader(fieldBox)->role(), QAccessible::ComboBox);
    EXPECT_EQ(labelsOf(fieldBox), QStringList{u"Trường"_s});
    EXPECT_EQ(labelsOf(test::child(test::child(&find, "cmbLg(2)"), "Cmb1")), QStringList{u"Nối"_s});
    EXPECT_EQ(reader(test::child(&find, "cmbLg(2)"))->text(QAccessible::Name), u"Nối dòng 3"_s);

    FrmInput editor;
    editor.PreLoad();
    QWidget *group = test::child(&editor, "TxtIdGroup");
    EXPECT_EQ(reader(group)->text(QAccessible::Name), u"Bộ phận"_s);
    EXPECT_EQ(labelsOf(group), QStringList{u"Bộ phận"_s});
}

// A message box is an alert named by its caption, described by its message,
// its icon named by what it tells.
TEST_F(AccessibleNames, AMessageBoxIsAnAlert)
{
    const std::pair<qint32, const char *> icons[] = {
        {0, "Thông báo"}, {vbCritical, "Lỗi"}, {vbQuestion, "Câu hỏi"}, {vbExclamation, "Cảnh báo"}, {vbInformation, "Thông báo"}};
    for (const auto &[icon, meaning] : icons) {
        MessageBox box;
        box.SetMessage(u"Bạn có muốn ghi không?"_s);
        box.SetTitle(u"Kế toán"_s);
        box.SetButtons(vbYesNo);
        box.SetIcon(icon);
        box.show();
        EXPECT_EQ(reader(&box)->role(), QAccessible::AlertMessage);
        EXPECT_EQ(reader(&box)->text(QAccessible::Name), u"Kế toán"_s);
        EXPECT_EQ(reader(&box)->text(QAccessible::Description), u"Bạn có muốn ghi không?"_s);
        EXPECT_EQ(reader(test::child(&box, "micon"))->text(QAccessible::Name), QString::fromUtf8(meaning)) << icon;
        EXPECT_EQ(reader(test::child(&box, "label4"))->text(QAccessible::Name), u"Kế toán"_s);
    }
}
