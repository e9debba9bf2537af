// SPDX-License-Identifier: MIT
#pragma once

// Synthetic key strokes. A stroke is a virtual-key code (the classic numbers:
// 9 Tab, 13 Enter, 16 Shift, 17 Ctrl, 18 Alt, 65 "A" ...) going down (event 0)
// or up (event 2). It passes through one replaceable sink; the default sink
// delivers it to the focused window as the platform delivers a real key,
// shortcuts and mnemonics included.

#include <QtGlobal>

#include <functional>

namespace zolt {

// The virtual-key codes the library names.
enum VirtualKey : qint32 {
    VkBack = 8,
    VkTab = 9,
    VkReturn = 13,
    VkShift = 16,
    VkControl = 17,
    VkMenu = 18,   // Alt
    VkEscape = 27,
    VkDelete = 46,
};

// Key events of a stroke.
enum KeyStroke : qint32 { KeyStrokeDown = 0, KeyStrokeUp = 2 };

using KeySink = std::function<void(qint32 key, qint32 keyEvent)>;

// Installs sink (the platform delivery when empty) and returns the one before.
KeySink SetKeySink(KeySink sink);

// Passes one stroke to the current sink.
void SendKeyStroke(qint32 key, qint32 keyEvent);

// The platform delivery: keeps which modifiers are down, as the keyboard
// does, and hands the key to the focused window. Keys without a meaning
// (code 0 among them) change nothing.
void DeliverKeyStroke(qint32 key, qint32 keyEvent);

// The virtual-key code of a Qt key; 0 for keys without one.
qint32 VirtualKeyOf(int key);

// Lets go of every modifier the delivery holds down.
void ReleaseModifiers();

} // namespace zolt
