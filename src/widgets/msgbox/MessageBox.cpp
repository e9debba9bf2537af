// SPDX-License-Identifier: MIT
#include <zolt/MessageBox.h>

#include "core/base/Conversions.h"
#include "widgets/controls/AccessibleNames.h"
#include "widgets/desktop/General.h"
#include "widgets/desktop/KeyPreview.h"
#include "widgets/msgbox/MdlMsg.h"
#include "widgets/platform/KeyDelivery.h"
#include "widgets/platform/OleColor.h"

#include <zolt/Enums.h>

#include <QApplication>
#include <QFrame>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QWindow>

#include <array>

namespace zolt {

QString MessageBox::ReturnValue;

namespace {

// The designed layout, in twips.
constexpr int ButtonWidth = 1350;
constexpr int ButtonHeight = 390;
constexpr int ButtonGap = 50;
constexpr int RowLeft = 300;
constexpr int BandHeight = 330;
constexpr int IconLeft = 240;
constexpr int IconSize = 480;
constexpr int MessageLeft = IconLeft + IconSize + 240;
constexpr int ContentTop = BandHeight + 240;
constexpr int Margin = 150;   // between the message and the buttons, and under them
// The message is never so narrow that three buttons would not fit under it,
// and wraps rather than growing wider than this.
constexpr int MessageMinWidth = 3 * ButtonWidth + 2 * ButtonGap + 2 * RowLeft - MessageLeft - 100;
constexpr int MessageMaxWidth = 9000;

// A button as a set shows it: caption and tag; no caption hides it.
struct ButtonLook {
    const char *caption;
    const char *tag;
    qint32 answer;   // the button's own answer code, whatever its tag says
};

constexpr ButtonLook Ok = {QT_TRANSLATE_NOOP("zolt::MessageBox", "Đồ&ng ý"), "OK", 1};
constexpr ButtonLook Cancel = {QT_TRANSLATE_NOOP("zolt::MessageBox", "&Bỏ qua"), "CAN", 2};
constexpr ButtonLook Abort = {QT_TRANSLATE_NOOP("zolt::MessageBox", "Bỏ &dở"), "ABO", 3};
constexpr ButtonLook Retry = {QT_TRANSLATE_NOOP("zolt::MessageBox", "&Thử lại"), "RET", 4};
constexpr ButtonLook Ignore = {QT_TRANSLATE_NOOP("zolt::MessageBox", "&Bác bỏ"), "ABO", 5};   // the Abort tag: decoded as the others are
constexpr ButtonLook Yes = {QT_TRANSLATE_NOOP("zolt::MessageBox", "&Có"), "YES", 6};
constexpr ButtonLook No = {QT_TRANSLATE_NOOP("zolt::MessageBox", "&Không"), "NO", 7};
constexpr ButtonLook Hidden = {nullptr, nullptr, 0};

// Cmd1, Cmd2 and Cmd3 of the six sets of the system message box, by number.
constexpr std::array<std::array<ButtonLook, 3>, 6> Sets = {{
    {Ok, Hidden, Hidden},
    {Ok, Cancel, Hidden},
    {Abort, Retry, Ignore},
    {Yes, No, Cancel},
    {Yes, No, Hidden},
    {Retry, Cancel, Hidden},
}};

QPushButton *makeButton(QWidget *parent, const char *name, const ButtonLook &look, int left)
{
    auto *button = new QPushButton(MessageBox::tr(look.caption), parent);
    button->setObjectName(QLatin1String(name));
    button->setProperty("Tag", QString::fromUtf8(look.tag));
    button->setAutoDefault(true);
    button->setGeometry(ToPixels(left), 0, ToPixels(ButtonWidth), ToPixels(ButtonHeight));
    return button;
}

QFrame *makeLine(QWidget *parent, const char *name, QFrame::Shape shape)
{
    auto *line = new QFrame(parent);
    line->setObjectName(QLatin1String(name));
    line->setFrameShape(shape);
    line->setFrameShadow(QFrame::Plain);
    line->setLineWidth(1);
    return line;
}

// Each picture is named for a screen reader by what it tells.
QLabel *makePicture(QWidget *parent, const char *name, const QString &resource, const char *meaning, bool shown)
{
    auto *picture = new QLabel(parent);
    picture->setObjectName(QLatin1String(name));
    picture->setAccessibleName(MessageBox::tr(meaning));
    picture->setPixmap(QPixmap(resource));
    picture->setGeometry(ToPixels(IconLeft), ToPixels(ContentTop), ToPixels(IconSize), ToPixels(IconSize));
    picture->setVisible(shown);
    return picture;
}

int leftTw(const QWidget *w) { return ToTwips(w->x()); }
int widthTw(const QWidget *w) { return ToTwips(w->width()); }
void setLeftTw(QWidget *w, int twips) { w->move(ToPixels(twips), w->y()); }

} // namespace

MessageBox::MessageBox(QWidget *parent)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint)
{
    setObjectName(QStringLiteral("MessageBox"));
    setFont(QFont(QStringLiteral("VK Sans Serif")));
    Cmd3 = makeButton(this, "Cmd3", Retry, RowLeft + 2 * (ButtonWidth + ButtonGap));
    Cmd1 = makeButton(this, "Cmd1", Ok, RowLeft);
    Cmd2 = makeButton(this, "Cmd2", Cancel, RowLeft + ButtonWidth + ButtonGap);

    Label5 = new QLabel(this);   // the title band, under the title
    Label5->setObjectName(QStringLiteral("Label5"));
    Label5->setFont(QFont(QStringLiteral("Tahoma")));
    Label5->setAutoFillBackground(true);
    label4 = new QLabel(this);
    label4->setObjectName(QStringLiteral("label4"));
    label4->setFont(QFont(QStringLiteral("MS Sans Serif")));
    Line4 = makeLine(this, "Line4", QFrame::HLine);
    Line3 = makeLine(this, "Line3", QFrame::VLine);
    Line2 = makeLine(this, "Line2", QFrame::VLine);
    Line1 = makeLine(this, "Line1", QFrame::HLine);
    micon = makePicture(this, "micon", QStringLiteral(":/zolt/information.png"),
                        QT_TRANSLATE_NOOP("zolt::MessageBox", "Thông báo"), true);
    q = makePicture(this, "q", QStringLiteral(":/zolt/question.png"),
                    QT_TRANSLATE_NOOP("zolt::MessageBox", "Câu hỏi"), false);
    Info = makePicture(this, "Info", QStringLiteral(":/zolt/information.png"),
                       QT_TRANSLATE_NOOP("zolt::MessageBox", "Thông báo"), false);
    Ex = makePicture(this, "Ex", QStringLiteral(":/zolt/exclamation.png"),
                     QT_TRANSLATE_NOOP("zolt::MessageBox", "Cảnh báo"), false);
    stop = makePicture(this, "stop", QStringLiteral(":/zolt/stop.png"),
                       QT_TRANSLATE_NOOP("zolt::MessageBox", "Lỗi"), false);
    Message = new QLabel(this);
    Message->setObjectName(QStringLiteral("Message"));
    Message->setTextFormat(Qt::PlainText);
    Message->move(ToPixels(MessageLeft), ToPixels(ContentTop));
    Label5->lower();
    // A screen reader announces the box as an alert: the caption as its name,
    // the message as its description.
    AnnounceAsAlert(this);

    // The designed tab order puts the second button first, so that a hasty
    // Enter does not answer yes to a question.
    m_tabOrder = {Cmd2, Cmd3, Cmd1};
    // A letter typed without Alt presses the button it is the mnemonic of.
    new KeyPreview(this, [](int &keyAscii) {
        if (keyAscii > 32)
            PressKey(QChar(keyAscii).toUpper().unicode(), 3);
    });
    for (QLabel *band : {label4, Label5})
        band->installEventFilter(this);
    connect(Cmd1, &QPushButton::clicked, this, [this] { answer(GetReturn1(Tag(Cmd1)), 0); });
    connect(Cmd2, &QPushButton::clicked, this, [this] { answer(GetReturn(Tag(Cmd2), QString()), 1); });
    connect(Cmd3, &QPushButton::clicked, this, [this] { answer(GetReturn(Tag(Cmd3), QString()), 2); });

    ApplyFormSettings(this);
    fitButtonsToFont();
    QPalette band = Label5->palette();
    band.setColor(QPalette::Window, OleColorToQColor(SystemActiveCaptionColor, QApplication::palette()));
    band.setColor(QPalette::WindowText, OleColorToQColor(SystemCaptionTextColor, QApplication::palette()));
    Label5->setPalette(band);
    label4->setPalette(band);
    SetMessage(QString());
}

