#include "data/KeyDelivery.h"

#include <QGuiApplication>
#include <QWindow>
#include <qpa/qwindowsysteminterface.h>

namespace zolt {

namespace {

KeySink &currentSink()
{
    static KeySink sink = DeliverKeyStroke;
    return sink;
}

Qt::KeyboardModifiers &heldModifiers()
{
    static Qt::KeyboardModifiers held;
    return held;
}

Qt::KeyboardModifier modifierOf(quint8 vk)
{
    switch (vk) {
    case 16: return Qt::ShiftModifier;
    case 17: return Qt::ControlModifier;
    case 18: return Qt::AltModifier;
    default: return Qt::NoModifier;
    }
}

int qtKey(quint8 vk)
{
    if (vk >= '0' && vk <= '9')
        return Qt::Key_0 + (vk - '0');
    if (vk >= 'A' && vk <= 'Z')
        return Qt::Key_A + (vk - 'A');
    if (vk >= 96 && vk <= 105)          // keypad digits
        return Qt::Key_0 + (vk - 96);
    if (vk >= 112 && vk <= 123)
        return Qt::Key_F1 + (vk - 112);
    switch (vk) {
    case 8: return Qt::Key_Backspace;
    case 9: return Qt::Key_Tab;
    case 13: return Qt::Key_Return;
    case 16: return Qt::Key_Shift;
    case 17: return Qt::Key_Control;
    case 18: return Qt::Key_Alt;
    case 27: return Qt::Key_Escape;
    case 32: return Qt::Key_Space;
    case 33: return Qt::Key_PageUp;
    case 34: return Qt::Key_PageDown;
    case 35: return Qt::Key_End;
    case 36: return Qt::Key_Home;
    case 37: return Qt::Key_Left;
    case 38: return Qt::Key_Up;
    case 39: return Qt::Key_Right;
    case 40: return Qt::Key_Down;
    case 45: return Qt::Key_Insert;
    case 46: return Qt::Key_Delete;
    case 106: return Qt::Key_Asterisk;
    case 107: return Qt::Key_Plus;
    case 109: return Qt::Key_Minus;
    case 110: return Qt::Key_Period;
    case 111: return Qt::Key_Slash;
    default: return Qt::Key_unknown;
    }
}

// The text a key types, as a plain keyboard would, none under Ctrl or Alt.
QString typedText(quint8 vk, Qt::KeyboardModifiers modifiers)
{
    if (modifiers & (Qt::ControlModifier | Qt::AltModifier))
        return QString();
    if (vk >= 'A' && vk <= 'Z') {
        const QChar letter(vk);
        return (modifiers & Qt::ShiftModifier) ? QString(letter) : QString(letter.toLower());
    }
    if (vk >= '0' && vk <= '9')
        return QString(QChar(vk));
    if (vk >= 96 && vk <= 105)
        return QString(QChar('0' + vk - 96));
    switch (vk) {
    case 8: return QStringLiteral("\b");
    case 9: return QStringLiteral("\t");
    case 13: return QStringLiteral("\r");
    case 27: return QStringLiteral("\x1b");
    case 32: return QStringLiteral(" ");
    case 106: return QStringLiteral("*");
    case 107: return QStringLiteral("+");
    case 109: return QStringLiteral("-");
    case 110: return QStringLiteral(".");
    case 111: return QStringLiteral("/");
    default: return QString();
    }
}

} // namespace

KeySink SetKeySink(KeySink sink)
{
    KeySink previous = currentSink();
    currentSink() = sink ? std::move(sink) : KeySink(DeliverKeyStroke);
    return previous;
}

void SendKeyStroke(qint32 key, qint32 keyEvent)
{
    currentSink()(key, keyEvent);
}

void DeliverKeyStroke(qint32 key, qint32 keyEvent)
{
    const quint8 vk = quint8(key & 0xFF);
    const bool up = keyEvent & 2;
    const Qt::KeyboardModifier modifier = modifierOf(vk);
    heldModifiers().setFlag(modifier, !up);

    int k = qtKey(vk);
    QWindow *window = qGuiApp ? QGuiApplication::focusWindow() : nullptr;
    if (k == Qt::Key_unknown || !window)
        return;
    const Qt::KeyboardModifiers modifiers = heldModifiers();
    if (k == Qt::Key_Tab && (modifiers & Qt::ShiftModifier))
        k = Qt::Key_Backtab;     // Shift+Tab arrives as Backtab, as from a real keyboard
    QWindowSystemInterface::handleKeyEvent<QWindowSystemInterface::SynchronousDelivery>(
        window, up ? QEvent::KeyRelease : QEvent::KeyPress, k, modifiers,
        typedText(vk, modifiers));
}

void ReleaseModifiers()
{
    heldModifiers() = Qt::NoModifier;
}

} // namespace zolt
