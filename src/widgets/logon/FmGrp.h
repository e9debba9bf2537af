// SPDX-License-Identifier: MIT
#pragma once

// The user groups of table Groups: the list of groups, the selected group's
// name and description, its users, and the way to its menu rights.

#include "core/database/RowSnapshot.h"

#include <QDialog>

class QGroupBox;
class QLabel;
class QLineEdit;
class QListView;
class QPushButton;
class QTreeWidget;

namespace zolt {

class GroupRows;

class FmGrp : public QDialog {
    Q_OBJECT

public:
    explicit FmGrp(QWidget *parent = nullptr);
    ~FmGrp() override;

    void ViewInit();
    qint32 ReadInfo(const QString &Sql);
    void ViewInfo(qint32 Id);
    void AddRecord();
    qint32 WriteData(qint32 Id);
    void CheckWrite();
    void DeleteData(const QString &Predicate);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void Lv1_Click();
    void CmdAdd_Click();
    void CmdWrite_Click();
    void CmdDelete_Click();
    void CmdPms_Click();
    QString rowText() const;
    int currentRow() const;
    void setCurrentRow(int row);
    qint32 selectedCode() const;

    QString m_table;          // every statement of the dialog names it
    bool m_viewing = true;    // false while a new group is being entered
    qint32 m_current = 0;     // the code of the group shown
    RowSnapshot m_read;       // its name and description as shown
    qint32 m_added = 0;       // the code a locked server gave the group added last
    QString m_writeFailure;   // why the last write failed where the clerk can act on it (the server away)
    GroupRows *m_groups;
    QListView *Lv1;
    QGroupBox *FrDetail;
    QTreeWidget *lvUser;
    QPushButton *CmdPms;
    QGroupBox *Frame1;
    QLabel *Label1;
    QLineEdit *TxtName;
    QLabel *Label2;
    QLineEdit *TxtDesc;
    QPushButton *CmdAdd;
    QPushButton *CmdWrite;
    QPushButton *CmdDelete;
    QPushButton *CmdExit;
};

} // namespace zolt
