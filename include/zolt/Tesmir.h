// SPDX-License-Identifier: MIT
#pragma once

#include <zolt/zolt_export.h>

#include <QSqlDatabase>
#include <QString>
#include <QVariant>

#include <memory>

class QWidget;

namespace zolt {

/// Small system services for the host and the library's dialogs: user and
/// computer names, a backup copy, key strokes, values in initialisation files,
/// and numbers written with "." between thousands and "," before decimals.
class ZOLT_EXPORT Tesmir {
public:
    Tesmir();
    ~Tesmir();
    Tesmir(const Tesmir &) = delete;
    Tesmir &operator=(const Tesmir &) = delete;

    /// The login name of the process's user; "" when it cannot be told.
    QString GetUSName() const;
    /// The computer's host name; "" when it cannot be told.
    QString GetPCName() const;

    /// Copies the data file to FileName, replacing it; nonzero on success.
    qint32 BackUpData(const QString &PathData, const QString &FileName) const;
    /// Copies a file; with bFailIfExists nonzero an existing target is left alone
    /// and the copy fails. Nonzero on success, 0 on failure. The target is
    /// replaced whole and at once: never half a file.
    qint32 CopyFile(const QString &lpExistingFileName, const QString &lpNewFileName,
                    qint32 bFailIfExists) const;

    /// One key stroke: Key a virtual-key code, Key_Event 0 down or 2 up.
    void ESendKey(qint32 Key, qint32 Key_Event) const;
    /// Presses and releases Key; Shift 1, 2, 3 hold Shift, Ctrl or Alt around it.
    void Gui_Phim(qint32 Key, qint32 Shift) const;

    /// Opens the help file with the desktop's viewer; nonzero when it could.
    qint32 WinHelp(qint32 hWnd, const QString &lpHelpFile, qint32 wCommand, qint32 dwData) const;

    /// A value kept in an initialisation file: section UserName, key VlName.
    void WriteRegA(const QString &UserName, const QString &VlName, const QString &Vl,
                   const QString &Path) const;
    /// The value WriteRegA kept, cut to 254 characters; "" when there is none.
    QString ReadRegVlA(const QString &UserName, const QString &VlName, const QString &Path) const;

    /// The search wizard on table TblName of Connection, which becomes the
    /// library's connection: the condition the user composed, to be put after
    /// WHERE, or "" when he cancelled or the table has no catalogue rows.
    /// A QSqlDatabase without a driver raises zolt::Error 13. Words, when
    /// given, receives the condition as a clerk reads it ("Tên hàng bắt đầu
    /// bằng 'Bánh'"); ConditionSql makes the condition ready for the engine.
    /// The dialog is transient for parent when one is given.
    QString FindShow(const QSqlDatabase &Connection, const QString &TblName, QString *Words = nullptr,
                     QWidget *parent = nullptr) const;

    /// "-" or "+" when St starts with it, else "".
    QString Sign(const QString &St) const;
    /// The number with "." between groups of three whole digits; "," stays the decimal separator.
    QString CvNStr(const QVariant &Inp) const;
    /// The character at 1-based position Ps, "" outside the text.
    QString Mid1(const QString &St, qint32 Ps) const;
    /// The number a text in CvNStr's form stands for; 0 for text that is no number.
    double CvTextToN(const QString &Inp) const;

private:
    struct Private;
    const std::unique_ptr<Private> d;
};

} // namespace zolt
