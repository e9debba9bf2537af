// SPDX-License-Identifier: MIT
#pragma once

#include <zolt/HelpCallBack.h>
#include <zolt/clsCoolMenu.h>

#include <QMainWindow>
#include <QSqlDatabase>

class ElidedLabel;
class QAction;
class QLabel;
class QMenu;
class QSqlQueryModel;

namespace zolt {
class clsLogon;
}

// The sales application's main window: the goods list, and menus whose items
// follow the rights of the user's group as they were at the logon.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    MainWindow(const QSqlDatabase &db, qint32 userCode, zolt::clsLogon &logon);
    ~MainWindow() override;

    // True when the user closed the window to log on again, maybe as someone else.
    bool logonAgain() const { return m_logonAgain; }

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void showGoods(const QString &condition, const QString &words);
    void addSearchMenu();
    void addRightsMenus(qint32 group);
    void connectSubMenu(QAction *action, int id);
    void addSystemItems(QMenu *system);
    void addLookMenu();
    bool askToQuit();

    QSqlDatabase m_db;
    zolt::clsLogon &m_logon;
    QString m_user;
    QSqlQueryModel *m_goods;
    QLabel *m_summary;
    ElidedLabel *m_filter;   // the filter in words
    zolt::clsCoolMenu m_coolMenu;
    zolt::HelpCallBack m_help;
    bool m_quitConfirmed = false;
    bool m_logonAgain = false;
};
