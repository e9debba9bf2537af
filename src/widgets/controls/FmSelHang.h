// SPDX-License-Identifier: MIT
#pragma once

// The pick list that a look-up opens: the rows of a query as names, narrowed
// to the first name that begins with what the user types, giving back the
// code of the chosen row.

#include <QDialog>

#include <memory>

class QGroupBox;
class QLabel;
class QLineEdit;
class QListView;
class QPushButton;

namespace zolt {

class PickRows;

class FmSelHang : public QDialog {
    Q_OBJECT

public:
    explicit FmSelHang(QWidget *parent = nullptr);
    ~FmSelHang() override;

    // Set by the caller: the query (code, then name) and the text typed so far.
    QString ListSql;
    QString SearchText;
    // Set by the caller when the box may hold a code (a choice made before):
    // the list opens on the row that carries it, the name box empty; when no
    // row does, on no row, the name box holding SearchText.
    QString CurrentCode;
    // The code of the row highlighted; "" when none is, or unless the dialog
    // was left by Chọn (Enter or a double click on the row).
    QString SelectedValue;
    bool Chosen = false;

    // Loads the list and starts afresh; exec() loads first.
    void Load();
    int exec() override;
    void done(int result) override;

    // Fills the list from the query; 0, or the error number of its open.
    qint32 ReadInfo(const QString &Sql);
    // The first row whose name begins with St (see PrefixMatcher); -1 when none.
    // Answered from an index of the names once it is built (on a thread of
    // its own, started by the event loop's first turn after each load, so
    // that the list shows first), by looking at every name until then.
    qint32 FindString(const QString &St) const;
    // Starts the index of the names loaded last if it waits for the event
    // loop, and waits until it is built.
    void WaitUntilIndexed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void TxtSelH_Change();
    void choose();
    void selectRow(int row);
    QString currentCode() const;
    void startIndexing();

    class NameIndexes;
    std::unique_ptr<NameIndexes> m_indexes;
    bool m_indexWaits = false;   // the names loaded last have no index yet
    bool m_accentBlind = true;
    PickRows *m_rows;
    QLabel *Label1;
    QLineEdit *TxtSelH;
    QGroupBox *FrDetail;
    QListView *lv1IP;
    QPushButton *CmdSel;
    QPushButton *CmdQuit;
};

} // namespace zolt
