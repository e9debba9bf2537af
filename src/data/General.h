#pragma once

// Small conversion helpers the dialogs share, and the key press they use to
// turn Enter into Tab.

#include <QVariant>

namespace zolt {

// The value rounded half to even to a 32-bit whole number when it is numeric,
// else 0; error 6 beyond the 32-bit range.
double NumVal(const QVariant &value);

// Presses Key with the modifier of Shift (1 Shift, 2 Ctrl, 3 Alt), like a user would.
void PressKey(qint32 Key, qint32 Shift);

} // namespace zolt
