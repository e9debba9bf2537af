// SPDX-License-Identifier: MIT
#pragma once

#include <QDir>
#include <QElapsedTimer>
#include <QPixmap>
#include <QList>
#include <QObject>
#include <QTimer>

#include <functional>

class QWidget;

// A scripted walk through the demo for machines without a display: each step
// waits for a window, takes its picture and acts on it as a user would.
class Tour : public QObject {
    Q_OBJECT

public:
    explicit Tour(const QString &folder);
    void start();
    bool finished() const { return m_next == m_steps.size(); }

private:
    struct Step {
        QString window;   // objectName of the window the step waits for
        QString picture;  // file name of its picture, without ".png"
        std::function<void(QWidget *)> act;
    };
    void poll();
    static QWidget *current();
    static void typeInto(QWidget *window, const char *field, const QString &text);
    static void clickLater(QWidget *window, const char *button);
    static void triggerLater(QWidget *window, const char *action);
    static void choose(QWidget *window, const char *combo, int index);
    static void press(QWidget *window, const char *field, Qt::Key key);
    static void checkMnemonics(QWidget *window);
    static void checkGoodsRead(QWidget *window);
    static void openMenu(QWidget *window, const char *menu, int item);
    static void toggle(QWidget *window, const char *action);
    static QPixmap picture(QWidget *window);

    QDir m_folder;
    QList<Step> m_steps;
    int m_next = 0;
    QTimer m_timer;
    QElapsedTimer m_clock;
};
