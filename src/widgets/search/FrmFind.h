// SPDX-License-Identifier: MIT
#pragma once

// The search dialog: up to four rows of field, operator and value, joined by
// "và" or "hoặc", composed into an SQL condition for a host to put after WHERE,
// and shown in words as it grows.

#include <QDialog>

#include <array>

class QFrame;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace zolt {

class DataCombo1;

class FrmFind : public QDialog {
    Q_OBJECT

public:
    static constexpr int Rows = 4;

    explicit FrmFind(QWidget *parent = nullptr);
    ~FrmFind() override;

    // The table searched, set before the dialog shows; the condition composed,
    // "" unless the dialog was left by OK, and the same in words for a clerk
    // ("Tên hàng bắt đầu bằng 'Bánh' và Giá lớn hơn 490.000").
    QString TableName;
    QString Result;
    QString ResultWords;

    // Loads the catalogue of TableName and starts afresh; exec() loads first,
    // a dialog shown without waiting is loaded by its caller.
    void Load();
    int exec() override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void ReadData();
    QVariant Get_RelaData() const;
    void ChkVisible(int Index);
    QString GetSql(int Index) const;
    QString GetDisplay(int Index) const;
    static QString GetBrackets(QString St);
    bool CheckSql(int Index) const;
    void SetEnable();
    QString GetRes() const;
    QString GetDis() const;
    qint32 fieldType(int Index) const;
    QString shownValue(int Index) const;
    QString rowWords(int Index) const;
    QString GetWords() const;
    QString rowProblem(int Index) const;
    bool toldProblem(int Index);
    void CmdOK_Click();
    void rowChanged(int Index);
    void lookUp(int Index);

    std::array<DataCombo1 *, Rows> CmbFld;
    std::array<DataCombo1 *, Rows> CmbPredicate;
    std::array<QLineEdit *, Rows> MskValue;
    std::array<DataCombo1 *, Rows> cmbLg;   // index 0 is unused: row 0 has no connector
    QPlainTextEdit *TxtResult;
    QFrame *FrCmd;
    QPushButton *CmdOK;
    QPushButton *CmdCancel;
    QPushButton *CmdHelp;
};

} // namespace zolt
