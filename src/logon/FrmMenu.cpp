// SPDX-License-Identifier: MIT
#include "logon/FrmMenu.h"

#include "data/Conversions.h"
#include "data/Database.h"
#include "data/General.h"
#include "data/Options.h"
#include "logon/FrmInput.h"
#include "logon/QuoteGuard.h"
#include "msgbox/MdlMsg.h"
#include "search/MFind.h"

#include <zolt/Error.h>

#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace zolt {

namespace {

const QString Notice = QStringLiteral("Thông báo");
constexpr int KeyRole = Qt::UserRole;   // an item's key: "T" and the user's code
enum Column { NameColumn, DescriptionColumn, CodeColumn };

QTreeWidgetItem *findByKey(QTreeWidget *list, const QString &key)
{
    for (int i = 0; i < list->topLevelItemCount(); ++i) {
        if (list->topLevelItem(i)->data(NameColumn, KeyRole).toString() == key)
            return list->topLevelItem(i);
    }
    return nullptr;
}

} // namespace

FrmMenu::FrmMenu(QWidget *parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("FrmMenu"));
    setWindowTitle(QStringLiteral("Users Management"));
    setFont(QFont(QStringLiteral("VK Sans Serif")));

    Lv = Named(new QTreeWidget(this), "Lv");
    Lv->setHeaderLabels({QStringLiteral("Tên"), QStringLiteral("Diễn giải"), QStringLiteral("Mã số")});
    Lv->setRootIsDecorated(false);
    Lv->setUniformRowHeights(true);
    Lv->setAllColumnsShowFocus(true);
    Lv->setIconSize(QSize(16, 16));
    Lv->header()->setStretchLastSection(false);
    Lv->setFixedSize(520, 300);
    CmdAdd = Named(new QPushButton(QStringLiteral("&Thêm"), this), "CmdAdd");
    CmdEdit = Named(new QPushButton(QStringLiteral("&Sửa"), this), "CmdEdit");
    CmdDel = Named(new QPushButton(QStringLiteral("&Xoá"), this), "CmdDel");
    CmdExit = Named(new QPushButton(QStringLiteral("T&hoát"), this), "CmdExit");

    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    for (QPushButton *button : {CmdAdd, CmdEdit, CmdDel, CmdExit}) {
        button->setMinimumWidth(90);
        buttons->addWidget(button);
    }
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 12, 12, 12);
    layout->setSpacing(12);
    layout->addWidget(Lv);
    layout->addLayout(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    connect(CmdAdd, &QPushButton::clicked, this, &FrmMenu::CmdAdd_Click);
    connect(CmdEdit, &QPushButton::clicked, this, &FrmMenu::CmdEdit_Click);
    connect(Lv, &QTreeWidget::itemDoubleClicked, this, &FrmMenu::CmdEdit_Click);
    connect(CmdDel, &QPushButton::clicked, this, &FrmMenu::CmdDel_Click);
    connect(CmdExit, &QPushButton::clicked, this, &QDialog::accept);

    ApplyFormSettings(this);
    // The name column takes three fifths of the list, less a little.
    const qint32 w = RoundToLong(Lv->width() / 5.0);
    Lv->setColumnWidth(NameColumn, w);
    Lv->setColumnWidth(DescriptionColumn, RoundToLong(w * 2.9));
    Lv->setColumnWidth(CodeColumn, w);
    ReadInfo(QStringLiteral("Select Code,Name,Dec from [user] Order by Code"));
}

FrmMenu::~FrmMenu() = default;

void FrmMenu::ReadInfo(const QString &TableName)
{
    Recordset rs;
    if (OpenQuery(rs, TableName) != 0)
        return void(ShowMgBox(rs.LastErrorText(), 0, Notice, 0, false));
    appendRows(rs);
}

// One item per row, added together: the list lays itself out once.
void FrmMenu::appendRows(Recordset &rs)
{
    QList<QTreeWidgetItem *> items;
    try {
        for (; HasRows(rs); rs.MoveNext())
            items << itemOf(rs);
    } catch (const Error &e) {
        ShowMgBox(e.description(), 0, Notice, 0, false);
    }
    Lv->addTopLevelItems(items);
}

QTreeWidgetItem *FrmMenu::itemOf(const Recordset &rs) const
{
    static const QIcon ic1(QStringLiteral(":/zolt/ic1.png"));
    const QString code = NullToStr(rs.Value(QStringLiteral("Code")));
    auto *item = new QTreeWidgetItem({NullToStr(rs.Value(QStringLiteral("Name"))),
                                      NullToStr(rs.Value(QStringLiteral("Dec"))), code});
    item->setData(NameColumn, KeyRole, QString(u'T' + code));
    item->setIcon(NameColumn, ic1);
    return item;
}

// Appends the users added while the editor was open; the list is not sorted again.
void FrmMenu::CmdAdd_Click()
{
    const auto largestCode = [] { return GetMaxValue(QStringLiteral("User"), QStringLiteral("Code"), CurrentConnection()); };
    const qint32 before = largestCode();
    FrmInput editor(this);
    editor.FieldsEnabled = true;
    editor.EditMode = false;
    editor.PreLoad();
    editor.exec();
    if (largestCode() > before)
        ReadInfo(QStringLiteral("Select * From [User] Where Code >") + QString::number(before));
}

void FrmMenu::CmdEdit_Click()
{
    QTreeWidgetItem *item = Lv->currentItem();
    if (!item || item->text(NameColumn).isEmpty())
        return;
    FrmInput editor(this);
    editor.FieldsEnabled = true;
    editor.EditMode = true;
    editor.UserName = item->text(NameColumn);
    editor.PreLoad();
    editor.exec();
    Recordset rs;
    if (OpenQuery(rs, QStringLiteral("Select * From [User] Where Code=") + item->text(CodeColumn)) == 0 && HasRows(rs)) {
        item->setText(NameColumn, NullToStr(rs.Value(QStringLiteral("Name"))));
        item->setText(DescriptionColumn, NullToStr(rs.Value(QStringLiteral("Dec"))));
    }
}

// User 3 is never deleted, only renamed; nor is the last user.
void FrmMenu::CmdDel_Click()
{
    QTreeWidgetItem *item = Lv->currentItem();
    if (!item)
        return;
    if (LngVal(item->text(CodeColumn)) == 3)
        return void(ShowMgBox(QStringLiteral("Bạn không thể xoá người sử dụng này mà chỉ có thể đổi tên."), 0, Notice));
    if (Lv->topLevelItemCount() == 1)
        return void(ShowMgBox(QStringLiteral("Bạn không thể xoá người sử dụng còn lại cuối cùng của chương trình"), 0,
                              Notice));
    if (LngVal(ShowMgBox(QStringLiteral("Bạn chắc chắn xoá người sử dụng này"), 4, Notice)) != 6)
        return;
    try {
        CheckQuotable(item->text(NameColumn));
        Execute(QStringLiteral("Delete from [user] Where [Name]='") + item->text(NameColumn) + QLatin1Char('\''));
        delete findByKey(Lv, item->data(NameColumn, KeyRole).toString());
    } catch (const Error &e) {
        ShowMgBox(e.description(), 0, Notice);
    }
}

} // namespace zolt
