// SPDX-License-Identifier: MIT
#include "DialogSupport.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTest>
#include <QTimer>

namespace zolt::test {

void whenModalShows(std::function<void(QWidget *)> action, int timeoutMs)
{
    auto *timer = new QTimer(qApp);
    auto waited = std::make_shared<QElapsedTimer>();
    waited->start();
    QObject::connect(timer, &QTimer::timeout, timer, [timer, waited, action, timeoutMs] {
        QWidget *modal = QApplication::activeModalWidget();
        if (modal && !modal->isActiveWindow())
            modal = nullptr;
        if (!modal && waited->elapsed() < timeoutMs)
            return;
        timer->stop();
        timer->deleteLater();
        if (modal)
            action(modal);
        else
            ADD_FAILURE() << "no modal dialog showed";
    });
    timer->start(10);
}

void typeText(QWidget *widget, const QString &text)
{
    for (const QChar c : text) {
        const Qt::Key key = c.isLetterOrNumber() && c.unicode() < 128
                                ? Qt::Key(c.toUpper().unicode())
                                : (c == QLatin1Char(' ') ? Qt::Key_Space : Qt::Key_unknown);
        QTest::sendKeyEvent(QTest::Click, widget, key, QString(c), Qt::NoModifier);
    }
}

void showActive(QWidget *window)
{
    window->show();
    window->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window));
}

} // namespace zolt::test
