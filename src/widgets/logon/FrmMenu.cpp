// SPDX-License-Identifier: MIT
#include "widgets/logon/FrmMenu.h"

#include "core/base/Conversions.h"
#include "core/database/Database.h"
#include "core/database/Options.h"
#include "core/logon/LockedServer.h"
#include "core/logon/LogonGuard.h"
#include "core/search/MFind.h"
#include "widgets/desktop/General.h"
#include "widgets/logon/FrmInput.h"
#include "widgets/logon/QuoteGuard.h"
#include "widgets/logon/UserRows.h"
#include "widgets/msgbox/MdlMsg.h"

#include <zolt/Error.h>

#include <QDateTime>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QSet>
#include <QTreeView>
#include <QVBoxLayout>

namespace zolt {

namespace {

QString notice() { return FrmMenu::tr("Thông báo"); }

} // namespace

FrmMenu::FrmMenu(QWidget *parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("FrmMenu"));
    setWindowTitle(tr("Users Management"));
    setFont(QFont(QStringLiteral("VK Sans Serif")));

    m_users = new UserRows(this);
    Lv = Named(new QTreeView(this), "Lv");
    Lv->setModel(m_users);
    Lv->setRootIsDecorated(false);
    Lv->setAccessibleName(tr("Người sử dụng"));
    Lv->setUniformRowHeights(true);
    Lv->setAllColumnsShowFocus(true);
    Lv->setIconSize(QSize(16, 16));
    Lv->header()->setStretchLastSection(false);
    Lv->setFixedSize(520, 300);
    CmdAdd = Named(new QPushButton(tr("&Thêm"), this), "CmdAdd");
    CmdEdit = Named(new QPushButton(tr("&Sửa"), this), "CmdEdit");
    CmdDel = Named(new QPushButton(tr("&Xoá"), this), "CmdDel");
    CmdExit = Named(new QPushButton(tr("T&hoát"), this), "CmdExit");
    // With logon limits on, an administrator releases a waiting user.
    m_limits = ReadLogonLimits();
    CmdRelease = Named(new QPushButton(tr("&Mở khoá"), this), "CmdRelease");
    CmdRelease->setVisible(m_limits.attempts > 0);

    auto *buttons = ButtonRow({CmdAdd, CmdEdit, CmdDel, CmdRelease, CmdExit});
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 12, 12, 12);
    layout->setSpacing(12);
    layout->addWidget(Lv);
    layout->addLayout(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    connect(CmdAdd, &QPushButton::clicked, this, &FrmMenu::CmdAdd_Click);
    connect(CmdEdit, &QPushButton::clicked, this, &FrmMenu::CmdEdit_Click);
    connect(Lv, &QTreeView::doubleClicked, this, &FrmMenu::CmdEdit_Click);
    connect(CmdDel, &QPushButton::clicked, this, &FrmMenu::CmdDel_Click);
    connect(CmdRelease, &QPushButton::clicked, this, &FrmMenu::CmdRelease_Click);
    connect(CmdExit, &QPushButton::clicked, this, &QDialog::accept);

    ApplyFormSettings(this);
    // The name column takes three fifths of the list, less a little.
    const qint32 w = RoundToLong(Lv->width() / 5.0);
    Lv->setColumnWidth(UserRows::NameColumn, w);
    Lv->setColumnWidth(UserRows::DescriptionColumn, RoundToLong(w * 2.9));
    Lv->setColumnWidth(UserRows::CodeColumn, w);
    ReadInfo(QStringLiteral("Select Code,Name,Dec from [user] Order by Code"));
    showWaiting();
}

void FrmMenu::showWaiting()
{
    if (m_limits.attempts <= 0)
        return;
    QSet<QString> waiting;
    Recordset rs;
    if (OpenQuery(rs, QStringLiteral("Select [Name] From LogonFailures Where WaitUntil > ")
                          + QString::number(QDateTime::currentSecsSinceEpoch())) == 0) {
        for (; !rs.Eof(); rs.MoveNext())
            waiting.insert(NullToStr(rs.Value(0)).toCaseFolded());
    }
    m_users->setWaiting(waiting);
}

// The selected user may log on again at once.
void FrmMenu::CmdRelease_Click()
{
    const int row = selectedRow();
    if (row < 0)
        return;
    try {
        const QString name = m_users->at(row)[UserRows::NameColumn];
        if (ServerLocked())
            LockedReleaseUser(name);
        else
            ClearRefusals(name);
        showWaiting();
    } catch (const Error &e) {
        ShowMgBox(e.description(), 0, notice(), 0, false);
    }
}

FrmMenu::~FrmMenu() = default;

// The rows are read as the list shows them (UserRows).
void FrmMenu::ReadInfo(const QString &TableName)
{
    QString error;
    if (!m_users->append(TableName, &error))
        ShowMgBox(error, 0, notice());
}

int FrmMenu::selectedRow() const
{
    return Lv->currentIndex().isValid() ? Lv->currentIndex().row() : -1;
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
        ReadInfo(ReadableUsers(QStringLiteral("Select * From [User] Where Code >") + QString::number(before)));
}

void FrmMenu::CmdEdit_Click()
{
    const int row = selectedRow();
    if (row < 0 || m_users->at(row)[UserRows::NameColumn].isEmpty())
        return;
    FrmInput editor(this);
    editor.FieldsEnabled = true;
    editor.EditMode = true;
    editor.UserName = m_users->at(row)[UserRows::NameColumn];
    editor.PreLoad();
    editor.exec();
    Recordset rs;
    if (OpenQuery(rs, ReadableUsers(QStringLiteral("Select * From [User] Where Code=") + m_users->at(row)[UserRows::CodeColumn])) == 0
        && HasRows(rs)) {
        m_users->setText(row, UserRows::NameColumn, NullToStr(rs.Value(QStringLiteral("Name"))));
        m_users->setText(row, UserRows::DescriptionColumn, NullToStr(rs.Value(QStringLiteral("Dec"))));
    }
}

// User 3 is never deleted, only renamed; nor is the last user.
void FrmMenu::CmdDel_Click()
{
    const int row = selectedRow();
    if (row < 0)
        return;
    const QString name = m_users->at(row)[UserRows::NameColumn];
    if (LngVal(m_users->at(row)[UserRows::CodeColumn]) == 3)
        return void(ShowMgBox(tr("Bạn không thể xoá người sử dụng này mà chỉ có thể đổi tên."), 0, notice()));
    if (m_users->holdsOne())
        return void(ShowMgBox(tr("Bạn không thể xoá người sử dụng còn lại cuối cùng của chương trình"), 0,
                              notice()));
    if (LngVal(ShowMgBox(tr("Bạn chắc chắn xoá người sử dụng này"), 4, notice())) != 6)
        return;
    try {
        CheckQuotable(name);
        if (ServerLocked())
            LockedDeleteUser(name);
        else
            Execute(QStringLiteral("Delete from [user] Where [Name]='") + name + QLatin1Char('\''));
        m_users->remove(row);
    } catch (const Error &e) {
        ShowMgBox(e.description(), 0, notice());
    }
}

} // namespace zolt
