#pragma once

// The library's caption-less message dialog: a title band, an icon, the
// message and up to three buttons whose tags name their answers. It draws its
// own frame and is moved by dragging its title band.

#include <QDialog>

class QFrame;
class QLabel;
class QPushButton;

namespace zolt {

// Lengths of the dialog are reckoned in twips, 15 to a pixel.
constexpr int TwipsPerPixel = 15;
constexpr int ToPixels(int twips) { return (twips + TwipsPerPixel / 2) / TwipsPerPixel; }
constexpr int ToTwips(int pixels) { return pixels * TwipsPerPixel; }

class MessageBox : public QDialog {
    Q_OBJECT

public:
    // Loads the dialog in its designed state, with the configured fonts.
    explicit MessageBox(QWidget *parent = nullptr);
    ~MessageBox() override;

    // The answer of the last button clicked, as decimal digits. It outlives
    // every load of the dialog: closing it otherwise leaves the last answer.
    static QString ReturnValue;

    // Answer code from a caption and a tag; the last matching test wins.
    static qint32 GetReturn(const QString &St, const QString &sTag = QString());
    // Answer code from a tag alone.
    static qint32 GetReturn1(const QString &St);

    // A button's tag: the short code of its answer ("OK", "CAN", "YES" ...).
    static QString Tag(const QPushButton *button);
    static void SetTag(QPushButton *button, const QString &tag);

    // Sets the message; the label sizes itself to its text.
    void SetMessage(const QString &text);
    // Moves the button to position index of the tab order (0 is first).
    void SetTabIndex(QPushButton *button, int index);
    // Gives the keyboard focus to the first visible button in tab order.
    void FocusFirstButton();

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

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void answer(qint32 code);
    void fitButtonsToFont();
    bool dragByTitleBand(QEvent *event);

    QPoint m_dragOffset;
    QList<QPushButton *> m_tabOrder;
};

} // namespace zolt
