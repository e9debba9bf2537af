// SPDX-License-Identifier: MIT
#pragma once

// What a screen reader reads of the library's controls where Qt's own
// interfaces read the wrong thing: combo boxes that keep their field's name
// whatever they show, the column heading a control sits under, and message
// boxes announced as alerts.

class QComboBox;
class QDialog;
class QLabel;
class QWidget;

namespace zolt {

// The combo box is named as a field is, whatever item it shows (Qt names a
// combo box on Linux by its current text once it has one): by its own
// accessible name, else by its label (a buddy), else by the control it is
// the keyboard of (a wrapper whose focus proxy it is). Its value is the text
// shown.
void KeepAccessibleName(QComboBox *combo);

// The heading is told as the label of the control, or of the combo box that
// the control is a wrapper of, beside any buddy label.
void SetAccessibleHeading(QWidget *control, QLabel *heading);

// The dialog is announced as an alert: its name is its window title (the
// caption), its description its accessible description (the message).
void AnnounceAsAlert(QDialog *dialog);

} // namespace zolt
