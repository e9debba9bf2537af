// SPDX-License-Identifier: MIT
#pragma once

// The library's caption-less message dialog: a title band, an icon, the
// message and up to three buttons whose tags name their answers. It draws its
// own frame, is moved by dragging its title band, and lays itself out: every
// setter places the controls again.

#include <QDialog>

class QFrame;
class QLabel;
class QPushButton;

namespace zolt {

class MessageBox : public QDialog {
    Q_OBJECT

public:
    // Loads the dialog in its designed state, with the configured fonts.
    explicit MessageBox(QWidget *parent = nullptr);
    ~MessageBox() override;

    // The answer of the last button clicked, as decimal digits. It outlives
    // every load of the dialog: closing it otherwise leaves the last answer.
    static QString ReturnValue;
    // The answer code of the button this box was left by, every button told
    // apart (Ignore is 5 though its tag reads as Abort); 0 when it was closed otherwise.
    qint32 PressedAnswer = 0;

    // Answer code from a caption and a tag; the last matching test wins.
    static qint32 GetReturn(const QString &St, const QString &sTag = QString());
    // Answer code from a tag alone.
    static qint32 GetReturn1(const QString &St);
    // A button's tag: the short code of its answer ("OK", "CAN", "YES" ...).
    static QString Tag(const QPushButton *button);

    void SetTitle(const QString &title);
    // The message label sizes itself to its text; the dialog follows.
    void SetMessage(const QString &text);
    // Button set 0 to 5 (see zolt::Buttons); other values keep the designed buttons.
    void SetButtons(qint32 set);
    // Icon 16, 32, 48 or 64 (see zolt::IconValue); others keep the designed icon.
    void SetIcon(qint32 icon);
    void SetRightToLeft(bool rightToLeft);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
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
