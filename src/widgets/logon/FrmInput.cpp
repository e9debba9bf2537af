// SPDX-License-Identifier: MIT
#include "widgets/logon/FrmInput.h"

#include "core/base/Conversions.h"
#include "core/base/Logging.h"
#include "core/database/SqlFunc.h"
#include "core/logon/LockedServer.h"
#include "core/logon/MdlLogon.h"
#include "core/logon/PasswordStore.h"
#include "core/search/MFind.h"
#include "widgets/controls/AccessibleNames.h"
#include "widgets/desktop/General.h"
#include "widgets/desktop/KeyPreview.h"
#include "widgets/desktop/MdGrid.h"
#include "widgets/logon/QuoteGuard.h"
#include "widgets/msgbox/MdlMsg.h"

#include <zolt/Error.h>

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace zolt {

namespace {

QString exists() { return FrmInput::tr("Người sử dụng đã tồn tại"); }
QString badPassword() { return FrmInput::tr("Mật khẩu không hợp lệ"); }
// The add routine's title has always been spelled so; the update routine's not.
QString addTitle() { return FrmInput::tr("User Infomation"); }
QString updateTitle() { return FrmInput::tr("User Information"); }

bool hasUser(const QString &sql)
{
    Recordset rs;
    if (OpenQuery(rs, sql) != 0)
        throw Error(Error::DatabaseFailure, rs.LastErrorText());
    return HasRows(rs);
}

} // namespace

FrmInput::FrmInput(QWidget *parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("FrmInput"));
    setWindowTitle(addTitle());
    setFont(QFont(QStringLiteral("VK Sans Serif")));

    Label1 = Named(new QLabel(tr("Tên NSD"), this), "Label1");
    Txtuser = Named(new QLineEdit(this), "Txtuser");
    Label2 = Named(new QLabel(tr("Mật khẩu"), this), "Label2");
    TxtPass = Named(new QLineEdit(this), "TxtPass");
    SetPasswordChar(TxtPass);
    Label4 = Named(new QLabel(tr("Xác nhận"), this), "Label4");
    txtConfirm = Named(new QLineEdit(this), "txtConfirm");
    SetPasswordChar(txtConfirm);
    Label3 = Named(new QLabel(tr("Giải thích"), this), "Label3");
    TxtDes = Named(new QLineEdit(this), "TxtDes");
    Label5 = Named(new QLabel(tr("Bộ phận"), this), "Label5");
    TxtIdGroup = Named(new QComboBox(this), "TxtIdGroup");
    TxtIdGroup->setSizeAdjustPolicy(QComboBox::AdjustToContents);   // "name-description" shown whole
    KeepAccessibleName(TxtIdGroup);
    // A screen reader names each box by its label.
    for (const auto &[label, box] : {std::pair<QLabel *, QWidget *>{Label1, Txtuser}, {Label2, TxtPass},
                                     {Label4, txtConfirm}, {Label3, TxtDes}, {Label5, TxtIdGroup}})
        label->setBuddy(box);
    CMDOK = Named(new QPushButton(tr("Đồ&ng ý"), this), "CMDOK");
    CMDCAN = Named(new QPushButton(tr("&Bỏ qua"), this), "CMDCAN");
    Command1 = Named(new QPushButton(tr("&Hướng dẫn"), this), "Command1");

    auto *fields = new QGridLayout;
    fields->setHorizontalSpacing(12);
    fields->setVerticalSpacing(8);
    fields->setColumnMinimumWidth(1, 260);
    const std::pair<QLabel *, QWidget *> rows[] = {
        {Label1, Txtuser}, {Label2, TxtPass}, {Label4, txtConfirm}, {Label3, TxtDes}, {Label5, TxtIdGroup}};
    for (int row = 0; row < 5; ++row) {
        fields->addWidget(rows[row].first, row, 0);
        fields->addWidget(rows[row].second, row, 1);
    }
    auto *buttons = ButtonRow({CMDOK, CMDCAN, Command1});
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 12);
    layout->setSpacing(14);
    layout->addLayout(fields);
    layout->addLayout(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);

    // Every change enables OK: an emptied name too (the name is checked, but
    // both outcomes have always enabled it).
    connect(Txtuser, &QLineEdit::textChanged, this, [this] { CMDOK->setEnabled(true); });
    for (QLineEdit *box : {TxtPass, txtConfirm})
        connect(box, &QLineEdit::textChanged, this, [this] { m_passwordChanged = true; });
    connect(CMDOK, &QPushButton::clicked, this, &FrmInput::CMDOK_Click);
    connect(CMDCAN, &QPushButton::clicked, this, &QDialog::reject);
    EnterMovesToNextControl(this);
}

FrmInput::~FrmInput() = default;

