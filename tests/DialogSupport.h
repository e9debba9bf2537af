// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <QWidget>

#include <gtest/gtest.h>

#include <functional>

class QAbstractItemView;
class QLineEdit;

namespace zolt::test {

// Runs action on the next modal dialog as soon as it shows and has the
// keyboard (for dialogs that block in exec()), the next one of that
// objectName when name is given; fails after timeoutMs. Deleting the timer
// it returns gives up waiting.
QTimer *whenModalShows(std::function<void(QWidget *)> action, int timeoutMs = 5000, const char *name = nullptr);

// Answers the next message boxes of the library, one key each ("C" for Có,
// Enter for the focused button); *shown receives each one's "title|message".
QTimer *answerMessages(QStringList *shown, QList<Qt::Key> keys = {Qt::Key_Return});

// The messages of the library that the action brought, each answered with
// Enter as answerMessages does.
QStringList toldDuring(const std::function<void()> &act);

// Clicks the list's row with the mouse (modifiers held).
void clickRow(QAbstractItemView *list, int row, Qt::KeyboardModifiers modifiers = {});

// Types text into the widget key by key, Vietnamese letters included.
void typeText(QWidget *widget, const QString &text);

// Shows the window and waits until it has the keyboard.
void showActive(QWidget *window);

// Clicks the form's button of that objectName with the mouse.
void click(const QWidget *form, const char *button);

// Presses Alt and the letter in the focused control, as a clerk presses a
// button's mnemonic, and waits until that button has clicked (a mnemonic
// clicks once its press has shown); fails the test when it does not.
void pressMnemonic(const QWidget *form, const char *button, Qt::Key letter);

// Replaces the box's text as a user does: select all, erase, type.
void retype(QLineEdit *edit, const QString &text);

// A dialog's control by its objectName; fails the test when it is missing.
template <typename T = QWidget>
T *child(const QWidget *form, const char *name)
{
    T *found = form->findChild<T *>(QLatin1String(name));
    EXPECT_NE(found, nullptr) << name;
    return found;
}

} // namespace zolt::test
