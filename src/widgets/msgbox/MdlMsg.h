// SPDX-License-Identifier: MIT
#pragma once

// The library's message box: shows Message with one of the six button sets
// and an icon, and returns the answer code as text ("1" OK, "6" Yes, "0" for
// every second or third button; see MessageBox).

#include <QString>

class QWidget;

namespace zolt {

// Title "" becomes the application's display name and is written back. The
// box is transient for parent when one is given.
QString ShowMgBox(const QString &Message, qint32 Button, QString &Title, qint32 icon = 0,
                  bool RightToLeft = false, QWidget *parent = nullptr);
QString ShowMgBox(const QString &Message, qint32 Button, const QString &Title, qint32 icon = 0,
                  bool RightToLeft = false, QWidget *parent = nullptr);
QString ShowMgBox(const QString &Message, qint32 Button = 0);

// The same box; the answer code of the button pressed, every button told
// apart (0 when the box was closed otherwise).
qint32 ShowMgBoxAnswer(const QString &Message, qint32 Button, const QString &Title, qint32 icon, QWidget *parent);

} // namespace zolt
