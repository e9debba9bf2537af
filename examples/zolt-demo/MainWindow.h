// SPDX-License-Identifier: MIT
#pragma once

#include <QMainWindow>
#include <QSqlDatabase>

namespace zolt {
class clsLogon;
}

// The sales application's main window: the goods list, and menus whose items
// follow the rights of the user's group.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    MainWindow(const QSqlDatabase &db, qint32 userCode, zolt::clsLogon &logon);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void addRightsMenus(qint32 group);
    void addSystemMenu();
    bool askToQuit();

    QSqlDatabase m_db;
    zolt::clsLogon &m_logon;
    bool m_quitConfirmed = false;
};
