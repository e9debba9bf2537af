// SPDX-License-Identifier: MIT
// One desk's working day, through the library's own dialogs, for the test
// that runs several desks at once on one database:
//   desk_day QPSQL SERVER_FOLDER SCHEMA DESK DESKS ROUNDS MARKERS [LOGIN@DATABASE]
//   desk_day QMYSQL SERVER_FOLDER DATABASE DESK DESKS ROUNDS MARKERS
//   desk_day QSQLITE FILE - DESK DESKS ROUNDS MARKERS
// With LOGIN@DATABASE the desk connects to that database as that login of a
// locked server's desk role, and logs on as the administrator "admin" first.
// Each round: add a user every desk adds ("nv<round>") and one of its own,
// delete its own user of the round before, append its mark to the shared
// user's description and to the shared group's name, set one right on the
// shared menu bar and one on a bar shared with fewer desks, and write a
// setting every desk writes. Every action is tried again until it is done or
// the clerk was told why it cannot be; message boxes are answered as a clerk
// would (Có to a question, else the default button).
//
// Prints one line per outcome: "added NAME", "deleted NAME", "edit MARK",
// "renamed MARK", "right BAR BIT", "option KEY", "told TEXT", and two that
// must never appear: "silent ACTION" (given up without a word) and "late
// ACTION" (failed twice after the server was back). Halfway through it
// leaves MARKERS/half.<desk> and waits for MARKERS/restarting; an action
// that starts after MARKERS/up exists counts towards "late".
#include "core/database/Database.h"
#include "core/database/Options.h"
#include "core/logon/LockedServer.h"
#include "servers/TestServer.h"
#include "widgets/logon/FmGrp.h"
#include "widgets/logon/FrmInput.h"
#include "widgets/logon/FrmMenu.h"
#include "widgets/logon/FrPms.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QThread>
#include <QTimer>
#include <QTreeView>

#include <cstdio>
#include <functional>

using namespace zolt;

namespace {

QStringList told;   // the messages of the action under way

void print(const QString &line)
{
    std::printf("%s\n", qPrintable(line));
    std::fflush(stdout);
}

// Answers every message box as it shows, keeping its text.
void answerMessagesAsTheyShow()
{
    auto *timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, [] {
        QWidget *box = QApplication::activeModalWidget();
        if (!box)
            return;
        if (auto *plain = qobject_cast<QMessageBox *>(box)) {
            told << plain->text();
            return plain->accept();
        }
        if (box->objectName() != QLatin1String("MessageBox"))
            return;
        told << box->findChild<QLabel *>(QStringLiteral("Message"))->text();
        for (QPushButton *button : box->findChildren<QPushButton *>()) {
            if (button->isVisible() && (button->text() == QStringLiteral("&Có") || button->isDefault()))
                return button->click();
        }
        box->findChildren<QPushButton *>().first()->click();
    });
    timer->start(5);
}

QPushButton *button(QWidget *form, const char *name)
{
    return form->findChild<QPushButton *>(QLatin1String(name));
}

QLineEdit *box(QWidget *form, const char *name)
{
    return form->findChild<QLineEdit *>(QLatin1String(name));
}

// A clerk's next click comes in a later turn of the event loop.
void nextClerkAction()
{
    QCoreApplication::processEvents();
    told.clear();
}

bool serverTrouble(const QStringList &messages)
{
    return messages.join(u'\n').contains(QStringLiteral("máy chủ"))
        || messages.join(u'\n').contains(QStringLiteral("Không thể"));
}

struct Desk {
    int number, desks;
    QString markers;
    int lateFailures = 0;