MessageBox::~MessageBox() = default;

QString MessageBox::Tag(const QPushButton *button)
{
    return button->property("Tag").toString();
}

qint32 MessageBox::GetReturn1(const QString &St)
{
    static const std::pair<const char *, qint32> codes[] = {
        {"OK", 1}, {"CAN", 2}, {"YES", 6}, {"NO", 7}, {"ABO", 3}, {"RET", 4}, {"IGN", 5}};
    qint32 code = 0;
    for (const auto &[tag, value] : codes) {
        if (St == QLatin1String(tag))
            code = value;
    }
    return code;
}

qint32 MessageBox::GetReturn(const QString &St, const QString &sTag)
{
    // Each test looks for a tag or a caption; the No test's tag has a
    // trailing blank, and Ignore's is Abort's.
    static const std::pair<ButtonLook, qint32> tests[] = {
        {Ok, 1}, {Cancel, 2}, {Yes, 6}, {{No.caption, "NO ", 7}, 7}, {Abort, 3}, {Retry, 4}, {Ignore, 5}};
    qint32 code = 0;
    for (const auto &[look, value] : tests) {
        if (sTag == QLatin1String(look.tag) || St.contains(QString::fromUtf8(look.caption)))
            code = value;
    }
    return code;
}

void MessageBox::SetTitle(const QString &title)
{
    label4->setText(title);
    setWindowTitle(title);
}

