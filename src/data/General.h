#pragma once

// The settings store in the table Options, the set-up every dialog runs when
// it loads, and small conversion and list helpers the dialogs share.

#include <QSqlDatabase>
#include <QString>
#include <QVariant>

class QComboBox;
class QListWidget;
class QWidget;

namespace zolt {

// The font name last applied to a dialog; every dialog load reads it again
// from the options.
extern QString DefaultFontName;

// The stored value of (section, key), or defaultValue when there is no row,
// the value is Null or empty, or the read fails.
QString ReadOption(const QString &section, const QString &key, const QString &defaultValue);

// Stores the value by update-or-insert (insert only, with isNew set); the
// description is written when not empty. 0 on success; on failure the user
// is told and the error number returned.
qint32 WriteOption(const QString &section, const QString &key, const QString &value,
                   const QString &description, qint32 isNew);

// Centres the dialog on its screen and gives every child widget the configured
// font name and, when greater than 8, size.
void ApplyFormSettings(QWidget *form);

// Places the window in the middle of its screen.
void CentreOnScreen(QWidget *form);

// The largest value of the field in the table as a whole number; 0 when the
// table is empty or the read fails.
qint32 GetMaxValue(const QString &table, const QString &field, const QSqlDatabase &connection);

// Index of the first row whose whole-number item data equals value; -1 when none.
int FindItemData(const QListWidget *list, qint32 value);
int FindItemData(const QComboBox *list, qint32 value);

// Item data of the current row; 0 when no row is current.
qint32 SelectedItemData(const QListWidget *list);
qint32 SelectedItemData(const QComboBox *list);

// "" for a database Null, else the value as text.
QString NullToStr(const QVariant &value);

// The value as a whole number when numeric (half to even), else 0.
qint32 LngVal(const QVariant &value);

// The value rounded half to even to a 32-bit whole number when it is numeric,
// else 0; error 6 beyond the 32-bit range.
double NumVal(const QVariant &value);

// Presses Key with the modifier of Shift (1 Shift, 2 Ctrl, 3 Alt), like a user would.
void PressKey(qint32 Key, qint32 Shift);

} // namespace zolt