    // Runs attempt until it reports done; gives up after the clerk was told
    // something other than trouble with the server (already there, changed
    // elsewhere), or after a minute of trouble.
    void act(const QString &action, const std::function<bool()> &attempt)
    {
        for (int tries = 0; tries < 600; ++tries) {
            const bool afterRestart = QFile::exists(markers + QStringLiteral("/up"));
            if (!afterRestart)
                lateFailures = 0;   // the server is going down again
            nextClerkAction();
            if (attempt())
                return;
            for (const QString &message : told)
                print(QStringLiteral("told ") + QString(message).replace(u'\n', u' '));
            if (told.isEmpty())
                return print(QStringLiteral("silent ") + action);
            if (!serverTrouble(told))
                return;
            if (afterRestart && ++lateFailures > 1)
                print(QStringLiteral("late ") + action);
            QThread::msleep(100);
            nextClerkAction();
        }
        print(QStringLiteral("silent ") + action);
    }

    void addUser(const QString &name)
    {
        act(QStringLiteral("add ") + name, [&] {
            FrmInput editor;
            editor.PreLoad();
            box(&editor, "Txtuser")->setText(name);
            box(&editor, "TxtDes")->setText(QStringLiteral("Bàn %1").arg(number));
            box(&editor, "TxtPass")->setText(QStringLiteral("mk"));
            box(&editor, "txtConfirm")->setText(QStringLiteral("mk"));
            editor.findChild<QComboBox *>(QStringLiteral("TxtIdGroup"))->setCurrentIndex(0);
            button(&editor, "CMDOK")->click();
            if (editor.result() == QDialog::Accepted)
                print(QStringLiteral("added ") + name);
            return editor.result() == QDialog::Accepted;
        });
    }

    void deleteUser(const QString &name)
    {
        act(QStringLiteral("delete ") + name, [&] {
            FrmMenu users;
            auto *list = users.findChild<QTreeView *>(QStringLiteral("Lv"));
            const QModelIndexList rows = list->model()->match(list->model()->index(0, 0), Qt::DisplayRole, name, 1,
                                                              Qt::MatchFixedString);
            if (rows.isEmpty())
                return !told.isEmpty() ? false : (print(QStringLiteral("deleted ") + name), true);
            list->setCurrentIndex(rows.first());
            button(&users, "CmdDel")->click();
            return list->model()->match(list->model()->index(0, 0), Qt::DisplayRole, name, 1, Qt::MatchFixedString).isEmpty()
                && (print(QStringLiteral("deleted ") + name), true);
        });
    }

    // Appends the mark to the shared user's description, as read in the editor.
    void editSharedUser(const QString &mark)
    {
        act(QStringLiteral("edit ") + mark, [&] {
            FrmInput editor;
            editor.EditMode = true;
            editor.UserName = QStringLiteral("chung");
            editor.PreLoad();
            for (int conflicts = 0; conflicts < 50 && editor.result() != QDialog::Accepted; ++conflicts) {
                if (conflicts > 0)
                    nextClerkAction();   // what opening the dialog told still counts for the first try
                QLineEdit *description = box(&editor, "TxtDes");
                description->setText(description->text() + u' ' + mark);
                button(&editor, "CMDOK")->click();
                if (!told.join(u'\n').contains(QStringLiteral("hãy sửa lại")))
                    break;   // done, or trouble with the server
            }
            if (editor.result() == QDialog::Accepted)
                print(QStringLiteral("edit ") + mark);
            return editor.result() == QDialog::Accepted;
        });
    }

    void renameSharedGroup(qint32 code, const QString &mark)
    {
        act(QStringLiteral("rename ") + mark, [&] {
            FmGrp groups;
            auto *list = groups.findChild<QAbstractItemView *>(QStringLiteral("Lv1"));
            for (int conflicts = 0; conflicts < 50; ++conflicts) {
                if (conflicts > 0)
                    nextClerkAction();   // what opening the dialog told still counts for the first try
                for (int row = 0; row < list->model()->rowCount(); ++row) {
                    if (list->model()->index(row, 0).data(Qt::UserRole).toInt() == code)
                        list->setCurrentIndex(list->model()->index(row, 0));
                }
                QLineEdit *name = box(&groups, "TxtName");
                if (name->text().isEmpty())
                    return false;   // not read: the server is away
                name->setText(name->text() + u' ' + mark);
                button(&groups, "CmdWrite")->click();
                if (told.isEmpty())
                    return print(QStringLiteral("renamed ") + mark), true;
                if (!told.join(u'\n').contains(QStringLiteral("máy khác")))
                    return false;
            }
            return false;
        });
    }

