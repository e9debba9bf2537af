// SPDX-License-Identifier: MIT
#include "widgets/desktop/KeyPreview.h"

#include "widgets/desktop/General.h"
#include "widgets/platform/KeyDelivery.h"

#include <QKeyEvent>
#include <QPushButton>
#include <QTimer>
#include <QWidget>

namespace zolt {

KeyPreview::KeyPreview(QWidget *form, Handler handler)
    : QObject(form)
    , m_handler(std::move(handler))
{
    form->installEventFilter(this);
    for (QWidget *control : form->findChildren<QWidget *>())
        control->installEventFilter(this);
}

bool KeyPreview::eventFilter(QObject *watched, QEvent *event)
{
    // A key reaches the focused control first and may then travel up to the
    // form; the form sees it once, on its first stop.
    auto *form = static_cast<QWidget *>(parent());
    QWidget *first = form->focusWidget() ? form->focusWidget() : form;
    if (event->type() == QEvent::KeyPress && watched == first) {
        const QString text = static_cast<QKeyEvent *>(event)->text();
        if (!text.isEmpty()) {
            int keyAscii = text.at(0).unicode();
            m_handler(keyAscii);
            if (keyAscii == 0)
                return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

void EnterMovesToNextControl(QWidget *form)
{
    new KeyPreview(form, [form](int &keyAscii) {
        if (keyAscii != VkReturn)
            return;
        // A dialog makes its first button the default, so that Enter anywhere
        // would press it; here Enter moves on, and only a focused button
        // answers it.
        for (QPushButton *button : form->findChildren<QPushButton *>()) {
            if (!button->hasFocus())
                button->setDefault(false);
        }
        QTimer::singleShot(0, [] { PressKey(VkTab, 0); });
    });
}

} // namespace zolt