void MessageBox::SetMessage(const QString &text)
{
    Message->setText(text);
    setAccessibleDescription(text);
    const QFontMetrics metrics(Message->font());
    const QRect single = metrics.boundingRect(QRect(), Qt::TextExpandTabs, text);
    const bool wraps = single.width() > ToPixels(MessageMaxWidth);
    Message->setWordWrap(wraps);
    const QRect fitted = wraps ? metrics.boundingRect(QRect(0, 0, ToPixels(MessageMaxWidth), 0),
                                                      Qt::TextWordWrap | Qt::TextExpandTabs, text)
                               : single;
    Message->resize(std::max(fitted.width() + 2, ToPixels(MessageMinWidth)),
                    std::max(fitted.height(), ToPixels(IconSize)));
    layOut();
}

void MessageBox::SetButtons(qint32 set)
{
    if (set < vbOKOnly || set > vbRetryCancel)
        return;
    m_set = set;
    QPushButton *const controls[] = {Cmd1, Cmd2, Cmd3};
    for (int i = 0; i < 3; ++i) {
        const ButtonLook &look = Sets[set][i];
        QPushButton *button = controls[i];
        button->setVisible(look.caption != nullptr);
        if (look.caption) {
            button->setText(tr(look.caption));
            button->setProperty("Tag", QString::fromUtf8(look.tag));
        }
    }
    // A request to correct something is answered yes by default.
    if (set == vbYesNo && Message->text().contains(tr("sửa lại"))) {
        m_tabOrder.removeOne(Cmd1);
        m_tabOrder.prepend(Cmd1);
    }
    layOut();
}

void MessageBox::SetIcon(qint32 icon)
{
    const QLabel *source = icon == vbCritical ? stop : icon == vbQuestion ? q
                         : icon == vbExclamation ? Ex : icon == vbInformation ? Info : nullptr;
    if (!source)
        return;
    micon->setPixmap(source->pixmap());
    micon->setAccessibleName(source->accessibleName());
}

void MessageBox::SetRightToLeft(bool rightToLeft)
{
    const Qt::LayoutDirection direction = rightToLeft ? Qt::RightToLeft : Qt::LeftToRight;
    Message->setLayoutDirection(direction);
    Message->setAlignment((rightToLeft ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignTop);
    setLayoutDirection(direction);
}

// The dialog is as wide as the message and its margin; the buttons stand in
// a centred row under the message, and the dialog ends under them.
void MessageBox::layOut()
{
    resize(ToPixels(leftTw(Message) + widthTw(Message) + 100), height());
    placeButtonRow();
    const int top = ToTwips(Message->y()) + ToTwips(Message->height()) + Margin;
    for (QPushButton *button : {Cmd1, Cmd2, Cmd3})
        button->move(button->x(), ToPixels(top));
    resize(width(), ToPixels(top + ToTwips(Cmd1->height()) + Margin));
}

// The gap is 100 twips between two buttons and 50 between three; other sets
// keep the designed places.
void MessageBox::placeButtonRow()
{
    if (m_set < 0)
        return;
    const int W = ToTwips(width());
    const int w1 = widthTw(Cmd1);
    const int w2 = widthTw(Cmd2);
    const int w3 = widthTw(Cmd3);
    if (Cmd3->isVisibleTo(this)) {
        setLeftTw(Cmd1, (W - w1 - w2 - w3) / 2 - 50);
        setLeftTw(Cmd2, leftTw(Cmd1) + w1 + 50);
        setLeftTw(Cmd3, leftTw(Cmd2) + w2 + 50);
    } else if (Cmd2->isVisibleTo(this)) {
        setLeftTw(Cmd1, (W - w1 - w2) / 2 - 50);
        setLeftTw(Cmd2, leftTw(Cmd1) + w1 + 100);
    } else {
        setLeftTw(Cmd1, (W - w1) / 2);
    }
}

// Widens the buttons when the configured font needs more room for a caption.
void MessageBox::fitButtonsToFont()
{
    const QFontMetrics metrics(Cmd1->font());
    int widest = Cmd1->width();
    for (const auto &set : Sets) {
        for (const ButtonLook &look : set) {
            if (look.caption)
                widest = std::max(widest, metrics.horizontalAdvance(
                                              tr(look.caption).remove(QLatin1Char('&'))) + 16);
        }
    }
    const int height = std::max(Cmd1->height(), metrics.height() + 10);
    for (QPushButton *button : {Cmd1, Cmd2, Cmd3})
        button->resize(widest, height);
    Label5->resize(Label5->width(), std::max(ToPixels(BandHeight), label4->sizeHint().height() + 4));
}

void MessageBox::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    for (QPushButton *button : m_tabOrder) {
        if (!button->isHidden()) {
            button->setFocus(Qt::TabFocusReason);
            return;
        }
    }
}