    void setRight(qint32 group, int bar, int bit)
    {
        act(QStringLiteral("right %1 %2").arg(bar).arg(bit), [&] {
            FrPms rights(group);
            auto *bars = rights.findChild<QListWidget *>(QStringLiteral("LstMenuBar"));
            auto *items = rights.findChild<QListWidget *>(QStringLiteral("LstSubMenu"));
            if (!told.isEmpty())
                return false;   // the server is away
            for (int conflicts = 0; conflicts < 50 && rights.result() != QDialog::Accepted; ++conflicts) {
                if (conflicts > 0)
                    nextClerkAction();   // what opening the dialog told still counts for the first try
                bars->setCurrentRow(bar);
                if (items->count() <= bit)
                    return false;   // the items were not read: the server is away
                items->item(bit)->setSelected(true);
                button(&rights, "CmdOk")->click();
                if (!told.join(u'\n').contains(QStringLiteral("máy khác")))
                    break;
            }
            if (rights.result() == QDialog::Accepted)
                print(QStringLiteral("right %1 %2").arg(bar).arg(bit));
            return rights.result() == QDialog::Accepted;
        });
    }

    void writeSetting(const QString &key)
    {
        act(QStringLiteral("option ") + key, [&] {
            const bool written = WriteOption(QStringLiteral("Kho"), key, QStringLiteral("bàn %1").arg(number), QString(), 0) == 0;
            if (written)
                print(QStringLiteral("option ") + key);
            return written;
        });
    }

    void waitForTheRestart()
    {
        QFile(markers + QStringLiteral("/half.%1").arg(number)).open(QIODevice::WriteOnly);
        while (!QFile::exists(markers + QStringLiteral("/restarting")))
            QThread::msleep(20);
    }

    void round(int r, bool restartAfter)
    {
        const QString mark = QStringLiteral("%1.%2").arg(number).arg(r);
        addUser(QStringLiteral("nv%1").arg(r));
        addUser(QStringLiteral("b") + mark);
        if (r > 0)
            deleteUser(QStringLiteral("b%1.%2").arg(number).arg(r - 1));
        editSharedUser(mark);
        renameSharedGroup(2, mark);
        setRight(2, 0, (number + desks * r) % 31);
        setRight(2, 1 + number % 4, (number / 4 + r) % 31);
        writeSetting(QStringLiteral("k%1").arg(r));
        if (restartAfter)
            waitForTheRestart();
    }
};

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() != 8 && args.size() != 9)
        return 2;
    const bool locked = args.size() == 9;
    QSqlDatabase db;
    if (args[1] == QLatin1String("QPSQL")) {
        db = test::addServerDatabase(args[1], QStringLiteral("desk"), args[2]);
        if (locked) {
            db.setUserName(args[8].section(u'@', 0, 0));
            db.setDatabaseName(args[8].section(u'@', 1));
        }
        // In the connect options, so that the schema stays when the connection is opened again.
        db.setConnectOptions(QStringLiteral("options=-csearch_path=%1,public").arg(args[3]));
    } else if (args[1] == QLatin1String("QMYSQL")) {
        db = test::addServerDatabase(args[1], QStringLiteral("desk"), args[2]);
        db.setDatabaseName(args[3]);
    } else {
        db = QSqlDatabase::addDatabase(args[1], QStringLiteral("desk"));
        db.setDatabaseName(args[2]);
    }
    if (!db.open())
        return 1;
    UseConnection(db);
    if (locked && LockedLogon(QStringLiteral("admin"), QStringLiteral("admin"), ReadPasswordPolicy(), args[4]).code != 1)
        return 3;
    answerMessagesAsTheyShow();
    Desk desk{args[4].toInt(), args[5].toInt(), args[7]};
    const int rounds = args[6].toInt();
    const bool restart = args[1] != QLatin1String("QSQLITE");
    for (int r = 0; r < rounds; ++r)
        desk.round(r, restart && r == rounds / 2);
    return 0;
}
