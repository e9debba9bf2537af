// SPDX-License-Identifier: MIT
#include "widgets/logon/FrPms.h"

#include "core/base/Conversions.h"
#include "core/base/Logging.h"
#include "core/database/Database.h"
#include "core/database/SqlFunc.h"
#include "core/logon/LockedServer.h"
#include "core/search/MFind.h"
#include "widgets/desktop/General.h"
#include "widgets/desktop/MdGrid.h"
#include "widgets/msgbox/MdlMsg.h"

#include <zolt/Error.h>

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>

#include <cmath>

namespace zolt {

namespace {

// Rights columns follow Code, Name and Des.
constexpr int FirstRightsColumn = 3;

} // namespace

FrPms::FrPms(qint32 groupCode, QWidget *parent)
    : QDialog(parent)
    , m_group(groupCode)
{
    setObjectName(QStringLiteral("FrPms"));
    setWindowTitle(tr("Users Right"));
    setFont(QFont(QStringLiteral("VK Sans Serif")));

    LblTitle = Named(new QLabel(this), "LblTitle");
    LstMenuBar = Named(new QListWidget(this), "LstMenuBar");
    LstSubMenu = Named(new QListWidget(this), "LstSubMenu");
    LstSubMenu->setSelectionMode(QAbstractItemView::MultiSelection);
    LstMenuBar->setAccessibleName(tr("Thực đơn"));
    LstSubMenu->setAccessibleName(tr("Mục được dùng của thực đơn"));
    for (QListWidget *list : {LstMenuBar, LstSubMenu})
        list->setFixedSize(230, 260);
    CmdOk = Named(new QPushButton(tr("&Ghi"), this), "CmdOk");
    Command1 = Named(new QPushButton(tr("&Bỏ qua"), this), "Command1");

    auto *buttons = ButtonRow({CmdOk, Command1});
    auto *layout = new QGridLayout(this);
    layout->setContentsMargins(12, 12, 12, 12);
    layout->setSpacing(10);
    layout->addWidget(LblTitle, 0, 0, 1, 2);
    layout->addWidget(LstMenuBar, 1, 0);
    layout->addWidget(LstSubMenu, 1, 1);
    layout->addLayout(buttons, 2, 0, 1, 2);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    connect(LstMenuBar, &QListWidget::currentRowChanged, this, &FrPms::LstMenuBar_Click);
    connect(LstSubMenu, &QListWidget::itemSelectionChanged, this, &FrPms::LstSubMenu_Click);
    connect(CmdOk, &QPushButton::clicked, this, &FrPms::CmdOk_Click);
    connect(Command1, &QPushButton::clicked, this, &QDialog::reject);

    ApplyFormSettings(this);
    ReadInf(QStringLiteral("Menu"), LstMenuBar);
    ReadPms();
}

FrPms::~FrPms() = default;

qint32 FrPms::VlBl(bool Ip)
{
    return Ip ? 1 : 0;
}

// Summed as the floating-point number it always was, then made whole.
qint32 FrPms::PPms() const
{
    double sum = 0;
    for (int i = 0; i < LstSubMenu->count(); ++i)
        sum += std::pow(2.0, i) * VlBl(LstSubMenu->item(i)->isSelected());
    return RoundToLong(sum);
}

void FrPms::APms(qint32 Ip)
{
    const QSignalBlocker quiet(LstSubMenu);   // showing rights is no change of them
    for (int i = 0; i < LstSubMenu->count(); ++i)
        LstSubMenu->item(i)->setSelected(i < 32 && (quint32(Ip) >> i) & 1u);
}

// The group's caption, its rights and the names of the rights columns. The
// row is not held open while the dialog shows: another desk may write meanwhile.
void FrPms::ReadPms()
{
    m_rights.clear();
    m_columns.clear();
    try {
        Recordset rs;
        if (OpenQuery(rs, QStringLiteral("Select * From Groups Where Code=") + QString::number(m_group)) != 0)
            return;
        LblTitle->setText(tr("Tên nhóm là:") + NullToStr(rs.Value(QStringLiteral("Name")))
                          + QStringLiteral(" - ") + WithoutAddedBlank(NullToStr(rs.Value(QStringLiteral("Des")))));
        for (int k = 0; FirstRightsColumn + k < rs.FieldCount(); ++k) {
            m_rights << LngVal(rs.Value(FirstRightsColumn + k));
            m_columns << rs.FieldName(FirstRightsColumn + k);
        }
    } catch (const Error &e) {
        LogIgnored("A group's rights read as far as they could be", e);
    }
    m_read = m_rights;
}

void FrPms::ReadInf(const QString &TableName, QListWidget *Lv)
{
    Recordset rs;
    if (OpenQuery(rs, TableName) != 0)
        return;
    const QSignalBlocker quiet(Lv);
    Lv->clear();
    try {
        for (; !rs.Eof(); rs.MoveNext())
            AddListItem(Lv, LngVal(rs.Value(QStringLiteral("ID"))), NullToStr(rs.Value(QStringLiteral("Desc"))));
    } catch (const Error &e) {
        LogIgnored("Menus listed as far as they could be read", e);
    }
}

void FrPms::LstMenuBar_Click()
{
    ReadInf(QStringLiteral("Select * From SubMenu Where IdMenuBar=") + QString::number(SelectedItemData(LstMenuBar))
                + QStringLiteral(" Order By ID"),
            LstSubMenu);
    APms(m_rights.value(LstMenuBar->currentRow()));
}

// Every change is kept at once; nothing is written before Ghi.
void FrPms::LstSubMenu_Click()
{
    const int bar = LstMenuBar->currentRow();
    if (bar < 0 || bar >= m_rights.size())
        return;   // a bar without a rights column keeps no rights
    try {
        m_rights[bar] = PPms();
    } catch (const Error &e) {
        ShowMgBox(e.description(), 0, windowTitle());
        APms(m_rights[bar]);
    }
}

// One statement for every bar changed, each written only while its column
// still holds what was read: bars changed by another desk meanwhile are kept,
// and a bar both desks changed is told. A failure is told and the dialog
// stays, so that Ghi can be pressed again.
void FrPms::CmdOk_Click()
{
    QStringList sets, holds, columns;
    QList<qint32> rights, read;
    for (int k = 0; k < m_rights.size(); ++k) {
        if (m_rights[k] == m_read[k])
            continue;
        sets << m_columns[k] + u'=' + QString::number(m_rights[k]);
        holds << QStringLiteral("Coalesce(%1,0)=%2").arg(m_columns[k]).arg(m_read[k]);
        columns << m_columns[k];
        rights << m_rights[k];
        read << m_read[k];
    }
    if (sets.isEmpty())
        return accept();
    try {
        const qint64 written = ServerLocked() ? LockedSetRights(m_group, columns, rights, read)
                                              : Execute(QStringLiteral("Update Groups Set ") + sets.join(u',')
                                                        + QStringLiteral(" Where Code=") + QString::number(m_group)
                                                        + QStringLiteral(" And ") + holds.join(QStringLiteral(" And ")));
        if (written == 0)
            return changedElsewhere();
    } catch (const Error &e) {
        return void(ShowMgBox(e.description(), 0, windowTitle(), 0, false, this));
    }
    accept();
}

// Another desk changed a menu bar's rights that this desk changed too, or
// deleted the group: the clerk is told and sees the rights as they are now.
void FrPms::changedElsewhere()
{
    ReadPms();
    if (m_read.isEmpty() && m_columns.isEmpty()) {
        ShowMgBox(tr("Nhóm này vừa bị xoá ở máy khác."), 0, windowTitle(), 0, false, this);
        return reject();
    }
    ShowMgBox(tr("Quyền của nhóm này vừa được thay đổi ở máy khác. Quyền hiện tại đã được hiện lại; "
                 "hãy chọn lại rồi ghi."),
              0, windowTitle(), 0, false, this);
    APms(m_rights.value(LstMenuBar->currentRow()));
}

} // namespace zolt
