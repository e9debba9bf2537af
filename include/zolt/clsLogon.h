// SPDX-License-Identifier: MIT
#pragma once

#include <zolt/Enums.h>
#include <zolt/zolt_export.h>

#include <QSqlDatabase>
#include <QString>

#include <memory>

class QWidget;

namespace zolt {

/// The host's entry into the logon: hand it the open database, get back the
/// code of the user who logged on. The message box of the library is offered
/// here as well.
///
/// Each entry point that takes a Connection makes it the library's
/// connection; a QSqlDatabase without a driver raises zolt::Error 13 before
/// anything shows. Each dialog is transient for parent when one is given.
class ZOLT_EXPORT clsLogon {
public:
    clsLogon();
    ~clsLogon();
    clsLogon(const clsLogon &) = delete;
    clsLogon &operator=(const clsLogon &) = delete;

    // Each entry point that takes a Connection makes it the library's
    // connection; a QSqlDatabase without a driver raises zolt::Error 13 before
    // anything shows. Each dialog is transient for parent when one is given.

    /// Shows the logon dialog and returns the Code of the user in table [User] who logged
    /// on, or 0 when the dialog was cancelled or closed.
    qint32 ShowLogon(const QSqlDatabase &Connection, QWidget *parent = nullptr);

    /// The user list of table [User] on Connection: add, edit and delete users.
    void UserManager(const QSqlDatabase &Connection, QWidget *parent = nullptr);

    /// The user editor for UserName's own record: only the password may change.
    void ShowUser(const QSqlDatabase &Connection, const QString &UserName, QWidget *parent = nullptr);

    /// The user groups of table Groups on Connection, and through them the
    /// groups' menu rights (see GetBit in <zolt/MenuRights.h>).
    void ShowGroup(const QSqlDatabase &Connection, QWidget *parent = nullptr);

    ///@{
    /// The library's message box, as the original program called it. Shows Message with button set
    /// Button (0 OK ... 5 Retry/Cancel, see zolt::Buttons) and icon (see zolt::IconValue), and returns
    /// the answer code as text: "1" OK, "6" Yes, "3" Abort, "4" Retry for the first button, "0" for the
    /// others. An empty Title becomes the application's display name and is written back. The
    /// enumerations may be given for the numbers; zolt::MessageBox asks with typed answers.
    QString MgBox(const QString &Message, qint32 Button, QString &Title, qint32 icon = 0,
                  bool RightToLeft = false, QWidget *parent = nullptr);
    QString MgBox(const QString &Message, qint32 Button, const QString &Title, qint32 icon = 0,
                  bool RightToLeft = false, QWidget *parent = nullptr);
    QString MgBox(const QString &Message, qint32 Button = 0);
    ///@}

    /// The font name the library's dialogs use, until the next dialog reads
    /// the configured one again.
    void SetDfFont(const QString &F1);

private:
    struct Private;
    const std::unique_ptr<Private> d;
};

} // namespace zolt
