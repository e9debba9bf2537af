// SPDX-License-Identifier: MIT
#include "DialogSupport.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace zolt::test {

QTimer *whenModalShows(std::function<void(QWidget *)> action, int timeoutMs, const char *name)
{
    auto *timer = new QTimer(qApp);
    timer->setObjectName(QStringLiteral("whenModalShows"));   // a test's waits end with it (TestMain)
    auto waited = std::make_shared<QElapsedTimer>();
    waited->start();
    QObject::connect(timer, &QTimer::timeout, timer, [timer, waited, action, timeoutMs, name] {
        QWidget *modal = QApplication::activeModalWidget();
        if (modal && (!modal->isActiveWindow() || (name && modal->objectName() != QLatin1String(name))))
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
    return timer;
}

QTimer *answerMessages(QStringList *shown, QList<Qt::Key> keys)
{
    if (keys.isEmpty())
        return nullptr;
    return whenModalShows([shown, keys](QWidget *box) {
        *shown << child<QLabel>(box, "label4")->text() + u'|' + child<QLabel>(box, "Message")->text();
        const QPointer<QWidget> answered = box;
        QTest::keyClick(box->focusWidget(), keys.first());
        EXPECT_TRUE(QTest::qWaitFor([&] { return !answered || !answered->isVisible(); }));   // a letter clicks with a delay
        answerMessages(shown, keys.mid(1));
    }, 5000, "MessageBox");
}

QStringList toldDuring(const std::function<void()> &act)
{
    QStringList shown;
    const QPointer<QTimer> waiting = answerMessages(&shown);
    act();
    delete waiting;
    return shown;
}

void clickRow(QAbstractItemView *list, int row, Qt::KeyboardModifiers modifiers)
{
    QTest::mouseClick(list->viewport(), Qt::LeftButton, modifiers, list->visualRect(list->model()->index(row, 0)).center());
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

void click(const QWidget *form, const char *button)
{
    QTest::mouseClick(child<QPushButton>(form, button), Qt::LeftButton);
}

void pressMnemonic(const QWidget *form, const char *button, Qt::Key letter)
{
    bool clicked = false;
    const QMetaObject::Connection watch =
        QObject::connect(child<QPushButton>(form, button), &QPushButton::clicked, [&clicked] { clicked = true; });
    QTest::keyClick(QApplication::focusWidget(), letter, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&clicked] { return clicked; }, 2000)) << button;
    QObject::disconnect(watch);
}

void retype(QLineEdit *edit, const QString &text)
{
    edit->setFocus();
    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_Backspace);
    typeText(edit, text);
}

void showActive(QWidget *window)
{
    window->show();
    window->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window));
}

} // namespace zolt::test
