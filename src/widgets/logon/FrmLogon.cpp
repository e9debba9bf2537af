// SPDX-License-Identifier: MIT
#include "widgets/logon/FrmLogon.h"

#include "core/base/Conversions.h"
#include "core/base/Logging.h"
#include "core/logon/LockedServer.h"
#include "core/logon/LogonGuard.h"
#include "core/logon/MdlLogon.h"
#include "core/logon/PasswordStore.h"
#include "core/search/MFind.h"
#include "widgets/desktop/General.h"
#include "widgets/desktop/KeyPreview.h"
#include "widgets/logon/QuoteGuard.h"
#include "widgets/msgbox/MdlMsg.h"

#include <zolt/Error.h>
#include <zolt/Tesmir.h>

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace zolt {

namespace {

QString notFound() { return FrmLogon::tr("Mật khẩu hoặc người sử dụng không hợp lệ "); }
QString failed() { return FrmLogon::tr("Mật khẩu hoặc người sử dụng không hợp lệ"); }

} // namespace

FrmLogon::FrmLogon(QWidget *parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("FrmLogon"));
    setWindowTitle(tr("Login"));
    setFont(QFont(QStringLiteral("VK Sans Serif")));

    Label1 = Named(new QLabel(tr("Người sử dụng"), this), "Label1");
    Txtuser = Named(new QLineEdit(this), "Txtuser");
    Label2 = Named(new QLabel(tr("Mật khẩu"), this), "Label2");
    TxtPass = Named(new QLineEdit(this), "TxtPass");
    SetPasswordChar(TxtPass);
    CmdOk = Named(new QPushButton(tr("Đồng ý"), this), "CmdOk");
    CmdOk->setToolTip(tr("Click here to Logon!"));
    CmdCan = Named(new QPushButton(tr("Thoát"), this), "CmdCan");
    CmdHelp = Named(new QPushButton(tr("Hướng dẫn"), this), "CmdHelp");
    Label1->setBuddy(Txtuser);   // a screen reader names each box by its label
    Label2->setBuddy(TxtPass);
    Image1 = Named(new QLabel(this), "Image1");
    Image1->setPixmap(QPixmap(QStringLiteral(":/zolt/logon.png")));
    Image1->setAlignment(Qt::AlignTop | Qt::AlignHCenter);
    Image1->setAccessibleName(tr("Hình đăng nhập"));

    auto *fields = new QGridLayout;
    fields->addWidget(Label1, 0, 0);
    fields->addWidget(Txtuser, 0, 1);
    fields->addWidget(Label2, 1, 0);
    fields->addWidget(TxtPass, 1, 1);
    fields->setColumnMinimumWidth(1, 180);
    fields->setHorizontalSpacing(12);
    fields->setVerticalSpacing(8);
    auto *buttons = ButtonRow({CmdOk, CmdCan, CmdHelp});
    auto *layout = new QGridLayout(this);
    layout->setContentsMargins(16, 16, 16, 12);
    layout->setHorizontalSpacing(16);
    layout->setVerticalSpacing(14);
    layout->addWidget(Image1, 0, 0, 2, 1);
    layout->addLayout(fields, 0, 1);
    layout->addLayout(buttons, 1, 1);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    UserCode = 0;
    CmdOk->setEnabled(false);
    connect(Txtuser, &QLineEdit::textChanged, this,
            [this](const QString &text) { CmdOk->setEnabled(!Trim(text).isEmpty()); });
    connect(CmdOk, &QPushButton::clicked, this, &FrmLogon::CmdOk_Click);
    connect(CmdCan, &QPushButton::clicked, this, [this] {
        UserCode = 0;
        reject();
    });
    EnterMovesToNextControl(this);
    ApplyFormSettings(this);
}

FrmLogon::~FrmLogon() = default;

void FrmLogon::CmdOk_Click()
{
    const QString user = Trim(Txtuser->text());
    const LogonLimits limits = ReadLogonLimits();
    try {
        // A quote in the name would end its literal: such a name is refused
        // before the database sees it, as a statement that failed would be.
        CheckQuotable(user);
        if (ServerLocked())
            return lockedLogon(user);
        if (const qint64 wait = SecondsToWait(user, limits); wait > 0) {
            RecordLogon(user, QStringLiteral("waiting"), limits);
            return refuse(WaitMessage(wait), 0);
        }
        const PasswordPolicy policy = ReadPasswordPolicy();
        const QString password = Trim(TxtPass->text());
        UserCode = policy.strong ? StrongLogon(user, password, policy) : legacyLogon(user, password);
        if (UserCode == 0) {
            CountRefusal(user, limits);
            RecordLogon(user, QStringLiteral("refused"), limits);
            return refuse(notFound(), 0);
        }
        if (limits.attempts > 0)
            ClearRefusals(user);
        RecordLogon(user, QStringLiteral("accepted"), limits);
        accept();
    } catch (const Error &) {
        UserCode = 0;
        try {
            RecordLogon(user, QStringLiteral("failure"), limits);
        } catch (const Error &e) {
            LogIgnored("A failed logon not recorded", e);   // the database that failed the logon may fail its record too
        }
        refuse(failed(), 1);
    }
}

// On a locked server the server checks the password, keeps the limits and
// the record, and knows the session as the user from then on.
void FrmLogon::lockedLogon(const QString &user)
{
    const LockedLogonResult logon = LockedLogon(user, Trim(TxtPass->text()), ReadPasswordPolicy(), Tesmir().GetPCName());
    if (logon.wait > 0)
        return refuse(WaitMessage(logon.wait), 0);
    if (logon.code == 0)
        return refuse(notFound(), 0);
    UserCode = logon.code;
    accept();
}

// The original logon: the name and the digest of the password looked up together.
qint32 FrmLogon::legacyLogon(const QString &user, const QString &password)
{
    const QString sql = QStringLiteral("SELECT  *  FROM [User] WHERE ([Name]='") + user
                        + QStringLiteral("') And ( [Password]=") + DoubleToText(EncodePassword(password))
                        + QLatin1Char(')');
    Recordset rs;
    if (OpenQuery(rs, sql) != 0)
        throw Error(Error::DatabaseFailure, rs.LastErrorText());
    return HasRows(rs) ? RoundToLong(ToDouble(rs.Value(0))) : 0;
}

// Tells the user and selects the name for another try.
void FrmLogon::refuse(const QString &message, int selectionStart)
{
    ShowMgBox(message, 0, tr("Login"), 0, false);
    Txtuser->setFocus();
    Txtuser->setSelection(selectionStart, Txtuser->text().size());
}

} // namespace zolt
