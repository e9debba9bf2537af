// SPDX-License-Identifier: MIT
#pragma once

/// \file
/// The library's message box: Vietnamese captions, the library's look.

#include <zolt/Enums.h>
#include <zolt/zolt_export.h>

#include <QDialog>

class QFrame;
class QLabel;
class QPushButton;

namespace zolt {

/// The library's caption-less message dialog: a title band, an icon, the
/// message and up to three buttons whose tags name their answers ("Đồng ý",
/// "Có", "Không" ...). It draws its own frame, is moved by dragging its title
/// band, and lays itself out: every setter places the controls again.
///
/// A host asks with the static functions, as with QMessageBox's:
/// \code
/// if (zolt::MessageBox::question(window, "Kế toán", "Xoá chứng từ này?") == zolt::Answer::Yes) ...
/// \endcode
/// Each shows the box modally, transient for parent, and answers with the
/// button pressed (Answer::None when the box was closed otherwise). A hasty
/// Enter presses the second button of a question, not Yes. An empty title is
/// the application's display name. clsLogon::MgBox shows the same box with
/// the classic arguments and answer codes.
class ZOLT_EXPORT MessageBox : public QDialog {
    Q_OBJECT

public:
    /// A notice with the "Đồng ý" button and the information icon.
    static Answer information(QWidget *parent, const QString &title, const QString &text);
    /// A question with the buttons given (Có and Không by default) and the question icon.
    static Answer question(QWidget *parent, const QString &title, const QString &text, Buttons buttons = vbYesNo);
    /// A warning with the exclamation icon.
    static Answer warning(QWidget *parent, const QString &title, const QString &text, Buttons buttons = vbOKOnly);
    /// An error with the stop icon.
    static Answer critical(QWidget *parent, const QString &title, const QString &text, Buttons buttons = vbOKOnly);

    /// Loads the dialog in its designed state, with the configured fonts.
    explicit MessageBox(QWidget *parent = nullptr);
    ~MessageBox() override;

    /// The answer of the last button clicked, as decimal digits. It outlives
    /// every load of the dialog: closing it otherwise leaves the last answer.
    static QString ReturnValue;
    /// The answer code of the button this box was left by, every button told
    /// apart (Ignore is 5 though its tag reads as Abort); 0 when it was closed otherwise.
    qint32 PressedAnswer = 0;

    /// Answer code from a caption and a tag; the last matching test wins.
    static qint32 GetReturn(const QString &St, const QString &sTag = QString());
    /// Answer code from a tag alone.
    static qint32 GetReturn1(const QString &St);
    /// A button's tag: the short code of its answer ("OK", "CAN", "YES" ...).
    static QString Tag(const QPushButton *button);

    /// The title band's text, and the window's title.
    void SetTitle(const QString &title);
    /// The message label sizes itself to its text; the dialog follows.
    void SetMessage(const QString &text);
    /// Button set 0 to 5 (see zolt::Buttons); other values keep the designed buttons.
    void SetButtons(qint32 set);
    /// Icon 16, 32, 48 or 64 (see zolt::IconValue); others keep the designed icon.
    void SetIcon(qint32 icon);
    /// The message and the buttons laid out from right to left.
    void SetRightToLeft(bool rightToLeft);

private:
    bool eventFilter(QObject *watched, QEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void layOut();
    void placeButtonRow();
    void fitButtonsToFont();
    void answer(qint32 code, int button);
    bool dragByTitleBand(QEvent *event);

    QPushButton *Cmd3;
    QPushButton *Cmd1;
    QPushButton *Cmd2;
    QLabel *label4;
    QFrame *Line4;
    QFrame *Line3;
    QFrame *Line2;
    QFrame *Line1;
    QLabel *micon;
    QLabel *q;
    QLabel *Info;
    QLabel *Ex;
    QLabel *stop;
    QLabel *Message;
    QLabel *Label5;

    qint32 m_set = -1;
    QPoint m_dragOffset;
    QList<QPushButton *> m_tabOrder;
};

} // namespace zolt
