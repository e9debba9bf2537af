// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QWidget>

#include <gtest/gtest.h>

#include <functional>

namespace zolt::test {

// Runs action on the next modal dialog as soon as it shows and has the
// keyboard (for dialogs that block in exec()); fails after timeoutMs.
void whenModalShows(std::function<void(QWidget *)> action, int timeoutMs = 5000);

// Types text into the widget key by key, Vietnamese letters included.
void typeText(QWidget *widget, const QString &text);

// Shows the window and waits until it has the keyboard.
void showActive(QWidget *window);

// A dialog's control by its objectName; fails the test when it is missing.
template <typename T = QWidget>
T *child(const QWidget *form, const char *name)
{
    T *found = form->findChild<T *>(QLatin1String(name));
    EXPECT_NE(found, nullptr) << name;
    return found;
}

} // namespace zolt::test
