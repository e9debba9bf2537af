// SPDX-License-Identifier: MIT
#pragma once

// The user editor: adds a user to table [User], or edits one; a user who
// opens his own record may change only his password.

#include "core/logon/PasswordStore.h"

#include "core/database/RowSnapshot.h"

#include <QDialog>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace zolt {

class FrmInput : public QDialog {
    Q_OBJECT

public:
    explicit FrmInput(QWidget *parent = nullptr);
    ~FrmInput() override;

    // Set by the caller before PreLoad: edit the user named UserName (true)
    // or add a new one (false); whether name, description and group may change.
    bool EditMode = false;
    bool FieldsEnabled = true;
    QString UserName;

    // Fills the dialog for the members above.
    void PreLoad();

private:
    void ReadDict(QComboBox *Cmb, const QString &Tbl);
    bool passwordAccepted() const;
    QString passwordColumns() const;
    void CMDOK_Click();
    void addUser(const QString &name);
    void updateUser(const QString &name);
    void lockedWrite(const QString &name);
    void refuse(const QString &message, const QString &title);

    void changedElsewhere();

    bool m_passwordChanged = false;
    RowSnapshot m_read;   // the user's row as the boxes show it
    qint32 m_code = 0;    // and its code
    PasswordPolicy m_policy;   // read when OK is pressed
    QLabel *Label1;
    QLineEdit *Txtuser;
    QLabel *Label2;
    QLineEdit *TxtPass;
    QLabel *Label4;
    QLineEdit *txtConfirm;
    QLabel *Label3;
    QLineEdit *TxtDes;
    QLabel *Label5;
    QComboBox *TxtIdGroup;
    QPushButton *CMDOK;
    QPushButton *CMDCAN;
    QPushButton *Command1;
};

} // namespace zolt