void FrmInput::PreLoad()
{
    ApplyFormSettings(this);
    for (QWidget *field : std::initializer_list<QWidget *>{TxtIdGroup, Txtuser, TxtDes})
        field->setEnabled(FieldsEnabled);
    CMDOK->setEnabled(false);
    ReadDict(TxtIdGroup, QStringLiteral("[Groups]"));
    m_read.Clear();
    m_code = 0;
    if (EditMode) {
        try {
            CheckQuotable(UserName);
            Recordset rs;
            if (OpenQuery(rs, ReadableUsers(QStringLiteral("SELECT  *  FROM [User]  WHERE [Name]='") + UserName
                                            + QLatin1Char('\''))) == 0
                && HasRows(rs)) {
                m_code = LngVal(rs.Value(0));
                m_read.Take(rs, {QStringLiteral("Name"), QStringLiteral("Dec"), QStringLiteral("Password"),
                                 QStringLiteral("IdGroup"), QStringLiteral("PasswordHash")});
                Txtuser->setText(NullToStr(rs.Value(1)));
                TxtDes->setText(NullToStr(rs.Value(2)));
                // The stored digest, not a password; a locked server's desk reads none.
                const QString stored = ServerLocked() ? QStringLiteral("0") : NullToStr(rs.Value(3));
                TxtPass->setText(stored);
                txtConfirm->setText(stored);
                TxtIdGroup->setCurrentIndex(FindItemData(TxtIdGroup, LngVal(rs.Value(QStringLiteral("IdGroup")))));
            }
        } catch (const Error &e) {
            LogIgnored("A user's boxes left empty", e);   // an unreadable user leaves the boxes empty
        }
    }
    m_passwordChanged = false;
}

// Entries read "name-description" and carry the row's first column.
void FrmInput::ReadDict(QComboBox *Cmb, const QString &Tbl)
{
    const int index = Cmb->currentIndex();
    Recordset rs;
    const bool opened = OpenQuery(rs, Tbl) == 0;
    Cmb->clear();
    try {
        for (; opened && !rs.Eof(); rs.MoveNext())
            Cmb->addItem(NullToStr(rs.Value(1)) + QLatin1Char('-') + WithoutAddedBlank(NullToStr(rs.Value(2))),
                        LngVal(rs.Value(0)));
    } catch (const Error &e) {
        LogIgnored("A list read without its entries", e);   // a table of fewer columns gives no entries
    }
    Cmb->setCurrentIndex(index < Cmb->count() ? index : -1);
}

// Both boxes are compared upper-cased (as typed where passwords are
// case-sensitive), and the password must have a digest (with the strong
// store, any text but an empty one).
bool FrmInput::passwordAccepted() const
{
    if (m_policy.strong)
        return !TxtPass->text().isEmpty()
            && TxtPass->text().compare(txtConfirm->text(), m_policy.caseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive) == 0;
    try {
        return UCase(TxtPass->text()) == UCase(txtConfirm->text()) && EncodePassword(TxtPass->text()) != 0;
    } catch (const Error &) {
        return false;   // too long to digest
    }
}

// The password's columns of [User] as a statement sets them: the digest, or
// with the strong store NoDigest and the hash.
QString FrmInput::passwordColumns() const
{
    if (!m_policy.strong)
        return QStringLiteral("[Password]=") + DoubleToText(EncodePassword(TxtPass->text()));
    return QStringLiteral("[Password]=") + DoubleToText(NoDigest) + QStringLiteral(",PasswordHash='")
           + HashPassword(TxtPass->text(), m_policy) + u'\'';
}

void FrmInput::CMDOK_Click()
{
    const QString title = EditMode ? updateTitle() : addTitle();
    if (RefuseQuote(Txtuser, title) || RefuseQuote(TxtDes, title))
        return;
    m_policy = ReadPasswordPolicy();
    try {
        if (ServerLocked())
            lockedWrite(Txtuser->text());
        else if (EditMode)
            updateUser(Txtuser->text());
        else
            addUser(Txtuser->text());
    } catch (const Error &e) {
        refuse(e.description(), title);
    }
}

void FrmInput::addUser(const QString &name)
{
    if (hasUser(QStringLiteral("SELECT * FROM [User] WHERE [Name]='") + name + QLatin1Char('\'')))
        return refuse(exists(), addTitle());
    if (!passwordAccepted())
        return refuse(badPassword(), addTitle());
    // With the strong store the row gets its hash in the same statement.
    const QString columns = m_policy.strong ? QStringLiteral(",PasswordHash") : QString();
    const QString password = m_policy.strong ? DoubleToText(NoDigest) + QStringLiteral(",'")
                                                   + HashPassword(TxtPass->text(), m_policy) + u'\''
                                             : DoubleToText(EncodePassword(TxtPass->text()));
    // Another desk may have added the name since the query above.
    if (!InsertUnlessPresent(QStringLiteral("Insert Into [User](Name,[Dec],IdGroup,[Password]") + columns
                             + QStringLiteral(") Values('") + name + QStringLiteral("','") + TxtDes->text()
                             + QStringLiteral("',") + QString::number(SelectedItemData(TxtIdGroup)) + u',' + password
                             + u')'))
        return refuse(exists(), addTitle());
    accept();
}

