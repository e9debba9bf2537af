#include "msgbox/MessageBox.h"

#include "data/General.h"
#include "data/KeyPreview.h"
#include "data/OleColor.h"

#include <QApplication>
#include <QFrame>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QWindow>

namespace zolt {

QString MessageBox::ReturnValue;

namespace {

// The designed layout, in twips.
constexpr int ButtonWidth = 1350;
constexpr int ButtonHeight = 390;
constexpr int ButtonGap = 50;
constexpr int BandHeight = 330;
constexpr int IconLeft = 240;
constexpr int IconSize = 480;
constexpr int MessageLeft = IconLeft + IconSize + 240;
constexpr int ContentTop = BandHeight + 240;
// The message is never so narrow that three buttons would not fit under it,
// and wraps rather than growing wider than this.
constexpr int MessageMinWidth = 3 * ButtonWidth + 2 * ButtonGap + 2 * 300 - MessageLeft - 100;
constexpr int MessageMaxWidth = 9000;

// Every caption a button can carry, for sizing the buttons to the font.
const QStringList Captions = {
    QStringLiteral("Đồ&ng ý"), QStringLiteral("&Bỏ qua"), QStringLiteral("Bỏ &dở"),
    QStringLiteral("&Thử lại"), QStringLiteral("&Bác bỏ"), QStringLiteral("&Có"),
    QStringLiteral("&Không"),
};

QPushButton *makeButton(QWidget *parent, const char *name, const QString &caption,
                        const QString &tag, int left)
{
    auto *button = new QPushButton(caption, parent);
    button->setObjectName(QLatin1String(name));
    MessageBox::SetTag(button, tag);
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

QLabel *makePicture(QWidget *parent, const char *name, const QString &resource)
{
    auto *picture = new QLabel(parent);
    picture->setObjectName(QLatin1String(name));
    picture->setPixmap(QPixmap(resource));
    picture->setGeometry(ToPixels(IconLeft), ToPixels(ContentTop), ToPixels(IconSize), ToPixels(IconSize));
    return picture;
}

} // namespace

MessageBox::MessageBox(QWidget *parent)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint)
{
    setObjectName(QStringLiteral("MessageBox"));
    setFont(QFont(QStringLiteral("VK Sans Serif")));
    Cmd3 = makeButton(this, "Cmd3", QStringLiteral("&Thử lại"), QStringLiteral("RET"),
                      300 + 2 * (ButtonWidth + ButtonGap));
    Cmd1 = makeButton(this, "Cmd1", QStringLiteral("Đồ&ng ý"), QStringLiteral("OK"), 300);
    Cmd2 = makeButton(this, "Cmd2", QStringLiteral("&Bỏ qua"), QStringLiteral("CAN"),
                      300 + ButtonWidth + ButtonGap);

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
    micon = makePicture(this, "micon", QStringLiteral(":/zolt/information.png"));
    q = makePicture(this, "q", QStringLiteral(":/zolt/question.png"));
    Info = makePicture(this, "Info", QStringLiteral(":/zolt/information.png"));
    Ex = makePicture(this, "Ex", QStringLiteral(":/zolt/exclamation.png"));
    stop = makePicture(this, "stop", QStringLiteral(":/zolt/stop.png"));
    for (QLabel *store : {q, Info, Ex, stop})
        store->hide();
    Message = new QLabel(this);
    Message->setObjectName(QStringLiteral("Message"));
    Message->setTextFormat(Qt::PlainText);
    Message->move(ToPixels(MessageLeft), ToPixels(ContentTop));
    Label5->lower();

    // The designed tab order puts the second button first, so that a hasty
    // Enter does not answer yes to a question.
    m_tabOrder = {Cmd2, Cmd3, Cmd1};
    for (QPushButton *button : {Cmd1, Cmd2, Cmd3})
        button->setAutoDefault(true);
    // A letter typed without Alt presses the button it is the mnemonic of.
    new KeyPreview(this, [](int &keyAscii) {
        if (keyAscii > 32)
            PressKey(QChar(keyAscii).toUpper().unicode(), 3);
    });
    for (QLabel *band : {label4, Label5})
        band->installEventFilter(this);
    connect(Cmd1, &QPushButton::clicked, this, [this] { answer(GetReturn1(Tag(Cmd1))); });
    connect(Cmd2, &QPushButton::clicked, this, [this] { answer(GetReturn(Tag(Cmd2), QString())); });
    connect(Cmd3, &QPushButton::clicked, this, [this] { answer(GetReturn(Tag(Cmd3), QString())); });

    resize(ToPixels(MessageLeft + MessageMinWidth + 100), ToPixels(2000));
    ApplyFormSettings(this);
    fitButtonsToFont();
    QPalette band = Label5->palette();
    band.setColor(QPalette::Window, OleColorToQColor(SystemActiveCaptionColor, QApplication::palette()));
    band.setColor(QPalette::WindowText, OleColorToQColor(qint32(0x80000009u), QApplication::palette()));
    Label5->setPalette(band);
    label4->setPalette(band);
}

MessageBox::~MessageBox() = default;

QString MessageBox::Tag(const QPushButton *button)
{
    return button->property("Tag").toString();
}

void MessageBox::SetTag(QPushButton *button, const QString &tag)
{
    button->setProperty("Tag", tag);
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
    struct Test {
        const char *tag;
        const char *caption;
        qint32 code;
    };
    static const Test tests[] = {
        {"OK", "Đồ&ng ý", 1}, {"CAN", "&Bỏ qua", 2}, {"YES", "&Có", 6}, {"NO ", "&Không", 7},
        {"ABO", "Bỏ &dở", 3}, {"RET", "&Thử lại", 4}, {"ABO", "&Bác bỏ", 5}};
    qint32 code = 0;
    for (const Test &test : tests) {
        if (sTag == QLatin1String(test.tag) || St.contains(QString::fromUtf8(test.caption)))
            code = test.code;
    }
    return code;
}

void MessageBox::SetMessage(const QString &text)
{
    Message->setText(text);
    const QFontMetrics metrics(Message->font());
    const QRect single = metrics.boundingRect(QRect(), Qt::TextExpandTabs, text);
    const bool wraps = single.width() > ToPixels(MessageMaxWidth);
    Message->setWordWrap(wraps);
    const QRect fitted = wraps ? metrics.boundingRect(QRect(0, 0, ToPixels(MessageMaxWidth), 0),
                                                      Qt::TextWordWrap | Qt::TextExpandTabs, text)
                               : single;
    Message->resize(std::max(fitted.width() + 2, ToPixels(MessageMinWidth)),
                    std::max(fitted.height(), ToPixels(IconSize)));
}

void MessageBox::SetTabIndex(QPushButton *button, int index)
{
    m_tabOrder.removeOne(button);
    m_tabOrder.insert(std::clamp(index, 0, int(m_tabOrder.size())), button);
}

void MessageBox::FocusFirstButton()
{
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

void MessageBox::answer(qint32 code)
{
    ReturnValue = QString::number(code);
    accept();
}

// Widens the buttons when the configured font needs more room for a caption.
void MessageBox::fitButtonsToFont()
{
    const QFontMetrics metrics(Cmd1->font());
    int widest = Cmd1->width();
    for (const QString &caption : Captions)
        widest = std::max(widest, metrics.horizontalAdvance(QString(caption).remove(QLatin1Char('&'))) + 16);
    const int height = std::max(Cmd1->height(), metrics.height() + 10);
    for (QPushButton *button : {Cmd1, Cmd2, Cmd3})
        button->resize(widest, height);
    Label5->resize(Label5->width(), std::max(ToPixels(BandHeight), label4->sizeHint().height() + 4));
}

bool MessageBox::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == label4 || watched == Label5)
        return dragByTitleBand(event);
    return QDialog::eventFilter(watched, event);
}

bool MessageBox::dragByTitleBand(QEvent *event)
{
    auto *mouse = static_cast<QMouseEvent *>(event);
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

void MessageBox::resizeEvent(QResizeEvent *event)
{
    QDialog::resizeEvent(event);
    const int w = width();
    const int h = height();
    Line1->setGeometry(0, 0, w, 1);
    Line2->setGeometry(0, 0, 1, h);
    Line3->setGeometry(ToPixels(ToTwips(w) - 15), 0, 1, h);      // 15 twips in from the right
    Line4->setGeometry(0, ToPixels(ToTwips(h) - 20), w, 1);      // 20 twips up from the bottom
    Label5->setGeometry(0, 0, w, Label5->height());
    label4->setGeometry(ToPixels(10), (Label5->height() - label4->sizeHint().height()) / 2,
                        Label5->width() - ToPixels(50), label4->sizeHint().height());
}

} // namespace zolt
