// SPDX-License-Identifier: MIT
#include "widgets/platform/KeyDelivery.h"

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
    case VkShift: return Qt::ShiftModifier;
    case VkControl: return Qt::ControlModifier;
    case VkMenu: return Qt::AltModifier;
    default: return Qt::NoModifier;
    }
}

struct KeyPair {
    quint8 vk;
    int qt;
};

// Named keys; digits, letters, keypad digits and function keys follow below.
constexpr KeyPair NamedKeys[] = {
    {VkBack, Qt::Key_Backspace}, {VkTab, Qt::Key_Tab}, {VkReturn, Qt::Key_Return},
    {VkShift, Qt::Key_Shift}, {VkControl, Qt::Key_Control}, {VkMenu, Qt::Key_Alt},
    {VkEscape, Qt::Key_Escape}, {32, Qt::Key_Space},
    {33, Qt::Key_PageUp}, {34, Qt::Key_PageDown}, {35, Qt::Key_End}, {36, Qt::Key_Home},
    {37, Qt::Key_Left}, {38, Qt::Key_Up}, {39, Qt::Key_Right}, {40, Qt::Key_Down},
    {45, Qt::Key_Insert}, {VkDelete, Qt::Key_Delete}, {106, Qt::Key_Asterisk}, {107, Qt::Key_Plus},
    {109, Qt::Key_Minus}, {110, Qt::Key_Period}, {111, Qt::Key_Slash},
};

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
    for (const KeyPair &pair : NamedKeys) {
        if (pair.vk == vk)
            return pair.qt;
    }
    return Qt::Key_unknown;
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
    case VkBack: return QStringLiteral("\b");
    case VkTab: return QStringLiteral("\t");
    case VkReturn: return QStringLiteral("\r");
    case VkEscape: return QStringLiteral("\x1b");
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

qint32 VirtualKeyOf(int key)
{
    if (key >= Qt::Key_0 && key <= Qt::Key_9)
        return '0' + (key - Qt::Key_0);
    if (key >= Qt::Key_A && key <= Qt::Key_Z)
        return 'A' + (key - Qt::Key_A);
    if (key >= Qt::Key_F1 && key <= Qt::Key_F12)
        return 112 + (key - Qt::Key_F1);
    if (key == Qt::Key_Enter)
        return VkReturn;
    if (key == Qt::Key_Backtab)
        return VkTab;
    for (const KeyPair &pair : NamedKeys) {
        if (pair.qt == key)
            return pair.vk;
    }
    return 0;
}

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
    const bool up = keyEvent & KeyStrokeUp;
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
