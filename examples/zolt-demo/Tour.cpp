// SPDX-License-Identifier: MIT
#include "Tour.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>

#include <cstdio>

namespace {

constexpr int Patience = 30000;   // milliseconds a step may wait for its window

} // namespace

Tour::Tour(const QString &folder)
    : m_folder(folder)
{
    m_folder.mkpath(QStringLiteral("."));
    m_steps = {
        {QStringLiteral("FrmLogon"), QStringLiteral("01-logon"), [this](QWidget *logon) {
             typeInto(logon, "Txtuser", QStringLiteral("admin"));
             typeInto(logon, "TxtPass", QStringLiteral("sai"));
             clickLater(logon, "CmdOk");
         }},
        {QStringLiteral("MessageBox"), QStringLiteral("02-logon-refused"),
         [this](QWidget *box) { clickLater(box, "Cmd1"); }},
        {QStringLiteral("FrmLogon"), QString(), [this](QWidget *logon) {
             logon->findChild<QLineEdit *>(QStringLiteral("TxtPass"))->clear();
             typeInto(logon, "TxtPass", QStringLiteral("admin"));
         }},
        {QStringLiteral("FrmLogon"), QStringLiteral("03-logon-accepted"),
         [this](QWidget *logon) { clickLater(logon, "CmdOk"); }},
        {QStringLiteral("MainWindow"), QStringLiteral("04-main-window"), [](QWidget *main) {
             QMetaObject::invokeMethod(main->findChild<QAction *>(QStringLiteral("actionQuit")),
                                       &QAction::trigger, Qt::QueuedConnection);
         }},
        {QStringLiteral("MessageBox"), QStringLiteral("05-message-box"),
         [this](QWidget *box) { clickLater(box, "Cmd1"); }},
    };
    connect(&m_timer, &QTimer::timeout, this, &Tour::poll);
}

void Tour::start()
{
    m_clock.start();
    m_timer.start(50);
}

void Tour::poll()
{
    if (finished())
        return;
    const Step &step = m_steps.at(m_next);
    QWidget *window = QApplication::activeWindow();
    if (!window || window->objectName() != step.window) {
        if (m_clock.elapsed() > Patience) {
            std::fprintf(stderr, "tour: no window %s appeared\n", qPrintable(step.window));
            QApplication::exit(1);
        }
        return;
    }
    ++m_next;
    m_clock.restart();
    if (!step.picture.isEmpty()) {
        const QString file = m_folder.filePath(step.picture + QStringLiteral(".png"));
        window->grab().save(file);
        std::printf("tour: %s\n", qPrintable(file));
    }
    step.act(window);
}

// Types the text key by key, as a user would.
void Tour::typeInto(QWidget *window, const char *field, const QString &text)
{
    auto *edit = window->findChild<QLineEdit *>(QLatin1String(field));
    edit->setFocus();
    for (const QChar c : text) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, QString(c));
        QKeyEvent release(QEvent::KeyRelease, Qt::Key_unknown, Qt::NoModifier, QString(c));
        QApplication::sendEvent(edit, &press);
        QApplication::sendEvent(edit, &release);
    }
}

// Clicks once the current step has returned: the click may open a modal dialog.
void Tour::clickLater(QWidget *window, const char *button)
{
    QMetaObject::invokeMethod(window->findChild<QPushButton *>(QLatin1String(button)),
                              &QPushButton::click, Qt::QueuedConnection);
}
