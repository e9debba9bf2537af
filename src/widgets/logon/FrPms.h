// SPDX-License-Identifier: MIT
#pragma once

// The menu rights of one user group: for each menu bar of table Menu, which of
// its sub-menus the group may use. Changes are kept until Ghi writes them in
// one statement, which sets only the menu bars changed here and only where no
// other desk changed them meanwhile.

#include <QDialog>

class QLabel;
class QListWidget;
class QPushButton;

namespace zolt {

class FrPms : public QDialog {
    Q_OBJECT

public:
    // Shows the rights of the group whose Code is groupCode.
    explicit FrPms(qint32 groupCode, QWidget *parent = nullptr);
    ~FrPms() override;

    // 1 for true, 0 for false.
    static qint32 VlBl(bool Ip);
    // The selection of the sub-menu list as a rights value: bit i for item i.
    // Error 6 past the 32-bit range.
    qint32 PPms() const;
    // Selects exactly the sub-menus whose bits are set in Ip.
    void APms(qint32 Ip);

private:
    void ReadPms();
    void ReadInf(const QString &TableName, QListWidget *Lv);
    void LstMenuBar_Click();
    void LstSubMenu_Click();
    void CmdOk_Click();
    void changedElsewhere();

    qint32 m_group;
    QList<qint32> m_rights;   // one value per rights column, in the order of the menu bars
    QList<qint32> m_read;     // the same as read from the database
    QStringList m_columns;    // their names
    QListWidget *LstMenuBar;
    QListWidget *LstSubMenu;
    QLabel *LblTitle;
    QPushButton *CmdOk;
    QPushButton *Command1;
};

} // namespace zolt
