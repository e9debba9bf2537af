// SPDX-License-Identifier: MIT
#pragma once

// What every dialog of the library shares: the set-up it runs when it loads,
// the saving of a setting with its message on failure, and key presses.

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

// Stores the value in Options (see SaveOption). 0 on success; on failure the
// user is told and the error number returned.
qint32 WriteOption(const QString &section, const QString &key, const QString &value,
                   const QString &description, qint32 isNew);

// Gives every child widget the configured font name and, when greater than 8,
// size, and centres the dialog now and again whenever it is shown, at the size
// its layout has given it by then (see CentreOnScreen).
void ApplyFormSettings(QWidget *form);

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