void FrmInput::updateUser(const QString &name)
{
    const QString old = UserName;
    CheckQuotable(old);
    // The old row is opened as it always was, though nothing reads it.
    hasUser(QStringLiteral("SELECT  *  FROM [User]  WHERE [Name]='") + old + QLatin1Char('\''));
    const QString otherUser = QStringLiteral("Select  * From [User] Where [Name]='") + name
                              + QStringLiteral("' And [Name] <> '") + old + QLatin1Char('\'');
    if (hasUser(otherUser))
        return refuse(exists(), updateTitle());
    if (!passwordAccepted())   // an untouched password passes: both boxes hold the digest
        return refuse(badPassword(), updateTitle());
    QString sql = QStringLiteral("UPDATE [User] Set [Name]='") + name + QStringLiteral("',[Dec]='") + TxtDes->text()
                  + QStringLiteral("',IdGroup=") + QString::number(SelectedItemData(TxtIdGroup));
    if (m_passwordChanged)
        sql += u',' + passwordColumns();
    if (m_read.IsEmpty())
        return changedElsewhere();   // the boxes were never filled from the row
    // Only while the row holds what the boxes were filled from.
    try {
        if (Execute(sql + QStringLiteral(" Where [Name]='") + old + QLatin1Char('\'') + m_read.StillHolds()) == 0)
            return changedElsewhere();
    } catch (const Error &e) {
        if (e.number() == Error::DatabaseFailure && hasUser(otherUser))
            return refuse(exists(), updateTitle());   // another desk took the name since the query above
        throw;
    }
    accept();
}

// On a locked server through its functions, which check who logged on: an
// administrator adds and changes users, a clerk only his own password.
void FrmInput::lockedWrite(const QString &name)
{
    const QString title = EditMode ? updateTitle() : addTitle();
    if (!passwordAccepted())
        return refuse(badPassword(), title);
    const auto password = [this] { return LockedPassword(TxtPass->text(), m_policy); };   // a hash takes a while
    if (!FieldsEnabled) {   // his own record
        if (LockedSessionUser() != m_code)
            return refuse(tr("Chỉ đổi được mật khẩu của chính mình."), title);
        if (m_passwordChanged)
            LockedSetOwnPassword(password());
        return accept();
    }
    if (!EditMode) {
        if (LockedAddUser(name, TxtDes->text(), SelectedItemData(TxtIdGroup), password()) == 0)
            return refuse(exists(), addTitle());   // another desk has the name
        return accept();
    }
    if (m_read.IsEmpty())
        return changedElsewhere();
    try {
        if (LockedUpdateUser(UserName, name, TxtDes->text(), SelectedItemData(TxtIdGroup),
                             m_read.Value(QStringLiteral("Dec")).toString(), m_read.Value(QStringLiteral("IdGroup")).toInt(),
                             m_passwordChanged ? std::optional(password()) : std::nullopt)
            == 0)
            return changedElsewhere();
    } catch (const Error &e) {
        if (e.number() == Error::DatabaseFailure
            && hasUser(ReadableUsers(QStringLiteral("Select  * From [User] Where [Name]=") + SqlValue(name, QStringLiteral("S")))))
            return refuse(exists(), updateTitle());   // the name is another user's
        throw;
    }
    accept();
}

// Another desk changed or deleted the user since the boxes were filled (or
// they never were, the server being away): the clerk is told and sees the row
// as it is now (or the dialog closes).
void FrmInput::changedElsewhere()
{
    if (!hasUser(QStringLiteral("SELECT * FROM [User] WHERE [Name]='") + UserName + QLatin1Char('\''))) {
        ShowMgBox(tr("Người sử dụng này vừa bị xoá ở máy khác."), 0, updateTitle(), 0, false, this);
        return reject();
    }
    const bool read = !m_read.IsEmpty();
    PreLoad();
    CMDOK->setEnabled(true);   // the boxes hold the row again: OK writes them once the clerk has redone the change
    ShowMgBox(read ? tr("Người sử dụng này vừa được sửa ở máy khác. Thông tin hiện tại đã được hiện lại; "
                        "hãy sửa lại rồi ghi.")
                   : tr("Thông tin của người sử dụng này chưa đọc được nên chưa ghi. Thông tin đã được đọc "
                        "lại; hãy sửa lại rồi ghi."),
              0, updateTitle(), 0, false, this);
}

// Tells the user and selects the name for another try.
void FrmInput::refuse(const QString &message, const QString &title)
{
    ShowMgBox(message, 0, title, 0, false);
    Txtuser->setFocus();
    Txtuser->selectAll();
}

} // namespace zolt
