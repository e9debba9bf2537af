// SPDX-License-Identifier: MIT
#pragma once

// The user list: every user of table [User], with buttons to add, edit and
// delete users through the user editor.

#include "core/logon/LogonGuard.h"

#include <QDialog>

class QPushButton;
class QTreeView;

namespace zolt {

class UserRows;

class FrmMenu : public QDialog {
    Q_OBJECT

public:
    explicit FrmMenu(QWidget *parent = nullptr);
    ~FrmMenu() override;

    // Appends one item per row of the query (columns Code, Name, Dec).
    void ReadInfo(const QString &TableName);

private:
    int selectedRow() const;
    void CmdAdd_Click();
    void CmdEdit_Click();
    void CmdDel_Click();
    void CmdRelease_Click();
    void showWaiting();

    UserRows *m_users;
    QTreeView *Lv;
    QPushButton *CmdAdd;
    QPushButton *CmdEdit;
    QPushButton *CmdDel;
    QPushButton *CmdExit;
    QPushButton *CmdRelease;
    LogonLimits m_limits;
};

} // namespace zolt
