// SPDX-License-Identifier: MIT
#pragma once

// What every dialog of the library shares: the set-up it runs when it loads
// and the saving of a setting with its message on failure (both public, in
// <zolt/Options.h>), and key presses.

#include <zolt/Options.h>

#include <QString>
#include <QWidget>

#include <initializer_list>

class QHBoxLayout;
class QLineEdit;
class QPushButton;

namespace zolt {

// The font name last applied to a dialog; every dialog load reads it again
// from the options.
extern QString DefaultFontName;

// Places the window in the middle of its owner's window, or of its screen when
// it has no owner on show; never beyond the screen's edges.
void CentreOnScreen(QWidget *form);

// The control, given the objectName by which its dialog's code and tests know it.
template <typename Control>
Control *Named(Control *control, const char *name)
{
    control->setObjectName(QLatin1String(name));
    return control;
}

// The row of a dialog's buttons: at its right end, each at least as wide as
// the others of the library's dialogs.
QHBoxLayout *ButtonRow(std::initializer_list<QPushButton *> buttons);

// Makes the box a password box that shows "*" for each character.
void SetPasswordChar(QLineEdit *box);

// Presses Key with the modifier of Shift (1 Shift, 2 Ctrl, 3 Alt), like a user would.
void PressKey(qint32 Key, qint32 Shift);

} // namespace zolt
