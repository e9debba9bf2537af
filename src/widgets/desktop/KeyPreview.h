// SPDX-License-Identifier: MIT
#pragma once

// Lets a dialog see each typed character before its controls do, as a form
// with key preview: the handler gets the character code and may set it to 0
// to swallow the key.

#include <QObject>

#include <functional>

class QWidget;

namespace zolt {

class KeyPreview : public QObject {
public:
    using Handler = std::function<void(int &keyAscii)>;

    // Watches the form and every control it holds now.
    KeyPreview(QWidget *form, Handler handler);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    Handler m_handler;
};

// The key preview of the library's data-entry dialogs: Enter moves on like
// Tab, once the Enter itself has been handled, as a queued key stroke would.
void EnterMovesToNextControl(QWidget *form);

} // namespace zolt
