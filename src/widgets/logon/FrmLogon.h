// SPDX-License-Identifier: MIT
#pragma once

// The logon dialog: a user name and a password, looked up in the table [User].

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;

namespace zolt {

class FrmLogon : public QDialog {
    Q_OBJECT

public:
    explicit FrmLogon(QWidget *parent = nullptr);
    ~FrmLogon() override;

    // The Code of the user who logged on; 0 while nobody has.
    qint32 UserCode = 0;

private:
    void CmdOk_Click();
    static qint32 legacyLogon(const QString &user, const QString &password);
    void lockedLogon(const QString &user);
    void refuse(const QString &message, int selectionStart);

    QLabel *Label1;
    QLineEdit *Txtuser;
    QLabel *Label2;
    QLineEdit *TxtPass;
    QPushButton *CmdOk;
    QPushButton *CmdCan;
    QPushButton *CmdHelp;
    QLabel *Image1;
};

} // namespace zolt