// Tab and Shift+Tab go round the visible buttons in the dialog's tab order.
bool MessageBox::focusNextPrevChild(bool next)
{
    QList<QPushButton *> visible;
    for (QPushButton *button : m_tabOrder) {
        if (!button->isHidden())
            visible << button;
    }
    if (visible.isEmpty())
        return false;
    const int at = visible.indexOf(qobject_cast<QPushButton *>(focusWidget()));
    const int step = next ? 1 : -1;
    visible[(at + step + visible.size()) % visible.size()]->setFocus(next ? Qt::TabFocusReason
                                                                        : Qt::BacktabFocusReason);
    return true;
}

void MessageBox::answer(qint32 code, int button)
{
    ReturnValue = QString::number(code);
    PressedAnswer = m_set >= 0 ? Sets[m_set][button].answer : GetReturn1(Tag(std::array{Cmd1, Cmd2, Cmd3}[button]));
    accept();
}

bool MessageBox::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == label4 || watched == Label5)
        return dragByTitleBand(event);
    return QDialog::eventFilter(watched, event);
}

bool MessageBox::dragByTitleBand(QEvent *event)
{
    if (event->type() != QEvent::MouseButtonPress && event->type() != QEvent::MouseMove)
        return false;
    const auto *mouse = static_cast<QMouseEvent *>(event);
    if (event->type() == QEvent::MouseButtonPress && mouse->button() == Qt::LeftButton) {
        m_dragOffset = mouse->globalPosition().toPoint() - frameGeometry().topLeft();
        return true;
    }
    if (event->type() == QEvent::MouseMove && mouse->buttons() == Qt::LeftButton) {
        if (!windowHandle() || !windowHandle()->startSystemMove())
            move(mouse->globalPosition().toPoint() - m_dragOffset);
        return true;
    }
    return false;
}

// The frame's right edge sits 15 twips in and its bottom edge 20.
void MessageBox::resizeEvent(QResizeEvent *event)
{
    QDialog::resizeEvent(event);
    const int w = width();
    const int h = height();
    Line1->setGeometry(0, 0, w, 1);
    Line2->setGeometry(0, 0, 1, h);
    Line3->setGeometry(ToPixels(ToTwips(w) - 15), 0, 1, h);
    Line4->setGeometry(0, ToPixels(ToTwips(h) - 20), w, 1);
    Label5->setGeometry(0, 0, w, Label5->height());
    label4->setGeometry(ToPixels(10), (Label5->height() - label4->sizeHint().height()) / 2,
                        Label5->width() - ToPixels(50), label4->sizeHint().height());
}

Answer MessageBox::information(QWidget *parent, const QString &title, const QString &text)
{
    return Answer(ShowMgBoxAnswer(text, vbOKOnly, title, vbInformation, parent));
}

Answer MessageBox::question(QWidget *parent, const QString &title, const QString &text, Buttons buttons)
{
    return Answer(ShowMgBoxAnswer(text, buttons, title, vbQuestion, parent));
}

Answer MessageBox::warning(QWidget *parent, const QString &title, const QString &text, Buttons buttons)
{
    return Answer(ShowMgBoxAnswer(text, buttons, title, vbExclamation, parent));
}

Answer MessageBox::critical(QWidget *parent, const QString &title, const QString &text, Buttons buttons)
{
    return Answer(ShowMgBoxAnswer(text, buttons, title, vbCritical, parent));
}

} // namespace zolt
